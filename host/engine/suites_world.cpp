// Worlds: their formats, and worlds that effects make for themselves.
#include "host/engine/call_context.h"
#include "host/engine/suites.h"

#include <algorithm>
#include <new>
#include <stdexcept>

namespace vantle::host {
namespace {

int DepthOf(PF_PixelFormat format) {
  for (const int depth : {8, 16, 32}) {
    if (WorldFormat(depth) == format) {
      return depth;
    }
  }
  return 0;
}

/// A world kept by the frame, or null.
World* TryMakeWorld(FrameScope& frame, A_long width, A_long height, int depth) {
  try {
    frame.madeWorlds.push_back(MakeWorld(width, height, depth));
    return &frame.madeWorlds.back();
  } catch (const std::exception&) {
    return nullptr;
  }
}

PF_Err NewHostWorld(PF_ProgPtr effectRef, A_long width, A_long height, PF_Boolean clear,
                    PF_PixelFormat format, PF_EffectWorld* world) {
  const Entry entry = EnterHostCall("PF_NewWorld", effectRef);
  if (entry.call == nullptr || entry.error != PF_Err_NONE || entry.call->frame == nullptr ||
      world == nullptr || DepthOf(format) == 0) {
    return entry.error != PF_Err_NONE ? entry.error : PF_Err_BAD_CALLBACK_PARAM;
  }
  World* made =
      MayAllocate(*entry.call) ? TryMakeWorld(*entry.call->frame, width, height, DepthOf(format)) : nullptr;
  if (made == nullptr) {
    return PF_Err_OUT_OF_MEMORY;
  }
  if (clear == 0) {
    SoilWorld(*made);
  }
  *world = DescribeWorld(*made, true);
  entry.call->frame->worlds.push_back({world->data, made->depth});
  Take(*entry.call->ledger, Item::kWorld, "");
  return PF_Err_NONE;
}

PF_Err DisposeHostWorld(PF_ProgPtr effectRef, PF_EffectWorld* world) {
  const Entry entry = EnterHostCall("PF_DisposeWorld", effectRef);
  if (entry.call == nullptr || entry.call->frame == nullptr || world == nullptr) {
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  auto& made = entry.call->frame->madeWorlds;
  const auto found = std::find_if(made.begin(), made.end(), [&](const World& own) {
    return static_cast<const void*>(WorldRow(own, 0)) == world->data;
  });
  if (found == made.end()) {
    Complain(*entry.call, "disposed a world that it did not make");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  for (const std::string& line : FindDamage(*found)) {
    Complain(*entry.call, "a world of the effect's own: " + line);
  }
  std::erase_if(entry.call->frame->worlds,
                [&](const KnownWorld& known) { return known.data == world->data; });
  made.erase(found);
  Give(*entry.call->ledger, Item::kWorld, "");
  *world = {};
  return entry.error;
}

PF_Err GetHostPixelFormat(const PF_EffectWorld* world, PF_PixelFormat* format) {
  const Entry entry = EnterHostCall("PF_GetPixelFormat");
  if (entry.call == nullptr || entry.error != PF_Err_NONE || world == nullptr || format == nullptr) {
    return entry.error != PF_Err_NONE ? entry.error : PF_Err_BAD_CALLBACK_PARAM;
  }
  const FrameScope* frame = entry.call->frame;
  if (frame != nullptr) {
    for (const KnownWorld& known : frame->worlds) {
      if (known.data == world->data) {
        *format = WorldFormat(known.depth);
        return PF_Err_NONE;
      }
    }
    if (world->data == nullptr) {
      *format = WorldFormat(frame->request->depth);
      return PF_Err_NONE;
    }
  }
  Complain(*entry.call, "asked the pixel format of a world that is not this frame's");
  *format = PF_PixelFormat_INVALID;
  return PF_Err_BAD_CALLBACK_PARAM;
}

}  // namespace

void AddWorldSuites(std::vector<SuiteEntry>& suites) {
  static const PF_WorldSuite2 functions{NewHostWorld, DisposeHostWorld, GetHostPixelFormat};
  suites.push_back({kPF_WorldSuite2Name, kPF_WorldSuite2Version, &functions, true});
}

}  // namespace vantle::host
