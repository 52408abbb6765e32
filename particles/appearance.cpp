#include "particles/appearance.h"

#include "particles/stages.h"

#include <algorithm>

namespace vantle {

void EvaluateAppearance(const FrameConstants& frame, const ParticleLanes& lanes, AppearanceLanes* out) {
  CurrentStages().evaluateAppearance(frame, lanes, out);
}

void EvaluateSizes(const FrameConstants& frame, const ParticleLanes& lanes, float* sizes) {
  CurrentStages().evaluateSizes(frame, lanes, sizes);
}

Color ShiftHue(const Color& c, float degrees) {
  AppearanceLanes lanes;
  std::fill(lanes.r, lanes.r + kLanes, c.r);
  std::fill(lanes.g, lanes.g + kLanes, c.g);
  std::fill(lanes.b, lanes.b + kLanes, c.b);
  CurrentStages().shiftHues(degrees, &lanes);
  return {lanes.r[0], lanes.g[0], lanes.b[0]};
}

}  // namespace vantle
