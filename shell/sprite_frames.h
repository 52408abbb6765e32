// Which frame of the custom layer each particle wears, and the borrowing of those frames.
#pragma once

#include "base/image_view.h"
#include "host_api/call_records.h"
#include "particles/frame_settings.h"
#include "particles/simulation.h"
#include "shell/layer_checkout.h"

#include <cstddef>
#include <vector>

namespace vantle {

/// No more frames than this are borrowed for one picture.
inline constexpr int kMaxSpriteFrames = 200;

/// Duration of the custom layer's source in units of the frame's time scale, at least 1: the source item's
/// where the host can tell, else the composition's.
A_long SpriteDuration(const PF_InData& in_data);

/// Time of the sprite that a particle wears, in units of the frame's time scale. `random` is the particle's
/// own number 0..1, `duration` at least 1. False when the particle shows none at this moment.
bool SpriteTime(const FrameSettings& settings, const PF_InData& in_data, A_long duration, float random,
                A_long* time);

/// The frames that a picture's particles wear, borrowed from the host until the scope ends and then given
/// back in the order in which they were taken.
class SpriteFrames {
 public:
  /// Throws std::bad_alloc.
  SpriteFrames(const PF_InData& in_data, PixelDepth depth);

  /// Sets every particle's `spriteFrame`. A particle that is past its sprite's end, or whose frame the host
  /// does not give, gets -1 and is not drawn.
  void Assign(const FrameSettings& settings, ParticleList* list);

  const ImageView* images() const { return images_.data(); }
  size_t count() const { return images_.size(); }

 private:
  int32_t FrameAt(A_long time);

  // A held frame, kept in order of time.
  struct Held {
    A_long time;
    int32_t frame;
  };

  const PF_InData& in_data_;
  PixelDepth depth_;
  LayerCheckouts checkouts_;
  std::vector<Held> held_;
  std::vector<ImageView> images_;
};

}  // namespace vantle
