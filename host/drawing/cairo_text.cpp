#include "host/drawing/cairo_painter.h"

namespace vantle::host {
namespace {

constexpr const char* kEllipsis = "\xE2\x80\xA6";

bool IsHighHalf(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowHalf(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

void AppendUtf8(char32_t code, std::string* text) {
  const auto put = [text](char32_t byte) { text->push_back(static_cast<char>(byte)); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3F));
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

struct FontOptions {
  cairo_font_options_t* options = cairo_font_options_create();
  FontOptions() = default;
  FontOptions(const FontOptions&) = delete;
  FontOptions& operator=(const FontOptions&) = delete;
  ~FontOptions() { cairo_font_options_destroy(options); }
};

}  // namespace

void SelectHostFont(cairo_t* cairo, double size, bool bold) {
  const FontOptions font;
  cairo_font_options_set_antialias(font.options, CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(font.options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(font.options, CAIRO_HINT_METRICS_OFF);
  cairo_set_font_options(cairo, font.options);
  cairo_select_font_face(cairo, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                         bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(cairo, size);
}

double TextWidth(cairo_t* cairo, const std::string& utf8) {
  cairo_text_extents_t extents;
  cairo_text_extents(cairo, utf8.c_str(), &extents);
  return extents.x_advance;
}

std::string TruncateText(cairo_t* cairo, const std::u16string& text, double width, bool ellipsis) {
  std::string whole = ToUtf8(text);
  if (TextWidth(cairo, whole) <= width) return whole;
  for (std::size_t length = text.size(); length > 0; --length) {
    if (length < text.size() && IsLowHalf(text[length])) continue;
    std::string part = ToUtf8(text.substr(0, length - 1)) + (ellipsis ? kEllipsis : "");
    if (TextWidth(cairo, part) <= width) return part;
  }
  return "";
}

std::string ToUtf8(const std::u16string& text) {
  std::string utf8;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (IsHighHalf(unit) && i + 1 < text.size() && IsLowHalf(text[i + 1])) {
      AppendUtf8(0x10000 + (static_cast<char32_t>(unit - 0xD800) << 10) + (text[i + 1] - 0xDC00u), &utf8);
      ++i;
    } else {
      AppendUtf8(IsHighHalf(unit) || IsLowHalf(unit) ? U'?' : char32_t{unit}, &utf8);
    }
  }
  return utf8;
}

}  // namespace vantle::host
