// Layers borrowed from the host for a while.
#pragma once

#include "base/floating_environment.h"
#include "base/image_view.h"
#include "host_api/call_records.h"
#include "host_api/commands.h"
#include "host_api/parameters.h"
#include "shell/pixel_format.h"

#include <cstring>
#include <memory>

namespace vantle {

/// Checked-out layers, given back in the order in which they were taken when the scope ends, on every path.
/// All memory is allocated up front, so nothing can fail between a checkout and its check-in. The host may
/// render something of its own inside either call; the floating-point settings that it leaves behind end
/// there.
class LayerCheckouts {
 public:
  /// Room for `capacity` layers. Throws std::bad_alloc.
  LayerCheckouts(const PF_InData& in_data, int capacity)
      : in_data_(in_data),
        held_(std::make_unique<PF_ParamDef[]>(static_cast<size_t>(capacity))),
        capacity_(capacity) {}
  ~LayerCheckouts() {
    for (int i = 0; i < count_; ++i) CheckIn(i);
  }
  LayerCheckouts(const LayerCheckouts&) = delete;
  LayerCheckouts& operator=(const LayerCheckouts&) = delete;

  /// The pixels of layer parameter `index` at `time` (in units of the frame's time scale), valid until the
  /// scope ends. No pixels when the control is set to none, the checkout fails or the room is used up.
  ImageView CheckOut(PF_ParamIndex index, A_long time, PixelDepth depth) {
    lastIsEmpty_ = false;
    if (count_ == capacity_ || in_data_.inter.checkout_param == nullptr) return {};
    PF_ParamDef* def = &held_[At(count_)];
    std::memset(def, 0, sizeof(*def));
    const ScopedFloatingEnvironment keptSettings;
    if (in_data_.inter.checkout_param(in_data_.effect_ref, index, time, in_data_.time_step,
                                      in_data_.time_scale, def) != PF_Err_NONE) {
      return {};
    }
    ++count_;
    const ImageView image = ViewWorld(def->u.ld, depth);
    lastIsEmpty_ = !HasPixels(image);
    return image;
  }

  /// Gives back at once what the last checkout took, if that has no pixels, so that its room serves another.
  void GiveBackEmpty() {
    if (!lastIsEmpty_) return;
    lastIsEmpty_ = false;
    --count_;
    CheckIn(count_);
  }

 private:
  static size_t At(int i) { return static_cast<size_t>(i); }
  void CheckIn(int i) {
    if (in_data_.inter.checkin_param == nullptr) return;
    const ScopedFloatingEnvironment keptSettings;
    in_data_.inter.checkin_param(in_data_.effect_ref, &held_[At(i)]);
  }

  const PF_InData& in_data_;
  std::unique_ptr<PF_ParamDef[]> held_;
  int capacity_;
  int count_ = 0;
  bool lastIsEmpty_ = false;
};

}  // namespace vantle
