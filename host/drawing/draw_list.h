// What an effect drew in one event, as plain data: the suites write it down, a painter plays it.
#pragma once

#include "host_api/drawbot.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace vantle::host {

enum class PathVerb { kMove, kLine, kBezier, kRect, kArc, kClose };

/// `v` by verb: a point; three points; left, top, width, height; centre, radius, start and sweep in degrees,
/// clockwise from three o'clock.
struct PathStep {
  PathVerb verb = PathVerb::kMove;
  std::array<float, 6> v{};
};
using DrawPath = std::vector<PathStep>;

/// A picture copied out of the effect's memory, as it was handed over.
struct DrawImage {
  int width = 0;
  int height = 0;
  int rowBytes = 0;
  DRAWBOT_PixelLayout layout = kDRAWBOT_PixelLayout_32ARGB_Straight;
  std::vector<std::uint8_t> bytes;
};

struct PaintRectOp {
  DRAWBOT_ColorRGBA color;
  DRAWBOT_RectF32 rect;
};
struct FillPathOp {
  DRAWBOT_ColorRGBA color;
  DrawPath path;
  bool evenOdd;
};
struct StrokePathOp {
  DRAWBOT_ColorRGBA color;
  float width;
  DrawPath path;
};
struct DrawStringOp {
  DRAWBOT_ColorRGBA color;
  float fontSize;
  std::u16string text;
  DRAWBOT_PointF32 origin;  ///< on the base line
  DRAWBOT_TextAlignment alignment;
  DRAWBOT_TextTruncation truncation;
  float truncationWidth;
};
struct DrawImageOp {
  std::shared_ptr<const DrawImage> image;
  DRAWBOT_PointF32 origin;
  float alpha;
};
struct PushStateOp {};
struct PopStateOp {};
struct ClipOp {
  DRAWBOT_Rect32 rect;
};
struct TransformOp {
  DRAWBOT_MatrixF32 matrix;  ///< row vectors: x' = x m00 + y m10 + m20
};
struct AntiAliasOp {
  DRAWBOT_AntiAliasPolicy policy;
};
struct InterpolationOp {
  DRAWBOT_InterpolationPolicy policy;
};

using DrawOp = std::variant<PaintRectOp, FillPathOp, StrokePathOp, DrawStringOp, DrawImageOp, PushStateOp,
                            PopStateOp, ClipOp, TransformOp, AntiAliasOp, InterpolationOp>;
using DrawList = std::vector<DrawOp>;

}  // namespace vantle::host
