#!/usr/bin/env bash
# Renders the drawings of this folder to the PNGs that resources.qrc takes in.
# Needs rsvg-convert (Debian: librsvg2-bin). The PNGs are committed beside their drawings,
# so only a changed drawing needs this.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

if ! command -v rsvg-convert >/dev/null; then
    echo "resources/render.sh: rsvg-convert is missing; install librsvg2-bin." >&2
    exit 1
fi

# render FILE WIDTH HEIGHT
render() {
    rsvg-convert --width "$2" --height "$3" --output "${1%.svg}.png" "$1"
}

for file in icons/*.svg; do
    render "$file" 96 96 # shown at 64 px
done
for file in buttons/*.svg; do
    render "$file" 220 88 # stretched over about 110 x 44 px
done
for file in pictures/*.svg; do # shown as large as they are drawn
    rsvg-convert --output "${file%.svg}.png" "$file"
done
render pendant.svg 128 128
