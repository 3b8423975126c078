#!/usr/bin/env bash
# Renders the application icon (io.github.perchdock.Perchdock.svg, drawn by hand) into the PNG sizes of
# the hicolor icon theme, under hicolor/<N>x<N>/apps/. The PNGs are committed, so that building and
# packaging need no SVG renderer; run this again after changing the SVG.
# Needs rsvg-convert (Debian package librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")"
id=io.github.perchdock.Perchdock
command -v rsvg-convert >/dev/null || { echo "make-icons: rsvg-convert is missing (apt-get install librsvg2-bin)" >&2; exit 1; }
for n in 16 22 24 32 48 64 128 256; do
  mkdir -p "hicolor/${n}x${n}/apps"
  rsvg-convert -w "$n" -h "$n" -o "hicolor/${n}x${n}/apps/$id.png" "$id.svg"
done
echo "make-icons: rendered $(ls hicolor/*/apps/$id.png | wc -l) sizes"
