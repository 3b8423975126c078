#!/usr/bin/env bash
# Builds Perchdock and runs every test:
#   build-ci    optimised, warnings as errors: unit tests, GUI tests (offscreen) and end-to-end tests
#   build-asan  AddressSanitizer + UndefinedBehaviorSanitizer: the same tests
#   build-ci-fuzz clang with libFuzzer: a short run of each fuzz target over its seeds
# No display is needed: unit and GUI tests use Qt's offscreen platform, and each end-to-end test starts
# its own Xvfb. Exits non-zero when a build or a test fails.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
jobs=$(nproc)

"$root/scripts/install-deps.sh" || exit 1

# The same results with and without a desktop session.
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
export LANG=C.UTF-8 LC_ALL=C.UTF-8
# A sanitizer report (an error, a leak at exit, undefined behaviour) fails the test that caused it.
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}

failed=()
started=$SECONDS

# suite <name> [<build targets...>] -- <cmake arguments...>
suite() {
  local name=$1; shift
  local targets=()
  while [ "$1" != "--" ]; do targets+=(--target "$1"); shift; done
  shift
  local dir=$root/$name t0=$SECONDS
  echo "=== $name: configure and build"
  mkdir -p "$dir"
  if ! cmake -S "$root" -B "$dir" -G Ninja "$@" >"$dir/configure.log" 2>&1; then
    cat "$dir/configure.log"; failed+=("$name (configure)"); return
  fi
  if ! cmake --build "$dir" -j "$jobs" "${targets[@]}"; then
    failed+=("$name (build)"); return
  fi
  echo "=== $name: tests"
  if ! (cd "$dir" && ctest --output-on-failure --no-tests=error -j "$jobs" --timeout 300); then
    failed+=("$name (tests)")
  fi
  echo "=== $name: $((SECONDS - t0)) s"
}

suite build-ci -- \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPERCHDOCK_WERROR=ON -DPERCHDOCK_SANITIZE=OFF -DPERCHDOCK_BENCH=ON

# The .deb made from build-ci installs with apt, starts on Xvfb and is removed again (needs root or sudo).
echo "=== build-ci: .deb install test"
bash "$root/tests/package/deb_install.sh" "$root/build-ci" || failed+=("build-ci (.deb install)")

suite build-asan -- \
  -DCMAKE_BUILD_TYPE=Debug -DPERCHDOCK_SANITIZE=ON -DPERCHDOCK_WERROR=OFF -DPERCHDOCK_BENCH=OFF

# The fuzz targets need clang; only they (fuzz/all) and what they link are built.
CC=clang-14 CXX=clang++-14 suite build-ci-fuzz fuzz/all -- \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPERCHDOCK_FUZZ=ON -DPERCHDOCK_TESTS=OFF -DPERCHDOCK_BENCH=OFF

echo "=== all: $((SECONDS - started)) s"
if [ ${#failed[@]} -gt 0 ]; then
  echo "FAILED: ${failed[*]}" >&2
  exit 1
fi
echo "All tests passed."
