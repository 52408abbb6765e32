#include "host/panel/scene_save.h"

#include <charconv>

namespace vantle::panel {
namespace {

constexpr size_t kLineWidth = 100;

// Numbers in their shortest form, so that 0.1 stays 0.1.
std::string Dump(const io::Json& json) {
  if (json.is_number_float()) {
    char text[32];
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, json.get<double>());
    return {text, result.ptr};
  }
  return json.dump(-1, ' ', false, io::Json::error_handler_t::replace);
}

// On one line, with a blank after commas and colons.
std::string Inline(const io::Json& json) {
  if (!json.is_structured()) return Dump(json);
  std::string text;
  for (const auto& [key, value] : json.items())
    text += (text.empty() ? "" : ", ") + (json.is_object() ? Dump(key) + ": " : "") + Inline(value);
  if (json.is_array()) return "[" + text + "]";
  return text.empty() ? "{}" : "{ " + text + " }";
}

void Append(const io::Json& json, size_t indent, std::string* text) {
  const std::string whole = Inline(json);
  const bool small = whole.size() + indent <= kLineWidth && indent > 0;
  if (small || !json.is_structured() || json.empty()) {
    *text += whole;
    return;
  }
  *text += json.is_array() ? "[" : "{";
  bool first = true;
  for (const auto& [key, value] : json.items()) {
    *text += (first ? "\n" : ",\n") + std::string(indent + 2, ' ');
    if (json.is_object()) *text += Dump(key) + ": ";
    Append(value, indent + 2, text);
    first = false;
  }
  *text += "\n" + std::string(indent, ' ') + (json.is_array() ? "]" : "}");
}

}  // namespace

std::string PrettyJson(const io::Json& json) {
  std::string text;
  Append(json, 0, &text);
  return text + "\n";
}

}  // namespace vantle::panel
