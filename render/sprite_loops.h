// The loops of layer sprites, generic over the lanes. Included by one file per instruction set, which is
// compiled for it. Where the texels lie is worked out on lanes; they are fetched one by one, since vector
// gathers take as long and cannot reach across large pictures, and summed up on lanes again, each pixel's in
// the order of its samples.
#pragma once

#include "render/block_loops.h"
#include "render/lane_pixels.h"
#include "render/row_kernels.h"
#include "render/sprite.h"
#include "render/transfer.h"

namespace vantle {

/// The least sum of alphas that counts: in codes any texel that is not fully transparent does.
template <class Format>
inline constexpr float kLeastAlpha = Format::kDepth == PixelDepth::k32 ? 0.001f : 0.1f;

/// Sums over each pixel's samples, in raw codes: alpha, and colour times alpha.
template <class L>
struct TexelSums {
  L a = 0.0f;
  L r = 0.0f;
  L g = 0.0f;
  L b = 0.0f;
};

/// Offsets of texels, a lane each, and which lanes have one.
template <class L, class Offset>
struct TexelPlaces {
  Offset at[L::kCount];
  decltype(L() < L()) inside;
};

/// Where position u falls among `size` texels that lie `bytes` apart.
template <class L, class Offset>
inline void PlaceTexels(L u, float size, float last, int64_t bytes, TexelPlaces<L, Offset>* places) {
  places->inside = both(u >= 0.0f, u < size);
  int32_t texels[L::kCount];
  Truncate(min(select(places->inside, u, 0.0f), last), texels);
  for (int32_t l = 0; l < L::kCount; ++l) {
    places->at[l] = static_cast<Offset>(texels[l]) * static_cast<Offset>(bytes);
  }
}

template <class L>
using ColumnPlaces = TexelPlaces<L, int64_t>;
template <class L>
using RowPlaces = TexelPlaces<L, int64_t>;

/// Adds the texels at the columns and rows.
template <class L, class Format>
inline void AddTexels(const std::byte* image, const ColumnPlaces<L>& columns, const RowPlaces<L>& rows,
                      TexelSums<L>* sums) {
  const auto inside = both(columns.inside, rows.inside);
  if (!any(inside)) return;
  constexpr size_t kBytes = kPixelBytes<Format>;
  std::byte texels[static_cast<size_t>(L::kCount) * kBytes];
  for (int32_t l = 0; l < L::kCount; ++l) {
    std::memcpy(texels + static_cast<size_t>(l) * kBytes, image + (rows.at[l] + columns.at[l]), kBytes);
  }
  const auto p = LoadCodes<L, Format>(texels);
  const L a = select(inside, p.a, 0.0f);
  sums->a = sums->a + a;
  if constexpr (Format::kDepth == PixelDepth::k32) {
    sums->r = sums->r + select(inside, a * p.r, 0.0f);  // floats may be infinite, and 0 times them is not 0
    sums->g = sums->g + select(inside, a * p.g, 0.0f);
    sums->b = sums->b + select(inside, a * p.b, 0.0f);
  } else {
    sums->r = sums->r + a * p.r;
    sums->g = sums->g + a * p.g;
    sums->b = sums->b + a * p.b;
  }
}

/// The one sample (u, v), or the grid of them, u by u.
template <class L, class Format>
inline TexelSums<L> SumTexels(const SpriteFrame& s, L u, L v) {
  constexpr int64_t kBytes = int64_t{kPixelBytes<Format>};
  TexelSums<L> sums;
  if (s.samples == 1) {
    ColumnPlaces<L> columns;
    RowPlaces<L> rows;
    PlaceTexels(u, s.width, s.lastColumn, kBytes, &columns);
    PlaceTexels(v, s.height, s.lastRow, s.image.rowBytes, &rows);
    AddTexels<L, Format>(s.image.data, columns, rows, &sums);
    return sums;
  }
  RowPlaces<L> rows[kMostSpriteSamples];
  for (int32_t j = 0; j < s.samples; ++j) {
    PlaceTexels(v + s.offsetV[j], s.height, s.lastRow, s.image.rowBytes, &rows[j]);
  }
  for (int32_t i = 0; i < s.samples; ++i) {
    ColumnPlaces<L> columns;
    PlaceTexels(u + s.offsetU[i], s.width, s.lastColumn, kBytes, &columns);
    if (!any(columns.inside)) continue;
    for (int32_t j = 0; j < s.samples; ++j) AddTexels<L, Format>(s.image.data, columns, rows[j], &sums);
  }
  return sums;
}

/// A SampleSpriteFn. Colour sum / a, coverage a / n^2, both scaled to 0..1; the particle gives its opacity
/// only.
template <class L, class Format>
void SampleSprite(const SpriteFrame& sprite, const PixelBlock& block, PixelSources* sources) {
  const SpriteFrame& s = sprite;
  const kernel::ShapeFrame f = s.shape;
  const float count = static_cast<float>(s.samples * s.samples);
  constexpr float unit = kUnit<Format>;
  for (int32_t row = 0; row < block.rows; row += L::kRows) {
    const L dy = L::Rows(block.y + row) - f.sy;
    for (int32_t x = 0; x < block.stride; x += L::kColumns) {
      const L dx = L::Columns(block.x + x) - f.sx;
      const L u = ((dx * f.cz + dy * f.sz) / f.cy + s.dispW / 2.0f) * s.perPixelX;
      const L v = ((dy * f.cz - dx * f.sz) / f.cx + s.dispH / 2.0f) * s.perPixelY;
      const TexelSums<L> sums = SumTexels<L, Format>(s, u, v);
      const L coverage = sums.a / count * unit;
      const auto counts = both(sums.a >= kLeastAlpha<Format>, coverage > 0.001f);
      const int32_t at = row * block.stride + x;
      select(counts, coverage * s.opacity, 0.0f).StoreCoverage(sources->alpha + at, block.stride);
      if (!any(counts)) continue;
      (sums.r / sums.a * unit).StoreCoverage(sources->r + at, block.stride);
      (sums.g / sums.a * unit).StoreCoverage(sources->g + at, block.stride);
      (sums.b / sums.a * unit).StoreCoverage(sources->b + at, block.stride);
    }
  }
  ClearOutside<L>(block, sources->alpha);
}

/// A BlendSourcesFn.
template <class L, class Format, int32_t kMode>
void BlendSources(const PixelSources& sources, const PixelBlock& block, std::byte* at, int64_t rowBytes) {
  constexpr int64_t kBytes = kChunkBytes<L, Format>;
  std::byte spare[static_cast<size_t>(kBytes)] = {};
  for (int32_t row = 0; row < block.rows; row += L::kRows) {
    const bool paired = L::kRows == 2 && row + 1 < block.rows;
    std::byte* pixels = at + rowBytes * row;
    std::byte* below = paired ? pixels + rowBytes : spare;
    const int64_t belowStep = paired ? kBytes : 0;
    for (int32_t x = 0; x < block.stride; x += L::kColumns, pixels += kBytes, below += belowStep) {
      const int32_t i = row * block.stride + x;
      const L srcA = L::LoadCoverage(sources.alpha + i, block.stride);
      if (!any(srcA >= 0.001f)) continue;
      const L r = L::LoadCoverage(sources.r + i, block.stride);
      const L g = L::LoadCoverage(sources.g + i, block.stride);
      const L b = L::LoadCoverage(sources.b + i, block.stride);
      auto p = LoadPixels<L, Format>(pixels, below);
      kernel::blendPixel(r, g, b, srcA, p.r, p.g, p.b, p.a, kMode);
      StorePixels(Format{}, p, pixels, below);
    }
  }
}

}  // namespace vantle
