// The plug-in property list ("PiPL"): what a host reads from the library's file before it loads it. Made from
// the same constants as the registration and the global set-up, because hosts refuse a library that says one
// thing in its file and another when it runs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantle::packaging {

/// Type and number under which hosts look for the list among a library's resources.
inline constexpr const char* kPropertyResourceType = "PIPL";
inline constexpr int kPropertyResourceId = 16000;

/// One property: vendor and key as four letters each, and the data with its padding.
struct Property {
  std::string vendor;
  std::string key;
  std::int32_t id = 0;
  std::vector<std::uint8_t> data;
};

/// Everything the list says of this effect, in the order in which it is written.
std::vector<Property> EffectProperties();

/// The bytes of the resource: little-endian, a word 1, a dword 0, the number of properties, the properties.
/// Vendor and key must have four letters, data a length that is a multiple of four.
std::vector<std::uint8_t> WriteProperties(const std::vector<Property>& properties);

/// Reads what WriteProperties wrote. Returns false, with `properties` as far as they go, for bytes that are
/// cut off, have another header or bytes left over.
bool ReadProperties(const std::uint8_t* bytes, size_t count, std::vector<Property>* properties);

/// Data of a property: a text behind its length (at most 255 letters), a text that ends in a zero, a number,
/// a version as two words with the major one first. All padded to four bytes.
std::vector<std::uint8_t> CountedText(std::string_view text);
std::vector<std::uint8_t> TerminatedText(std::string_view text);
std::vector<std::uint8_t> Number(std::uint32_t number);
std::vector<std::uint8_t> MajorMinor(std::uint16_t major, std::uint16_t minor);

}  // namespace vantle::packaging
