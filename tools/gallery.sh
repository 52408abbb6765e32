# The README's pictures: frames of the examples over a dark ground, scaled down, in 255 colours. Sourced by
# ./run, not run.

ground=0x0b0d16

# Flat FRAME SIZE SMALL OUT: one frame over the ground, scaled by averaging.
Flat() {
  ffmpeg -y -loglevel error -i "$1" -filter_complex \
    "color=$ground:s=$2[dark];[dark][0:v]overlay=shortest=1:format=gbrp,format=rgb24" -frames:v 1 out/flat.png
  ffmpeg -y -loglevel error -i out/flat.png -vf "scale=$3:flags=area" "$4"
}

Palette() {
  ffmpeg -y -loglevel error -i "$1" -vf "split[a][b];[a]palettegen=max_colors=255:reserve_transparent=0[p];\
[b][p]paletteuse=dither=bayer:bayer_scale=5" -frames:v 1 -pred mixed -compression_level 9 "$2"
}

RenderGallery() {
  local example
  for example in demo planes flow sky camera ends; do
    build/release/bin/vantle render "examples/$example/scene.json" -o "out/$example/f.%04d.png" --resume --quiet
  done
}

DrawGallery() {
  local n inputs=()
  for n in 0000 0024 0030 0036 0044 0059; do
    Flat "out/demo/f.$n.png" 1920x1080 400:225 "out/small.$n.png"
    inputs+=(-i "out/small.$n.png")
  done
  ffmpeg -y -loglevel error "${inputs[@]}" -filter_complex \
    "xstack=inputs=6:layout=0_0|400_0|800_0|0_225|400_225|800_225" -frames:v 1 out/strip.png
  Palette out/strip.png docs/images/demo.png
  Flat out/planes/f.0017.png 1280x720 640:360 out/small.png && Palette out/small.png docs/images/planes.png
  Flat out/flow/f.0030.png 1280x720 640:360 out/small.png && Palette out/small.png docs/images/flow.png
  Flat out/sky/f.0016.png 960x540 640:360 out/small.png && Palette out/small.png docs/images/sky.png
  Flat out/camera/f.0020.png 1280x720 640:360 out/small.png && Palette out/small.png docs/images/camera.png
  Flat out/ends/f.0024.png 1280x720 640:360 out/small.png && Palette out/small.png docs/images/ends.png
  Flat out/demo/f.0029.png 1920x1080 640:360 out/small.png && Palette out/small.png docs/images/veils.png
}

Gallery() {
  Install "${buildPackages[@]}" "${filmPackages[@]}"
  Build --target vantle_program vantle_effect
  Step "render the examples" RenderGallery
  Step "draw the README's pictures" DrawGallery
}
