#include "particles/emission.h"

#include "base/floating_environment.h"
#include "base/pixels.h"
#include "particles/emission_weights.h"
#include "particles/stages.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace vantle {
namespace {

constexpr int32_t kGroup = kSumGroup;
constexpr int32_t kWideBlock = 256;
constexpr int64_t kMostFloatPixels = int64_t{1} << 24;

/// Pixels weighed at a time; a multiple of both block lengths, small enough to stay in the first cache.
constexpr int32_t kRun = 1024;

/// A layer half way through being summed.
struct Summation {
  Emitter* emitter = nullptr;
  int32_t row = 0;
  int32_t column = 0;
  int64_t block = 0;  ///< next block to be written
  float sum = 0.0f;
  double wideSum = 0.0;
  int32_t runBlocks = 0;  ///< blocks in `weights`, the last filled up with zeros
  float weights[kRun];
};

bool IsDone(const Summation& s) {
  return s.row >= s.emitter->image.height;
}

/// Weighs the next run of pixels, within one row.
void LoadRun(Summation& s) {
  const Emitter& e = *s.emitter;
  const int32_t count = std::min(kRun, e.image.width - s.column);
  const std::byte* at = Row(e.image, s.row) + static_cast<size_t>(s.column) * PixelBytes(e.image.depth);
  PixelWeights(e.image.depth, at, count, e.variation, e.variationBy, s.weights);
  s.runBlocks = (count + e.blockLength - 1) / e.blockLength;
  std::fill(s.weights + count, s.weights + s.runBlocks * e.blockLength, 0.0f);
  s.column += count;
  if (s.column >= e.image.width) {
    s.column = 0;
    ++s.row;
  }
}

/// Remembers the first emitting pixel when block `b` of the run brought it. Zeros precede it.
void NoteFirstPoint(const Summation& s, int32_t b) {
  Emitter& e = *s.emitter;
  const float* weights = s.weights + static_cast<size_t>(b) * static_cast<size_t>(e.blockLength);
  const auto inBlock =
      std::find_if(weights, weights + e.blockLength, [](float w) { return w > 0.0f; }) - weights;
  const int64_t block = s.block + b;
  e.firstPoint = block / e.blocksPerRow * e.image.width + block % e.blocksPerRow * e.blockLength + inBlock;
  e.hasPoints = true;
}

/// Goes on behind the run, whose sums are stored.
void Advance(Summation& s) {
  Emitter& e = *s.emitter;
  for (int32_t b = 0; b < s.runBlocks && !e.hasPoints; ++b) {
    if (e.sums[static_cast<size_t>(s.block + b)] > 0.0f) NoteFirstPoint(s, b);
  }
  s.block += s.runBlocks;
}

/// Sums in double, for very large layers.
void FinishWideRun(Summation& s) {
  Emitter& e = *s.emitter;
  for (int32_t b = 0; b < s.runBlocks; ++b) {
    const float* weights = s.weights + static_cast<size_t>(b) * static_cast<size_t>(e.blockLength);
    for (int32_t i = 0; i < e.blockLength; ++i) s.wideSum += static_cast<double>(weights[i]);
    e.wideSums[static_cast<size_t>(s.block + b)] = s.wideSum;
    e.sums[static_cast<size_t>(s.block + b)] = s.sum = static_cast<float>(s.wideSum);
  }
  Advance(s);
}

/// Sums the run's blocks from `from` on, those before being stored.
void FinishRun(Summation& s, int32_t from) {
  if (!s.emitter->wideSums.empty()) return FinishWideRun(s);
  float* sums = s.emitter->sums.data() + s.block;
  s.sum = CurrentStages().sumBlocks(s.weights + from * kGroup, s.runBlocks - from, s.sum, sums + from);
  Advance(s);
}

/// Sums two layers' runs, side by side as far as both go.
void FinishRuns(Summation& a, Summation& b) {
  int32_t common = 0;
  if (a.emitter->wideSums.empty() && b.emitter->wideSums.empty()) {
    common = std::min(a.runBlocks, b.runBlocks);
    CurrentStages().sumBlockPairs(a.weights, b.weights, common, &a.sum, &b.sum,
                                  a.emitter->sums.data() + a.block, b.emitter->sums.data() + b.block);
  }
  FinishRun(a, common);
  FinishRun(b, common);
}

size_t RoundUpToGroup(size_t count) {
  return (count + kGroup - 1) / kGroup * kGroup;
}

/// Sizes the lists. Summing in float stops growing near 2^24 points of weight 1, which would leave the lower
/// part of a very large layer without particles; such layers are summed in double.
void PrepareSums(Emitter& e) {
  const int64_t width = e.image.width, height = e.image.height;
  const bool wide = width * height > kMostFloatPixels;
  e.blockLength = wide ? kWideBlock : kGroup;
  e.blocksPerRow = static_cast<int32_t>((width + e.blockLength - 1) / e.blockLength);
  const size_t blocks = static_cast<size_t>(e.blocksPerRow * height);
  e.sums.Reset(RoundUpToGroup(blocks));
  if (wide) e.wideSums.Reset(blocks);
}

/// Builds the levels above the sums.
void BuildTree(Emitter& e) {
  size_t size = 0;
  for (size_t level = e.sums.size(); level > kGroup;) {
    level = RoundUpToGroup(level / kGroup);
    size += level;
  }
  e.tree.Reset(size);
  const float* below = e.sums.data();
  float* level = e.tree.data();
  for (size_t count = e.sums.size(); count > kGroup;) {
    const size_t used = count / kGroup;
    count = RoundUpToGroup(used);
    for (size_t i = 0; i < used; ++i) level[i] = below[i * kGroup + kGroup - 1];
    std::fill(level + used, level + count, e.total);
    below = level;
    level += count;
  }
}

/// Index of the last pixel that emits.
int64_t FindLastPoint(const Emitter& e) {
  const size_t pixelBytes = PixelBytes(e.image.depth);
  for (int32_t y = e.image.height - 1; y >= 0; --y) {
    for (int32_t x = e.image.width - 1; x >= 0; --x) {
      const FloatPixel p = LoadPixel(e.image.depth, Row(e.image, y) + static_cast<size_t>(x) * pixelBytes);
      if (p.a > kEmittingAlpha) return int64_t{y} * e.image.width + x;
    }
  }
  return 0;
}

void FinishSums(Summation& s) {
  Emitter& e = *s.emitter;
  e.total = s.sum;
  std::fill(e.sums.data() + s.block, e.sums.data() + e.sums.size(), e.total);
  BuildTree(e);
  if (!(e.total <= std::numeric_limits<float>::max())) e.lastPoint = FindLastPoint(e);
}

/// Sums one layer, or two side by side; `b` may be null.
void SumLayers(Emitter* a, Emitter* b) {
  Summation left, right;
  left.emitter = a;
  right.emitter = b;
  PrepareSums(*a);
  if (b != nullptr) PrepareSums(*b);
  while (b != nullptr && !IsDone(left) && !IsDone(right)) {
    LoadRun(left);
    LoadRun(right);
    FinishRuns(left, right);
  }
  while (!IsDone(left)) {
    LoadRun(left);
    FinishRun(left, 0);
  }
  FinishSums(left);
  if (b == nullptr) return;
  while (!IsDone(right)) {
    LoadRun(right);
    FinishRun(right, 0);
  }
  FinishSums(right);
}

Emitter MakeEmitter(const ImageView& image, float variation, int32_t variationBy) {
  Emitter e;
  e.image = image;
  e.variation = variation;
  e.variationBy = variationBy;
  return e;
}

/// A layer lies in the middle of the output, to the half pixel.
void CentreOn(Emitter& e, const FrameSettings& settings) {
  e.offsetX = (static_cast<float>(settings.outputWidth) - static_cast<float>(e.image.width)) / 2.0f;
  e.offsetY = (static_cast<float>(settings.outputHeight) - static_cast<float>(e.image.height)) / 2.0f;
}

}  // namespace

Emission BuildEmission(const ImageView& layerA, const ImageView& layerB, const ImageView& input,
                       const FrameSettings& settings) {
  const ScopedFloatingEnvironment environment;
  Emission emission;
  Emitter& source = emission.source;
  Emitter& target = emission.target;
  source = MakeEmitter(layerA, settings.variationA, settings.variationABy);
  target = MakeEmitter(layerB, settings.variationB, settings.variationBBy);
  CentreOn(source, settings);
  CentreOn(target, settings);

  const bool hasA = HasPixels(layerA), hasB = HasPixels(layerB);
  if (hasA && hasB) {
    SumLayers(&source, &target);
  } else if (hasA || hasB) {
    SumLayers(hasA ? &source : &target, nullptr);
  }

  if (!source.hasPoints && HasPixels(input)) {
    source = MakeEmitter(input, settings.variationA, settings.variationABy);
    SumLayers(&source, nullptr);
  }
  return emission;
}

}  // namespace vantle
