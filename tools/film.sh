#!/usr/bin/env bash
# Makes a film of numbered frames with transparency, laid over a dark ground: film.sh PATTERN FILM
set -euo pipefail
ground=0x0b0d16
ffmpeg -y -loglevel error -framerate 30 -i "$1" -filter_complex \
  "color=$ground:s=16x16:r=30[dark];[dark][0:v]scale2ref[ground][frames];[ground][frames]overlay=shortest=1,format=yuv420p" \
  -c:v libx264 -preset fast -crf 20 -movflags +faststart "$2"
