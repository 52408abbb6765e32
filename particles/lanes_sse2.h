// Four particles side by side: the lanes that every 64-bit x86 processor has.
//
// lanes_sse2.h, lanes_avx2.h and lanes_avx512.h offer the same names. A stages_*.cpp includes one of them and
// after it the stages' loops, everything in an unnamed namespace: no function compiled for one instruction
// set can then be linked in place of another's. Results are those of float and double, bit for bit.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <emmintrin.h>

namespace vantle {
namespace {

inline constexpr int32_t kWidth = 4;

/// What BitsOf gives when every lane is set.
inline constexpr uint32_t kAllBits = (1u << kWidth) - 1u;

/// The outcome of a comparison: all bits or none in each lane.
struct Mask {
  __m128 v;
};
struct Floats {
  __m128 v;

  Floats() = default;
  Floats(__m128 value) : v(value) {}
  Floats(float value) : v(_mm_set1_ps(value)) {}
};
struct Ints {
  __m128i v;
};
/// The same for the doubles of as many lanes.
struct DoubleMask {
  __m128d low, high;
};
struct Doubles {
  __m128d low, high;

  Doubles() = default;
  Doubles(__m128d lowHalf, __m128d highHalf) : low(lowHalf), high(highHalf) {}
  Doubles(double value) : low(_mm_set1_pd(value)), high(low) {}
};

// ---- Floats ----

inline Floats Load(const float* at) {
  return {_mm_loadu_ps(at)};
}
inline void Store(float* at, Floats a) {
  _mm_storeu_ps(at, a.v);
}
inline Floats operator+(Floats a, Floats b) {
  return {_mm_add_ps(a.v, b.v)};
}
inline Floats operator-(Floats a, Floats b) {
  return {_mm_sub_ps(a.v, b.v)};
}
inline Floats operator*(Floats a, Floats b) {
  return {_mm_mul_ps(a.v, b.v)};
}
inline Floats operator/(Floats a, Floats b) {
  return {_mm_div_ps(a.v, b.v)};
}
inline Floats operator-(Floats a) {
  return {_mm_xor_ps(a.v, _mm_set1_ps(-0.0f))};
}
inline Floats Abs(Floats a) {
  return {_mm_andnot_ps(_mm_set1_ps(-0.0f), a.v)};
}
inline Floats Sqrt(Floats a) {
  return {_mm_sqrt_ps(a.v)};
}

// As std::max and std::min. The instructions give their second operand for NaN and for zeros of both signs;
// hence the order.
inline Floats Max(Floats a, Floats b) {
  return {_mm_max_ps(b.v, a.v)};
}
inline Floats Min(Floats a, Floats b) {
  return {_mm_min_ps(b.v, a.v)};
}
/// lo for NaN.
inline Floats ClampLanes(Floats a, Floats lo, Floats hi) {
  return {_mm_min_ps(_mm_max_ps(a.v, lo.v), hi.v)};
}

inline Mask operator<(Floats a, Floats b) {
  return {_mm_cmplt_ps(a.v, b.v)};
}
inline Mask operator<=(Floats a, Floats b) {
  return {_mm_cmple_ps(a.v, b.v)};
}
inline Mask operator==(Floats a, Floats b) {
  return {_mm_cmpeq_ps(a.v, b.v)};
}
inline Mask operator!=(Floats a, Floats b) {
  return {_mm_cmpneq_ps(a.v, b.v)};
}

inline Mask NoLane() {
  return {_mm_setzero_ps()};
}
inline Mask AllLanes() {
  return {_mm_castsi128_ps(_mm_set1_epi32(-1))};
}
inline Mask And(Mask a, Mask b) {
  return {_mm_and_ps(a.v, b.v)};
}
/// b where a is not.
inline Mask AndNot(Mask a, Mask b) {
  return {_mm_andnot_ps(a.v, b.v)};
}
/// A bit a lane, the first lane's the lowest.
inline uint32_t BitsOf(Mask m) {
  return static_cast<uint32_t>(_mm_movemask_ps(m.v));
}
inline Floats Select(Mask m, Floats a, Floats b) {
  return {_mm_or_ps(_mm_and_ps(m.v, a.v), _mm_andnot_ps(m.v, b.v))};
}

// ---- Integers, wrapping ----

inline Ints SplatInts(uint32_t v) {
  return {_mm_set1_epi32(static_cast<int32_t>(v))};
}
inline Ints LoadInts(const uint32_t* at) {
  return {_mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(at)))};
}
inline void StoreInts(uint32_t* at, Ints a) {
  _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(at)), a.v);
}
inline Ints operator+(Ints a, Ints b) {
  return {_mm_add_epi32(a.v, b.v)};
}
inline Ints operator*(Ints a, Ints b) {
  const __m128i even = _mm_mul_epu32(a.v, b.v);
  const __m128i odd = _mm_mul_epu32(_mm_srli_epi64(a.v, 32), _mm_srli_epi64(b.v, 32));
  return {_mm_unpacklo_epi32(_mm_shuffle_epi32(even, _MM_SHUFFLE(3, 1, 2, 0)),
                             _mm_shuffle_epi32(odd, _MM_SHUFFLE(3, 1, 2, 0)))};
}
inline Ints operator^(Ints a, Ints b) {
  return {_mm_xor_si128(a.v, b.v)};
}
inline Ints operator&(Ints a, Ints b) {
  return {_mm_and_si128(a.v, b.v)};
}
template <int32_t kBits>
inline Ints ShiftRight(Ints a) {
  return {_mm_srli_epi32(a.v, kBits)};
}
template <int32_t kBits>
inline Ints ShiftLeft(Ints a) {
  return {_mm_slli_epi32(a.v, kBits)};
}
/// Lanes in which bit kBit is set.
template <int32_t kBit>
inline Mask BitSet(Ints a) {
  return {_mm_castsi128_ps(_mm_srai_epi32(_mm_slli_epi32(a.v, 31 - kBit), 31))};
}
/// a with its sign turned where bit kBit of h is set.
template <int32_t kBit>
inline Floats TurnSign(Floats a, Ints h) {
  const __m128i sign = _mm_and_si128(_mm_slli_epi32(h.v, 31 - kBit), _mm_set1_epi32(INT32_MIN));
  return {_mm_xor_ps(a.v, _mm_castsi128_ps(sign))};
}

/// Of signed integers.
inline Floats ToFloats(Ints a) {
  return {_mm_cvtepi32_ps(a.v)};
}
/// The bit patterns.
inline Ints AsInts(Floats a) {
  return {_mm_castps_si128(a.v)};
}
inline Floats AsFloats(Ints a) {
  return {_mm_castsi128_ps(a.v)};
}
/// Truncates what fits an integer.
inline Ints TruncToPlainInts(Floats a) {
  return {_mm_cvttps_epi32(a.v)};
}
/// As TruncToInt: saturates; 0 for NaN.
inline Ints TruncToInts(Floats a) {
  const __m128i plain = _mm_cvttps_epi32(a.v);  // INT32_MIN for all that lies outside
  const __m128i above = _mm_castps_si128(_mm_cmpge_ps(a.v, _mm_set1_ps(2147483648.0f)));
  const __m128i unordered = _mm_castps_si128(_mm_cmpunord_ps(a.v, a.v));
  return {_mm_andnot_si128(unordered, _mm_xor_si128(plain, above))};
}
/// a less 1 in the lanes of the mask.
inline Ints LessOne(Mask m, Ints a) {
  return {_mm_add_epi32(a.v, _mm_castps_si128(m.v))};
}

// ---- Doubles ----

inline Doubles ToDoubles(Floats a) {
  return {_mm_cvtps_pd(a.v), _mm_cvtps_pd(_mm_movehl_ps(a.v, a.v))};
}
inline Floats ToFloats(Doubles a) {
  return {_mm_movelh_ps(_mm_cvtpd_ps(a.low), _mm_cvtpd_ps(a.high))};
}
inline Doubles operator+(Doubles a, Doubles b) {
  return {_mm_add_pd(a.low, b.low), _mm_add_pd(a.high, b.high)};
}
inline Doubles operator-(Doubles a, Doubles b) {
  return {_mm_sub_pd(a.low, b.low), _mm_sub_pd(a.high, b.high)};
}
inline Doubles operator*(Doubles a, Doubles b) {
  return {_mm_mul_pd(a.low, b.low), _mm_mul_pd(a.high, b.high)};
}
inline Doubles operator/(Doubles a, Doubles b) {
  return {_mm_div_pd(a.low, b.low), _mm_div_pd(a.high, b.high)};
}
inline DoubleMask operator<(Doubles a, Doubles b) {
  return {_mm_cmplt_pd(a.low, b.low), _mm_cmplt_pd(a.high, b.high)};
}
inline DoubleMask operator==(Doubles a, Doubles b) {
  return {_mm_cmpeq_pd(a.low, b.low), _mm_cmpeq_pd(a.high, b.high)};
}
inline __m128d SelectHalf(__m128d m, __m128d a, __m128d b) {
  return _mm_or_pd(_mm_and_pd(m, a), _mm_andnot_pd(m, b));
}
inline Doubles Select(DoubleMask m, Doubles a, Doubles b) {
  return {SelectHalf(m.low, a.low, b.low), SelectHalf(m.high, a.high, b.high)};
}
inline Mask MaskOf(DoubleMask m) {
  return {_mm_shuffle_ps(_mm_castpd_ps(m.low), _mm_castpd_ps(m.high), _MM_SHUFFLE(2, 0, 2, 0))};
}

inline __m128d BitHalf(__m128d bits, int32_t shift) {
  const __m128i top = _mm_srai_epi32(_mm_slli_epi64(_mm_castpd_si128(bits), shift), 31);
  return _mm_castsi128_pd(_mm_shuffle_epi32(top, _MM_SHUFFLE(3, 3, 1, 1)));
}
/// Lanes whose bit pattern has bit kBit set.
template <int32_t kBit>
inline DoubleMask BitSet(Doubles a) {
  return {BitHalf(a.low, 63 - kBit), BitHalf(a.high, 63 - kBit)};
}
inline __m128d TurnHalf(__m128d a, __m128d bits, int32_t shift) {
  return _mm_xor_pd(
      a, _mm_and_pd(_mm_castsi128_pd(_mm_slli_epi64(_mm_castpd_si128(bits), shift)), _mm_set1_pd(-0.0)));
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
  return {_mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(at)))};
}
/// The even and the odd ones of twice kWidth words.
inline void LoadWordPairs(const std::byte* at, Ints* even, Ints* odd) {
  const __m128 first = _mm_castsi128_ps(LoadWords(at).v);
  const __m128 second = _mm_castsi128_ps(LoadWords(at + 16).v);
  *even = {_mm_castps_si128(_mm_shuffle_ps(first, second, _MM_SHUFFLE(2, 0, 2, 0)))};
  *odd = {_mm_castps_si128(_mm_shuffle_ps(first, second, _MM_SHUFFLE(3, 1, 3, 1)))};
}
inline PixelLanes LoadFloatPixels(const std::byte* at) {
  __m128 a = _mm_castsi128_ps(LoadWords(at).v);
  __m128 r = _mm_castsi128_ps(LoadWords(at + 16).v);
  __m128 g = _mm_castsi128_ps(LoadWords(at + 32).v);
  __m128 b = _mm_castsi128_ps(LoadWords(at + 48).v);
  _MM_TRANSPOSE4_PS(a, r, g, b);
  return {a, r, g, b};
}

inline uint32_t OnesFromBelow(uint32_t bits) {
  return static_cast<uint32_t>(std::countr_one(bits));
}
/// How many of sixteen ascending values lie below r.
inline uint32_t CountBelow(const float* group, float r) {
  const __m128 limit = _mm_set1_ps(r);
  const __m128i first = _mm_castps_si128(_mm_cmplt_ps(_mm_loadu_ps(group), limit));
  const __m128i second = _mm_castps_si128(_mm_cmplt_ps(_mm_loadu_ps(group + 4), limit));
  const __m128i third = _mm_castps_si128(_mm_cmplt_ps(_mm_loadu_ps(group + 8), limit));
  const __m128i fourth = _mm_castps_si128(_mm_cmplt_ps(_mm_loadu_ps(group + 12), limit));
  const __m128i packed = _mm_packs_epi16(_mm_packs_epi32(first, second), _mm_packs_epi32(third, fourth));
  return OnesFromBelow(static_cast<uint32_t>(_mm_movemask_epi8(packed)));
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
