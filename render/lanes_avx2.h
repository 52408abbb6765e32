// Eight neighbouring pixels of a row side by side. Only files compiled for AVX2 may include this.
#pragma once

#include "base/pixels.h"

#include <cstddef>
#include <cstdint>
#include <immintrin.h>

namespace vantle {

struct DoublesAvx2;

/// The outcome of a comparison, all bits or none in each lane.
struct MaskAvx2 {
  __m256 v;
};

/// The same as LanesSse2, for eight pixels.
struct LanesAvx2 {
  using Doubles = DoublesAvx2;
  static constexpr int32_t kColumns = 8;
  static constexpr int32_t kRows = 1;
  static constexpr int32_t kCount = kColumns * kRows;

  __m256 v;

  LanesAvx2() = default;
  LanesAvx2(__m256 value) : v(value) {}
  LanesAvx2(float value) : v(_mm256_set1_ps(value)) {}

  friend LanesAvx2 operator+(LanesAvx2 a, LanesAvx2 b) { return _mm256_add_ps(a.v, b.v); }
  friend LanesAvx2 operator-(LanesAvx2 a, LanesAvx2 b) { return _mm256_sub_ps(a.v, b.v); }
  friend LanesAvx2 operator*(LanesAvx2 a, LanesAvx2 b) { return _mm256_mul_ps(a.v, b.v); }
  friend LanesAvx2 operator/(LanesAvx2 a, LanesAvx2 b) { return _mm256_div_ps(a.v, b.v); }
  friend LanesAvx2 operator-(LanesAvx2 a) { return _mm256_xor_ps(a.v, _mm256_set1_ps(-0.0f)); }
  friend MaskAvx2 operator<(LanesAvx2 a, LanesAvx2 b) { return {_mm256_cmp_ps(a.v, b.v, _CMP_LT_OQ)}; }
  friend MaskAvx2 operator>(LanesAvx2 a, LanesAvx2 b) { return {_mm256_cmp_ps(a.v, b.v, _CMP_GT_OQ)}; }
  friend MaskAvx2 operator<=(LanesAvx2 a, LanesAvx2 b) { return {_mm256_cmp_ps(a.v, b.v, _CMP_LE_OQ)}; }
  friend MaskAvx2 operator>=(LanesAvx2 a, LanesAvx2 b) { return {_mm256_cmp_ps(a.v, b.v, _CMP_GE_OQ)}; }

  static LanesAvx2 Columns(int32_t x) {
    return _mm256_cvtepi32_ps(
        _mm256_add_epi32(_mm256_set1_epi32(x), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7)));
  }
  static LanesAvx2 Rows(int32_t y) { return static_cast<float>(y); }

  static LanesAvx2 LoadCoverage(const float* at, int32_t /*stride*/) { return _mm256_loadu_ps(at); }
  void StoreCoverage(float* at, int32_t /*stride*/) const { _mm256_storeu_ps(at, v); }
};

inline LanesAvx2 sqrt(LanesAvx2 a) {
  return _mm256_sqrt_ps(a.v);
}
inline LanesAvx2 abs(LanesAvx2 a) {
  return _mm256_andnot_ps(_mm256_set1_ps(-0.0f), a.v);
}
inline LanesAvx2 min(LanesAvx2 a, LanesAvx2 b) {
  return _mm256_min_ps(b.v, a.v);
}
inline LanesAvx2 max(LanesAvx2 a, LanesAvx2 b) {
  return _mm256_max_ps(b.v, a.v);
}
inline float Least(LanesAvx2 a) {
  const __m128 four = _mm_min_ps(_mm256_castps256_ps128(a.v), _mm256_extractf128_ps(a.v, 1));
  const __m128 two = _mm_min_ps(four, _mm_movehl_ps(four, four));
  return _mm_cvtss_f32(_mm_min_ss(two, _mm_shuffle_ps(two, two, 1)));
}
inline float Greatest(LanesAvx2 a) {
  const __m128 four = _mm_max_ps(_mm256_castps256_ps128(a.v), _mm256_extractf128_ps(a.v, 1));
  const __m128 two = _mm_max_ps(four, _mm_movehl_ps(four, four));
  return _mm_cvtss_f32(_mm_max_ss(two, _mm_shuffle_ps(two, two, 1)));
}
inline LanesAvx2 clamp(LanesAvx2 a, float lo, float hi) {
  return _mm256_min_ps(_mm256_max_ps(a.v, _mm256_set1_ps(lo)), _mm256_set1_ps(hi));
}

inline MaskAvx2 both(MaskAvx2 a, MaskAvx2 b) {
  return {_mm256_and_ps(a.v, b.v)};
}
inline MaskAvx2 either(MaskAvx2 a, MaskAvx2 b) {
  return {_mm256_or_ps(a.v, b.v)};
}
inline bool any(MaskAvx2 m) {
  return _mm256_movemask_ps(m.v) != 0;
}
inline uint32_t BitsOf(MaskAvx2 m) {
  return static_cast<uint32_t>(_mm256_movemask_ps(m.v));
}
inline LanesAvx2 select(MaskAvx2 m, LanesAvx2 a, LanesAvx2 b) {
  return _mm256_blendv_ps(b.v, a.v, m.v);
}
inline LanesAvx2 select(bool condition, LanesAvx2 a, LanesAvx2 b) {
  return condition ? a : b;
}

/// The same as DoublesSse2, four of them.
struct DoublesAvx2 {
  static constexpr int32_t kCount = 4;

  __m256d v;

  DoublesAvx2() = default;
  DoublesAvx2(__m256d value) : v(value) {}
  DoublesAvx2(double value) : v(_mm256_set1_pd(value)) {}

  friend DoublesAvx2 operator+(DoublesAvx2 a, DoublesAvx2 b) { return _mm256_add_pd(a.v, b.v); }
  friend DoublesAvx2 operator-(DoublesAvx2 a, DoublesAvx2 b) { return _mm256_sub_pd(a.v, b.v); }
  friend DoublesAvx2 operator*(DoublesAvx2 a, DoublesAvx2 b) { return _mm256_mul_pd(a.v, b.v); }
  friend DoublesAvx2 operator/(DoublesAvx2 a, DoublesAvx2 b) { return _mm256_div_pd(a.v, b.v); }

  static DoublesAvx2 Columns(int32_t x) {
    return _mm256_cvtepi32_pd(_mm_add_epi32(_mm_set1_epi32(x), _mm_setr_epi32(0, 1, 2, 3)));
  }
  void StoreFloats(float* at) const { _mm_storeu_ps(at, _mm256_cvtpd_ps(v)); }
};

inline DoublesAvx2 abs(DoublesAvx2 a) {
  return _mm256_andnot_pd(_mm256_set1_pd(-0.0), a.v);
}
inline DoublesAvx2 SelectNotAbove(DoublesAvx2 p, DoublesAvx2 q, DoublesAvx2 a, DoublesAvx2 b) {
  return _mm256_blendv_pd(b.v, a.v, _mm256_cmp_pd(p.v, q.v, _CMP_LE_OQ));
}
inline uint32_t BitsInside(DoublesAvx2 a, double size) {
  const __m256d m = _mm256_and_pd(_mm256_cmp_pd(a.v, _mm256_setzero_pd(), _CMP_GE_OQ),
                                  _mm256_cmp_pd(a.v, _mm256_set1_pd(size), _CMP_LT_OQ));
  return static_cast<uint32_t>(_mm256_movemask_pd(m));
}
inline DoublesAvx2 Truncate(DoublesAvx2 a, int32_t* at) {
  const __m128i whole = _mm256_cvttpd_epi32(a.v);
  _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(at)), whole);
  return _mm256_cvtepi32_pd(whole);
}

inline void Truncate(LanesAvx2 a, int32_t* at) {
  _mm256_storeu_si256(static_cast<__m256i*>(static_cast<void*>(at)), _mm256_cvttps_epi32(a.v));
}

/// Pixels in lanes, a channel each.
struct PixelsAvx2 {
  LanesAvx2 a, r, g, b;
};

inline LanesAvx2 ToUnit(__m256i codes, float unit) {
  return _mm256_mul_ps(_mm256_cvtepi32_ps(codes), _mm256_set1_ps(unit));
}

inline __m256i ToCode(LanesAvx2 value, float full) {
  const __m256 capped = _mm256_max_ps(_mm256_min_ps(_mm256_set1_ps(1.0f), value.v), _mm256_setzero_ps());
  return _mm256_cvttps_epi32(_mm256_mul_ps(capped, _mm256_set1_ps(full)));
}

inline __m256i LoadWords8(const std::byte* at) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(static_cast<const void*>(at)));
}
inline void StoreWords8(std::byte* at, __m256i words) {
  _mm256_storeu_si256(static_cast<__m256i*>(static_cast<void*>(at)), words);
}

inline PixelsAvx2 LoadScaled(Format8, const std::byte* at, const std::byte* /*nextRow*/, LanesAvx2,
                             float unit) {
  const __m256i words = LoadWords8(at);
  const __m256i low = _mm256_set1_epi32(255);
  return {ToUnit(_mm256_and_si256(words, low), unit),
          ToUnit(_mm256_and_si256(_mm256_srli_epi32(words, 8), low), unit),
          ToUnit(_mm256_and_si256(_mm256_srli_epi32(words, 16), low), unit),
          ToUnit(_mm256_srli_epi32(words, 24), unit)};
}

inline void StorePixels(Format8, const PixelsAvx2& p, std::byte* at, std::byte* /*nextRow*/) {
  const __m256i ar = _mm256_or_si256(ToCode(p.a, 255.0f), _mm256_slli_epi32(ToCode(p.r, 255.0f), 8));
  const __m256i gb = _mm256_or_si256(ToCode(p.g, 255.0f), _mm256_slli_epi32(ToCode(p.b, 255.0f), 8));
  StoreWords8(at, _mm256_or_si256(ar, _mm256_slli_epi32(gb, 16)));
}

/// The halves of the registers are shuffled apart; a permutation of quarters brings the pixels into order.
inline PixelsAvx2 LoadScaled(Format16, const std::byte* at, const std::byte* /*nextRow*/, LanesAvx2,
                             float unit) {
  const __m256 first = _mm256_castsi256_ps(LoadWords8(at));
  const __m256 second = _mm256_castsi256_ps(LoadWords8(at + 32));
  const __m256i mixedAr = _mm256_castps_si256(_mm256_shuffle_ps(first, second, _MM_SHUFFLE(2, 0, 2, 0)));
  const __m256i mixedGb = _mm256_castps_si256(_mm256_shuffle_ps(first, second, _MM_SHUFFLE(3, 1, 3, 1)));
  const __m256i ar = _mm256_permute4x64_epi64(mixedAr, _MM_SHUFFLE(3, 1, 2, 0));
  const __m256i gb = _mm256_permute4x64_epi64(mixedGb, _MM_SHUFFLE(3, 1, 2, 0));
  const __m256i low = _mm256_set1_epi32(65535);
  return {ToUnit(_mm256_and_si256(ar, low), unit), ToUnit(_mm256_srli_epi32(ar, 16), unit),
          ToUnit(_mm256_and_si256(gb, low), unit), ToUnit(_mm256_srli_epi32(gb, 16), unit)};
}

inline void StorePixels(Format16, const PixelsAvx2& p, std::byte* at, std::byte* /*nextRow*/) {
  const __m256i ar = _mm256_or_si256(ToCode(p.a, 32768.0f), _mm256_slli_epi32(ToCode(p.r, 32768.0f), 16));
  const __m256i gb = _mm256_or_si256(ToCode(p.g, 32768.0f), _mm256_slli_epi32(ToCode(p.b, 32768.0f), 16));
  const __m256i low = _mm256_unpacklo_epi32(ar, gb);
  const __m256i high = _mm256_unpackhi_epi32(ar, gb);
  StoreWords8(at, _mm256_permute2x128_si256(low, high, 0x20));
  StoreWords8(at + 32, _mm256_permute2x128_si256(low, high, 0x31));
}

/// Transposes four times four floats in each half.
inline PixelsAvx2 Transpose(__m256 a, __m256 b, __m256 c, __m256 d) {
  const __m256 ab01 = _mm256_unpacklo_ps(a, b);
  const __m256 ab23 = _mm256_unpackhi_ps(a, b);
  const __m256 cd01 = _mm256_unpacklo_ps(c, d);
  const __m256 cd23 = _mm256_unpackhi_ps(c, d);
  return {_mm256_shuffle_ps(ab01, cd01, _MM_SHUFFLE(1, 0, 1, 0)),
          _mm256_shuffle_ps(ab01, cd01, _MM_SHUFFLE(3, 2, 3, 2)),
          _mm256_shuffle_ps(ab23, cd23, _MM_SHUFFLE(1, 0, 1, 0)),
          _mm256_shuffle_ps(ab23, cd23, _MM_SHUFFLE(3, 2, 3, 2))};
}

/// Pixel i in the lower half, pixel i + 4 in the upper.
inline __m256 LoadPair(const std::byte* at, int32_t i) {
  const auto* first = static_cast<const __m128i*>(static_cast<const void*>(at + 16 * i));
  const auto* second = static_cast<const __m128i*>(static_cast<const void*>(at + 16 * i + 64));
  const __m256i low = _mm256_castsi128_si256(_mm_loadu_si128(first));
  return _mm256_castsi256_ps(_mm256_inserti128_si256(low, _mm_loadu_si128(second), 1));
}
inline void StorePair(std::byte* at, int32_t i, __m256 pair) {
  auto* first = static_cast<__m128i*>(static_cast<void*>(at + 16 * i));
  auto* second = static_cast<__m128i*>(static_cast<void*>(at + 16 * i + 64));
  _mm_storeu_si128(first, _mm_castps_si128(_mm256_castps256_ps128(pair)));
  _mm_storeu_si128(second, _mm_castps_si128(_mm256_extractf128_ps(pair, 1)));
}

inline PixelsAvx2 LoadScaled(Format32, const std::byte* at, const std::byte* /*nextRow*/, LanesAvx2, float) {
  return Transpose(LoadPair(at, 0), LoadPair(at, 1), LoadPair(at, 2), LoadPair(at, 3));
}

inline void StorePixels(Format32, const PixelsAvx2& p, std::byte* at, std::byte* /*nextRow*/) {
  const PixelsAvx2 pairs = Transpose(p.a.v, p.r.v, p.g.v, p.b.v);
  StorePair(at, 0, pairs.a.v);
  StorePair(at, 1, pairs.r.v);
  StorePair(at, 2, pairs.g.v);
  StorePair(at, 3, pairs.b.v);
}

}  // namespace vantle
