# Helpers of the tests of saves under trouble (kill_stress.sh, full_disk.sh): waiting until the
# program's saves have settled, and snapshots of the data folder. Sourced after lib.sh.

# A line per file that a save writes (the workspace and recovery files, the container files, their
# temporary files): its path, size, modification time and inode.
data_state() {
  find "$DATA" -maxdepth 2 -type f \( -name 'Perchdock.*' -o -path '*/Containers/*' \) -printf '%P %s %T@ %i\n' 2>/dev/null
}

# Waits until none of the files that saves write has changed for $2 seconds (default 0.5), at most $1
# seconds (default 10). False when the files did not settle in time.
wait_settled() {
  local limit=${1:-10} quiet=${2:-0.5} end last now stable=0 need
  need=$(awk -v q="$quiet" 'BEGIN {print int(q / 0.1 + 0.999)}')
  end=$((SECONDS + limit))
  last=$(data_state)
  while [ $SECONDS -lt $end ]; do
    sleep 0.1
    now=$(data_state)
    if [ "$now" = "$last" ]; then
      stable=$((stable + 1))
      [ "$stable" -ge "$need" ] && return 0
    else
      stable=0
      last=$now
    fi
  done
  return 1
}

# Copies the program's files of the data folder (the workspace and recovery files, Containers/) to $1.
snapshot_data() {
  local dest=$1
  rm -rf "$dest"
  mkdir -p "$dest/Containers"
  [ -e "$INI" ] && cp -p "$INI" "$dest/"
  [ -e "$REC" ] && cp -p "$REC" "$dest/"
  local files=("$CON_DIR"/*.con)
  [ -e "${files[0]}" ] && cp -p "${files[@]}" "$dest/Containers/"
  return 0
}

# Temporary files of unfinished writes in the data folder and Containers/.
temporary_files() {
  find "$DATA" -maxdepth 2 -type f \( -regex '.*/Perchdock\.\(ini\|REC\)\.[A-Za-z0-9]\{6\}' \
    -o -regex '.*/Containers/[0-9]+\.con\.[A-Za-z0-9]\{6\}' \) 2>/dev/null
}

# Fails unless workspace or recovery file $1 is whole: the start every such file has, CR LF at the end
# and the last setting's value.
check_whole_workspace_file() {
  starts_with "$1" "$INI_HEAD" || fail "${1##*/} does not start with [1.05] [Hidden] 0"
  ends_with_crlf "$1" || fail "${1##*/} does not end with CR LF"
  [ -n "$(ini_value "$1" '[RSSUseProxy]')" ] || fail "${1##*/} is cut short (no [RSSUseProxy] value)"
}

# A container file with the value of [Flipped] left out while [Folded] is 1: a folded container loads
# with its title on top and is saved so (it flips again when it opens where it does not fit).
container_as_loaded() {
  awk 'BEGIN {RS = "\r\n"} prev == "[Folded]" {folded = $0} prev == "[Flipped]" && folded == "1" {prev = ""; next}
       {print; prev = $0}' "$1"
}

# True when container files $1 and $2 hold the same container, as the program would load it.
same_container() { cmp -s <(container_as_loaded "$1") <(container_as_loaded "$2"); }
