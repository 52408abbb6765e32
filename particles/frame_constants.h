// What every particle of a frame shares, worked out once.
#pragma once

#include "particles/emission.h"
#include "particles/frame_settings.h"
#include "particles/planes.h"
#include "particles/turbulence.h"

#include <cstdint>

namespace vantle {

struct FrameConstants {
  const FrameSettings* settings = nullptr;
  const Emitter* source = nullptr;  ///< null when the layer has no point
  const Emitter* target = nullptr;

  float transform = 0.0f;  ///< global progress 0..1
  float stagger = 0.0f;    ///< 0..1
  float fade = 1.0f;       ///< of all particles, while the solid ends show

  float centreX = 0.0f, centreY = 0.0f;  ///< of the frame, full-resolution pixels
  float extent = 0.0f;                   ///< the longer side of the frame
  float jitter = 0.0f;                   ///< reach of the random ends of particles with one layer only
  float downsampleX = 1.0f, downsampleY = 1.0f;
  PlaneTransform planeA{}, planeB{};

  float swirl = 0.0f;  ///< radians at the end of the path
  float unswirlSine = 0.0f, unswirlCosine = 1.0f;
  float pull = 0.0f;  ///< strength towards the centre of a negative scatter, 0..1
  bool hasTurbulence = false;
  bool hasBell = false;  ///< whether anything bends the path in the middle
  TurbulenceField turbulence;

  bool hasTrails = false;
  bool needsDirection = false;
  Color solidColor;
};

FrameConstants MakeFrameConstants(const Emission& emission, const FrameSettings& settings);

/// Particles of the frame: none without an emitting pixel on either layer.
int32_t ParticleCount(const FrameConstants& frame);

}  // namespace vantle
