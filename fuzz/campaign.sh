#!/usr/bin/env bash
# Fuzzing campaign: runs each libFuzzer target of a fuzz build (-DPERCHDOCK_FUZZ=ON, clang, ASan+UBSan)
# for N minutes, one target at a time and at a low priority, and writes a summary.
#
#   fuzz/campaign.sh [-m MINUTES] [-b FUZZ_BUILD_DIR] [-o OUT_DIR] [-a] [TARGET ...]
#
#   -m  minutes per target (default 10)
#   -s  seconds per target instead (for a quick try of the script)
#   -b  the fuzz build folder (default ./build-fuzz); the targets are in its fuzz/ folder
#   -o  where logs, findings and the summary go (default <build>/fuzz/campaign)
#   -a  add to the summary already in OUT_DIR instead of starting a new one
#   TARGET  the targets to run (default: all of them, in the order below)
#
# Each target runs in libFuzzer's fork mode with one job, so that a finding does not end the run: every
# crash, timeout and out-of-memory input is kept under OUT_DIR/<target>/ and the fuzzing goes on. New
# coverage is merged into the scratch corpus of the build tree (fuzz/corpus-<seeds>), which the next
# campaign starts from; the seed folders of the repository are only read. Where ../shared/corpus exists
# beside the checkout, its feeds and links are read as extra seeds (by path; nothing is copied).
#
# The sanitizers run with a smaller quarantine, no filling of new memory and short allocation stacks,
# which more than doubles the executions of the targets that build a whole workspace; a finding is then
# reproduced with the default options for its full report. ASAN_OPTIONS in the environment replaces these.
#
# The summary (OUT_DIR/summary.md and summary.tsv) gives per target: minutes, executions, the scratch
# corpus's size before and after, and the findings.
set -u

here=$(cd "$(dirname "$0")" && pwd)
src=$(cd "$here/.." && pwd)
minutes=10
build=$PWD/build-fuzz
out=
seconds=
append=0
while getopts "m:s:b:o:ah" opt; do
    case $opt in
        m) minutes=$OPTARG ;;
        s) seconds=$OPTARG ;;
        b) build=$OPTARG ;;
        o) out=$OPTARG ;;
        a) append=1 ;;
        *) sed -n '2,20p' "$0"; exit 2 ;;
    esac
done
shift $((OPTIND - 1))
seconds=${seconds:-$((minutes * 60))}
build=$(cd "$build" && pwd) || { echo "no build folder $build" >&2; exit 2; }
out=${out:-$build/fuzz/campaign}
mkdir -p "$out"
out=$(cd "$out" && pwd)
shared=$(cd "$src/../shared/corpus" 2>/dev/null && pwd)

# target | seed folder under fuzz/corpus | max length | dictionary | extra seed folders under
# ../shared/corpus | scratch corpus name (default: the seed folder's), as in fuzz/CMakeLists.txt
table="fuzz_container_file|containers|65536|container.dict|
fuzz_workspace_file|workspace|65536|workspace.dict|
fuzz_lnk_file|links|16384||lnk|lnk
fuzz_feed_parser|feeds|65536|feed.dict|feeds
fuzz_color_file|colors|8192||
fuzz_url_file|links|16384||url|url
fuzz_desktop_file|links|16384|||desktop
fuzz_strip_html_tags|strip|4096||
fuzz_vni_text|vni|4096||"

all=$(cut -d'|' -f1 <<<"$table")
targets=("$@")
[ ${#targets[@]} -eq 0 ] && read -r -a targets <<<"$(echo $all)"

# The targets write their scratch files under TMPDIR; a folder of the campaign's own, in memory where
# possible, removed at the end.
tmp=$(mktemp -d "${TMPDIR_BASE:-/dev/shm}/perchdock-fuzz.XXXXXX" 2>/dev/null || mktemp -d)
trap 'rm -rf "$tmp"' EXIT

count() { find "$1" -maxdepth 1 -type f 2>/dev/null | wc -l; }

if [ $append -eq 0 ] || [ ! -f "$out/summary.tsv" ]; then
printf 'target\tminutes\texecutions\tcorpus_before\tcorpus_after\tcrashes\ttimeouts\tooms\tstatus\n' >"$out/summary.tsv"
{
    echo "# Fuzzing campaign"
    echo
    echo "Started $(date -u '+%Y-%m-%d %H:%M UTC') on $(nproc) cores; $seconds s per target, one at a time, nice 10;"
    echo "build $build ($(git -C "$src" rev-parse --short HEAD 2>/dev/null || echo '?'))."
    echo
    echo "| target | minutes | executions | corpus before → after | crashes | timeouts | ooms |"
    echo "|---|---|---|---|---|---|---|"
} >"$out/summary.md"
else
    : # the rows go on in the same table
fi

for t in "${targets[@]}"; do
    row=$(grep "^$t|" <<<"$table") || { echo "unknown target $t" >&2; continue; }
    IFS='|' read -r _ seeds maxlen dict extra scratchname <<<"$row"
    bin=$build/fuzz/$t
    if [ ! -x "$bin" ]; then
        echo "$t: not built ($bin)" >&2
        printf '%s\t0\t0\t0\t0\t0\t0\t0\tnot built\n' "$t" >>"$out/summary.tsv"
        continue
    fi
    scratch=$build/fuzz/corpus-${scratchname:-$seeds}
    art=$out/$t
    mkdir -p "$scratch" "$art"
    dirs=("$scratch" "$src/fuzz/corpus/$seeds")
    for e in $extra; do
        [ -n "$shared" ] && [ -d "$shared/$e" ] && dirs+=("$shared/$e")
    done
    opts=(-fork=1 -ignore_crashes=1 -ignore_timeouts=1 -ignore_ooms=1
          -max_total_time=$seconds -max_len="$maxlen" -timeout=10 -rss_limit_mb=2048
          -artifact_prefix="$art/" -print_final_stats=1)
    [ -n "$dict" ] && opts+=(-dict="$src/fuzz/$dict")
    before=$(count "$scratch")
    log=$out/$t.log
    echo "$(date -u +%H:%M:%S) $t: $seconds s, corpus $before, seeds ${dirs[*]:1}"
    start=$(date +%s)
    (cd "$art" && TMPDIR=$tmp LANG=C LC_ALL=C QT_QPA_PLATFORM=offscreen \
        ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:max_malloc_fill_size=0:malloc_context_size=3:quarantine_size_mb=32} UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1} \
        nice -n 10 "$bin" "${opts[@]}" "${dirs[@]}") >"$log" 2>&1
    rc=$?
    ran=$(awk -v s=$(( $(date +%s) - start )) 'BEGIN { printf "%.1f", s / 60 }')
    after=$(count "$scratch")
    # Fork mode reports "#<runs>: cov: ... oom/timeout/crash: a/b/c ..." lines; the last one is the total.
    last=$(grep -E '^#[0-9]+: cov:' "$log" | tail -1)
    execs=$(sed -E 's/^#([0-9]+):.*/\1/' <<<"$last")
    read -r ooms timeouts crashes < <(sed -E 's#.*oom/timeout/crash: ([0-9]+)/([0-9]+)/([0-9]+).*#\1 \2 \3#' <<<"$last")
    execs=${execs:-0} ooms=${ooms:-0} timeouts=${timeouts:-0} crashes=${crashes:-0}
    status=ok
    [ $rc -ne 0 ] && status="exit $rc"
    printf '%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\n' "$t" "$ran" "$execs" "$before" "$after" "$crashes" "$timeouts" "$ooms" "$status" >>"$out/summary.tsv"
    echo "| $t | $ran | $execs | $before → $after | $crashes | $timeouts | $ooms |" >>"$out/summary.md"
    echo "$(date -u +%H:%M:%S) $t: done ($status): $execs executions, corpus $before -> $after, crash/timeout/oom $crashes/$timeouts/$ooms"
done

{
    echo
    echo "Finished $(date -u '+%Y-%m-%d %H:%M UTC'). Findings are under $out/<target>/ (crash-*, timeout-*, oom-*, leak-*);"
    echo "each is reproduced by running the target on that one file."
    echo
    echo '```'
    for t in "${targets[@]}"; do
        ls "$out/$t" 2>/dev/null | grep -E '^(crash|timeout|oom|leak|slow-unit)-' | sed "s#^#$t/#"
    done
    echo '```'
} >>"$out/summary.md"
cat "$out/summary.md"
