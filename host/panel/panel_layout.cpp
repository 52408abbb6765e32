#include "host/panel/panel_layout.h"

#include <algorithm>

namespace vantle::panel {
namespace {

constexpr int kControlMargin = 7;  // under a custom control
constexpr int kGroupEndSpace = 4;
constexpr int kBottomMargin = 6;

bool IsHidden(const host::DeclaredParam& param) {
  return (param.def.ui_flags & (PF_PUI_NO_ECW_UI | PF_PUI_INVISIBLE)) != 0;
}

PanelRow MakeRow(int param, int depth, int top, int height) {
  PanelRow row;
  row.param = param;
  row.depth = depth;
  row.row = {0, top, kPanelWidth, height};
  return row;
}

}  // namespace

bool HasCustomControl(const host::DeclaredParam& param) {
  return (param.def.ui_flags & PF_PUI_CONTROL) != 0 && param.def.ui_width > 0 && param.def.ui_height > 0;
}

PanelLayout LayOutPanel(const std::vector<host::DeclaredParam>& params) {
  PanelLayout layout;
  int top = kTitleHeight, depth = 0;
  for (size_t i = 1; i < params.size(); ++i) {
    const PF_ParamType type = params[i].def.param_type;
    if (type == PF_Param_GROUP_END) {
      depth = std::max(0, depth - 1);
      top += kGroupEndSpace;
      continue;
    }
    if (IsHidden(params[i])) continue;
    const bool group = type == PF_Param_GROUP_START;
    PanelRow row = MakeRow(static_cast<int>(i), depth, top, group ? kGroupHeight : kRowHeight);
    top += row.row.height;
    if (HasCustomControl(params[i])) {
      row.frame = {kValueLeft, top, params[i].def.ui_width, params[i].def.ui_height};
      layout.width = std::max(layout.width, kValueLeft + row.frame.width + kControlMargin);
      top += row.frame.height + kControlMargin;
    }
    if (group) ++depth;
    layout.rows.push_back(row);
  }
  for (PanelRow& row : layout.rows) row.row.width = layout.width;
  layout.height = top + kBottomMargin;
  return layout;
}

const PanelRow* FindRow(const PanelLayout& layout, int param) {
  const auto found = std::find_if(layout.rows.begin(), layout.rows.end(),
                                  [&](const PanelRow& row) { return row.param == param; });
  return found == layout.rows.end() ? nullptr : &*found;
}

}  // namespace vantle::panel
