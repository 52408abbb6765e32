#!/usr/bin/env bash
# word.sh OUT: the word of examples/ends, set in a free typeface over nothing. Needs ffmpeg and
# fonts-dejavu-core.
set -euo pipefail
font=$(dpkg -L fonts-dejavu-core | grep 'DejaVuSans-Bold.ttf$')
ffmpeg -y -loglevel error -f lavfi -i 'color=c=black@0:s=1280x720,format=rgba' -frames:v 1 \
  -vf "drawtext=fontfile=$font:text='VANTLE':fontsize=230:fontcolor=0xffd9a0:x=(w-text_w)/2:y=(h-text_h)/2" "$1"
