// The plain parts of the panel: everything but the controls that the effect draws itself.
#pragma once

#include "host/engine/frame_request.h"
#include "host/panel/panel_layout.h"

#include <cairo.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vantle::panel {

/// What the panel shows besides the declaration. By parameter index.
struct PanelContent {
  std::string title;
  std::map<int, host::ParamValue> values;  ///< absent ones stand at their defaults
  std::map<int, std::string> texts;        ///< of custom values, as the effect prints them
  std::map<int, std::string> layers;       ///< names of the layers of layer parameters
  std::set<int> animated;                  ///< parameters with several keyframes
};

/// Ground, title and every row; the rectangles of custom controls stay empty ground.
void PaintPanel(cairo_t* cairo, const std::vector<host::DeclaredParam>& params, const PanelLayout& layout,
                const PanelContent& content);

/// One row again, over the old one; not its custom control.
void PaintRow(cairo_t* cairo, const std::vector<host::DeclaredParam>& params, const PanelRow& row,
              const PanelContent& content);

/// The panel's ground over a rectangle.
void PaintGround(cairo_t* cairo, const Rect& rect);

}  // namespace vantle::panel
