// Solid layers laid over a picture, against sums worked out by hand.

#include "render/solid_layer.h"

#include "render/transfer.h"
#include "tests/render/canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#ifndef VANTLE_STD_THREADS
#include <omp.h>
#endif

namespace vantle::test {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();

/// Texel (0, 0) at output position (left, top), nothing turned; concerns the whole output.
SolidPlacement At(double left, double top, const Canvas& output) {
  return {{1, 0, -left, 0, 1, -top, 0, 0, 1}, 0, output.image().width - 1, 0, output.image().height - 1};
}

void Fill(const Canvas& canvas, const FloatPixel& p) {
  for (int32_t y = 0; y < canvas.image().height; ++y) {
    for (int32_t x = 0; x < canvas.image().width; ++x) canvas.Set(x, y, p);
  }
}

/// Every pixel of its own; opaque unless `alphas` are random too.
void FillAtRandom(const Canvas& canvas, bool alphas, uint32_t seed) {
  std::mt19937 random(seed);
  const auto unit = [&] { return static_cast<float>(random() % 32769) / 32768.0f; };
  for (int32_t y = 0; y < canvas.image().height; ++y) {
    for (int32_t x = 0; x < canvas.image().width; ++x) {
      canvas.Set(x, y, {alphas ? unit() : 1.0f, unit(), unit(), unit()});
    }
  }
}

float CodeOf(PixelDepth depth) {
  return depth == PixelDepth::k8 ? 1.0f / 255.0f : 1.0f / 32768.0f;
}

TEST(SolidLayer, AtRestAnOpaqueLayerComesOutAsItIs) {
  for (const PixelDepth depth : kDepths) {
    const Canvas layer(37, 23, depth), output(37, 23, depth);
    FillAtRandom(layer, false, 1);
    FillAtRandom(output, true, 2);
    DrawSolidLayer(output.image(), layer.view(), At(0, 0, output), 1.0f);
    EXPECT_EQ(output.Rows(), layer.Rows());
    EXPECT_TRUE(output.GuardsIntact());
  }
}

TEST(SolidLayer, EveryCodeComesOutAsItIs) {
  const Canvas layer(256, 129, PixelDepth::k16), output(256, 129, PixelDepth::k16);
  const Canvas bytes(256, 1, PixelDepth::k8), byteOutput(256, 1, PixelDepth::k8);
  for (int32_t code = 0; code < 256 * 129; ++code) {
    const float v = std::min(static_cast<float>(code) / 32768.0f, 1.0f);
    layer.Set(code % 256, code / 256, {1.0f, v, 1.0f - v, v});
  }
  for (int32_t code = 0; code < 256; ++code) {
    std::byte* at = bytes.At(code, 0);
    at[0] = std::byte{255};
    for (int i = 1; i < 4; ++i) at[i] = static_cast<std::byte>(code);
  }
  Fill(output, {});
  Fill(byteOutput, {});
  DrawSolidLayer(output.image(), layer.view(), At(0, 0, output), 1.0f);
  DrawSolidLayer(byteOutput.image(), bytes.view(), At(0, 0, byteOutput), 1.0f);
  EXPECT_EQ(output.Rows(), layer.Rows());
  EXPECT_EQ(byteOutput.Rows(), bytes.Rows());
}

TEST(SolidLayer, AtRestATranslucentLayerComesOutToOneCode) {
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16}) {
    const Canvas layer(37, 23, depth), output(37, 23, depth);
    FillAtRandom(layer, true, 3);
    Fill(output, {});
    DrawSolidLayer(output.image(), layer.view(), At(0, 0, output), 1.0f);
    for (int32_t y = 0; y < 23; ++y) {
      for (int32_t x = 0; x < 37; ++x) {
        // Too faint a pixel has no colour to be compared.
        if (layer.Pixel(x, y).a < 0.002f) continue;
        for (int32_t channel = 0; channel < 4; ++channel) {
          const int32_t expected = layer.Code(x, y, channel), found = output.Code(x, y, channel);
          ASSERT_TRUE(found == expected || found == expected - 1) << found << " for " << expected;
        }
      }
    }
  }
}

TEST(SolidLayer, BetweenTexelsItIsBilinear) {
  const Canvas layer(2, 2, PixelDepth::k32), output(1, 1, PixelDepth::k32);
  layer.Set(0, 0, {1, 0.0f, 0.0f, 1.0f});
  layer.Set(1, 0, {1, 1.0f, 0.0f, 0.0f});
  layer.Set(0, 1, {1, 0.0f, 1.0f, 0.0f});
  layer.Set(1, 1, {1, 0.0f, 0.0f, 0.5f});
  Fill(output, {});
  DrawSolidLayer(output.image(), layer.view(), At(-0.25, -0.75, output), 1.0f);
  const FloatPixel p = output.Pixel(0, 0);
  EXPECT_FLOAT_EQ(p.a, 1.0f);
  EXPECT_FLOAT_EQ(p.r, 0.25f * 0.25f);
  EXPECT_FLOAT_EQ(p.g, 0.75f * 0.75f);
  EXPECT_FLOAT_EQ(p.b, 0.75f * 0.25f * 1.0f + 0.25f * 0.75f * 0.5f);
}

TEST(SolidLayer, WhiteOverTransparentBlackDoesNotDarkenAtItsEdge) {
  for (const PixelDepth depth : kDepths) {
    const Canvas layer(4, 1, depth), output(4, 1, depth);
    Fill(layer, {});
    layer.Set(0, 0, {1, 1, 1, 1});
    layer.Set(1, 0, {1, 1, 1, 1});
    Fill(output, {});
    DrawSolidLayer(output.image(), layer.view(), At(0.5, 0, output), 1.0f);
    // Pixel 1 lies between the white texels, pixel 2 between the last white one and the first empty one.
    for (const int32_t x : {1, 2}) {
      const FloatPixel p = output.Pixel(x, 0);
      EXPECT_EQ(p.r, 1.0f);
      EXPECT_EQ(p.g, 1.0f);
      EXPECT_EQ(p.b, 1.0f);
      EXPECT_NEAR(p.a, x == 1 ? 1.0f : 0.5f, CodeOf(PixelDepth::k8));
    }
    EXPECT_EQ(output.Pixel(3, 0).a, 0.0f);
  }
}

TEST(SolidLayer, TheLastTexelIsRepeatedWhereItsNeighbourIsMissing) {
  const Canvas layer(2, 2, PixelDepth::k32), output(4, 4, PixelDepth::k32);
  Fill(layer, {1, 0.25f, 0.25f, 0.25f});
  layer.Set(1, 1, {1, 0.75f, 0.5f, 0.125f});
  Fill(output, {});
  DrawSolidLayer(output.image(), layer.view(), At(0.5, 0.5, output), 1.0f);
  const FloatPixel corner = output.Pixel(2, 2);
  EXPECT_EQ(corner.a, 1.0f);
  EXPECT_EQ(corner.r, 0.75f);
  EXPECT_EQ(corner.g, 0.5f);
  EXPECT_EQ(corner.b, 0.125f);
}

/// Which of the output's columns a layer of `width` opaque texels at `left` covers.
std::vector<int32_t> CoveredColumns(double left, int32_t width) {
  const Canvas layer(width, 1, PixelDepth::k8), output(8, 1, PixelDepth::k8);
  Fill(layer, {1, 1, 1, 1});
  Fill(output, {});
  DrawSolidLayer(output.image(), layer.view(), At(left, 0, output), 1.0f);
  std::vector<int32_t> columns;
  for (int32_t x = 0; x < 8; ++x) {
    if (output.Pixel(x, 0).a > 0.0f) columns.push_back(x);
  }
  return columns;
}

TEST(SolidLayer, TheFirstEdgeIsInsideAndTheLastOutside) {
  using Columns = std::vector<int32_t>;
  EXPECT_EQ(CoveredColumns(2, 3), (Columns{2, 3, 4}));
  EXPECT_EQ(CoveredColumns(2.25, 3), (Columns{3, 4, 5}));
  EXPECT_EQ(CoveredColumns(1.75, 3), (Columns{2, 3, 4}));
  EXPECT_EQ(CoveredColumns(-2, 3), (Columns{0}));
  EXPECT_EQ(CoveredColumns(7, 3), (Columns{7}));
}

TEST(SolidLayer, PositionsWithinABillionthOfAnEdgeLieOnIt) {
  using Columns = std::vector<int32_t>;
  EXPECT_EQ(CoveredColumns(2 + 5e-10, 3), (Columns{2, 3, 4}));
  EXPECT_EQ(CoveredColumns(2 - 5e-10, 3), (Columns{2, 3, 4}));
  EXPECT_EQ(CoveredColumns(2 + 5e-9, 3), (Columns{3, 4, 5}));
  EXPECT_EQ(CoveredColumns(2 - 5e-9, 3), (Columns{2, 3, 4}));
}

TEST(SolidLayer, PixelsOutsideItStayAsTheyAre) {
  for (const PixelDepth depth : kDepths) {
    const Canvas layer(5, 4, depth), output(20, 16, depth, {.padding = 13, .offset = 3, .bottomUp = true});
    const Canvas before(20, 16, depth);
    FillAtRandom(layer, false, 4);
    FillAtRandom(output, true, 5);
    FillAtRandom(before, true, 5);
    DrawSolidLayer(output.image(), layer.view(), At(7, 6, output), 0.5f);
    for (int32_t y = 0; y < 16; ++y) {
      for (int32_t x = 0; x < 20; ++x) {
        const bool inside = x >= 7 && x < 12 && y >= 6 && y < 10;
        const bool same = std::equal(output.At(x, y), output.At(x, y) + PixelBytes(depth), before.At(x, y));
        EXPECT_EQ(same, !inside) << x << ", " << y;
      }
    }
    EXPECT_TRUE(output.GuardsIntact());
  }
}

TEST(SolidLayer, IsLaidOverByItsOpacity) {
  const Canvas layer(1, 1, PixelDepth::k32), output(1, 1, PixelDepth::k32);
  layer.Set(0, 0, {0.5f, 1.0f, 0.0f, 0.5f});
  output.Set(0, 0, {0.5f, 0.0f, 1.0f, 0.5f});
  DrawSolidLayer(output.image(), layer.view(), At(0, 0, output), 0.5f);
  const FloatPixel p = output.Pixel(0, 0);
  const float outA = 0.25f + 0.5f * 0.75f;
  EXPECT_FLOAT_EQ(p.a, outA);
  EXPECT_FLOAT_EQ(p.r, 0.25f / outA);
  EXPECT_FLOAT_EQ(p.g, 0.5f * 0.75f / outA);
  EXPECT_FLOAT_EQ(p.b, 0.5f);
}

TEST(SolidLayer, IsTruncatedToCodes) {
  const Canvas layer(1, 1, PixelDepth::k8), output(1, 1, PixelDepth::k8);
  layer.Set(0, 0, {1, 1, 1, 1});
  output.Set(0, 0, {1, 0, 0, 0});
  DrawSolidLayer(output.image(), layer.view(), At(0, 0, output), 0.5f);
  EXPECT_EQ(output.Code(0, 0, 0), 255);
  EXPECT_EQ(output.Code(0, 0, 1), 127) << "127.5";
}

TEST(SolidLayer, FaintOnesLeaveThePixelsAlone) {
  const Canvas layer(1, 1, PixelDepth::k32), output(1, 1, PixelDepth::k32);
  const auto alphaAfter = [&](float alpha, float opacity) {
    layer.Set(0, 0, {alpha, 1, 1, 1});
    Fill(output, {});
    DrawSolidLayer(output.image(), layer.view(), At(0, 0, output), opacity);
    return output.Pixel(0, 0).a;
  };
  EXPECT_EQ(alphaAfter(1.0f, 0.001f), 0.0f);
  EXPECT_EQ(alphaAfter(1.0f, 0.0011f), 0.0011f);
  EXPECT_EQ(alphaAfter(0.0009f, 1.0f), 0.0f);
  EXPECT_EQ(alphaAfter(0.001f, 1.0f), 0.001f);
  EXPECT_EQ(alphaAfter(1.0f, kNan), 0.0f);
}

TEST(SolidLayer, NothingToDrawOrToDrawOnIsSafe) {
  const Canvas layer(3, 3, PixelDepth::k8), output(3, 3, PixelDepth::k8);
  Fill(layer, {1, 1, 1, 1});
  Fill(output, {});
  const std::vector<std::byte> clear = output.Rows();
  DrawSolidLayer(output.image(), {}, At(0, 0, output), 1.0f);
  DrawSolidLayer({}, layer.view(), At(0, 0, output), 1.0f);
  SolidPlacement empty = At(0, 0, output);
  empty.x0 = 3;
  DrawSolidLayer(output.image(), layer.view(), empty, 1.0f);
  empty = At(0, 0, output);
  empty.y1 = -1;
  DrawSolidLayer(output.image(), layer.view(), empty, 1.0f);
  EXPECT_EQ(output.Rows(), clear);
}

TEST(SolidLayer, ABoxBeyondTheOutputIsCutToIt) {
  const Canvas layer(3, 3, PixelDepth::k8), output(3, 3, PixelDepth::k8, {.padding = 40});
  Fill(layer, {1, 1, 1, 1});
  Fill(output, {});
  SolidPlacement wide = At(0, 0, output);
  wide.x1 = wide.y1 = INT32_MAX;
  DrawSolidLayer(output.image(), layer.view(), wide, 1.0f);
  EXPECT_EQ(output.Rows(), layer.Rows());
  EXPECT_TRUE(output.GuardsIntact());
}

TEST(SolidLayer, SurvivesMapsAndTexelsThatAreNoNumbers) {
  std::mt19937 random(6);
  const float odd[] = {kNan, kInf, -kInf, 3e38f, -3e38f, 0.0f, -1.0f, 1.0f};
  const auto value = [&] { return odd[random() % std::size(odd)]; };
  const Canvas layer(5, 5, PixelDepth::k32), output(9, 9, PixelDepth::k32, {.padding = 8});
  for (int round = 0; round < 20000; ++round) {
    Fill(output, {0.5f, 0.5f, 0.5f, 0.5f});
    layer.Set(static_cast<int32_t>(random() % 5), static_cast<int32_t>(random() % 5),
              {value(), value(), value(), value()});
    SolidPlacement p = At(2, 2, output);
    if (round % 2 == 0) p.toLayer[random() % 9] = static_cast<double>(value());
    DrawSolidLayer(output.image(), layer.view(), p, 1.0f);
    ASSERT_TRUE(output.GuardsIntact());
  }
}

/// The layer at one output pixel by the definition; alpha 0 beside it.
FloatPixel PlainSample(const Canvas& layer, const SolidPlacement& p, int32_t x, int32_t y) {
  const double* m = p.toLayer;
  const double size[2] = {static_cast<double>(layer.image().width),
                          static_cast<double>(layer.image().height)};
  const double w = m[6] * x + m[7] * y + m[8];
  double at[2] = {(m[0] * x + m[1] * y + m[2]) / w, (m[3] * x + m[4] * y + m[5]) / w};
  for (int a = 0; a < 2; ++a) {
    if (std::fabs(at[a]) <= 1e-9) at[a] = 0.0;
    if (std::fabs(at[a] - size[a]) <= 1e-9) at[a] = size[a];
    if (!(at[a] >= 0.0 && at[a] < size[a])) return {};
  }
  const int32_t u = static_cast<int32_t>(at[0]), v = static_cast<int32_t>(at[1]);
  const float fx = static_cast<float>(at[0] - u), fy = static_cast<float>(at[1] - v);
  const int32_t right = std::min(u + 1, layer.image().width - 1);
  const int32_t below = std::min(v + 1, layer.image().height - 1);
  const FloatPixel texels[4] = {layer.Pixel(u, v), layer.Pixel(u, below), layer.Pixel(right, v),
                                layer.Pixel(right, below)};
  const float weights[4] = {(1.0f - fx) * (1.0f - fy), (1.0f - fx) * fy, fx * (1.0f - fy), fx * fy};
  FloatPixel sum;
  for (int i = 0; i < 4; ++i) {
    const float a = weights[i] * texels[i].a;
    sum.a += a;
    sum.r += a * texels[i].r;
    sum.g += a * texels[i].g;
    sum.b += a * texels[i].b;
  }
  if (!(sum.a > 0.0f)) return {};
  return {sum.a, sum.r / sum.a, sum.g / sum.a, sum.b / sum.a};
}

void DrawPlainSolid(const Canvas& output, const Canvas& layer, const SolidPlacement& p, float opacity) {
  for (int32_t y = p.y0; y <= p.y1; ++y) {
    for (int32_t x = p.x0; x <= p.x1; ++x) {
      const FloatPixel s = PlainSample(layer, p, x, y);
      if (!(s.a * opacity >= 0.001f)) continue;
      FloatPixel d = output.Pixel(x, y);
      kernel::blendPixel(s.r, s.g, s.b, s.a * opacity, d.r, d.g, d.b, d.a, BLEND_NORMAL);
      output.Set(x, y, d);
    }
  }
}

/// A map that turns, scales, moves and, every other time, narrows towards a vanishing line.
SolidPlacement RandomPlacement(std::mt19937* random, const Canvas& output) {
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  const int32_t width = output.image().width, height = output.image().height;
  const bool perspective = (*random)() % 2 == 0;
  SolidPlacement p{{unit(*random) * 2, unit(*random), unit(*random) * 20, unit(*random), unit(*random) * 2,
                    unit(*random) * 20, perspective ? unit(*random) * 0.02 : 0.0,
                    perspective ? unit(*random) * 0.02 : 0.0, 1.0},
                   0,
                   width - 1,
                   0,
                   height - 1};
  p.x0 = static_cast<int32_t>((*random)() % static_cast<uint32_t>(width));
  p.y1 = static_cast<int32_t>((*random)() % static_cast<uint32_t>(height));
  if ((*random)() % 4 == 0) p.toLayer[0] = p.toLayer[4] = 1.0, p.toLayer[1] = p.toLayer[3] = 0.0;
  return p;
}

TEST(SolidLayer, EqualsTheDefinitionAtEveryLevel) {
  std::mt19937 random(77);
  for (int round = 0; round < 400; ++round) {
    const PixelDepth depth = kDepths[round % 3];
    const int32_t width = 1 + static_cast<int32_t>(random() % 70);
    const Canvas layer(1 + round % 41, 1 + round % 29, depth, {.padding = 3, .offset = 1});
    const Canvas plain(width, 21, depth);
    FillAtRandom(layer, true, static_cast<uint32_t>(random()));
    const SolidPlacement place = RandomPlacement(&random, plain);
    const float opacity = round % 4 == 0 ? 1.0f : 0.3f;
    const uint32_t under = static_cast<uint32_t>(random());
    FillAtRandom(plain, true, under);
    DrawPlainSolid(plain, layer, place, opacity);
    for (const InstructionLevel level : Levels()) {
      const Canvas fast(width, 21, depth, {.padding = 5, .offset = 3});
      FillAtRandom(fast, true, under);
      SetInstructionLevel(level);
      DrawSolidLayer(fast.image(), layer.view(), place, opacity);
      ASSERT_EQ(fast.Rows(), plain.Rows()) << "round " << round << ", level " << static_cast<int>(level);
      ASSERT_TRUE(fast.GuardsIntact());
    }
  }
  SetInstructionLevel(BestInstructionLevel());
}

#ifndef VANTLE_STD_THREADS
TEST(SolidLayer, TheNumberOfThreadsDoesNotShow) {
  const int threads = omp_get_max_threads();
  for (const PixelDepth depth : kDepths) {
    const Canvas layer(61, 83, depth), first(97, 120, depth), other(97, 120, depth);
    FillAtRandom(layer, true, 8);
    const SolidPlacement turned{{0.8, 0.31, -9.7, -0.27, 0.9, 3.3, 0.002, -0.001, 1}, 0, 96, 0, 119};
    omp_set_num_threads(1);
    FillAtRandom(first, true, 9);
    const std::vector<std::byte> before = first.Rows();
    DrawSolidLayer(first.image(), layer.view(), turned, 0.75f);
    EXPECT_NE(first.Rows(), before);
    for (const int count : {2, 3, 8}) {
      omp_set_num_threads(count);
      FillAtRandom(other, true, 9);
      DrawSolidLayer(other.image(), layer.view(), turned, 0.75f);
      EXPECT_EQ(other.Rows(), first.Rows()) << count << " threads";
    }
  }
  omp_set_num_threads(threads);
}
#endif

}  // namespace
}  // namespace vantle::test
