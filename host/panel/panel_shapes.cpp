#include "host/panel/panel_shapes.h"

#include "host/drawing/cairo_painter.h"

#include <cmath>
#include <numbers>

namespace vantle::panel {
namespace {

constexpr double kPi = std::numbers::pi;

double Middle(const Rect& rect) {
  return rect.top + rect.height * 0.5;
}

void RoundedRect(cairo_t* cairo, double left, double top, double width, double height, double radius) {
  cairo_new_path(cairo);
  cairo_arc(cairo, left + width - radius, top + radius, radius, -kPi / 2, 0);
  cairo_arc(cairo, left + width - radius, top + height - radius, radius, 0, kPi / 2);
  cairo_arc(cairo, left + radius, top + height - radius, radius, kPi / 2, kPi);
  cairo_arc(cairo, left + radius, top + radius, radius, kPi, 3 * kPi / 2);
  cairo_close_path(cairo);
}

void Circle(cairo_t* cairo, double x, double y, double radius) {
  cairo_new_path(cairo);
  cairo_arc(cairo, x, y, radius, 0, 2 * kPi);
}

// Down-pointing, as popups have it.
void PaintChevron(cairo_t* cairo, double x, double y) {
  cairo_new_path(cairo);
  cairo_move_to(cairo, x - 3.5, y - 1.75);
  cairo_line_to(cairo, x, y + 1.75);
  cairo_line_to(cairo, x + 3.5, y - 1.75);
  SetShade(cairo, kText);
  cairo_set_line_width(cairo, 1.4);
  cairo_stroke(cairo);
}

std::u16string ToUtf16(const std::string& utf8) {
  std::u16string text;
  for (size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    const int more = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : byte >= 0xC0 ? 1 : 0;
    char32_t code = more == 0 ? byte : byte & (0x3Fu >> more);
    for (int k = 0; k < more && i + 1 < utf8.size(); ++k)
      code = code << 6 | (static_cast<unsigned char>(utf8[++i]) & 0x3Fu);
    if (code >= 0x10000) text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
    text += static_cast<char16_t>(code >= 0x10000 ? 0xDC00 + ((code - 0x10000) & 0x3FF) : code);
  }
  return text;
}

}  // namespace

void SetShade(cairo_t* cairo, const Shade& shade, double alpha) {
  cairo_set_source_rgba(cairo, shade.red, shade.green, shade.blue, alpha);
}

void FillRect(cairo_t* cairo, const Rect& rect, const Shade& shade) {
  cairo_new_path(cairo);
  cairo_rectangle(cairo, rect.left, rect.top, rect.width, rect.height);
  SetShade(cairo, shade);
  cairo_fill(cairo);
}

void PaintBox(cairo_t* cairo, const Rect& rect, double radius, const Shade& face, const Shade& edge) {
  RoundedRect(cairo, rect.left + 0.5, rect.top + 0.5, rect.width - 1.0, rect.height - 1.0, radius);
  SetShade(cairo, face);
  cairo_fill_preserve(cairo);
  SetShade(cairo, edge);
  cairo_set_line_width(cairo, 1);
  cairo_stroke(cairo);
}

double PaintText(cairo_t* cairo, const std::string& utf8, double left, const Rect& row, double width,
                 const Shade& shade, bool bold) {
  host::SelectHostFont(cairo, kTextSize, bold);
  const std::string shown = host::TruncateText(cairo, ToUtf16(utf8), width, true);
  SetShade(cairo, shade);
  cairo_move_to(cairo, left, Middle(row) + kTextSize * 0.36);
  cairo_show_text(cairo, shown.c_str());
  cairo_new_path(cairo);
  return host::TextWidth(cairo, shown);
}

void PaintHotText(cairo_t* cairo, const std::string& utf8, double left, const Rect& row, double width) {
  const double length = PaintText(cairo, utf8, left, row, width, kAccent);
  const double dash = 1.5;
  cairo_save(cairo);
  cairo_set_dash(cairo, &dash, 1, 0);
  cairo_move_to(cairo, left, Middle(row) + 7);
  cairo_line_to(cairo, left + length, Middle(row) + 7);
  SetShade(cairo, kAccent, 0.55);
  cairo_set_line_width(cairo, 1);
  cairo_stroke(cairo);
  cairo_restore(cairo);
}

void PaintSlider(cairo_t* cairo, const Rect& row, double share) {
  const double y = Middle(row), travel = kGaugeWidth - 12.0, knob = kGaugeLeft + 6 + share * travel;
  RoundedRect(cairo, kGaugeLeft, y - 1.5, kGaugeWidth, 3, 1.5);
  SetShade(cairo, kFaceEdge);
  cairo_fill(cairo);
  if (share > 0) {
    RoundedRect(cairo, kGaugeLeft, y - 1.5, knob - kGaugeLeft, 3, 1.5);
    SetShade(cairo, kAccent, 0.75);
    cairo_fill(cairo);
  }
  Circle(cairo, knob, y, 5);
  SetShade(cairo, kKnob);
  cairo_fill_preserve(cairo);
  SetShade(cairo, kEdge);
  cairo_set_line_width(cairo, 1);
  cairo_stroke(cairo);
}

void PaintDial(cairo_t* cairo, const Rect& row, double degrees) {
  const double x = kGaugeLeft + 9.0, y = Middle(row), angle = degrees * kPi / 180;
  Circle(cairo, x, y, 8.5);
  SetShade(cairo, kFace);
  cairo_fill_preserve(cairo);
  SetShade(cairo, kFaceEdge);
  cairo_set_line_width(cairo, 1.2);
  cairo_stroke(cairo);
  cairo_move_to(cairo, x, y);
  cairo_line_to(cairo, x + std::sin(angle) * 7, y - std::cos(angle) * 7);
  SetShade(cairo, kKnob);
  cairo_set_line_width(cairo, 1.6);
  cairo_stroke(cairo);
}

void PaintCheckBox(cairo_t* cairo, const Rect& row, bool on) {
  const Rect box{kValueLeft, row.top + (row.height - 13) / 2, 13, 13};
  PaintBox(cairo, box, 2.5, on ? kAccent : kFace, on ? kAccent : kFaint);
  if (!on) return;
  cairo_move_to(cairo, box.left + 3.2, box.top + 6.8);
  cairo_line_to(cairo, box.left + 5.6, box.top + 9.3);
  cairo_line_to(cairo, box.left + 10.0, box.top + 3.9);
  SetShade(cairo, kEdge);
  cairo_set_line_width(cairo, 1.8);
  cairo_stroke(cairo);
}

void PaintPopup(cairo_t* cairo, const Rect& row, int left, int width, const std::string& label) {
  PaintBox(cairo, {left, row.top + 2, width, row.height - 4}, 3, kFace, kFaceEdge);
  PaintText(cairo, label, left + 8, row, width - 28, kText);
  PaintChevron(cairo, left + width - 11, Middle(row));
}

void PaintButton(cairo_t* cairo, const Rect& row, const std::string& label) {
  constexpr int kWidth = 110;
  PaintBox(cairo, {kValueLeft, row.top + 2, kWidth, row.height - 4}, (row.height - 5) * 0.5, kFace, kFaint);
  host::SelectHostFont(cairo, kTextSize);
  const double width = host::TextWidth(cairo, label);
  PaintText(cairo, label, kValueLeft + (kWidth - width) * 0.5, row, kWidth - 12, kText);
}

void PaintTwirl(cairo_t* cairo, double x, double y) {
  cairo_new_path(cairo);
  cairo_move_to(cairo, x - 4, y - 2.5);
  cairo_line_to(cairo, x + 4, y - 2.5);
  cairo_line_to(cairo, x, y + 3.5);
  cairo_close_path(cairo);
  SetShade(cairo, kText);
  cairo_fill(cairo);
}

void PaintStopwatch(cairo_t* cairo, double x, double y, bool animated) {
  const Shade& shade = animated ? kAccent : kFaint;
  cairo_rectangle(cairo, x - 1.5, y - 6.3, 3, 1.8);
  SetShade(cairo, shade);
  cairo_fill(cairo);
  Circle(cairo, x, y + 0.4, 4.3);
  cairo_set_line_width(cairo, 1.2);
  cairo_stroke_preserve(cairo);
  if (animated) cairo_fill(cairo);
  cairo_new_path(cairo);
  cairo_move_to(cairo, x, y + 0.4);
  cairo_line_to(cairo, x, y - 2.4);
  SetShade(cairo, animated ? kEdge : kFaint);
  cairo_stroke(cairo);
}

}  // namespace vantle::panel
