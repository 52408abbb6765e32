#include "particles/planes.h"

#include "base/elementary.h"

#include <bit>
#include <cstdint>

namespace vantle {

Rotation3 MakeRotation(float x, float y, float z) {
  const auto [sx, cx] = SinCos(x);
  const auto [sy, cy] = SinCos(y);
  const auto [sz, cz] = SinCos(z);
  return {{{cz * cy, cz * sy * sx - sz * cx, cz * sy * cx + sz * sx},
           {sz * cy, sz * sy * sx + cz * cx, sz * sy * cx - cz * sx},
           {-sy, cy * sx, cy * cx}}};
}

PlaneTransform MakePlaneTransform(const PlaneSettings& plane, float centreX, float centreY) {
  const float radians = std::bit_cast<float>(uint32_t{0x3C8EFA36});
  return {MakeRotation(plane.rotation[0] * radians, plane.rotation[1] * radians, plane.rotation[2] * radians),
          {centreX, centreY},
          {plane.scale[0], plane.scale[1]},
          plane.thickness,
          {centreX + plane.position[0], centreY + plane.position[1], plane.position[2]}};
}

}  // namespace vantle
