// Two rows of eight neighbouring pixels side by side: squarer than sixteen in a row, so that small particles
// fill it better. Only files compiled for AVX-512 (F, DQ, BW, VL) may include this.
#pragma once

#include "base/pixels.h"

#include <cstddef>
#include <cstdint>
#include <immintrin.h>

namespace vantle {

struct DoublesAvx512;

/// The outcome of a comparison, a bit a lane.
struct MaskAvx512 {
  __mmask16 v;
};

/// The same as LanesSse2, for two times eight pixels; the first eight lanes are the upper row.
struct LanesAvx512 {
  using Doubles = DoublesAvx512;
  static constexpr int32_t kColumns = 8;
  static constexpr int32_t kRows = 2;
  static constexpr int32_t kCount = kColumns * kRows;

  __m512 v;

  LanesAvx512() = default;
  LanesAvx512(__m512 value) : v(value) {}
  LanesAvx512(float value) : v(_mm512_set1_ps(value)) {}

  friend LanesAvx512 operator+(LanesAvx512 a, LanesAvx512 b) { return _mm512_add_ps(a.v, b.v); }
  friend LanesAvx512 operator-(LanesAvx512 a, LanesAvx512 b) { return _mm512_sub_ps(a.v, b.v); }
  friend LanesAvx512 operator*(LanesAvx512 a, LanesAvx512 b) { return _mm512_mul_ps(a.v, b.v); }
  friend LanesAvx512 operator/(LanesAvx512 a, LanesAvx512 b) { return _mm512_div_ps(a.v, b.v); }
  friend LanesAvx512 operator-(LanesAvx512 a) { return _mm512_xor_ps(a.v, _mm512_set1_ps(-0.0f)); }
  friend MaskAvx512 operator<(LanesAvx512 a, LanesAvx512 b) {
    return {_mm512_cmp_ps_mask(a.v, b.v, _CMP_LT_OQ)};
  }
  friend MaskAvx512 operator>(LanesAvx512 a, LanesAvx512 b) {
    return {_mm512_cmp_ps_mask(a.v, b.v, _CMP_GT_OQ)};
  }
  friend MaskAvx512 operator<=(LanesAvx512 a, LanesAvx512 b) {
    return {_mm512_cmp_ps_mask(a.v, b.v, _CMP_LE_OQ)};
  }
  friend MaskAvx512 operator>=(LanesAvx512 a, LanesAvx512 b) {
    return {_mm512_cmp_ps_mask(a.v, b.v, _CMP_GE_OQ)};
  }

  static LanesAvx512 Columns(int32_t x) {
    const __m512i steps = _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 0, 1, 2, 3, 4, 5, 6, 7);
    return _mm512_cvtepi32_ps(_mm512_add_epi32(_mm512_set1_epi32(x), steps));
  }
  static LanesAvx512 Rows(int32_t y) {
    const __m512i steps = _mm512_setr_epi32(0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1);
    return _mm512_cvtepi32_ps(_mm512_add_epi32(_mm512_set1_epi32(y), steps));
  }

  static LanesAvx512 LoadCoverage(const float* at, int32_t stride) {
    return _mm512_insertf32x8(_mm512_castps256_ps512(_mm256_loadu_ps(at)), _mm256_loadu_ps(at + stride), 1);
  }
  void StoreCoverage(float* at, int32_t stride) const {
    _mm256_storeu_ps(at, _mm512_castps512_ps256(v));
    _mm256_storeu_ps(at + stride, _mm512_extractf32x8_ps(v, 1));
  }
};

inline LanesAvx512 sqrt(LanesAvx512 a) {
  return _mm512_sqrt_ps(a.v);
}
inline LanesAvx512 abs(LanesAvx512 a) {
  return _mm512_andnot_ps(_mm512_set1_ps(-0.0f), a.v);
}
inline LanesAvx512 min(LanesAvx512 a, LanesAvx512 b) {
  return _mm512_min_ps(b.v, a.v);
}
inline LanesAvx512 max(LanesAvx512 a, LanesAvx512 b) {
  return _mm512_max_ps(b.v, a.v);
}
inline float Least(LanesAvx512 a) {
  return _mm512_reduce_min_ps(a.v);
}
inline float Greatest(LanesAvx512 a) {
  return _mm512_reduce_max_ps(a.v);
}
inline LanesAvx512 clamp(LanesAvx512 a, float lo, float hi) {
  return _mm512_min_ps(_mm512_max_ps(a.v, _mm512_set1_ps(lo)), _mm512_set1_ps(hi));
}

inline MaskAvx512 both(MaskAvx512 a, MaskAvx512 b) {
  return {_kand_mask16(a.v, b.v)};
}
inline MaskAvx512 either(MaskAvx512 a, MaskAvx512 b) {
  return {_kor_mask16(a.v, b.v)};
}
inline bool any(MaskAvx512 m) {
  return m.v != 0;
}
inline uint32_t BitsOf(MaskAvx512 m) {
  return m.v;
}
inline LanesAvx512 select(MaskAvx512 m, LanesAvx512 a, LanesAvx512 b) {
  return _mm512_mask_blend_ps(m.v, b.v, a.v);
}
inline LanesAvx512 select(bool condition, LanesAvx512 a, LanesAvx512 b) {
  return condition ? a : b;
}

/// The same as DoublesSse2, eight of them.
struct DoublesAvx512 {
  static constexpr int32_t kCount = 8;

  __m512d v;

  DoublesAvx512() = default;
  DoublesAvx512(__m512d value) : v(value) {}
  DoublesAvx512(double value) : v(_mm512_set1_pd(value)) {}

  friend DoublesAvx512 operator+(DoublesAvx512 a, DoublesAvx512 b) { return _mm512_add_pd(a.v, b.v); }
  friend DoublesAvx512 operator-(DoublesAvx512 a, DoublesAvx512 b) { return _mm512_sub_pd(a.v, b.v); }
  friend DoublesAvx512 operator*(DoublesAvx512 a, DoublesAvx512 b) { return _mm512_mul_pd(a.v, b.v); }
  friend DoublesAvx512 operator/(DoublesAvx512 a, DoublesAvx512 b) { return _mm512_div_pd(a.v, b.v); }

  static DoublesAvx512 Columns(int32_t x) {
    const __m256i steps = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
    return _mm512_cvtepi32_pd(_mm256_add_epi32(_mm256_set1_epi32(x), steps));
  }
  void StoreFloats(float* at) const { _mm256_storeu_ps(at, _mm512_cvtpd_ps(v)); }
};

inline DoublesAvx512 abs(DoublesAvx512 a) {
  return _mm512_andnot_pd(_mm512_set1_pd(-0.0), a.v);
}
inline DoublesAvx512 SelectNotAbove(DoublesAvx512 p, DoublesAvx512 q, DoublesAvx512 a, DoublesAvx512 b) {
  return _mm512_mask_blend_pd(_mm512_cmp_pd_mask(p.v, q.v, _CMP_LE_OQ), b.v, a.v);
}
inline uint32_t BitsInside(DoublesAvx512 a, double size) {
  const __mmask8 m = _mm512_cmp_pd_mask(a.v, _mm512_setzero_pd(), _CMP_GE_OQ);
  return _mm512_mask_cmp_pd_mask(m, a.v, _mm512_set1_pd(size), _CMP_LT_OQ);
}
inline DoublesAvx512 Truncate(DoublesAvx512 a, int32_t* at) {
  const __m256i whole = _mm512_cvttpd_epi32(a.v);
  _mm256_storeu_si256(static_cast<__m256i*>(static_cast<void*>(at)), whole);
  return _mm512_cvtepi32_pd(whole);
}

inline void Truncate(LanesAvx512 a, int32_t* at) {
  _mm512_storeu_si512(at, _mm512_cvttps_epi32(a.v));
}

/// Pixels in lanes, a channel each.
struct PixelsAvx512 {
  LanesAvx512 a, r, g, b;
};

inline LanesAvx512 ToUnit(__m512i codes, float unit) {
  return _mm512_mul_ps(_mm512_cvtepi32_ps(codes), _mm512_set1_ps(unit));
}

inline __m512i ToCode(LanesAvx512 value, float full) {
  const __m512 capped = _mm512_max_ps(_mm512_min_ps(_mm512_set1_ps(1.0f), value.v), _mm512_setzero_ps());
  return _mm512_cvttps_epi32(_mm512_mul_ps(capped, _mm512_set1_ps(full)));
}

inline __m256i LoadHalf(const std::byte* at) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(static_cast<const void*>(at)));
}
inline void StoreHalf(std::byte* at, __m256i words) {
  _mm256_storeu_si256(static_cast<__m256i*>(static_cast<void*>(at)), words);
}
inline __m512i LoadWords16(const std::byte* at) {
  return _mm512_loadu_si512(at);
}
inline void StoreWords16(std::byte* at, __m512i words) {
  _mm512_storeu_si512(at, words);
}

inline PixelsAvx512 LoadScaled(Format8, const std::byte* at, const std::byte* nextRow, LanesAvx512,
                               float unit) {
  const __m512i words = _mm512_inserti32x8(_mm512_castsi256_si512(LoadHalf(at)), LoadHalf(nextRow), 1);
  const __m512i low = _mm512_set1_epi32(255);
  return {ToUnit(_mm512_and_si512(words, low), unit),
          ToUnit(_mm512_and_si512(_mm512_srli_epi32(words, 8), low), unit),
          ToUnit(_mm512_and_si512(_mm512_srli_epi32(words, 16), low), unit),
          ToUnit(_mm512_srli_epi32(words, 24), unit)};
}

inline void StorePixels(Format8, const PixelsAvx512& p, std::byte* at, std::byte* nextRow) {
  const __m512i ar = _mm512_or_si512(ToCode(p.a, 255.0f), _mm512_slli_epi32(ToCode(p.r, 255.0f), 8));
  const __m512i gb = _mm512_or_si512(ToCode(p.g, 255.0f), _mm512_slli_epi32(ToCode(p.b, 255.0f), 8));
  const __m512i words = _mm512_or_si512(ar, _mm512_slli_epi32(gb, 16));
  StoreHalf(at, _mm512_castsi512_si256(words));
  StoreHalf(nextRow, _mm512_extracti32x8_epi32(words, 1));
}

inline PixelsAvx512 LoadScaled(Format16, const std::byte* at, const std::byte* nextRow, LanesAvx512,
                               float unit) {
  const __m512i first = LoadWords16(at);
  const __m512i second = LoadWords16(nextRow);
  const __m512i even = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
  const __m512i odd = _mm512_setr_epi32(1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
  const __m512i ar = _mm512_permutex2var_epi32(first, even, second);
  const __m512i gb = _mm512_permutex2var_epi32(first, odd, second);
  const __m512i low = _mm512_set1_epi32(65535);
  return {ToUnit(_mm512_and_si512(ar, low), unit), ToUnit(_mm512_srli_epi32(ar, 16), unit),
          ToUnit(_mm512_and_si512(gb, low), unit), ToUnit(_mm512_srli_epi32(gb, 16), unit)};
}

inline void StorePixels(Format16, const PixelsAvx512& p, std::byte* at, std::byte* nextRow) {
  const __m512i ar = _mm512_or_si512(ToCode(p.a, 32768.0f), _mm512_slli_epi32(ToCode(p.r, 32768.0f), 16));
  const __m512i gb = _mm512_or_si512(ToCode(p.g, 32768.0f), _mm512_slli_epi32(ToCode(p.b, 32768.0f), 16));
  const __m512i upper = _mm512_setr_epi32(0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
  const __m512i lower = _mm512_setr_epi32(8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
  StoreWords16(at, _mm512_permutex2var_epi32(ar, upper, gb));
  StoreWords16(nextRow, _mm512_permutex2var_epi32(ar, lower, gb));
}

/// Transposes four times four floats in each quarter.
inline PixelsAvx512 Transpose(__m512 a, __m512 b, __m512 c, __m512 d) {
  const __m512 ab01 = _mm512_unpacklo_ps(a, b);
  const __m512 ab23 = _mm512_unpackhi_ps(a, b);
  const __m512 cd01 = _mm512_unpacklo_ps(c, d);
  const __m512 cd23 = _mm512_unpackhi_ps(c, d);
  return {_mm512_shuffle_ps(ab01, cd01, 0x44), _mm512_shuffle_ps(ab01, cd01, 0xEE),
          _mm512_shuffle_ps(ab23, cd23, 0x44), _mm512_shuffle_ps(ab23, cd23, 0xEE)};
}

/// Exchanges the quarter and the place in it: a transposition leaves pixel 4 i + j in quarter j, place i.
inline __m512 Reorder(__m512 v) {
  const __m512i order = _mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15);
  return _mm512_permutexvar_ps(order, v);
}

inline PixelsAvx512 LoadScaled(Format32, const std::byte* at, const std::byte* nextRow, LanesAvx512, float) {
  const PixelsAvx512 p =
      Transpose(_mm512_castsi512_ps(LoadWords16(at)), _mm512_castsi512_ps(LoadWords16(at + 64)),
                _mm512_castsi512_ps(LoadWords16(nextRow)), _mm512_castsi512_ps(LoadWords16(nextRow + 64)));
  return {Reorder(p.a.v), Reorder(p.r.v), Reorder(p.g.v), Reorder(p.b.v)};
}

inline void StorePixels(Format32, const PixelsAvx512& p, std::byte* at, std::byte* nextRow) {
  const PixelsAvx512 rows = Transpose(Reorder(p.a.v), Reorder(p.r.v), Reorder(p.g.v), Reorder(p.b.v));
  StoreWords16(at, _mm512_castps_si512(rows.a.v));
  StoreWords16(at + 64, _mm512_castps_si512(rows.r.v));
  StoreWords16(nextRow, _mm512_castps_si512(rows.g.v));
  StoreWords16(nextRow + 64, _mm512_castps_si512(rows.b.v));
}

}  // namespace vantle
