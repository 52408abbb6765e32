// What particles look like: colour, opacity, size, stroke and rotation over their lives.
#pragma once

#include "particles/frame_constants.h"
#include "particles/lanes.h"
#include "particles/motion.h"

#include <cstdint>

namespace vantle {

enum ColorModeId : int32_t {
  COLOR_SOLID = 1,
  COLOR_FROM_EMITTER = 2,
  COLOR_OVER_LIFE = 3,
  COLOR_RANDOM_OVER_LIFE = 4,
};

struct alignas(64) AppearanceLanes {
  float r[kLanes], g[kLanes], b[kLanes];
  float opacity[kLanes];                           ///< 0..1
  float size[kLanes];                              ///< pixels, at least 0.5
  float lineWidth[kLanes];                         ///< pixels, at least 0.5
  float rotX[kLanes], rotY[kLanes], rotZ[kLanes];  ///< degrees
  float random[kLanes];                            ///< 0..1
};

void EvaluateAppearance(const FrameConstants& frame, const ParticleLanes& lanes, AppearanceLanes* out);

/// The sizes alone.
void EvaluateSizes(const FrameConstants& frame, const ParticleLanes& lanes, float* sizes);

/// Turns a colour's hue by `degrees`; saturation and value stay.
Color ShiftHue(const Color& color, float degrees);

}  // namespace vantle
