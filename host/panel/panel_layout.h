// Where everything stands in the Effect Controls panel, in units of one pixel at scale 1. All groups are
// open.
#pragma once

#include "host/engine/effect.h"

#include <vector>

namespace vantle::panel {

struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

inline constexpr int kPanelWidth = 480;
inline constexpr int kTitleHeight = 32;
inline constexpr int kRowHeight = 22;
inline constexpr int kGroupHeight = 25;
inline constexpr int kIndent = 16;       ///< of each group that a row lies in
inline constexpr int kNameLeft = 26;     ///< of names outside of groups
inline constexpr int kValueLeft = 190;   ///< of values and custom controls
inline constexpr int kGaugeLeft = 276;   ///< of sliders and dials, right of their values
inline constexpr int kGaugeWidth = 184;  ///< of sliders

/// One parameter. `frame` is the rectangle of a control that the effect draws itself, below the row; empty
/// for others.
struct PanelRow {
  int param = 0;
  int depth = 0;  ///< number of groups around it
  Rect row;
  Rect frame;
};

struct PanelLayout {
  int width = kPanelWidth;
  int height = 0;
  std::vector<PanelRow> rows;
};

/// Rows for all parameters that show in panels, in the order of their declaration.
PanelLayout LayOutPanel(const std::vector<host::DeclaredParam>& params);

/// The row of a parameter, or null.
const PanelRow* FindRow(const PanelLayout& layout, int param);

/// Whether the effect draws the parameter's control.
bool HasCustomControl(const host::DeclaredParam& param);

}  // namespace vantle::panel
