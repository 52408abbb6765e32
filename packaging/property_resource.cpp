#include "packaging/property_resource.h"

#include "shell/identity.h"

namespace vantle::packaging {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr const char* kVendor = "8BIM";
constexpr size_t kHeaderBytes = 10;
constexpr size_t kPropertyHeaderBytes = 16;
constexpr std::uint32_t kPluginKind = 0x65464B54;  // 'eFKT', an effect

void Append(Bytes* bytes, std::uint32_t number, int count) {
  for (int i = 0; i < count; ++i) bytes->push_back(static_cast<std::uint8_t>(number >> (8 * i)));
}

// Four letters stand for a big-endian number, so that in this file they run backwards.
void AppendLetters(Bytes* bytes, const std::string& letters) {
  bytes->insert(bytes->end(), letters.rbegin(), letters.rend());
}

Bytes Padded(Bytes bytes) {
  while (bytes.size() % 4 != 0) bytes.push_back(0);
  return bytes;
}

std::uint32_t NumberAt(const std::uint8_t* at, size_t count) {
  std::uint32_t number = 0;
  for (size_t i = 0; i < count; ++i) number |= static_cast<std::uint32_t>(at[i]) << (8 * i);
  return number;
}

std::string LettersAt(const std::uint8_t* at) {
  std::string letters;
  for (size_t i = 4; i > 0; --i) letters.push_back(static_cast<char>(at[i - 1]));
  return letters;
}

}  // namespace

Bytes CountedText(std::string_view text) {
  Bytes bytes{static_cast<std::uint8_t>(text.size())};
  bytes.insert(bytes.end(), text.begin(), text.end());
  return Padded(bytes);
}

Bytes TerminatedText(std::string_view text) {
  Bytes bytes(text.begin(), text.end());
  bytes.push_back(0);
  return Padded(bytes);
}

Bytes Number(std::uint32_t number) {
  Bytes bytes;
  Append(&bytes, number, 4);
  return bytes;
}

Bytes MajorMinor(std::uint16_t major, std::uint16_t minor) {
  Bytes bytes;
  Append(&bytes, major, 2);
  Append(&bytes, minor, 2);
  return bytes;
}

std::vector<Property> EffectProperties() {
  return {
      {kVendor, "kind", 0, Number(kPluginKind)},
      {kVendor, "name", 0, CountedText(kDisplayName)},
      {kVendor, "catg", 0, CountedText(kCategory)},
      {kVendor, "8664", 0, TerminatedText(kEntryPointName)},
      {kVendor, "ePVR", 0, MajorMinor(2, 0)},
      {kVendor, "eSVR", 0, MajorMinor(kHostApiMajor, kHostApiMinor)},
      {kVendor, "eVER", 0, Number(kEffectVersion)},
      {kVendor, "eINF", 0, Number(0)},
      {kVendor, "eGLO", 0, Number(static_cast<std::uint32_t>(kOutFlags))},
      {kVendor, "eGL2", 0, Number(static_cast<std::uint32_t>(kOutFlags2))},
      {kVendor, "eMNA", 0, CountedText(kMatchName)},
      {kVendor, "aeFL", 0, Number(static_cast<std::uint32_t>(kReservedInfo))},
  };
}

Bytes WriteProperties(const std::vector<Property>& properties) {
  Bytes bytes;
  Append(&bytes, 1, 2);
  Append(&bytes, 0, 4);
  Append(&bytes, static_cast<std::uint32_t>(properties.size()), 4);
  for (const Property& property : properties) {
    AppendLetters(&bytes, property.vendor);
    AppendLetters(&bytes, property.key);
    Append(&bytes, static_cast<std::uint32_t>(property.id), 4);
    Append(&bytes, static_cast<std::uint32_t>(property.data.size()), 4);
    bytes.insert(bytes.end(), property.data.begin(), property.data.end());
  }
  return bytes;
}

bool ReadProperties(const std::uint8_t* bytes, size_t count, std::vector<Property>* properties) {
  if (count < kHeaderBytes || NumberAt(bytes, 2) != 1 || NumberAt(bytes + 2, 4) != 0) return false;
  size_t at = kHeaderBytes;
  for (std::uint32_t left = NumberAt(bytes + 6, 4); left > 0; --left) {
    if (count - at < kPropertyHeaderBytes) return false;
    const std::uint8_t* header = bytes + at;
    const size_t length = NumberAt(header + 12, 4);
    at += kPropertyHeaderBytes;
    if (count - at < length) return false;
    properties->push_back({LettersAt(header), LettersAt(header + 4),
                           static_cast<std::int32_t>(NumberAt(header + 8, 4)),
                           Bytes(bytes + at, bytes + at + length)});
    at += length;
  }
  return at == count;
}

}  // namespace vantle::packaging
