// Four neighbouring pixels side by side: the lanes that every 64-bit x86 processor has.
#pragma once

#include "base/pixels.h"

#include <cstddef>
#include <cstdint>
#include <emmintrin.h>

namespace vantle {

struct DoublesSse2;

/// The outcome of a comparison, all bits or none in each lane.
struct MaskSse2 {
  __m128 v;
};

/// A float for each of four pixels of a row, with the arithmetic that the formulas of kernel_math.h expect.
/// Results are those of float, bit for bit, NaN included.
struct LanesSse2 {
  using Doubles = DoublesSse2;
  static constexpr int32_t kColumns = 4;
  static constexpr int32_t kRows = 1;
  static constexpr int32_t kCount = kColumns * kRows;

  __m128 v;

  LanesSse2() = default;
  LanesSse2(__m128 value) : v(value) {}
  LanesSse2(float value) : v(_mm_set1_ps(value)) {}

  friend LanesSse2 operator+(LanesSse2 a, LanesSse2 b) { return _mm_add_ps(a.v, b.v); }
  friend LanesSse2 operator-(LanesSse2 a, LanesSse2 b) { return _mm_sub_ps(a.v, b.v); }
  friend LanesSse2 operator*(LanesSse2 a, LanesSse2 b) { return _mm_mul_ps(a.v, b.v); }
  friend LanesSse2 operator/(LanesSse2 a, LanesSse2 b) { return _mm_div_ps(a.v, b.v); }
  friend LanesSse2 operator-(LanesSse2 a) { return _mm_xor_ps(a.v, _mm_set1_ps(-0.0f)); }
  friend MaskSse2 operator<(LanesSse2 a, LanesSse2 b) { return {_mm_cmplt_ps(a.v, b.v)}; }
  friend MaskSse2 operator>(LanesSse2 a, LanesSse2 b) { return {_mm_cmpgt_ps(a.v, b.v)}; }
  friend MaskSse2 operator<=(LanesSse2 a, LanesSse2 b) { return {_mm_cmple_ps(a.v, b.v)}; }
  friend MaskSse2 operator>=(LanesSse2 a, LanesSse2 b) { return {_mm_cmpge_ps(a.v, b.v)}; }

  /// Columns x, x + 1, ... and the row, as the pixels' coordinates.
  static LanesSse2 Columns(int32_t x) {
    return _mm_cvtepi32_ps(_mm_add_epi32(_mm_set1_epi32(x), _mm_setr_epi32(0, 1, 2, 3)));
  }
  static LanesSse2 Rows(int32_t y) { return static_cast<float>(y); }

  static LanesSse2 LoadCoverage(const float* at, int32_t /*stride*/) { return _mm_loadu_ps(at); }
  void StoreCoverage(float* at, int32_t /*stride*/) const { _mm_storeu_ps(at, v); }
};

inline LanesSse2 sqrt(LanesSse2 a) {
  return _mm_sqrt_ps(a.v);
}
inline LanesSse2 abs(LanesSse2 a) {
  return _mm_andnot_ps(_mm_set1_ps(-0.0f), a.v);
}

// The instructions give their second operand for NaN and for zeros of both signs; hence the order.
inline LanesSse2 min(LanesSse2 a, LanesSse2 b) {
  return _mm_min_ps(b.v, a.v);
}
inline LanesSse2 max(LanesSse2 a, LanesSse2 b) {
  return _mm_max_ps(b.v, a.v);
}
/// The least and the greatest lane.
inline float Least(LanesSse2 a) {
  const __m128 two = _mm_min_ps(a.v, _mm_movehl_ps(a.v, a.v));
  return _mm_cvtss_f32(_mm_min_ss(two, _mm_shuffle_ps(two, two, 1)));
}
inline float Greatest(LanesSse2 a) {
  const __m128 two = _mm_max_ps(a.v, _mm_movehl_ps(a.v, a.v));
  return _mm_cvtss_f32(_mm_max_ss(two, _mm_shuffle_ps(two, two, 1)));
}
inline LanesSse2 clamp(LanesSse2 a, float lo, float hi) {
  return _mm_min_ps(_mm_max_ps(a.v, _mm_set1_ps(lo)), _mm_set1_ps(hi));
}

inline MaskSse2 both(MaskSse2 a, MaskSse2 b) {
  return {_mm_and_ps(a.v, b.v)};
}
inline MaskSse2 either(MaskSse2 a, MaskSse2 b) {
  return {_mm_or_ps(a.v, b.v)};
}
inline bool any(MaskSse2 m) {
  return _mm_movemask_ps(m.v) != 0;
}
/// A bit a lane, the first lane's the lowest.
inline uint32_t BitsOf(MaskSse2 m) {
  return static_cast<uint32_t>(_mm_movemask_ps(m.v));
}
inline LanesSse2 select(MaskSse2 m, LanesSse2 a, LanesSse2 b) {
  return _mm_or_ps(_mm_and_ps(m.v, a.v), _mm_andnot_ps(m.v, b.v));
}
inline LanesSse2 select(bool condition, LanesSse2 a, LanesSse2 b) {
  return condition ? a : b;
}

/// Two doubles, half of the lanes of a row.
struct DoublesSse2 {
  static constexpr int32_t kCount = 2;

  __m128d v;

  DoublesSse2() = default;
  DoublesSse2(__m128d value) : v(value) {}
  DoublesSse2(double value) : v(_mm_set1_pd(value)) {}

  friend DoublesSse2 operator+(DoublesSse2 a, DoublesSse2 b) { return _mm_add_pd(a.v, b.v); }
  friend DoublesSse2 operator-(DoublesSse2 a, DoublesSse2 b) { return _mm_sub_pd(a.v, b.v); }
  friend DoublesSse2 operator*(DoublesSse2 a, DoublesSse2 b) { return _mm_mul_pd(a.v, b.v); }
  friend DoublesSse2 operator/(DoublesSse2 a, DoublesSse2 b) { return _mm_div_pd(a.v, b.v); }

  /// x, x + 1, ...
  static DoublesSse2 Columns(int32_t x) {
    return _mm_cvtepi32_pd(_mm_add_epi32(_mm_set1_epi32(x), _mm_setr_epi32(0, 1, 0, 0)));
  }
  void StoreFloats(float* at) const {
    _mm_storel_epi64(static_cast<__m128i*>(static_cast<void*>(at)), _mm_castps_si128(_mm_cvtpd_ps(v)));
  }
};

inline DoublesSse2 abs(DoublesSse2 a) {
  return _mm_andnot_pd(_mm_set1_pd(-0.0), a.v);
}
/// a where p <= q, else b.
inline DoublesSse2 SelectNotAbove(DoublesSse2 p, DoublesSse2 q, DoublesSse2 a, DoublesSse2 b) {
  const __m128d m = _mm_cmple_pd(p.v, q.v);
  return _mm_or_pd(_mm_and_pd(m, a.v), _mm_andnot_pd(m, b.v));
}
/// A bit for each lane with 0 <= a < size.
inline uint32_t BitsInside(DoublesSse2 a, double size) {
  const __m128d m = _mm_and_pd(_mm_cmpge_pd(a.v, _mm_setzero_pd()), _mm_cmplt_pd(a.v, _mm_set1_pd(size)));
  return static_cast<uint32_t>(_mm_movemask_pd(m));
}
/// Truncates, writes the whole numbers to `at` and returns them. What lies outside of their range gives the
/// least of them.
inline DoublesSse2 Truncate(DoublesSse2 a, int32_t* at) {
  const __m128i whole = _mm_cvttpd_epi32(a.v);
  _mm_storel_epi64(static_cast<__m128i*>(static_cast<void*>(at)), whole);
  return _mm_cvtepi32_pd(whole);
}

/// Truncates the lanes to `at`; what lies outside of the range of whole numbers gives the least of them.
inline void Truncate(LanesSse2 a, int32_t* at) {
  _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(at)), _mm_cvttps_epi32(a.v));
}

/// Pixels in lanes, a channel each.
struct PixelsSse2 {
  LanesSse2 a, r, g, b;
};

/// Codes to 0..1.
inline LanesSse2 ToUnit(__m128i codes, float unit) {
  return _mm_mul_ps(_mm_cvtepi32_ps(codes), _mm_set1_ps(unit));
}

/// As the formats' FromFloat: capped from above, truncated; 0 for NaN and negatives.
inline __m128i ToCode(LanesSse2 value, float full) {
  const __m128 capped = _mm_max_ps(_mm_min_ps(_mm_set1_ps(1.0f), value.v), _mm_setzero_ps());
  return _mm_cvttps_epi32(_mm_mul_ps(capped, _mm_set1_ps(full)));
}

inline __m128i LoadWords(const std::byte* at) {
  return _mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(at)));
}
inline void StoreWords(std::byte* at, __m128i words) {
  _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(at)), words);
}

inline PixelsSse2 LoadScaled(Format8, const std::byte* at, const std::byte* /*nextRow*/, LanesSse2,
                             float unit) {
  const __m128i words = LoadWords(at);
  const __m128i low = _mm_set1_epi32(255);
  return {ToUnit(_mm_and_si128(words, low), unit), ToUnit(_mm_and_si128(_mm_srli_epi32(words, 8), low), unit),
          ToUnit(_mm_and_si128(_mm_srli_epi32(words, 16), low), unit),
          ToUnit(_mm_srli_epi32(words, 24), unit)};
}

inline void StorePixels(Format8, const PixelsSse2& p, std::byte* at, std::byte* /*nextRow*/) {
  const __m128i ar = _mm_or_si128(ToCode(p.a, 255.0f), _mm_slli_epi32(ToCode(p.r, 255.0f), 8));
  const __m128i gb = _mm_or_si128(ToCode(p.g, 255.0f), _mm_slli_epi32(ToCode(p.b, 255.0f), 8));
  StoreWords(at, _mm_or_si128(ar, _mm_slli_epi32(gb, 16)));
}

inline PixelsSse2 LoadScaled(Format16, const std::byte* at, const std::byte* /*nextRow*/, LanesSse2,
                             float unit) {
  const __m128 first = _mm_castsi128_ps(LoadWords(at));
  const __m128 second = _mm_castsi128_ps(LoadWords(at + 16));
  const __m128i ar = _mm_castps_si128(_mm_shuffle_ps(first, second, _MM_SHUFFLE(2, 0, 2, 0)));
  const __m128i gb = _mm_castps_si128(_mm_shuffle_ps(first, second, _MM_SHUFFLE(3, 1, 3, 1)));
  const __m128i low = _mm_set1_epi32(65535);
  return {ToUnit(_mm_and_si128(ar, low), unit), ToUnit(_mm_srli_epi32(ar, 16), unit),
          ToUnit(_mm_and_si128(gb, low), unit), ToUnit(_mm_srli_epi32(gb, 16), unit)};
}

inline void StorePixels(Format16, const PixelsSse2& p, std::byte* at, std::byte* /*nextRow*/) {
  const __m128i ar = _mm_or_si128(ToCode(p.a, 32768.0f), _mm_slli_epi32(ToCode(p.r, 32768.0f), 16));
  const __m128i gb = _mm_or_si128(ToCode(p.g, 32768.0f), _mm_slli_epi32(ToCode(p.b, 32768.0f), 16));
  StoreWords(at, _mm_unpacklo_epi32(ar, gb));
  StoreWords(at + 16, _mm_unpackhi_epi32(ar, gb));
}

inline PixelsSse2 LoadScaled(Format32, const std::byte* at, const std::byte* /*nextRow*/, LanesSse2, float) {
  __m128 a = _mm_castsi128_ps(LoadWords(at));
  __m128 r = _mm_castsi128_ps(LoadWords(at + 16));
  __m128 g = _mm_castsi128_ps(LoadWords(at + 32));
  __m128 b = _mm_castsi128_ps(LoadWords(at + 48));
  _MM_TRANSPOSE4_PS(a, r, g, b);
  return {a, r, g, b};
}

inline void StorePixels(Format32, const PixelsSse2& p, std::byte* at, std::byte* /*nextRow*/) {
  __m128 first = p.a.v;
  __m128 second = p.r.v;
  __m128 third = p.g.v;
  __m128 fourth = p.b.v;
  _MM_TRANSPOSE4_PS(first, second, third, fourth);
  StoreWords(at, _mm_castps_si128(first));
  StoreWords(at + 16, _mm_castps_si128(second));
  StoreWords(at + 32, _mm_castps_si128(third));
  StoreWords(at + 48, _mm_castps_si128(fourth));
}

}  // namespace vantle
