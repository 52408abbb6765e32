// The shapes that plain controls are made of, in a dark theme.
#pragma once

#include "host/panel/panel_layout.h"

#include <cairo.h>
#include <string>

namespace vantle::panel {

struct Shade {
  double red, green, blue;
};

inline constexpr Shade kGround{0.118, 0.118, 0.118};
inline constexpr Shade kBand{0.165, 0.165, 0.168};
inline constexpr Shade kTitleBand{0.2, 0.2, 0.204};
inline constexpr Shade kEdge{0.075, 0.075, 0.075};
inline constexpr Shade kHairline{0.16, 0.16, 0.16};
inline constexpr Shade kText{0.78, 0.78, 0.78};
inline constexpr Shade kFaint{0.5, 0.5, 0.5};
inline constexpr Shade kAccent{0.30, 0.62, 0.93};
inline constexpr Shade kFace{0.235, 0.235, 0.24};
inline constexpr Shade kFaceEdge{0.33, 0.33, 0.34};
inline constexpr Shade kKnob{0.8, 0.8, 0.8};

inline constexpr double kTextSize = 11;

void SetShade(cairo_t* cairo, const Shade& shade, double alpha = 1);
void FillRect(cairo_t* cairo, const Rect& rect, const Shade& shade);
/// A box with round corners, face and edge.
void PaintBox(cairo_t* cairo, const Rect& rect, double radius, const Shade& face, const Shade& edge);

/// Text in the middle of a row's height from `left` on, cut with an ellipsis at `width`; returns its width.
double PaintText(cairo_t* cairo, const std::string& utf8, double left, const Rect& row, double width,
                 const Shade& shade, bool bold = false);

/// A number that can be dragged: text with a dotted line under it.
void PaintHotText(cairo_t* cairo, const std::string& utf8, double left, const Rect& row, double width);

/// Knob at `share`, 0 to 1.
void PaintSlider(cairo_t* cairo, const Rect& row, double share);
/// A dial that shows an angle clockwise from the top.
void PaintDial(cairo_t* cairo, const Rect& row, double degrees);
void PaintCheckBox(cairo_t* cairo, const Rect& row, bool on);
void PaintPopup(cairo_t* cairo, const Rect& row, int left, int width, const std::string& label);
void PaintButton(cairo_t* cairo, const Rect& row, const std::string& label);

/// The sign of a group, open.
void PaintTwirl(cairo_t* cairo, double x, double y);
/// The sign of a parameter that can be animated; filled when it is.
void PaintStopwatch(cairo_t* cairo, double x, double y, bool animated);

}  // namespace vantle::panel
