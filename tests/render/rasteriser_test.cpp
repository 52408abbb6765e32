// Whole frames: against the plain rasteriser, over threads and instruction levels, and scenes whose answer is
// known on paper.
#include "render/rasteriser.h"

#include "base/parallel.h"
#include "tests/render/plain_rasteriser.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace vantle::test {
namespace {

constexpr int32_t kAnalytic[] = {1, 2, 3, 4, 5, 6, 8};

float Uniform(std::mt19937* random, float lo, float hi) {
  return std::uniform_real_distribution<float>(lo, hi)(*random);
}

ProjectedParticle RandomParticle(std::mt19937* random, int32_t width, int32_t height, bool turned,
                                 bool blurred) {
  ProjectedParticle p =
      MakeParticle(Uniform(random, -10.0f, static_cast<float>(width) + 10.0f),
                   Uniform(random, -10.0f, static_cast<float>(height) + 10.0f), Uniform(random, 0.1f, 14.0f));
  p.lineWidth = Uniform(random, 0.2f, 6.0f);
  p.r = Uniform(random, 0.0f, 1.0f);
  p.g = Uniform(random, 0.0f, 1.0f);
  p.b = Uniform(random, 0.0f, 1.0f);
  p.alpha = Uniform(random, 0.0f, 1.0f);
  if (turned) {
    p.rotX = Uniform(random, -100.0f, 100.0f);
    p.rotY = Uniform(random, -100.0f, 100.0f);
    p.rotZ = Uniform(random, -400.0f, 400.0f);
  }
  if (blurred) p.cocRadius = Uniform(random, 0.0f, 6.0f);
  return p;
}

Scene RandomScene(uint32_t seed, int32_t shape, int32_t mode, int32_t width, int32_t height, size_t count) {
  std::mt19937 random(seed);
  Scene scene = MakeScene(shape, mode, {});
  scene.settings.roundCap = seed % 2 == 0;
  for (size_t i = 0; i < count; ++i) {
    scene.particles.push_back(RandomParticle(&random, width, height, seed % 3 != 0, seed % 5 != 0));
  }
  return scene;
}

class ThreadCount {
 public:
  explicit ThreadCount([[maybe_unused]] int count) {
#ifndef VANTLE_STD_THREADS
    saved_ = omp_get_max_threads();
    omp_set_num_threads(count);
#endif
  }
  ~ThreadCount() {
#ifndef VANTLE_STD_THREADS
    omp_set_num_threads(saved_);
#endif
  }

 private:
  [[maybe_unused]] int saved_ = 1;
};

TEST(Rasteriser, EqualsThePlainOneForEveryShapeModeDepthAndLevel) {
  uint32_t seed = 0;
  for (const int32_t shape : kAnalytic) {
    for (int32_t mode = 0; mode <= 9; ++mode) {
      for (const PixelDepth depth : kDepths) {
        const Scene scene = RandomScene(++seed, shape, mode, 61, 47, 60);
        const Canvas plain(61, 47, depth);
        DrawPlainly(scene, plain);
        for (const InstructionLevel level : Levels()) {
          const Canvas fast(61, 47, depth);
          DrawAt(level, scene, fast);
          ASSERT_EQ(fast.Rows(), plain.Rows()) << "shape " << shape << ", mode " << mode << ", level "
                                               << static_cast<int>(level) << ", seed " << seed;
        }
      }
    }
  }
}

TEST(Rasteriser, EqualsThePlainOneForEveryNarrowWidth) {
  for (int32_t width = 1; width <= 20; ++width) {
    for (const PixelDepth depth : kDepths) {
      for (const int32_t height : {1, 2, 9}) {
        const Scene scene =
            RandomScene(static_cast<uint32_t>(width), SHAPE_SOFT_CIRCLE, BLEND_SCREEN, width, height, 20);
        const Canvas plain(width, height, depth);
        DrawPlainly(scene, plain);
        for (const InstructionLevel level : Levels()) {
          const Canvas fast(width, height, depth);
          DrawAt(level, scene, fast);
          ASSERT_EQ(fast.Rows(), plain.Rows()) << width << " x " << height;
          ASSERT_TRUE(fast.GuardsIntact());
        }
      }
    }
  }
}

TEST(Rasteriser, LargeParticlesSpanManyBlocks) {
  for (const int32_t shape : kAnalytic) {
    Scene scene = MakeScene(shape, BLEND_NORMAL, {MakeParticle(200.25f, 150.5f, 180.0f)});
    scene.particles[0].lineWidth = 40.0f;
    scene.particles[0].rotZ = shape % 2 == 0 ? 0.0f : 33.0f;
    scene.particles[0].cocRadius = 7.0f;
    const Canvas plain(413, 307, PixelDepth::k8);
    DrawPlainly(scene, plain);
    for (const InstructionLevel level : Levels()) {
      const Canvas fast(413, 307, PixelDepth::k8);
      DrawAt(level, scene, fast);
      EXPECT_EQ(fast.Rows(), plain.Rows()) << "shape " << shape;
    }
  }
}

struct Stroke {
  float sx, size, lineWidth, rotZ, cocRadius;
};

// Where the formulas leave what a stroke is, the rectangle must not know better.
TEST(Rasteriser, StrokesBeyondAllBoundsAreDrawnAsTheFormulasSay) {
  const Stroke strokes[] = {{30.0f, 10.0f, 1e30f, 0.0f, 0.0f},  {30.0f, 10.0f, 1e30f, 90.0f, 0.0f},
                            {30.0f, 10.0f, 4e9f, 0.0f, 0.0f},   {30.0f, 10.0f, 2.0f, 0.0f, 3e9f},
                            {30.0f, 1e30f, 6.0f, 0.0f, 0.0f},   {30.0f, 1e30f, 6.0f, 90.0f, 2.0f},
                            {5e8f, 10.0f, 1e9f, 0.0f, 0.0f},    {5e8f, 2.0f, 1e30f, 0.0f, 1e9f},
                            {30.0f, 1e30f, 1e30f, 33.0f, 1e30f}};
  for (const int32_t shape : {SHAPE_LINE, SHAPE_ARROW, SHAPE_TRIANGLE}) {
    for (const Stroke& stroke : strokes) {
      Scene scene = MakeScene(shape, BLEND_NORMAL, {MakeParticle(stroke.sx, 20.0f, stroke.size)});
      scene.settings.roundCap = false;
      scene.particles[0].lineWidth = stroke.lineWidth;
      scene.particles[0].rotZ = stroke.rotZ;
      scene.particles[0].cocRadius = stroke.cocRadius;
      const Canvas plain(61, 47, PixelDepth::k8);
      DrawPlainly(scene, plain);
      for (const InstructionLevel level : Levels()) {
        const Canvas fast(61, 47, PixelDepth::k8);
        DrawAt(level, scene, fast);
        EXPECT_EQ(fast.Rows(), plain.Rows())
            << "shape " << shape << ", size " << stroke.size << ", width " << stroke.lineWidth;
      }
    }
  }
}

TEST(Rasteriser, TheNumberOfThreadsDoesNotShow) {
  for (const PixelDepth depth : kDepths) {
    const Scene scene = RandomScene(11, SHAPE_SOFT_CIRCLE, BLEND_OVERLAY, 640, 480, 4000);
    const Canvas one(640, 480, depth);
    {
      const ThreadCount threads(1);
      Draw(scene, one);
    }
    for (const int count : {2, 3, 8}) {
      const ThreadCount threads(count);
      for (int run = 0; run < 2; ++run) {
        const Canvas many(640, 480, depth);
        Draw(scene, many);
        ASSERT_EQ(many.Rows(), one.Rows()) << count << " threads";
      }
    }
  }
}

TEST(Rasteriser, ClearsToTransparentBlack) {
  for (const PixelDepth depth : kDepths) {
    const Canvas canvas(33, 9, depth);
    Draw(MakeScene(SHAPE_CIRCLE, BLEND_NORMAL, {}), canvas);
    for (const std::byte b : canvas.Rows()) ASSERT_EQ(b, std::byte{0});
    EXPECT_TRUE(canvas.GuardsIntact());
  }
}

TEST(Rasteriser, UnknownShapesLeaveTheFrameEmpty) {
  for (const int32_t shape : {-1, 0, 11, 99}) {
    const Canvas canvas(16, 16, PixelDepth::k8);
    Draw(MakeScene(shape, BLEND_NORMAL, {MakeParticle(8, 8, 5)}), canvas);
    for (const std::byte b : canvas.Rows()) ASSERT_EQ(b, std::byte{0});
  }
}

TEST(Rasteriser, WhiteAtFullAlphaIsFullCode) {
  const Scene scene = MakeScene(SHAPE_SQUARE, BLEND_NORMAL, {MakeParticle(8, 8, 5)});
  const Canvas eight(16, 16, PixelDepth::k8);
  const Canvas sixteen(16, 16, PixelDepth::k16);
  Draw(scene, eight);
  Draw(scene, sixteen);
  for (int channel = 0; channel < 4; ++channel) {
    EXPECT_EQ(eight.Code(8, 8, channel), 255);
    EXPECT_EQ(sixteen.Code(8, 8, channel), 32768);
  }
}

TEST(Rasteriser, WhiteAtHalfAlphaIsTruncated) {
  Scene scene = MakeScene(SHAPE_SQUARE, BLEND_NORMAL, {MakeParticle(8, 8, 5)});
  scene.particles[0].alpha = 0.5f;
  const Canvas canvas(16, 16, PixelDepth::k8);
  Draw(scene, canvas);
  EXPECT_EQ(canvas.Code(8, 8, 0), 127);
  for (int channel = 1; channel < 4; ++channel) EXPECT_EQ(canvas.Code(8, 8, channel), 255);
}

TEST(Rasteriser, QuantisesAfterEveryParticle) {
  // Alpha 0.1 three times: 25, then 0.0980 + 0.1 (1 - 0.0980) = 0.1882 -> 48, then 0.2694 -> 68. Kept in
  // floats it would be 0.271 -> 69.
  Scene scene = MakeScene(SHAPE_SQUARE, BLEND_NORMAL, {});
  scene.particles.assign(3, MakeParticle(8, 8, 5));
  for (ProjectedParticle& p : scene.particles) p.alpha = 0.1f;
  const Canvas canvas(16, 16, PixelDepth::k8);
  Draw(scene, canvas);
  EXPECT_EQ(canvas.Code(8, 8, 0), 68);
}

TEST(Rasteriser, AddInFloatGoesAboveOne) {
  Scene scene = MakeScene(SHAPE_SQUARE, BLEND_ADD, {});
  scene.particles.assign(3, MakeParticle(8, 8, 5));
  const Canvas canvas(16, 16, PixelDepth::k32);
  Draw(scene, canvas);
  EXPECT_EQ(canvas.Pixel(8, 8).r, 3.0f);
  EXPECT_EQ(canvas.Pixel(8, 8).a, 1.0f);
}

TEST(Rasteriser, LaterParticlesLieOnTop) {
  Scene scene = MakeScene(SHAPE_SQUARE, BLEND_NORMAL, {MakeParticle(8, 8, 5), MakeParticle(8, 8, 5)});
  scene.particles[0].g = scene.particles[0].b = 0.0f;
  scene.particles[1].r = scene.particles[1].b = 0.0f;
  const Canvas canvas(16, 16, PixelDepth::k8);
  Draw(scene, canvas);
  EXPECT_EQ(canvas.Code(8, 8, 1), 0);
  EXPECT_EQ(canvas.Code(8, 8, 2), 255);
}

TEST(Rasteriser, FaintParticlesLeaveThePixelsAlone) {
  Scene scene = MakeScene(SHAPE_SQUARE, BLEND_NORMAL, {MakeParticle(8, 8, 5)});
  scene.particles[0].alpha = 0.00099f;
  const Canvas canvas(16, 16, PixelDepth::k32);
  Draw(scene, canvas);
  for (const std::byte b : canvas.Rows()) ASSERT_EQ(b, std::byte{0});
}

double SumOfAlpha(const Canvas& canvas) {
  double sum = 0;
  for (int32_t y = 0; y < canvas.image().height; ++y) {
    for (int32_t x = 0; x < canvas.image().width; ++x) sum += double{canvas.Pixel(x, y).a};
  }
  return sum;
}

TEST(Rasteriser, AreasAreThoseOfTheFigures) {
  struct Case {
    int32_t shape;
    double area;
  };
  constexpr double kPi = 3.14159265358979;
  const Case cases[] = {{SHAPE_CIRCLE, kPi * 900}, {SHAPE_SOFT_CIRCLE, kPi * 900 / 3},
                        {SHAPE_SQUARE, 3600},      {SHAPE_TRIANGLE, 1.299038 * 900},
                        {SHAPE_LINE, 30 * 4},      {SHAPE_POINT, kPi}};
  for (const Case& c : cases) {
    Scene scene = MakeScene(c.shape, BLEND_NORMAL, {MakeParticle(50, 50, 30)});
    scene.particles[0].lineWidth = 4.0f;
    const Canvas canvas(101, 101, PixelDepth::k32);
    Draw(scene, canvas);
    const double tolerance = c.shape == SHAPE_LINE ? 0.05 : c.shape == SHAPE_POINT ? 0.1 : 0.01;
    EXPECT_NEAR(SumOfAlpha(canvas) / c.area, 1.0, tolerance) << "shape " << c.shape;
  }
}

TEST(Rasteriser, CutsAtAllFourSides) {
  const Canvas whole(60, 60, PixelDepth::k32);
  Draw(MakeScene(SHAPE_SOFT_CIRCLE, BLEND_NORMAL, {MakeParticle(30, 30, 12)}), whole);
  const Vec2 corners[] = {{0, 20}, {39, 20}, {20, 0}, {20, 39}, {0, 0}, {39, 39}};
  for (const Vec2 c : corners) {
    const Canvas cut(40, 40, PixelDepth::k32, {.padding = 16});
    Draw(MakeScene(SHAPE_SOFT_CIRCLE, BLEND_NORMAL, {MakeParticle(c.x, c.y, 12)}), cut);
    for (int32_t y = 0; y < 40; ++y) {
      for (int32_t x = 0; x < 40; ++x) {
        const int32_t wx = x + 30 - static_cast<int32_t>(c.x);
        const int32_t wy = y + 30 - static_cast<int32_t>(c.y);
        const bool known = wx >= 0 && wx < 60 && wy >= 0 && wy < 60;
        ASSERT_EQ(cut.Pixel(x, y).a, known ? whole.Pixel(wx, wy).a : 0.0f) << x << ", " << y;
      }
    }
    EXPECT_TRUE(cut.GuardsIntact());
  }
}

TEST(Rasteriser, OffScreenParticlesDrawNothing) {
  for (const int32_t shape : kAnalytic) {
    const Canvas canvas(20, 20, PixelDepth::k8, {.padding = 8});
    Draw(MakeScene(shape, BLEND_NORMAL,
                   {MakeParticle(-50, 10, 8), MakeParticle(70, 10, 8), MakeParticle(10, -50, 8),
                    MakeParticle(10, 70, 8)}),
         canvas);
    for (const std::byte b : canvas.Rows()) ASSERT_EQ(b, std::byte{0});
  }
}

}  // namespace
}  // namespace vantle::test
