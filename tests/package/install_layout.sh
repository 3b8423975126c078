#!/usr/bin/env bash
# `cmake --install` of a build folder into a temporary prefix puts every file in its freedesktop place:
# the program, the restart helper and the program's own files together in lib/perchdock, the launcher
# link in bin, the desktop entry, the icon in the hicolor theme (scalable and eight PNG sizes) and the
# AppStream metadata. desktop-file-validate and `appstreamcli validate --no-net` accept the two
# metadata files.
#
# Usage: install_layout.sh <build folder>
set -uo pipefail
BUILD=${1:?usage: $0 <build folder>}
ID=io.github.perchdock.Perchdock
NAME=install_layout

fail() { printf 'FAIL: %s: %s\n' "$NAME" "$*" >&2; exit 1; }
for tool in desktop-file-validate appstreamcli; do
  command -v "$tool" >/dev/null || fail "needs $tool (scripts/install-deps.sh installs it)"
done

TMP=$(mktemp -d "${TMPDIR:-/tmp}/perchdock-$NAME.XXXXXX")
trap 'rm -rf "$TMP"' EXIT
P=$TMP/prefix
cmake --install "$BUILD" --prefix "$P" >"$TMP/install.log" 2>&1 || { cat "$TMP/install.log" >&2; fail "cmake --install failed"; }

# The program's folder.
PROG=$P/lib/perchdock
for f in perchdock Reloader; do
  [ -f "$PROG/$f" ] && [ -x "$PROG/$f" ] || fail "no executable $PROG/$f"
done
for f in alarm.wav click.wav rss.ico emptyicon.ico "Perchdock Home Page.html"; do
  [ -f "$PROG/$f" ] || fail "the program's file $f is not beside the program"
done
shopt -s nullglob
themes=("$PROG"/Skin/*.pkt)
[ ${#themes[@]} -ge 1 ] || fail "no themes in $PROG/Skin"
[ -e "$PROG/CMakeLists.txt" ] && fail "the assets' CMakeLists.txt was installed"

# The launcher: a relative link that reaches the program.
[ -L "$P/bin/perchdock" ] || fail "bin/perchdock is not a symbolic link"
target=$(readlink "$P/bin/perchdock")
[ "${target#/}" = "$target" ] || fail "bin/perchdock points at the absolute path $target"
[ "$(readlink -f "$P/bin/perchdock")" = "$(readlink -f "$PROG/perchdock")" ] || fail "bin/perchdock points at $target"

# The desktop entry.
DESKTOP=$P/share/applications/$ID.desktop
[ -f "$DESKTOP" ] || fail "no desktop entry $DESKTOP"
out=$(desktop-file-validate "$DESKTOP" 2>&1) || fail "desktop-file-validate: $out"
# Hints are fine; errors and warnings are not (it exits 0 on warnings).
if grep -Eq ': (error|warning):' <<<"$out"; then fail "desktop-file-validate: $out"; fi
grep -qx "Exec=perchdock" "$DESKTOP" || fail "the desktop entry does not start perchdock"
grep -qx "Icon=$ID" "$DESKTOP" || fail "the desktop entry does not name the icon $ID"

# The icon.
[ -f "$P/share/icons/hicolor/scalable/apps/$ID.svg" ] || fail "no scalable icon"
for n in 16 22 24 32 48 64 128 256; do
  png=$P/share/icons/hicolor/${n}x${n}/apps/$ID.png
  [ -f "$png" ] || fail "no ${n}x${n} icon"
  # Width and height from the PNG's header (bytes 16-23, big-endian).
  size=$(od -An -tu1 -j16 -N8 "$png" | awk '{printf "%d %d", $1*16777216+$2*65536+$3*256+$4, $5*16777216+$6*65536+$7*256+$8}')
  [ "$size" = "$n $n" ] || fail "the ${n}x${n} icon is $size pixels"
done

# The AppStream metadata, with the version of the build.
META=$P/share/metainfo/$ID.metainfo.xml
[ -f "$META" ] || fail "no AppStream metadata $META"
out=$(appstreamcli validate --no-net "$META" 2>&1) || fail "appstreamcli validate: $out"
grep -q "<launchable type=\"desktop-id\">$ID.desktop</launchable>" "$META" || fail "the metadata does not name the desktop entry"
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$BUILD/CMakeCache.txt")
[ -n "$version" ] || fail "no project version in $BUILD/CMakeCache.txt"
grep -q "<release version=\"$version\"" "$META" || fail "the metadata does not name the version $version"

echo "$NAME: the install into $P has every file in its place, and both metadata files validate"
