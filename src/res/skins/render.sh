#!/usr/bin/env bash
# Renders the sheets of the skins from their drawings, pixel for pixel. Needs rsvg-convert; run by hand after a drawing
# has changed.
set -euo pipefail
cd "$(dirname "$0")"
for svg in */*.svg; do
  rsvg-convert "$svg" -o "${svg%.svg}.png"
done
