#include "host/panel/panel_paint.h"

#include "host/panel/panel_shapes.h"
#include "host/panel/value_labels.h"
#include "host/scene/parameter_lookup.h"

namespace vantle::panel {
namespace {

constexpr int kRightMargin = 14;

const host::ParamValue* ValueOf(const PanelContent& content, int param) {
  const auto found = content.values.find(param);
  return found == content.values.end() ? nullptr : &found->second;
}

std::string TextOf(const std::map<int, std::string>& texts, int param) {
  const auto found = texts.find(param);
  return found == texts.end() ? std::string() : found->second;
}

void PaintTitle(cairo_t* cairo, const PanelContent& content, int width) {
  const Rect band{0, 0, width, kTitleHeight};
  FillRect(cairo, band, kTitleBand);
  FillRect(cairo, {0, kTitleHeight - 1, width, 1}, kEdge);
  PaintTwirl(cairo, 12, kTitleHeight * 0.5);
  const Rect badge{24, 9, 19, 14};
  PaintBox(cairo, badge, 3, kFace, kFaint);
  PaintText(cairo, "fx", 28, badge, 16, kText);
  PaintText(cairo, content.title, 51, band, 130, {0.92, 0.92, 0.92}, true);
  PaintText(cairo, "Reset", kValueLeft, band, 60, kAccent);
  PaintText(cairo, "About…", kGaugeLeft, band, 60, kAccent);
}

void PaintGroup(cairo_t* cairo, const host::DeclaredParam& param, const PanelRow& row) {
  FillRect(cairo, row.row, kBand);
  FillRect(cairo, {0, row.row.top, row.row.width, 1}, kEdge);
  const double x = 12.0 + row.depth * kIndent;
  PaintTwirl(cairo, x, row.row.top + row.row.height * 0.5);
  PaintText(cairo, param.name, x + 12, row.row, row.row.width - x - 24, kText, true);
}

// What stands in the value's column and right of it.
void PaintValue(cairo_t* cairo, const host::DeclaredParam& param, const PanelRow& row,
                const PanelContent& content) {
  const host::ParamValue* value = ValueOf(content, row.param);
  const std::string label = ValueLabel(param, value);
  constexpr int kValueWidth = kGaugeLeft - kValueLeft - 8;
  switch (param.def.param_type) {
    case PF_Param_FLOAT_SLIDER:
      PaintHotText(cairo, label, kValueLeft, row.row, kValueWidth);
      return PaintSlider(cairo, row.row, GaugePosition(param, value));
    case PF_Param_ANGLE:
      PaintHotText(cairo, label, kValueLeft, row.row, kValueWidth);
      return PaintDial(cairo, row.row, GaugePosition(param, value));
    case PF_Param_CHECKBOX:
      PaintCheckBox(cairo, row.row, GaugePosition(param, value) > 0);
      PaintText(cairo, param.choices, kValueLeft + 20, row.row, 200, kText);
      return;
    case PF_Param_POPUP:
      return PaintPopup(cairo, row.row, kValueLeft, 190, label);
    case PF_Param_LAYER:
      PaintPopup(cairo, row.row, kValueLeft, 150, TextOf(content.layers, row.param));
      return PaintPopup(cairo, row.row, kValueLeft + 156, 104, "Source");
    case PF_Param_BUTTON:
      return PaintButton(cairo, row.row, param.choices);
    case PF_Param_ARBITRARY_DATA:
      PaintText(cairo, TextOf(content.texts, row.param), kValueLeft, row.row,
                row.row.width - kValueLeft - kRightMargin, kFaint);
      return;
    default:
      return;
  }
}

}  // namespace

void PaintGround(cairo_t* cairo, const Rect& rect) {
  FillRect(cairo, rect, kGround);
}

void PaintRow(cairo_t* cairo, const std::vector<host::DeclaredParam>& params, const PanelRow& row,
              const PanelContent& content) {
  const host::DeclaredParam& param = params[static_cast<size_t>(row.param)];
  PaintGround(cairo, row.row);
  if (param.def.param_type == PF_Param_GROUP_START) return PaintGroup(cairo, param, row);
  FillRect(cairo, {0, row.row.top, row.row.width, 1}, kHairline);
  const double x = 12.0 + row.depth * kIndent, middle = row.row.top + row.row.height * 0.5;
  if (scene::TakesValue(param)) PaintStopwatch(cairo, x, middle, content.animated.count(row.param) != 0);
  PaintText(cairo, param.name, x + 12, row.row, kValueLeft - x - 18, kText);
  PaintValue(cairo, param, row, content);
}

void PaintPanel(cairo_t* cairo, const std::vector<host::DeclaredParam>& params, const PanelLayout& layout,
                const PanelContent& content) {
  PaintGround(cairo, {0, 0, layout.width, layout.height});
  PaintTitle(cairo, content, layout.width);
  for (const PanelRow& row : layout.rows) PaintRow(cairo, params, row, content);
}

}  // namespace vantle::panel
