#include "host/drawing/cairo_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vantle::host {
namespace {

void SetColor(cairo_t* cairo, const DRAWBOT_ColorRGBA& color) {
  cairo_set_source_rgba(cairo, double{color.red}, double{color.green}, double{color.blue},
                        double{color.alpha});
}

double Radians(float degrees) {
  return double{degrees} * std::numbers::pi / 180.0;
}

void AddStep(cairo_t* cairo, const PathStep& step) {
  const auto v = [&](std::size_t i) { return double{step.v[i]}; };
  switch (step.verb) {
    case PathVerb::kMove:
      return cairo_move_to(cairo, v(0), v(1));
    case PathVerb::kLine:
      return cairo_line_to(cairo, v(0), v(1));
    case PathVerb::kBezier:
      return cairo_curve_to(cairo, v(0), v(1), v(2), v(3), v(4), v(5));
    case PathVerb::kRect:
      return cairo_rectangle(cairo, v(0), v(1), v(2), v(3));
    case PathVerb::kArc: {
      const double start = Radians(step.v[3]), end = start + Radians(step.v[4]);
      return step.v[4] < 0 ? cairo_arc_negative(cairo, v(0), v(1), v(2), start, end)
                           : cairo_arc(cairo, v(0), v(1), v(2), start, end);
    }
    case PathVerb::kClose:
      return cairo_close_path(cairo);
  }
}

void SetPath(cairo_t* cairo, const DrawPath& path) {
  cairo_new_path(cairo);
  for (const PathStep& step : path) AddStep(cairo, step);
}

/// Width of one pixel of the screen. Hosts draw thinner lines as wide as that, where Cairo would let them
/// fade away.
double Hairline(cairo_t* cairo) {
  double x = 1, y = 0;
  cairo_user_to_device_distance(cairo, &x, &y);
  const double length = std::sqrt(x * x + y * y);
  return length > 0 ? 1 / length : 1;
}

/// One overload per operation. `filters` holds one entry per pushed state, and one more.
struct Painter {
  cairo_t* cairo;
  std::vector<cairo_filter_t> filters{CAIRO_FILTER_NEAREST};

  void operator()(const PaintRectOp& op) {
    cairo_new_path(cairo);
    cairo_rectangle(cairo, double{op.rect.left}, double{op.rect.top}, double{op.rect.width},
                    double{op.rect.height});
    SetColor(cairo, op.color);
    cairo_fill(cairo);
  }

  void operator()(const FillPathOp& op) {
    SetPath(cairo, op.path);
    SetColor(cairo, op.color);
    cairo_set_fill_rule(cairo, op.evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    cairo_fill(cairo);
  }

  void operator()(const StrokePathOp& op) {
    SetPath(cairo, op.path);
    SetColor(cairo, op.color);
    cairo_set_line_width(cairo, std::max(double{op.width}, Hairline(cairo)));
    cairo_stroke(cairo);
  }

  void operator()(const DrawStringOp& op) {
    SelectHostFont(cairo, double{op.fontSize});
    const bool whole = op.truncation == kDRAWBOT_TextTruncation_None;
    const std::string text = whole ? ToUtf8(op.text)
                                   : TruncateText(cairo, op.text, double{op.truncationWidth},
                                                  op.truncation != kDRAWBOT_TextTruncation_End);
    const double share = op.alignment == kDRAWBOT_TextAlignment_Center  ? 0.5
                         : op.alignment == kDRAWBOT_TextAlignment_Right ? 1.0
                                                                        : 0.0;
    SetColor(cairo, op.color);
    cairo_move_to(cairo, double{op.origin.x} - share * TextWidth(cairo, text), double{op.origin.y});
    cairo_show_text(cairo, text.c_str());
    cairo_new_path(cairo);
  }

  void operator()(const DrawImageOp& op) {
    const CairoSurface image = ToCairoSurface(*op.image);
    if (image == nullptr) return;
    cairo_set_source_surface(cairo, image.get(), double{op.origin.x}, double{op.origin.y});
    cairo_pattern_set_filter(cairo_get_source(cairo), filters.back());
    cairo_paint_with_alpha(cairo, double{op.alpha});
  }

  void operator()(const PushStateOp&) {
    cairo_save(cairo);
    filters.push_back(cairo_filter_t{filters.back()});
  }

  void operator()(const PopStateOp&) {
    if (filters.size() < 2) return;
    cairo_restore(cairo);
    filters.pop_back();
  }

  void operator()(const ClipOp& op) {
    cairo_new_path(cairo);
    cairo_rectangle(cairo, op.rect.left, op.rect.top, op.rect.width, op.rect.height);
    cairo_clip(cairo);
  }

  void operator()(const TransformOp& op) {
    const auto& m = op.matrix.mat;
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, double{m[0][0]}, double{m[0][1]}, double{m[1][0]}, double{m[1][1]},
                      double{m[2][0]}, double{m[2][1]});
    cairo_transform(cairo, &matrix);
  }

  void operator()(const AntiAliasOp& op) {
    cairo_set_antialias(
        cairo, op.policy == kDRAWBOT_AntiAliasPolicy_None ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_DEFAULT);
  }

  void operator()(const InterpolationOp& op) {
    filters.back() = op.policy == kDRAWBOT_InterpolationPolicy_None   ? CAIRO_FILTER_NEAREST
                     : op.policy == kDRAWBOT_InterpolationPolicy_High ? CAIRO_FILTER_BEST
                                                                      : CAIRO_FILTER_GOOD;
  }
};

}  // namespace

CairoSurface MakeCairoSurface(int width, int height) {
  if (width <= 0 || height <= 0) return nullptr;
  CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
  return cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS ? std::move(surface) : nullptr;
}

void PaintDrawList(cairo_t* cairo, const DrawList& list, const DRAWBOT_Rect32& clip) {
  cairo_save(cairo);
  cairo_new_path(cairo);
  cairo_rectangle(cairo, clip.left, clip.top, clip.width, clip.height);
  cairo_clip(cairo);
  Painter painter{cairo};
  for (const DrawOp& op : list) std::visit(painter, op);
  for (std::size_t open = painter.filters.size(); open > 1; --open) cairo_restore(cairo);
  cairo_restore(cairo);
}

}  // namespace vantle::host
