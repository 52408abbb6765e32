// References that the general plug-in services hand out: layers, streams, effects. They are opaque to the
// effect; here each is the address of a small record, valid as long as the command it was made in.
#pragma once

#include "host_api/aegp_suites.h"

#include <memory>
#include <vector>

namespace vantle::host {

enum class AegpKind {
  kEffectLayer,
  kCameraLayer,
  kSourceLayer,
  kCompLayer,  ///< of the request's composition
  kComp,
  kItem,
  kCompItem,  ///< stands for the composition itself
  kEffect,
  kLayerStream,
  kEffectStream
};

/// `which` is the number of a stream, the id of a layer that a layer parameter chose, or that of an item's
/// layer. Objects that must be given back are `disposed` once.
struct AegpObject {
  void* self = nullptr;
  AegpKind kind = AegpKind::kEffectLayer;
  A_long which = 0;
  const AegpObject* subject = nullptr;
  bool disposed = false;
};

/// All references of one command or frame.
struct AegpObjects {
  std::vector<std::unique_ptr<AegpObject>> all;
};

/// A new object; `Handle` is one of the AEGP handle types.
template <typename Handle>
Handle NewAegpHandle(AegpObjects& objects, const AegpObject& object) {
  objects.all.push_back(std::make_unique<AegpObject>(object));
  return reinterpret_cast<Handle>(&objects.all.back()->self);
}

/// The object behind a handle, also a disposed one; null for null and for handles of another command.
template <typename Handle>
AegpObject* FindAegpObject(AegpObjects& objects, Handle handle) {
  for (const auto& object : objects.all) {
    if (reinterpret_cast<Handle>(&object->self) == handle) {
      return object.get();
    }
  }
  return nullptr;
}

}  // namespace vantle::host
