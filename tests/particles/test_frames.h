// Frames and layers for the tests of the particle system.
#pragma once

#include "base/image_view.h"
#include "particles/emission.h"
#include "particles/frame_settings.h"
#include "particles/simulation.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace vantle::testing {

/// Settings of a plain frame: 1000 white particles of size 4 half way, nothing varied, nothing bent.
FrameSettings PlainSettings(int32_t width, int32_t height);

/// A picture that owns its bytes.
struct TestLayer {
  std::vector<std::byte> bytes;
  ImageView view;

  /// Codes are written as they are; channels in the order alpha, red, green, blue.
  void Set(int32_t x, int32_t y, float a, float r, float g, float b);
};

/// `padding` bytes follow each row, and the data starts `shift` bytes off alignment. Zeroed.
TestLayer MakeLayer(int32_t width, int32_t height, PixelDepth depth, int32_t padding = 0, int32_t shift = 0);

/// Every pixel random; about `emptyShare` of them transparent.
TestLayer RandomLayer(int32_t width, int32_t height, PixelDepth depth, float emptyShare, uint32_t seed,
                      int32_t padding = 0, int32_t shift = 0);

/// One opaque colour.
TestLayer SolidLayer(int32_t width, int32_t height, float r, float g, float b);

/// Weighs, simulates and sorts nothing: the list in index order.
ParticleList Simulate(const TestLayer* a, const TestLayer* b, const FrameSettings& settings,
                      const CameraData& camera = {});

/// Threads of the parallel loops from now on.
void SetThreads(int count);

/// Whether two lists hold the same bytes.
bool SameBytes(const ParticleList& a, const ParticleList& b);

}  // namespace vantle::testing
