// Sixteen particles side by side; see lanes_sse2.h. Only files compiled for AVX-512 (F, DQ, BW, VL) may
// include this.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <immintrin.h>

namespace vantle {
namespace {

inline constexpr int32_t kWidth = 16;

/// What BitsOf gives when every lane is set.
inline constexpr uint32_t kAllBits = (1u << kWidth) - 1u;

/// The outcome of a comparison, a bit a lane.
struct Mask {
  __mmask16 v;
};
struct Floats {
  __m512 v;

  Floats() = default;
  Floats(__m512 value) : v(value) {}
  Floats(float value) : v(_mm512_set1_ps(value)) {}
};
struct Ints {
  __m512i v;
};
/// The same for the doubles of as many lanes.
struct DoubleMask {
  __mmask8 low, high;
};
struct Doubles {
  __m512d low, high;

  Doubles() = default;
  Doubles(__m512d lowHalf, __m512d highHalf) : low(lowHalf), high(highHalf) {}
  Doubles(double value) : low(_mm512_set1_pd(value)), high(low) {}
};

// ---- Floats ----

inline Floats Load(const float* at) {
  return {_mm512_loadu_ps(at)};
}
inline void Store(float* at, Floats a) {
  _mm512_storeu_ps(at, a.v);
}
inline Floats operator+(Floats a, Floats b) {
  return {_mm512_add_ps(a.v, b.v)};
}
inline Floats operator-(Floats a, Floats b) {
  return {_mm512_sub_ps(a.v, b.v)};
}
inline Floats operator*(Floats a, Floats b) {
  return {_mm512_mul_ps(a.v, b.v)};
}
inline Floats operator/(Floats a, Floats b) {
  return {_mm512_div_ps(a.v, b.v)};
}
inline Floats operator-(Floats a) {
  return {_mm512_xor_ps(a.v, _mm512_set1_ps(-0.0f))};
}
inline Floats Abs(Floats a) {
  return {_mm512_andnot_ps(_mm512_set1_ps(-0.0f), a.v)};
}
inline Floats Sqrt(Floats a) {
  return {_mm512_sqrt_ps(a.v)};
}

// As std::max and std::min. The instructions give their second operand for NaN and for zeros of both signs;
// hence the order.
inline Floats Max(Floats a, Floats b) {
  return {_mm512_max_ps(b.v, a.v)};
}
inline Floats Min(Floats a, Floats b) {
  return {_mm512_min_ps(b.v, a.v)};
}
/// lo for NaN.
inline Floats ClampLanes(Floats a, Floats lo, Floats hi) {
  return {_mm512_min_ps(_mm512_max_ps(a.v, lo.v), hi.v)};
}

inline Mask operator<(Floats a, Floats b) {
  return {_mm512_cmp_ps_mask(a.v, b.v, _CMP_LT_OQ)};
}
inline Mask operator<=(Floats a, Floats b) {
  return {_mm512_cmp_ps_mask(a.v, b.v, _CMP_LE_OQ)};
}
inline Mask operator==(Floats a, Floats b) {
  return {_mm512_cmp_ps_mask(a.v, b.v, _CMP_EQ_OQ)};
}
inline Mask operator!=(Floats a, Floats b) {
  return {_mm512_cmp_ps_mask(a.v, b.v, _CMP_NEQ_UQ)};
}

inline Mask NoLane() {
  return {0};
}
inline Mask AllLanes() {
  return {0xFFFF};
}
inline Mask And(Mask a, Mask b) {
  return {_kand_mask16(a.v, b.v)};
}
/// b where a is not.
inline Mask AndNot(Mask a, Mask b) {
  return {_kandn_mask16(a.v, b.v)};
}
/// A bit a lane, the first lane's the lowest.
inline uint32_t BitsOf(Mask m) {
  return m.v;
}
inline Floats Select(Mask m, Floats a, Floats b) {
  return {_mm512_mask_blend_ps(m.v, b.v, a.v)};
}

// ---- Integers, wrapping ----

inline Ints SplatInts(uint32_t v) {
  return {_mm512_set1_epi32(static_cast<int32_t>(v))};
}
inline Ints LoadInts(const uint32_t* at) {
  return {_mm512_loadu_si512(static_cast<const __m512i*>(static_cast<const void*>(at)))};
}
inline void StoreInts(uint32_t* at, Ints a) {
  _mm512_storeu_si512(static_cast<__m512i*>(static_cast<void*>(at)), a.v);
}
inline Ints operator+(Ints a, Ints b) {
  return {_mm512_add_epi32(a.v, b.v)};
}
inline Ints operator*(Ints a, Ints b) {
  return {_mm512_mullo_epi32(a.v, b.v)};
}
inline Ints operator^(Ints a, Ints b) {
  return {_mm512_xor_si512(a.v, b.v)};
}
inline Ints operator&(Ints a, Ints b) {
  return {_mm512_and_si512(a.v, b.v)};
}
template <int32_t kBits>
inline Ints ShiftRight(Ints a) {
  return {_mm512_srli_epi32(a.v, kBits)};
}
template <int32_t kBits>
inline Ints ShiftLeft(Ints a) {
  return {_mm512_slli_epi32(a.v, kBits)};
}
/// Lanes in which bit kBit is set.
template <int32_t kBit>
inline Mask BitSet(Ints a) {
  return {_mm512_test_epi32_mask(a.v, _mm512_set1_epi32(1 << kBit))};
}
/// a with its sign turned where bit kBit of h is set.
template <int32_t kBit>
inline Floats TurnSign(Floats a, Ints h) {
  // a ^ (shifted & sign) in one instruction
  const __m512i shifted = _mm512_slli_epi32(h.v, 31 - kBit);
  const __m512i sign = _mm512_set1_epi32(INT32_MIN);
  return {_mm512_castsi512_ps(_mm512_ternarylogic_epi32(_mm512_castps_si512(a.v), shifted, sign, 0x78))};
}

/// Of signed integers.
inline Floats ToFloats(Ints a) {
  return {_mm512_cvtepi32_ps(a.v)};
}
/// The bit patterns.
inline Ints AsInts(Floats a) {
  return {_mm512_castps_si512(a.v)};
}
inline Floats AsFloats(Ints a) {
  return {_mm512_castsi512_ps(a.v)};
}
/// Truncates what fits an integer.
inline Ints TruncToPlainInts(Floats a) {
  return {_mm512_cvttps_epi32(a.v)};
}
/// As TruncToInt: saturates; 0 for NaN.
inline Ints TruncToInts(Floats a) {
  const __m512i plain = _mm512_cvttps_epi32(a.v);  // INT32_MIN for all that lies outside
  const __mmask16 above = _mm512_cmp_ps_mask(a.v, _mm512_set1_ps(2147483648.0f), _CMP_GE_OQ);
  const __mmask16 ordered = _mm512_cmp_ps_mask(a.v, a.v, _CMP_ORD_Q);
  return {_mm512_maskz_mov_epi32(ordered, _mm512_mask_mov_epi32(plain, above, _mm512_set1_epi32(INT32_MAX)))};
}
/// a less 1 in the lanes of the mask.
inline Ints LessOne(Mask m, Ints a) {
  return {_mm512_mask_sub_epi32(a.v, m.v, a.v, _mm512_set1_epi32(1))};
}

// ---- Doubles ----

inline Doubles ToDoubles(Floats a) {
  return {_mm512_cvtps_pd(_mm512_castps512_ps256(a.v)), _mm512_cvtps_pd(_mm512_extractf32x8_ps(a.v, 1))};
}
inline Floats ToFloats(Doubles a) {
  const __m512 low = _mm512_castps256_ps512(_mm512_cvtpd_ps(a.low));
  return {_mm512_insertf32x8(low, _mm512_cvtpd_ps(a.high), 1)};
}
inline Doubles operator+(Doubles a, Doubles b) {
  return {_mm512_add_pd(a.low, b.low), _mm512_add_pd(a.high, b.high)};
}
inline Doubles operator-(Doubles a, Doubles b) {
  return {_mm512_sub_pd(a.low, b.low), _mm512_sub_pd(a.high, b.high)};
}
inline Doubles operator*(Doubles a, Doubles b) {
  return {_mm512_mul_pd(a.low, b.low), _mm512_mul_pd(a.high, b.high)};
}
inline Doubles operator/(Doubles a, Doubles b) {
  return {_mm512_div_pd(a.low, b.low), _mm512_div_pd(a.high, b.high)};
}
inline DoubleMask operator<(Doubles a, Doubles b) {
  return {_mm512_cmp_pd_mask(a.low, b.low, _CMP_LT_OQ), _mm512_cmp_pd_mask(a.high, b.high, _CMP_LT_OQ)};
}
inline DoubleMask operator==(Doubles a, Doubles b) {
  return {_mm512_cmp_pd_mask(a.low, b.low, _CMP_EQ_OQ), _mm512_cmp_pd_mask(a.high, b.high, _CMP_EQ_OQ)};
}
inline Doubles Select(DoubleMask m, Doubles a, Doubles b) {
  return {_mm512_mask_blend_pd(m.low, b.low, a.low), _mm512_mask_blend_pd(m.high, b.high, a.high)};
}
inline Mask MaskOf(DoubleMask m) {
  return {static_cast<__mmask16>(m.low | m.high << 8)};
}

inline __mmask8 BitHalf(__m512d bits, int64_t bit) {
  return _mm512_test_epi64_mask(_mm512_castpd_si512(bits), _mm512_set1_epi64(bit));
}
/// Lanes whose bit pattern has bit kBit set.
template <int32_t kBit>
inline DoubleMask BitSet(Doubles a) {
  return {BitHalf(a.low, int64_t{1} << kBit), BitHalf(a.high, int64_t{1} << kBit)};
}
inline __m512d TurnHalf(__m512d a, __m512d bits, int32_t shift) {
  return _mm512_xor_pd(a, _mm512_and_pd(_mm512_castsi512_pd(_mm512_slli_epi64(_mm512_castpd_si512(bits),
                                                                              static_cast<uint32_t>(shift))),
                                        _mm512_set1_pd(-0.0)));
}
/// a with its sign turned where bit kBit of the pattern of `bits` is set.
template <int32_t kBit>
inline Doubles TurnSign(Doubles a, Doubles bits) {
  return {TurnHalf(a.low, bits.low, 63 - kBit), TurnHalf(a.high, bits.high, 63 - kBit)};
}

// ---- Pixels, sums ----

/// kWidth pixels of a row.
struct PixelLanes {
  Floats a, r, g, b;
};

inline Ints LoadWords(const std::byte* at) {
  return {_mm512_loadu_si512(at)};
}
/// The even and the odd ones of twice kWidth words.
inline void LoadWordPairs(const std::byte* at, Ints* even, Ints* odd) {
  const __m512i first = LoadWords(at).v, second = LoadWords(at + 64).v;
  const __m512i evens = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
  const __m512i odds = _mm512_setr_epi32(1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
  *even = {_mm512_permutex2var_epi32(first, evens, second)};
  *odd = {_mm512_permutex2var_epi32(first, odds, second)};
}
/// Exchanges the quarter and the place in it: the shuffles leave pixel 4 i + j in quarter j, place i.
inline __m512 Reorder(__m512 v) {
  const __m512i order = _mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15);
  return _mm512_permutexvar_ps(order, v);
}
inline PixelLanes LoadFloatPixels(const std::byte* at) {
  const __m512 a = _mm512_loadu_ps(at), b = _mm512_loadu_ps(at + 64);
  const __m512 c = _mm512_loadu_ps(at + 128), d = _mm512_loadu_ps(at + 192);
  const __m512 ab01 = _mm512_unpacklo_ps(a, b), ab23 = _mm512_unpackhi_ps(a, b);
  const __m512 cd01 = _mm512_unpacklo_ps(c, d), cd23 = _mm512_unpackhi_ps(c, d);
  return {Reorder(_mm512_shuffle_ps(ab01, cd01, 0x44)), Reorder(_mm512_shuffle_ps(ab01, cd01, 0xEE)),
          Reorder(_mm512_shuffle_ps(ab23, cd23, 0x44)), Reorder(_mm512_shuffle_ps(ab23, cd23, 0xEE))};
}

inline uint32_t OnesFromBelow(uint32_t bits) {
  return static_cast<uint32_t>(std::countr_one(bits));
}
/// How many of sixteen ascending values lie below r.
inline uint32_t CountBelow(const float* group, float r) {
  return OnesFromBelow(_mm512_cmp_ps_mask(_mm512_loadu_ps(group), _mm512_set1_ps(r), _CMP_LT_OQ));
}

// ---- Records ----

/// Four records' quarters from lanes of four fields: record l's four floats stand in quarter[l].
inline void Transpose4(const float* first, const float* second, const float* third, const float* fourth,
                       __m128* quarter) {
  __m128 a = _mm_loadu_ps(first);
  __m128 b = _mm_loadu_ps(second);
  __m128 c = _mm_loadu_ps(third);
  __m128 d = _mm_loadu_ps(fourth);
  _MM_TRANSPOSE4_PS(a, b, c, d);
  quarter[0] = a;
  quarter[1] = b;
  quarter[2] = c;
  quarter[3] = d;
}

}  // namespace
}  // namespace vantle
