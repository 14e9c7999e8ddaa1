#!/usr/bin/env bash
# Renders the sheets of the skins from their drawings, pixel for pixel, and once more for monitors of 150, 200 and
# 300 %. Needs rsvg-convert; run by hand after a drawing has changed.
set -euo pipefail
cd "$(dirname "$0")"
for svg in */*.svg; do
  rsvg-convert "$svg" -o "${svg%.svg}.png"
  for zoom in 1.5 2 3; do
    rsvg-convert --zoom "$zoom" "$svg" -o "${svg%.svg}@${zoom}x.png"
  done
done
