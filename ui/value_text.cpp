#include "ui/value_text.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace vantle {
namespace {

// A whole number below 2^128, the largest a float can hold, as five groups of nine digits, lowest first.
struct Decimal {
  static constexpr uint32_t kBase = 1000000000;
  uint32_t groups[5] = {};

  void Double() {
    uint32_t carry = 0;
    for (uint32_t& group : groups) {
      const uint32_t doubled = 2 * group + carry;
      carry = doubled >= kBase ? 1 : 0;
      group = doubled - carry * kBase;
    }
  }
};

// Exact: halving a float that stays above 2^23 loses nothing.
Decimal ToDecimal(float whole) {
  int doublings = 0;
  for (; whole >= 16777216.0f; whole *= 0.5f) ++doublings;
  Decimal decimal;
  decimal.groups[0] = static_cast<uint32_t>(whole);
  while (doublings-- > 0) decimal.Double();
  return decimal;
}

size_t WriteDigits(Decimal decimal, char* text) {
  char reversed[45];
  size_t count = 0;
  for (uint32_t group : decimal.groups) {
    for (int digit = 0; digit < 9; ++digit, group /= 10)
      reversed[count++] = static_cast<char>('0' + group % 10);
  }
  while (count > 1 && reversed[count - 1] == '0') --count;
  for (size_t i = 0; i < count; ++i) text[i] = reversed[count - 1 - i];
  return count;
}

// Written out because the C function follows the caller's rounding mode.
float RoundHalfToEven(float v) {
  const float below = std::floor(v);
  const float rest = v - below;
  if (rest < 0.5f) return below;
  if (rest > 0.5f) return below + 1.0f;
  return std::floor(below * 0.5f) * 2.0f == below ? below : below + 1.0f;
}

size_t Write(const char* word, char* text) {
  const size_t length = std::strlen(word);
  std::memcpy(text, word, length);
  return length;
}

// A text that grows part by part and never past its buffer.
struct BoundedText {
  char* text;
  size_t size;
  size_t length = 0;

  // Appends separator, number and suffix as a whole, or nothing and false.
  bool Append(float number, const char* suffix) {
    char part[kWholeTextSize];
    const size_t digits = FormatWhole(number, part);
    const size_t separator = length > 0 ? 1 : 0;
    const size_t suffixLength = std::strlen(suffix);
    if (separator + digits + suffixLength + 1 > size - length) return false;
    if (separator != 0) text[length++] = ',';
    std::memcpy(text + length, part, digits);
    std::memcpy(text + length + digits, suffix, suffixLength);
    length += digits + suffixLength;
    text[length] = '\0';
    return true;
  }
};

}  // namespace

size_t FormatWhole(float value, char (&text)[kWholeTextSize]) {
  size_t length = 0;
  if (!(value == value)) {
    length = Write("nan", text);
  } else {
    if (std::signbit(value)) text[length++] = '-';
    const float magnitude = std::fabs(value);
    const bool finite = magnitude <= 3.40282347e+38f;
    length += finite ? WriteDigits(ToDecimal(RoundHalfToEven(magnitude)), text + length)
                     : Write("inf", text + length);
  }
  text[length] = '\0';
  return length;
}

void PrintGradient(const ColorGradient& gradient, char* text, size_t size) {
  if (text == nullptr || size == 0) return;
  text[0] = '\0';
  BoundedText bounded{text, size};
  const int32_t count = UsableCount(gradient);
  for (int32_t i = 0; i < count && bounded.length + 16 < size; ++i) {
    if (!bounded.Append(gradient.stops[i].position * 100.0f, "%")) return;
  }
}

void PrintCurve(const LifeCurve& curve, char* text, size_t size) {
  if (text == nullptr || size == 0) return;
  text[0] = '\0';
  BoundedText bounded{text, size};
  const int32_t count = UsableCount(curve);
  for (int32_t i = 0; i < count && bounded.length + 8 < size; ++i) {
    if (!bounded.Append(curve.y[i] * 100.0f, "")) return;
  }
}

}  // namespace vantle
