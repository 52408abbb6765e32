// Frames of a layer stamped as particles.
#pragma once

#include "base/image_view.h"
#include "particles/projected_particle.h"
#include "tests/reference/pixel_codec.h"
#include "tests/reference/shape_coverage.h"

#include <vector>

namespace vantle::reference {

/// The frame that the particle shows; null when there is none with pixels.
const ImageView* SpriteOf(const ProjectedParticle& particle, const std::vector<ImageView>& sprites);

/// What a sprite is drawn from, with what is the same for all its pixels.
struct SpriteStamp {
  const ProjectedParticle& particle;
  const ImageView& sprite;
  Tilt tilt;
  float width, height;  ///< on the screen: the longer side spans twice the particle's size
};
SpriteStamp SpriteStampOf(const ProjectedParticle& particle, const ImageView& sprite);

/// The square that the turned and blurred sprite cannot leave.
Region SpriteRegion(const SpriteStamp& stamp);

/// The sprite at the point (px, py): straight colour, and the share of the point that it covers. Nothing is
/// covered where `a` is 0.
Pixel SpriteAt(const SpriteStamp& stamp, float px, float py);

}  // namespace vantle::reference
