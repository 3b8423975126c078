# Helpers that write a workspace file and container files by hand, in the program's file format, and
# check container files on disk. Sourced by end-to-end tests after lib.sh.

CON_DIR=$DATA/Containers

# Writes one line ended by CR LF per argument.
crlf_lines() { printf '%s\r\n' "$@"; }

# A number as the files store it: one blank in front when it is not negative, one blank behind.
# numv VAR NUMBER sets VAR (no subshell: the writers below run thousands of times).
numv() { if [ "${2#-}" = "$2" ]; then printf -v "$1" ' %s ' "$2"; else printf -v "$1" '%s ' "$2"; fi; }
num() { local v; numv v "$1"; printf '%s' "$v"; }

# write_workspace_file X Y W H BACKGROUND
# Writes Perchdock.ini with the window at X, Y and W by H twips, the workspace in colour BACKGROUND
# (a long, 0x00BBGGRR), no wallpaper, and nothing on the background.
write_workspace_file() {
  local x=$1 y=$2 w=$3 h=$4 back=$5
  mkdir -p "$DATA"
  crlf_lines '[1.05]' \
    '[Hidden]' 0 '[WindowState]' "$(num 0)" \
    '[X]' "$(num "$x")" '[Y]' "$(num "$y")" '[W]' "$(num "$w")" '[H]' "$(num "$h")" \
    '[Align]' 0 '[Capture]' 0 '[ConfirmDelete]' 1 '[EnableSounds]' OFF '[AutoExpand]' 0 '[GlobalHotkey]' 0 \
    '[AddNewToolbar]' 1 '[ExtractURLs]' 1 '[FoldOnClick]' 0 '[Translucent]' 0 '[Animate Dock]' 0 \
    '[Wide Docking Border]' 0 '[Undock Immediately]' 1 '[Taskbar]' 0 '[Buttons]' 'Plain White on Blue' \
    '[Font Size]' "$(num 10)" '[Font Name]' Verdana '[Large Icon Size]' "$(num 32)" '[LOCKED]' 0 \
    '[Background]' "$(num "$back")" '[PictureBorder]' "$(num 8388608)" '[ContainerFor]' "$(num 2688768)" \
    '[ContainerLabel]' "$(num 16777215)" '[DockingColor]' "$(num 16711680)" \
    '[ContainerTextBack]' "$(num 14810623)" '[ContainerTextFor]' "$(num 0)" '[Foreground]' "$(num 16777215)" \
    '[Wallpaper]' '' '[Stretch]' 0 '[ShowTime]' 0 '[DropShadow]' 0 '[ShowTags]' 1 '[Dbl-Click]' 1 \
    '[CollapseBeforeLaunch]' 0 '[ConfirmStartAllShortcuts]' 1 '[RSSOpenDirectlyOnSite]' 0 \
    '[RSSLoadOnStartup]' 0 '[RSSHighlight]' 1 '[RSSchkFullValue]' "$(num 0)" '[RSSchkHeadlineValue]' "$(num 1)" \
    '[RSSViewerOnTop]' "$(num 0)" '[RSSViewerX]' "$(num 1000)" '[RSSViewerY]' "$(num 1000)" \
    '[RSSViewerW]' "$(num 8295)" '[RSSViewerH]' "$(num 4665)" '[RSSUseProxy]' 0 >"$INI"
}

# The fields of the next container file; set them, then call write_container_file N.
# CON_NOTE holds the note's lines separated by newlines (empty: no text); CON_LINKS the number of
# [Link] records: web addresses (type 1) at LinkX CON_LINK_X and LinkY 400, 700, ... inside the container.
con_defaults() {
  CON_PARENT=-1 CON_NAME=Container CON_BACK=2688768 CON_FORE=16777215 CON_NOTE_ON=0 CON_NOTE=
  CON_FOLDED=0 CON_FLIPPED=0 CON_SHRINK=0 CON_X=600 CON_Y=200 CON_W=3000 CON_H=3000 CON_LINKS=0 CON_LINK_X=120
}

write_container_file() {
  local n=$1 k parent back fore x y w h lx ly line size type
  mkdir -p "$CON_DIR"
  if [ "$CON_PARENT" = -1 ]; then parent=-1; else numv parent "$CON_PARENT"; fi
  numv back "$CON_BACK"; numv fore "$CON_FORE"
  numv x "$CON_X"; numv y "$CON_Y"; numv w "$CON_W"; numv h "$CON_H"; numv size 10; numv type 1; numv lx "$CON_LINK_X"
  {
    crlf_lines '[1.05]' '[Container]' "$parent" '[Name]' "$CON_NAME" '[Backcolor]' "$back" \
      '[Forecolor]' "$fore" '[Icon]' '' '[CopyPath]' '' '[RefreshOnExpand]' False \
      '[NOTE ON]' "$CON_NOTE_ON" '[START Note]'
    # An empty note is stored as one blank line.
    if [ -z "$CON_NOTE" ]; then crlf_lines ''; else while IFS= read -r line; do crlf_lines "$line"; done <<<"$CON_NOTE"; fi
    crlf_lines '[END Note]' '[Folded]' "$CON_FOLDED" '[Flipped]' "$CON_FLIPPED" '[Shrink]' "$CON_SHRINK" \
      '[X]' "$x" '[Y]' "$y" '[W]' "$w" '[H]' "$h"
    for ((k = 0; k < CON_LINKS; k++)); do
      numv ly $((400 + 300 * k))
      crlf_lines '[Link]' '[Size]' "$size" '[LinkX]' "$lx" '[LinkY]' "$ly" \
        '[LinkLabel]' "Page $n.$k" '[LinkType]' "$type" '[LinkPath]' "https://example.org/$n/$k" \
        '[LinkParam]' '' '[Color]' -1 '[Bold]' 0 '[Confirm]' 0 '[Command]' ' 0 ' '[Icon]' '' \
        '[GROUP]' "tag$((n % 3))" '[EXCLUSIVE]' 0
    done
  } >"$CON_DIR/$n.con"
}

# check_container_files COUNT NAMES_FILE LINKS_FILE
# Checks every n.con for n < COUNT: it is whole (each line ends with CR LF; the version marker, every
# key of a container in its order, the note between its markers, the last pair [H] and then only whole
# [Link] records of 29 lines with their 14 keys in order) and it holds the name (line n+1 of
# NAMES_FILE) and the number of shortcuts (line n+1 of LINKS_FILE) that were written into it.
# Prints one line per problem and fails when there is one.
check_container_files() {
  local count=$1 names=$2 links=$3 n sizes=$E2E_TMP/con-sizes
  : >"$sizes"
  for ((n = 0; n < count; n++)); do
    [ -f "$CON_DIR/$n.con" ] || { echo "$n.con is missing"; return 1; }
  done
  for ((n = 0; n < count; n++)); do printf '%s\n' "$CON_DIR/$n.con"; done |
    { xargs -d '\n' stat -c '%s %n' >"$sizes" || true; }
  [ "$(wc -l <"$sizes")" -eq "$count" ] || { echo "could not read the sizes of the container files"; return 1; }
  LC_ALL=C awk -v count="$count" -v sizesfile="$sizes" -v namesfile="$names" -v linksfile="$links" '
    function problem(msg) { print FILENAME ": " msg; bad = 1; broken[FILENAME] = 1 }
    function finish(f,   n) {
      if (f == "" || (f in broken)) return
      if (bytes[f] != size[f]) { print f ": " size[f] " bytes, but its CR LF lines add up to " bytes[f] " (a line without CR LF)"; bad = 1; return }
      if (state != "records") { print f ": ends in the middle (after line " lines[f] ", state " state ")"; bad = 1; return }
      if (pos != 0) { print f ": ends inside a [Link] record (line " pos " of 29)"; bad = 1; return }
      n = f; sub(/.*\//, "", n); sub(/\.con$/, "", n)
      if (name[f] != expname[n]) { print f ": holds the name \"" name[f] "\", not \"" expname[n] "\""; bad = 1 }
      if (nlinks[f] != explinks[n]) { print f ": holds " nlinks[f] " shortcuts, not " explinks[n]; bad = 1 }
    }
    BEGIN {
      while ((getline line < sizesfile) > 0) { split(line, a, " "); size[a[2]] = a[1] }
      i = 0; while ((getline line < namesfile) > 0) expname[i++] = line
      i = 0; while ((getline line < linksfile) > 0) explinks[i++] = line
      nhead = split("[Container]|[Name]|[Backcolor]|[Forecolor]|[Icon]|[CopyPath]|[RefreshOnExpand]|[NOTE ON]", head, "|")
      ntail = split("[Folded] [Flipped] [Shrink] [X] [Y] [W] [H]", tail, " ")
      RS = "\r\n" # for the container files; the lists above are read with LF lines
      split("[Size] [LinkX] [LinkY] [LinkLabel] [LinkType] [LinkPath] [LinkParam] [Color] [Bold] [Confirm] [Command] [Icon] [GROUP] [EXCLUSIVE]", linkkeys, " ")
    }
    FNR == 1 { finish(prev); prev = FILENAME; state = "version"; step = 0; pos = 0; nlinks[FILENAME] = 0; bytes[FILENAME] = 0 }
    {
      # RS "\r\n" alone does not tell a cut-off last line: the byte count against the size does.
      bytes[FILENAME] += length($0) + 2; lines[FILENAME] = FNR
      if (FILENAME in broken) next
      if (index($0, "\n") || index($0, "\r")) { problem("line " FNR " holds a bare CR or LF"); next }
      if (state == "version") { if ($0 != "[1.05]") problem("line 1 is \"" $0 "\", not [1.05]"); state = "head"; step = 1; expectvalue = 0; next }
      if (state == "head") {
        if (expectvalue) { if (head[step] == "[Name]") name[FILENAME] = $0; expectvalue = 0; step++; if (step > nhead) state = "note"; next }
        if ($0 != head[step]) { problem("line " FNR " is \"" $0 "\", not " head[step]); next }
        expectvalue = 1; next
      }
      if (state == "note") { if ($0 != "[START Note]") problem("line " FNR " is not [START Note]"); state = "notetext"; next }
      if (state == "notetext") { if ($0 == "[END Note]") { state = "tail"; step = 1; expectvalue = 0 } next }
      if (state == "tail") {
        if (expectvalue) { expectvalue = 0; step++; if (step > ntail) state = "records"; next }
        if ($0 != tail[step]) { problem("line " FNR " is \"" $0 "\", not " tail[step]); next }
        expectvalue = 1; next
      }
      if (state == "records") {
        if (pos == 0) { if ($0 != "[Link]") { problem("line " FNR " is \"" $0 "\", not a [Link] record"); next } nlinks[FILENAME]++; pos = 1; next }
        # Lines 2, 4, ... 28 of a record are its keys, 3, 5, ... 29 their values.
        if (pos % 2 == 1 && $0 != linkkeys[(pos + 1) / 2]) { problem("line " FNR " is \"" $0 "\", not " linkkeys[(pos + 1) / 2]); next }
        pos++; if (pos == 29) pos = 0; next
      }
    }
    END {
      finish(prev)
      for (f in size) if (!(f in lines)) { print f ": is empty"; bad = 1 }
      exit bad
    }
  ' $(awk '{print $2}' "$sizes")
}
