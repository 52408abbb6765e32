#include "shell/sprite_frames.h"

#include "base/numeric.h"
#include "host_api/aegp_suites.h"
#include "shell/command_handlers.h"
#include "shell/effect_handle.h"
#include "shell/parameter_ids.h"
#include "shell/suites.h"

#include <algorithm>
#include <cstdint>

namespace vantle {
namespace {

// What the popup's choices come to; 2 is not among them.
enum TimeType : int32_t {
  kCurrentTime = 1,
  kBirthPlayOnce = 3,
  kBirthLoop = 4,
  kBirthStretch = 5,
  kRandomStill = 6,
  kRandomPlayOnce = 7,
  kRandomLoop = 8,
};

struct DurationSuites {
  explicit DurationSuites(const PF_InData* in_data)
      : effect(in_data, kAEGP_PFInterfaceSuite1Name, kAEGP_PFInterfaceSuite1Version),
        streams(in_data, kAEGP_StreamSuite6Name, kAEGP_StreamSuite6Version),
        layers(in_data, kAEGP_LayerSuite9Name, kAEGP_LayerSuite9Version),
        items(in_data, kAEGP_ItemSuite9Name, kAEGP_ItemSuite9Version) {}
  explicit operator bool() const { return effect && streams && layers && items; }

  ScopedSuite<AEGP_PFInterfaceSuite1> effect;
  ScopedSuite<AEGP_StreamSuite6> streams;
  ScopedSuite<AEGP_LayerSuite9> layers;
  ScopedSuite<AEGP_ItemSuite9> items;
};

// The layer chosen in the "Custom Layer" control, 0 for none.
AEGP_LayerIDVal ChosenLayer(const PF_InData& in_data, const DurationSuites& host) {
  const AEGP_PluginID id = GeneralPluginId();
  const EffectHandle effect(&in_data, *host.effect.get());
  A_Time time{};
  if (effect.get() == nullptr ||
      host.effect->AEGP_ConvertEffectToCompTime(in_data.effect_ref, in_data.current_time, in_data.time_scale,
                                                &time) != A_Err_NONE) {
    return AEGP_LayerIDVal_NONE;
  }
  AEGP_StreamRefH stream = nullptr;
  if (host.streams->AEGP_GetNewEffectStreamByIndex(id, effect.get(), kParamCustomLayer, &stream) !=
          A_Err_NONE ||
      stream == nullptr) {
    return AEGP_LayerIDVal_NONE;
  }
  AEGP_LayerIDVal layerId = AEGP_LayerIDVal_NONE;
  AEGP_StreamValue2 value{};
  if (host.streams->AEGP_GetNewStreamValue(id, stream, AEGP_LTimeMode_CompTime, &time, A_Boolean{0},
                                           &value) == A_Err_NONE) {
    layerId = value.val.layer_id;
    host.streams->AEGP_DisposeStreamValue(&value);
  }
  host.streams->AEGP_DisposeStream(stream);
  return layerId;
}

// The source item of a layer in the effect's own composition.
AEGP_ItemH SourceItem(const PF_InData& in_data, const DurationSuites& host, AEGP_LayerIDVal layerId) {
  AEGP_LayerH own = nullptr;
  AEGP_CompH comp = nullptr;
  AEGP_LayerH layer = nullptr;
  AEGP_ItemH item = nullptr;
  if (host.effect->AEGP_GetEffectLayer(in_data.effect_ref, &own) != A_Err_NONE || own == nullptr ||
      host.layers->AEGP_GetLayerParentComp(own, &comp) != A_Err_NONE || comp == nullptr ||
      host.layers->AEGP_GetLayerFromLayerID(comp, layerId, &layer) != A_Err_NONE || layer == nullptr ||
      host.layers->AEGP_GetLayerSourceItem(layer, &item) != A_Err_NONE) {
    return nullptr;
  }
  return item;
}

// Duration that the host's services tell, in units of the frame's time scale; `fallback` where they cannot.
A_long AskDuration(const PF_InData& in_data, A_long fallback) {
  if (GeneralPluginId() == 0 || IsPremierePro(&in_data)) return fallback;
  const DurationSuites host(&in_data);
  if (!host) return fallback;
  const AEGP_LayerIDVal layerId = ChosenLayer(in_data, host);
  if (layerId == AEGP_LayerIDVal_NONE) return fallback;
  const AEGP_ItemH item = SourceItem(in_data, host, layerId);
  A_Time duration{};
  if (item == nullptr || host.items->AEGP_GetItemDuration(item, &duration) != A_Err_NONE ||
      duration.scale == 0) {
    return fallback;
  }
  return TruncToInt(static_cast<double>(duration.value) / duration.scale *
                    static_cast<double>(in_data.time_scale));
}

int64_t WrapInto(int64_t time, int64_t duration) {
  return ((time % duration) + duration) % duration;
}

// A share of a number of ticks; single precision, like everything that particles are made of.
int64_t ShareOf(int64_t ticks, float share) {
  return TruncToInt(static_cast<float>(ticks) * share);
}

}  // namespace

A_long SpriteDuration(const PF_InData& in_data) {
  return std::max<A_long>(AskDuration(in_data, in_data.total_time), 1);
}

bool SpriteTime(const FrameSettings& settings, const PF_InData& in_data, A_long duration, float random,
                A_long* time) {
  // Every particle is born at 0, so its age in ticks is the frame's own clock. Going through seconds in
  // single precision would fall a tick short on some frames, and the sprite would stutter.
  const int64_t age = in_data.time_scale != 0 ? in_data.current_time : 0;
  const int64_t d = duration;
  int64_t t = in_data.current_time;
  switch (settings.timeType) {
    case kBirthPlayOnce:
      t = age;
      if (t < 0 || t >= d) return false;
      break;
    case kBirthLoop:
      t = WrapInto(age, d);
      break;
    case kBirthStretch:
      t = ShareOf(d - 1, Clamp(settings.timeSeconds, 0.0f, 1.0f));
      break;
    case kRandomStill:
      t = ShareOf(d - 1, random);
      break;
    case kRandomPlayOnce:
      t = ShareOf(d, random) + age;
      if (t >= d) return false;
      t = std::max<int64_t>(t, 0);
      break;
    case kRandomLoop:
      t = WrapInto(ShareOf(d, random) + age, d);
      break;
    default:
      break;
  }

  // Down to a frame of the composition.
  if (in_data.time_step > 0) t -= WrapInto(t, in_data.time_step);
  *time = static_cast<A_long>(std::clamp<int64_t>(t, INT32_MIN, INT32_MAX));
  return true;
}

SpriteFrames::SpriteFrames(const PF_InData& in_data, PixelDepth depth)
    : in_data_(in_data), depth_(depth), checkouts_(in_data, kMaxSpriteFrames) {
  held_.reserve(kMaxSpriteFrames);
  images_.reserve(kMaxSpriteFrames);
}

void SpriteFrames::Assign(const FrameSettings& settings, ParticleList* list) {
  const A_long duration = SpriteDuration(in_data_);
  for (size_t i = 0; i < list->count; ++i) {
    ProjectedParticle& particle = list->particles[i];
    A_long time = 0;
    const bool shown = SpriteTime(settings, in_data_, duration, particle.random, &time);
    particle.spriteFrame = shown ? FrameAt(time) : -1;
  }
}

// A frame that the host fails to give is neither held nor remembered: it may give it to the next particle.
int32_t SpriteFrames::FrameAt(A_long time) {
  const auto next = std::lower_bound(held_.begin(), held_.end(), time,
                                     [](const Held& held, A_long t) { return held.time < t; });
  if (next != held_.end() && next->time == time) return next->frame;
  if (held_.size() == kMaxSpriteFrames) return next != held_.end() ? next->frame : held_.back().frame;

  const ImageView image = checkouts_.CheckOut(kParamCustomLayer, time, depth_);
  if (!HasPixels(image)) {
    checkouts_.GiveBackEmpty();
    return -1;
  }
  const int32_t frame = static_cast<int32_t>(images_.size());
  images_.push_back(image);
  held_.insert(next, {time, frame});
  return frame;
}

}  // namespace vantle
