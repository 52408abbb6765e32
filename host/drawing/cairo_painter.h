// Playing what an effect drew onto a Cairo surface.
#pragma once

#include "host/drawing/draw_list.h"

#include <cairo.h>
#include <memory>
#include <string>

namespace vantle::host {

struct CairoDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using Cairo = std::unique_ptr<cairo_t, CairoDeleter>;

/// A picture of 8 bits per channel; null when there is no memory or a side is not above 0.
CairoSurface MakeCairoSurface(int width, int height);

/// Paints over what the surface shows. The list's units are those of the context's current transform; what
/// lies outside of `clip` stays as it is. The context is left as it was.
void PaintDrawList(cairo_t* cairo, const DrawList& list, const DRAWBOT_Rect32& clip);

/// The host's own font at `size` units, with letter shapes that do not depend on the scale.
void SelectHostFont(cairo_t* cairo, double size, bool bold = false);

/// Width of a text in the selected font, units.
double TextWidth(cairo_t* cairo, const std::string& utf8);

/// The text, or the longest beginning of it that with an ellipsis (or without) is no wider than `width`.
std::string TruncateText(cairo_t* cairo, const std::u16string& text, double width, bool ellipsis);

/// UTF-16 as UTF-8; halves of pairs become question marks.
std::string ToUtf8(const std::u16string& text);

/// A picture of an effect as a premultiplied Cairo surface.
CairoSurface ToCairoSurface(const DrawImage& image);

}  // namespace vantle::host
