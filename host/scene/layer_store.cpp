#include "host/scene/layer_store.h"

#include "host/io/codes.h"
#include "host/io/failure.h"

#include <cmath>
#include <cstring>
#include <utility>

namespace vantle::scene {
namespace {

// Pictures of sequences kept in memory beyond those that frames hold.
constexpr size_t kCacheBytes = size_t{1} << 30;

int DepthBits(PixelDepth depth) {
  return depth == PixelDepth::k8 ? 8 : depth == PixelDepth::k16 ? 16 : 32;
}

int32_t Reduced(int32_t side, int32_t divisor) {
  return (side + divisor - 1) / divisor;
}

WorldPtr LoadPicture(const LayerStore& store, const std::string& file) {
  const io::Picture full = io::ReadPicture(file, store.depth);
  return std::make_shared<const host::World>(WorldOf(io::ReducePicture(full, store.divisor, store.divisor)));
}

WorldPtr MakeSolid(const LayerStore& store, const SolidSource& solid) {
  const auto channel = [&](size_t i) { return static_cast<float>(solid.color[i]); };
  host::World world = host::MakeWorld(Reduced(solid.width, store.divisor),
                                      Reduced(solid.height, store.divisor), DepthBits(store.depth));
  for (int y = 0; y < world.height; ++y)
    for (int x = 0; x < world.width; ++x)
      host::WritePixel(world, x, y, {channel(3), channel(0), channel(1), channel(2)});
  return std::make_shared<const host::World>(std::move(world));
}

void OpenSequence(const LayerStore& store, const SequenceSource& source, StoredLayer* layer) {
  layer->pattern = io::ParseNamePattern(source.pattern);
  if (!layer->pattern.hasNumber)
    throw io::Failure(io::kUnreadableInput, source.pattern +
                                                ": a sequence needs a place for the frame number, "
                                                "such as shot.####.png");
  const std::vector<int32_t> numbers = io::FindSequence(layer->pattern);
  if (numbers.empty())
    throw io::Failure(io::kUnreadableInput,
                      source.pattern + ": no file of that pattern exists: check the path");
  layer->firstFrame = source.firstFrame.value_or(numbers.front());
  layer->lastFrame = source.lastFrame.value_or(numbers.back());
  if (layer->lastFrame < layer->firstFrame)
    throw io::Failure(io::kUnreadableInput,
                      source.pattern + ": its last picture, " + std::to_string(layer->lastFrame) +
                          ", comes before its first, " + std::to_string(layer->firstFrame) +
                          ": check \"first\" and \"last\"");
  layer->fullSize = io::ReadPictureSize(io::NameOfFrame(layer->pattern, layer->firstFrame));
  layer->transparent = std::make_shared<const host::World>(
      host::MakeWorld(Reduced(layer->fullSize.width, store.divisor),
                      Reduced(layer->fullSize.height, store.divisor), DepthBits(store.depth)));
}

void OpenLayer(const LayerStore& store, StoredLayer* layer) {
  if (const auto* still = std::get_if<StillSource>(&layer->layer->source)) {
    layer->fullSize = io::ReadPictureSize(still->file);
    layer->still = LoadPicture(store, still->file);
  } else if (const auto* solid = std::get_if<SolidSource>(&layer->layer->source)) {
    layer->fullSize = {solid->width, solid->height};
    layer->still = MakeSolid(store, *solid);
  } else if (const auto* sequence = std::get_if<SequenceSource>(&layer->layer->source)) {
    OpenSequence(store, *sequence, layer);
  }
}

void Remember(LayerStore& store, std::pair<size_t, int32_t> key, const WorldPtr& world) {
  const std::lock_guard<std::mutex> lock(store.mutex);
  if (!store.cache.emplace(key, world).second) return;
  store.cacheOrder.push_back(key);
  store.cacheBytes += world->storage.size();
  while (store.cacheBytes > kCacheBytes && store.cacheOrder.size() > 1) {
    const auto oldest = store.cache.find(store.cacheOrder.front());
    store.cacheBytes -= oldest->second->storage.size();
    store.cache.erase(oldest);
    store.cacheOrder.pop_front();
  }
}

}  // namespace

host::World WorldOf(const io::Picture& picture) {
  host::World world = host::MakeWorld(picture.width, picture.height, DepthBits(picture.depth));
  for (int32_t y = 0; y < picture.height; ++y)
    std::memcpy(host::WorldRow(world, y), io::Row(picture, y), io::RowBytes(picture));
  return world;
}

ImageView ViewOf(const host::World& world) {
  const PixelDepth depth = world.depth == 8    ? PixelDepth::k8
                           : world.depth == 16 ? PixelDepth::k16
                                               : PixelDepth::k32;
  return {reinterpret_cast<const std::byte*>(host::WorldRow(world, 0)), world.rowBytes, world.width,
          world.height, depth};
}

void OpenLayers(const Scene& scene, const std::vector<bool>& used, LayerStore* store) {
  store->layers.resize(scene.layers.size());
  for (size_t i = 0; i < scene.layers.size(); ++i) {
    store->layers[i].layer = &scene.layers[i];
    if (used[i]) OpenLayer(*store, &store->layers[i]);
  }
}

WorldPtr LayerAt(LayerStore& store, size_t index, int64_t time, uint32_t scale) {
  const StoredLayer& layer = store.layers[index];
  if (layer.still) return layer.still;
  const auto& source = std::get<SequenceSource>(layer.layer->source);
  const double seconds = scale > 0 ? static_cast<double>(time) / scale : 0.0;

  // A hair is added so that a frame's own time, which may round down, still finds that frame.
  const double position =
      std::floor((seconds - source.start) * source.frameRate.numerator / source.frameRate.denominator + 1e-6);
  if (!(position >= 0.0) || position > static_cast<double>(layer.lastFrame) - layer.firstFrame)
    return layer.transparent;
  const int32_t number = layer.firstFrame + static_cast<int32_t>(position);

  const std::pair<size_t, int32_t> key{index, number};
  {
    const std::lock_guard<std::mutex> lock(store.mutex);
    if (const auto found = store.cache.find(key); found != store.cache.end()) return found->second;
  }
  const WorldPtr world = LoadPicture(store, io::NameOfFrame(layer.pattern, number));
  Remember(store, key, world);
  return world;
}

}  // namespace vantle::scene
