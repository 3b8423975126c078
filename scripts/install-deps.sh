#!/usr/bin/env bash
# Installs the Debian 12 packages that building, running and testing Perchdock need.
# Does nothing when they are all installed already, so that repeated runs are fast.
set -euo pipefail

packages=(
  # Compilers and build tools
  build-essential cmake ninja-build pkg-config
  # Qt 6 (Core, Gui, Widgets, Network; Multimedia for the sounds; Svg) and OpenGL headers for Qt's CMake files
  qt6-base-dev qt6-multimedia-dev qt6-svg-dev libgl-dev
  # Feed documents
  libpugixml-dev
  # Opening documents, folders and web addresses with the desktop's programs
  xdg-utils
  # Tests and benchmarks
  libgtest-dev googletest libbenchmark-dev
  # End-to-end tests: a virtual X display, input and window queries, screenshots
  xvfb xauth xdotool x11-utils imagemagick
  # The feed server of the end-to-end feed test, on the loopback
  python3
  # Docking under a real window manager, and a tray host for the tray icon
  openbox trayer
  # The global hot key's key grab on X11
  libxcb1-dev
  # Accessibility test: a D-Bus session, the AT-SPI bus and its Python client
  dbus at-spi2-core python3-gi gir1.2-atspi-2.0
  # Packaging: checking the desktop entry and the AppStream metadata (dpkg-shlibdeps comes with build-essential)
  desktop-file-utils appstream
  # Fuzzing: clang with libFuzzer and the sanitizer runtimes
  clang-14 libclang-rt-14-dev
)

# One query for all: the names of those that are fully installed.
installed=" $(dpkg-query -W -f='${db:Status-Abbrev}${Package}\n' "${packages[@]}" 2>/dev/null |
              sed -n 's/^ii *//p' | tr '\n' ' ' || true) "
missing=()
for p in "${packages[@]}"; do
  [[ "$installed" == *" $p "* ]] || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=()
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then
    sudo=(sudo)
  else
    echo "install-deps: these packages are missing and installing them needs root: ${missing[*]}" >&2
    exit 1
  fi
fi

echo "install-deps: installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
export DEBIAN_FRONTEND=noninteractive
if ! { "${sudo[@]}" apt-get -qq update && \
       "${sudo[@]}" apt-get -qq install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
  cat "$log" >&2
  echo "install-deps: apt-get failed" >&2
  exit 1
fi
