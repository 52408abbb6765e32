// A picture in memory of its own, with guard bytes around every row, and one-line scenes to draw on it.
#pragma once

#include "base/pixels.h"
#include "render/rasteriser.h"

#include <cstdint>
#include <vector>

namespace vantle::test {

inline constexpr std::byte kGuard{0xA5};

/// How a picture lies in memory.
struct Layout {
  int64_t padding = 0;  ///< bytes after each row
  int64_t offset = 0;   ///< bytes before the first row, to spoil the alignment
  bool bottomUp = false;
};

class Canvas {
 public:
  Canvas(int32_t width, int32_t height, PixelDepth depth, Layout layout = {})
      : rowBytes_(static_cast<int64_t>(width) * static_cast<int64_t>(PixelBytes(depth))),
        pitch_(rowBytes_ + layout.padding),
        offset_(layout.offset),
        bytes_(static_cast<size_t>(pitch_ * height + layout.offset + 64), kGuard) {
    image_ = {bytes_.data() + offset_, pitch_, width, height, depth};
    if (layout.bottomUp) {
      image_.data += pitch_ * (height - 1);
      image_.rowBytes = -pitch_;
    }
  }

  const MutableImage& image() const { return image_; }

  ImageView view() const { return {image_.data, image_.rowBytes, image_.width, image_.height, image_.depth}; }

  std::byte* At(int32_t x, int32_t y) const {
    return Row(image_, y) + static_cast<int64_t>(x) * static_cast<int64_t>(PixelBytes(image_.depth));
  }

  /// The pixel in 0..1.
  FloatPixel Pixel(int32_t x, int32_t y) const {
    if (image_.depth == PixelDepth::k8) return LoadPixel<Format8>(At(x, y));
    if (image_.depth == PixelDepth::k16) return LoadPixel<Format16>(At(x, y));
    return LoadPixel<Format32>(At(x, y));
  }

  /// A channel's raw code: 0 alpha, 1 red, 2 green, 3 blue.
  int32_t Code(int32_t x, int32_t y, int32_t channel) const {
    if (image_.depth == PixelDepth::k8) return static_cast<int32_t>(At(x, y)[channel]);
    uint16_t code = 0;
    std::memcpy(&code, At(x, y) + 2 * channel, sizeof(code));
    return code;
  }

  void Set(int32_t x, int32_t y, const FloatPixel& p) const {
    if (image_.depth == PixelDepth::k8) return StorePixel<Format8>(At(x, y), p);
    if (image_.depth == PixelDepth::k16) return StorePixel<Format16>(At(x, y), p);
    return StorePixel<Format32>(At(x, y), p);
  }

  /// The rows' bytes, top to bottom.
  std::vector<std::byte> Rows() const {
    std::vector<std::byte> rows;
    for (int32_t y = 0; y < image_.height; ++y)
      rows.insert(rows.end(), Row(image_, y), Row(image_, y) + rowBytes_);
    return rows;
  }

  /// Whether every byte outside the rows is as it was.
  bool GuardsIntact() const {
    for (int64_t i = 0; i < static_cast<int64_t>(bytes_.size()); ++i) {
      const int64_t inRows = i - offset_;
      const bool padding = inRows < 0 || inRows >= pitch_ * image_.height || inRows % pitch_ >= rowBytes_;
      if (padding && bytes_[static_cast<size_t>(i)] != kGuard) return false;
    }
    return true;
  }

 private:
  int64_t rowBytes_;
  int64_t pitch_;
  int64_t offset_;
  std::vector<std::byte> bytes_;
  MutableImage image_;
};

/// What a frame is drawn from.
struct Scene {
  FrameSettings settings{};
  std::vector<ProjectedParticle> particles;
  CurvePointPool trails;
  std::vector<ImageView> sprites;
};

inline ProjectedParticle MakeParticle(float sx, float sy, float size) {
  ProjectedParticle p{};
  p.sx = sx;
  p.sy = sy;
  p.size = size;
  p.lineWidth = 2.0f;
  p.r = p.g = p.b = p.alpha = 1.0f;
  p.spriteFrame = -1;
  return p;
}

inline Scene MakeScene(int32_t shape, int32_t mode, std::vector<ProjectedParticle> particles) {
  Scene scene;
  scene.settings.shape = shape;
  scene.settings.transferMode = mode;
  scene.particles = std::move(particles);
  return scene;
}

/// Gives every particle in turn the same trail.
inline void SetTrail(Scene* scene, const std::vector<Vec2>& points) {
  scene->trails.counts.Reset(1);
  scene->trails.points.Reset(static_cast<size_t>(kMaxTrailPoints));
  scene->trails.counts[0] = static_cast<uint8_t>(points.size());
  for (size_t i = 0; i < points.size(); ++i) scene->trails.points[i] = points[i];
  for (ProjectedParticle& p : scene->particles) p.curvePoints = 0;
}

inline void Draw(const Scene& scene, const Canvas& canvas) {
  RenderParticlesCpu(canvas.image(), scene.particles.data(), scene.particles.size(), scene.trails,
                     scene.settings, scene.sprites.data(), scene.sprites.size());
}

inline void DrawAt(InstructionLevel level, const Scene& scene, const Canvas& canvas) {
  RenderParticlesAtLevel(level, canvas.image(), scene.particles.data(), scene.particles.size(), scene.trails,
                         scene.settings, scene.sprites.data(), scene.sprites.size());
}

/// The levels that this processor has.
inline std::vector<InstructionLevel> Levels() {
  std::vector<InstructionLevel> levels;
  for (InstructionLevel level :
       {InstructionLevel::kSse2, InstructionLevel::kAvx2, InstructionLevel::kAvx512}) {
    if (level <= BestInstructionLevel()) levels.push_back(level);
  }
  return levels;
}

inline constexpr PixelDepth kDepths[] = {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32};

}  // namespace vantle::test
