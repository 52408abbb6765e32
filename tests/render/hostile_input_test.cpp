// Particles that no simulation makes: the rasteriser neither crashes nor touches what is not its own,
// whatever stands in a record. Meant to be run under the sanitizers, too.
#include "tests/render/canvas.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace vantle::test {
namespace {

constexpr float kInf = std::numeric_limits<float>::infinity();
const float kOdd[] = {NAN,    kInf,  -kInf,  0.0f,  -0.0f, -5.0f,      5.0f,   1e-40f,
                      1e-20f, 1e9f,  -1e9f,  1e20f, 3e38f, -3.0e38f,   12.25f, 2147483648.0f,
                      88.0f,  90.0f, 180.0f, 1e6f,  0.5f,  -0.000001f, 0.001f, 33.0f};

class OddFields {
 public:
  explicit OddFields(uint32_t seed) : random_(seed) {}

  float Next() { return random_() % 3 == 0 ? 10.0f : kOdd[random_() % std::size(kOdd)]; }

  ProjectedParticle Particle() {
    ProjectedParticle p{};
    for (float* field : {&p.sx, &p.sy, &p.size, &p.lineWidth, &p.r, &p.g, &p.b, &p.alpha, &p.rotX, &p.rotY,
                         &p.rotZ, &p.cocRadius, &p.depth, &p.random}) {
      *field = Next();
    }
    p.spriteFrame = random_() % 2 == 0 ? 0 : static_cast<int32_t>(random_());
    p.curvePoints = random_() % 2 == 0 ? 0 : static_cast<uint32_t>(random_());
    return p;
  }

 private:
  std::mt19937 random_;
};

Scene HostileScene(uint32_t seed, int32_t shape, const Canvas& sprite) {
  OddFields odd(seed);
  Scene scene = MakeScene(shape, static_cast<int32_t>(seed % 11), {});
  scene.settings.roundCap = seed % 2 == 0;
  std::vector<Vec2> trail;
  for (int i = 0; i < 6; ++i) trail.push_back({odd.Next(), odd.Next()});
  SetTrail(&scene, trail);
  for (int i = 0; i < 40; ++i) scene.particles.push_back(odd.Particle());
  scene.sprites.push_back(sprite.view());
  return scene;
}

TEST(HostileInput, NeverCrashesNorWritesOutsideTheRows) {
  for (uint32_t seed = 0; seed < 60; ++seed) {
    const PixelDepth depth = kDepths[seed % 3];
    const Canvas sprite(3, 5, depth);
    for (int32_t shape = 0; shape <= 11; ++shape) {
      const Scene scene = HostileScene(seed * 16 + static_cast<uint32_t>(shape), shape, sprite);
      for (const InstructionLevel level : Levels()) {
        const Canvas canvas(37, 29, depth, {.padding = 5, .offset = 1, .bottomUp = seed % 2 == 0});
        DrawAt(level, scene, canvas);
        ASSERT_TRUE(canvas.GuardsIntact()) << "shape " << shape << ", seed " << seed;
      }
    }
  }
}

TEST(HostileInput, LevelsAgreeInCodes) {
  for (uint32_t seed = 0; seed < 60; ++seed) {
    const PixelDepth depth = kDepths[seed % 2];
    const Canvas sprite(3, 5, depth);
    for (int32_t shape = 0; shape <= 11; ++shape) {
      const Scene scene = HostileScene(seed * 16 + static_cast<uint32_t>(shape), shape, sprite);
      const Canvas first(37, 29, depth);
      DrawAt(InstructionLevel::kSse2, scene, first);
      for (const InstructionLevel level : Levels()) {
        const Canvas canvas(37, 29, depth);
        DrawAt(level, scene, canvas);
        ASSERT_EQ(canvas.Rows(), first.Rows()) << "shape " << shape << ", seed " << seed;
      }
    }
  }
}

TEST(HostileInput, AnExtentThatIsNotANumberSkipsTheParticle) {
  for (int field = 0; field < 5; ++field) {
    for (const int32_t shape : {2, 3, 4, 5, 6, 8}) {
      ProjectedParticle p = MakeParticle(10, 10, 6);
      float* const fields[] = {&p.sx, &p.sy, &p.size, &p.rotZ, &p.cocRadius};
      *fields[field] = NAN;
      const Canvas canvas(20, 20, PixelDepth::k8);
      Draw(MakeScene(shape, BLEND_NORMAL, {p}), canvas);
      for (const std::byte b : canvas.Rows()) ASSERT_EQ(b, std::byte{0}) << "shape " << shape;
    }
  }
}

TEST(HostileInput, AParticleOfInfiniteSizeIsNotDrawn) {
  for (const int32_t shape : {2, 3, 4, 5, 6, 8}) {
    const Canvas canvas(20, 20, PixelDepth::k8);
    Draw(MakeScene(shape, BLEND_NORMAL, {MakeParticle(10, 10, kInf)}), canvas);
    for (const std::byte b : canvas.Rows()) ASSERT_EQ(b, std::byte{0}) << "shape " << shape;
  }
}

TEST(HostileInput, AHugeParticleFillsTheFrame) {
  for (const int32_t shape : {2, 3, 4, 5}) {
    const Canvas canvas(20, 20, PixelDepth::k8);
    Draw(MakeScene(shape, BLEND_NORMAL, {MakeParticle(10, 10, 1e9f)}), canvas);
    for (const std::byte b : canvas.Rows()) ASSERT_EQ(b, std::byte{255}) << "shape " << shape;
  }
}

TEST(HostileInput, TriangleOfNoSizeDrawsNothing) {
  Scene scene =
      MakeScene(SHAPE_TRIANGLE, BLEND_NORMAL, {MakeParticle(10, 10, 0), MakeParticle(10.5f, 9.25f, 0)});
  for (const InstructionLevel level : Levels()) {
    const Canvas canvas(20, 20, PixelDepth::k32);
    DrawAt(level, scene, canvas);
    for (const std::byte b : canvas.Rows()) ASSERT_EQ(b, std::byte{0});
  }
}

}  // namespace
}  // namespace vantle::test
