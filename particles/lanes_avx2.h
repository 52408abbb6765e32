// Eight particles side by side; see lanes_sse2.h. Only files compiled for AVX2 may include this.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <immintrin.h>

namespace vantle {
namespace {

inline constexpr int32_t kWidth = 8;

/// What BitsOf gives when every lane is set.
inline constexpr uint32_t kAllBits = (1u << kWidth) - 1u;

/// The outcome of a comparison: all bits or none in each lane.
struct Mask {
  __m256 v;
};
struct Floats {
  __m256 v;

  Floats() = default;
  Floats(__m256 value) : v(value) {}
  Floats(float value) : v(_mm256_set1_ps(value)) {}
};
struct Ints {
  __m256i v;
};
/// The same for the doubles of as many lanes.
struct DoubleMask {
  __m256d low, high;
};
struct Doubles {
  __m256d low, high;

  Doubles() = default;
  Doubles(__m256d lowHalf, __m256d highHalf) : low(lowHalf), high(highHalf) {}
  Doubles(double value) : low(_mm256_set1_pd(value)), high(low) {}
};

// ---- Floats ----

inline Floats Load(const float* at) {
  return {_mm256_loadu_ps(at)};
}
inline void Store(float* at, Floats a) {
  _mm256_storeu_ps(at, a.v);
}
inline Floats operator+(Floats a, Floats b) {
  return {_mm256_add_ps(a.v, b.v)};
}
inline Floats operator-(Floats a, Floats b) {
  return {_mm256_sub_ps(a.v, b.v)};
}
inline Floats operator*(Floats a, Floats b) {
  return {_mm256_mul_ps(a.v, b.v)};
}
inline Floats operator/(Floats a, Floats b) {
  return {_mm256_div_ps(a.v, b.v)};
}
inline Floats operator-(Floats a) {
  return {_mm256_xor_ps(a.v, _mm256_set1_ps(-0.0f))};
}
inline Floats Abs(Floats a) {
  return {_mm256_andnot_ps(_mm256_set1_ps(-0.0f), a.v)};
}
inline Floats Sqrt(Floats a) {
  return {_mm256_sqrt_ps(a.v)};
}

// As std::max and std::min. The instructions give their second operand for NaN and for zeros of both signs;
// hence the order.
inline Floats Max(Floats a, Floats b) {
  return {_mm256_max_ps(b.v, a.v)};
}
inline Floats Min(Floats a, Floats b) {
  return {_mm256_min_ps(b.v, a.v)};
}
/// lo for NaN.
inline Floats ClampLanes(Floats a, Floats lo, Floats hi) {
  return {_mm256_min_ps(_mm256_max_ps(a.v, lo.v), hi.v)};
}

inline Mask operator<(Floats a, Floats b) {
  return {_mm256_cmp_ps(a.v, b.v, _CMP_LT_OQ)};
}
inline Mask operator<=(Floats a, Floats b) {
  return {_mm256_cmp_ps(a.v, b.v, _CMP_LE_OQ)};
}
inline Mask operator==(Floats a, Floats b) {
  return {_mm256_cmp_ps(a.v, b.v, _CMP_EQ_OQ)};
}
inline Mask operator!=(Floats a, Floats b) {
  return {_mm256_cmp_ps(a.v, b.v, _CMP_NEQ_UQ)};
}

inline Mask NoLane() {
  return {_mm256_setzero_ps()};
}
inline Mask AllLanes() {
  return {_mm256_castsi256_ps(_mm256_set1_epi32(-1))};
}
inline Mask And(Mask a, Mask b) {
  return {_mm256_and_ps(a.v, b.v)};
}
/// b where a is not.
inline Mask AndNot(Mask a, Mask b) {
  return {_mm256_andnot_ps(a.v, b.v)};
}
/// A bit a lane, the first lane's the lowest.
inline uint32_t BitsOf(Mask m) {
  return static_cast<uint32_t>(_mm256_movemask_ps(m.v));
}
inline Floats Select(Mask m, Floats a, Floats b) {
  return {_mm256_blendv_ps(b.v, a.v, m.v)};
}

// ---- Integers, wrapping ----

inline Ints SplatInts(uint32_t v) {
  return {_mm256_set1_epi32(static_cast<int32_t>(v))};
}
inline Ints LoadInts(const uint32_t* at) {
  return {_mm256_loadu_si256(static_cast<const __m256i*>(static_cast<const void*>(at)))};
}
inline void StoreInts(uint32_t* at, Ints a) {
  _mm256_storeu_si256(static_cast<__m256i*>(static_cast<void*>(at)), a.v);
}
inline Ints operator+(Ints a, Ints b) {
  return {_mm256_add_epi32(a.v, b.v)};
}
inline Ints operator*(Ints a, Ints b) {
  return {_mm256_mullo_epi32(a.v, b.v)};
}
inline Ints operator^(Ints a, Ints b) {
  return {_mm256_xor_si256(a.v, b.v)};
}
inline Ints operator&(Ints a, Ints b) {
  return {_mm256_and_si256(a.v, b.v)};
}
template <int32_t kBits>
inline Ints ShiftRight(Ints a) {
  return {_mm256_srli_epi32(a.v, kBits)};
}
template <int32_t kBits>
inline Ints ShiftLeft(Ints a) {
  return {_mm256_slli_epi32(a.v, kBits)};
}
/// Lanes in which bit kBit is set.
template <int32_t kBit>
inline Mask BitSet(Ints a) {
  return {_mm256_castsi256_ps(_mm256_srai_epi32(_mm256_slli_epi32(a.v, 31 - kBit), 31))};
}
/// a with its sign turned where bit kBit of h is set.
template <int32_t kBit>
inline Floats TurnSign(Floats a, Ints h) {
  const __m256i sign = _mm256_and_si256(_mm256_slli_epi32(h.v, 31 - kBit), _mm256_set1_epi32(INT32_MIN));
  return {_mm256_xor_ps(a.v, _mm256_castsi256_ps(sign))};
}

/// Of signed integers.
inline Floats ToFloats(Ints a) {
  return {_mm256_cvtepi32_ps(a.v)};
}
/// The bit patterns.
inline Ints AsInts(Floats a) {
  return {_mm256_castps_si256(a.v)};
}
inline Floats AsFloats(Ints a) {
  return {_mm256_castsi256_ps(a.v)};
}
/// Truncates what fits an integer.
inline Ints TruncToPlainInts(Floats a) {
  return {_mm256_cvttps_epi32(a.v)};
}
/// As TruncToInt: saturates; 0 for NaN.
inline Ints TruncToInts(Floats a) {
  const __m256i plain = _mm256_cvttps_epi32(a.v);  // INT32_MIN for all that lies outside
  const __m256i above = _mm256_castps_si256(_mm256_cmp_ps(a.v, _mm256_set1_ps(2147483648.0f), _CMP_GE_OQ));
  const __m256i unordered = _mm256_castps_si256(_mm256_cmp_ps(a.v, a.v, _CMP_UNORD_Q));
  return {_mm256_andnot_si256(unordered, _mm256_xor_si256(plain, above))};
}
/// a less 1 in the lanes of the mask.
inline Ints LessOne(Mask m, Ints a) {
  return {_mm256_add_epi32(a.v, _mm256_castps_si256(m.v))};
}

// ---- Doubles ----

inline Doubles ToDoubles(Floats a) {
  return {_mm256_cvtps_pd(_mm256_castps256_ps128(a.v)), _mm256_cvtps_pd(_mm256_extractf128_ps(a.v, 1))};
}
inline Floats ToFloats(Doubles a) {
  const __m256 low = _mm256_castps128_ps256(_mm256_cvtpd_ps(a.low));
  return {_mm256_insertf128_ps(low, _mm256_cvtpd_ps(a.high), 1)};
}
inline Doubles operator+(Doubles a, Doubles b) {
  return {_mm256_add_pd(a.low, b.low), _mm256_add_pd(a.high, b.high)};
}
inline Doubles operator-(Doubles a, Doubles b) {
  return {_mm256_sub_pd(a.low, b.low), _mm256_sub_pd(a.high, b.high)};
}
inline Doubles operator*(Doubles a, Doubles b) {
  return {_mm256_mul_pd(a.low, b.low), _mm256_mul_pd(a.high, b.high)};
}
inline Doubles operator/(Doubles a, Doubles b) {
  return {_mm256_div_pd(a.low, b.low), _mm256_div_pd(a.high, b.high)};
}
inline DoubleMask operator<(Doubles a, Doubles b) {
  return {_mm256_cmp_pd(a.low, b.low, _CMP_LT_OQ), _mm256_cmp_pd(a.high, b.high, _CMP_LT_OQ)};
}
inline DoubleMask operator==(Doubles a, Doubles b) {
  return {_mm256_cmp_pd(a.low, b.low, _CMP_EQ_OQ), _mm256_cmp_pd(a.high, b.high, _CMP_EQ_OQ)};
}
inline Doubles Select(DoubleMask m, Doubles a, Doubles b) {
  return {_mm256_blendv_pd(b.low, a.low, m.low), _mm256_blendv_pd(b.high, a.high, m.high)};
}
inline Mask MaskOf(DoubleMask m) {
  const __m256 halves =
      _mm256_shuffle_ps(_mm256_castpd_ps(m.low), _mm256_castpd_ps(m.high), _MM_SHUFFLE(2, 0, 2, 0));
  return {_mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(halves), _MM_SHUFFLE(3, 1, 2, 0)))};
}

inline __m256d BitHalf(__m256d bits, int32_t shift) {
  const __m256i top = _mm256_srai_epi32(_mm256_slli_epi64(_mm256_castpd_si256(bits), shift), 31);
  return _mm256_castsi256_pd(_mm256_shuffle_epi32(top, _MM_SHUFFLE(3, 3, 1, 1)));
}
/// Lanes whose bit pattern has bit kBit set.
template <int32_t kBit>
inline DoubleMask BitSet(Doubles a) {
  return {BitHalf(a.low, 63 - kBit), BitHalf(a.high, 63 - kBit)};
}
inline __m256d TurnHalf(__m256d a, __m256d bits, int32_t shift) {
  return _mm256_xor_pd(a,
                       _mm256_and_pd(_mm256_castsi256_pd(_mm256_slli_epi64(_mm256_castpd_si256(bits), shift)),
                                     _mm256_set1_pd(-0.0)));
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
  return {_mm256_loadu_si256(static_cast<const __m256i*>(static_cast<const void*>(at)))};
}
/// The even and the odd ones of twice kWidth words. The halves of the registers are shuffled apart; a
/// permutation of quarters brings the words into order.
inline void LoadWordPairs(const std::byte* at, Ints* even, Ints* odd) {
  const __m256 first = _mm256_castsi256_ps(LoadWords(at).v);
  const __m256 second = _mm256_castsi256_ps(LoadWords(at + 32).v);
  const __m256i mixedEven = _mm256_castps_si256(_mm256_shuffle_ps(first, second, _MM_SHUFFLE(2, 0, 2, 0)));
  const __m256i mixedOdd = _mm256_castps_si256(_mm256_shuffle_ps(first, second, _MM_SHUFFLE(3, 1, 3, 1)));
  *even = {_mm256_permute4x64_epi64(mixedEven, _MM_SHUFFLE(3, 1, 2, 0))};
  *odd = {_mm256_permute4x64_epi64(mixedOdd, _MM_SHUFFLE(3, 1, 2, 0))};
}
/// Pixel i in the lower half, pixel i + 4 in the upper.
inline __m256 LoadPixelPair(const std::byte* at, int32_t i) {
  const auto* first = static_cast<const __m128i*>(static_cast<const void*>(at + 16 * i));
  const auto* second = static_cast<const __m128i*>(static_cast<const void*>(at + 16 * i + 64));
  const __m256i low = _mm256_castsi128_si256(_mm_loadu_si128(first));
  return _mm256_castsi256_ps(_mm256_inserti128_si256(low, _mm_loadu_si128(second), 1));
}
inline PixelLanes LoadFloatPixels(const std::byte* at) {
  const __m256 a = LoadPixelPair(at, 0), b = LoadPixelPair(at, 1);
  const __m256 c = LoadPixelPair(at, 2), d = LoadPixelPair(at, 3);
  const __m256 ab01 = _mm256_unpacklo_ps(a, b), ab23 = _mm256_unpackhi_ps(a, b);
  const __m256 cd01 = _mm256_unpacklo_ps(c, d), cd23 = _mm256_unpackhi_ps(c, d);
  return {_mm256_shuffle_ps(ab01, cd01, 0x44), _mm256_shuffle_ps(ab01, cd01, 0xEE),
          _mm256_shuffle_ps(ab23, cd23, 0x44), _mm256_shuffle_ps(ab23, cd23, 0xEE)};
}

inline uint32_t OnesFromBelow(uint32_t bits) {
  return static_cast<uint32_t>(std::countr_one(bits));
}
/// How many of sixteen ascending values lie below r.
inline uint32_t CountBelow(const float* group, float r) {
  const __m256 limit = _mm256_set1_ps(r);
  const int low = _mm256_movemask_ps(_mm256_cmp_ps(_mm256_loadu_ps(group), limit, _CMP_LT_OQ));
  const int high = _mm256_movemask_ps(_mm256_cmp_ps(_mm256_loadu_ps(group + 8), limit, _CMP_LT_OQ));
  return OnesFromBelow(static_cast<uint32_t>(low | high << 8));
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
