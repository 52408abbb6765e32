// The pictures of a scene as worlds of one depth and resolution, loaded once and shared by all frames.
#pragma once

#include "host/engine/world.h"
#include "host/io/frame_range.h"
#include "host/io/image_file.h"
#include "host/scene/scene.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace vantle::scene {

using WorldPtr = std::shared_ptr<const host::World>;

/// One layer, ready to be asked for a time.
struct StoredLayer {
  const Layer* layer = nullptr;
  io::PictureSize fullSize;  ///< pixels at full resolution
  WorldPtr still;            ///< of a picture or a solid
  WorldPtr transparent;      ///< what a sequence shows before its start and after its end
  io::NamePattern pattern;   ///< of a sequence
  int32_t firstFrame = 0;
  int32_t lastFrame = -1;
};

/// Filled by OpenLayers; then safe to use from several threads.
struct LayerStore {
  PixelDepth depth = PixelDepth::k8;
  int32_t divisor = 1;  ///< 2 is half resolution
  std::vector<StoredLayer> layers;

  std::mutex mutex;
  std::map<std::pair<size_t, int32_t>, WorldPtr> cache;
  std::deque<std::pair<size_t, int32_t>> cacheOrder;
  size_t cacheBytes = 0;
};

/// Loads what does not change over time and finds the pictures of the sequences. `used` says which layers
/// frames will ask for; the others are left alone. Throws Failure (kUnreadableInput).
void OpenLayers(const Scene& scene, const std::vector<bool>& used, LayerStore* store);

/// What a layer shows at `time` / `scale` seconds of the composition. Throws Failure (kUnreadableInput).
WorldPtr LayerAt(LayerStore& store, size_t layer, int64_t time, uint32_t scale);

/// A world with the picture's pixels.
host::World WorldOf(const io::Picture& picture);

/// Borrows a world's rows.
ImageView ViewOf(const host::World& world);

}  // namespace vantle::scene
