// draw_pictures FOLDER: draws the pictures of examples/ again.
#include "tools/pictures/pictures.h"

#include <cstdio>

namespace {

constexpr int kSkyPictures = 4;
constexpr int kSkySide = 240;

int failures = 0;

void Write(const pictures::Canvas& canvas, const std::string& path, int bits) {
  if (pictures::Save(canvas, path, bits)) return;
  std::fprintf(stderr, "draw_pictures: %s cannot be written\n", path.c_str());
  ++failures;
}

// Numbered pictures of 16 bits, four each.
void WriteSkies(const std::string& folder) {
  for (int i = 0; i < kSkyPictures; ++i) {
    const float t = static_cast<float>(i) / (kSkyPictures - 1);
    const std::string number = "000" + std::to_string(i + 1) + ".png";
    Write(pictures::DrawMoon(kSkySide, 1.9f * (1 - t)), folder + "moon." + number, 16);
    Write(pictures::DrawSun(kSkySide, t / 12), folder + "sun." + number, 16);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::string folder = argc > 1 ? argv[1] : "examples";
  Write(pictures::DrawFlower(1920, 1080), folder + "/demo/flower.png", 8);
  Write(pictures::DrawButterfly(1920, 1080), folder + "/demo/butterfly.png", 8);
  Write(pictures::DrawKnot(1280, 720), folder + "/planes/knot.png", 8);
  Write(pictures::DrawStar(1280, 720), folder + "/planes/star.png", 8);
  Write(pictures::DrawDusk(1280, 720), folder + "/flow/dusk.png", 8);
  WriteSkies(folder + "/sky/");
  return failures == 0 ? 0 : 6;
}
