// Everything about a frame that does not come from pixels, already converted from the controls' units. The
// particle system and the renderers take their frame-wide inputs from here and from nowhere else, which is
// what lets them run without a host.
#pragma once

#include "particles/custom_values.h"

#include <cstdint>

namespace vantle {

enum ShapeId : int32_t {
  SHAPE_POINT = 1,  ///< one pixel; no control selects it
  SHAPE_CIRCLE = 2,
  SHAPE_SOFT_CIRCLE = 3,
  SHAPE_TRIANGLE = 4,
  SHAPE_SQUARE = 5,
  SHAPE_LINE = 6,
  SHAPE_CURVE_LINE = 7,
  SHAPE_ARROW = 8,
  SHAPE_CURVED_ARROW = 9,
  SHAPE_LAYER = 10,
};

enum BlendId : int32_t {
  BLEND_NORMAL = 1,
  BLEND_ADD = 2,
  BLEND_SCREEN = 3,
  BLEND_MULTIPLY = 4,
  BLEND_OVERLAY = 5,
  BLEND_SOFT_LIGHT = 6,
  BLEND_HARD_LIGHT = 7,
  BLEND_COLOR_BURN = 8,
};

/// Placement of an emission plane, in full-resolution composition pixels, measured from the frame's centre.
struct PlaneSettings {
  float position[3];
  float rotation[3];  ///< degrees
  float scale[2];     ///< 1 is natural size
  float thickness;    ///< pixels
};

/// One frame's parameters, clock and sizes. Percentages are fractions; popups keep the host's 1-based values.
struct FrameSettings {
  float transform;
  bool showSolids;
  float fade;
  float scatter;
  float swirlAngle;  ///< degrees
  float stagger;
  int32_t staggerBy;
  int32_t staggerFrom;
  float variationA;
  int32_t variationABy;
  float variationB;
  int32_t variationBBy;
  int32_t density;
  int32_t seed;
  PlaneSettings planeA;
  PlaneSettings planeB;
  float viewAngle;  ///< degrees
  int32_t turbulenceType;
  float turbulenceAmount;
  float turbulenceScale;
  float turbulenceEvolution;  ///< radians
  float turbulenceSpeed;
  float turbulenceZDepth;
  int32_t turbulenceSeed;
  float size;
  float sizeVariation;
  int32_t shape;  ///< ShapeId
  float lineWidth;
  float lineWidthVariation;
  bool roundCap;
  int32_t timeType;  ///< 1, 3..8; 2 is never produced
  int32_t colorMode;
  ColorGradient colorGradient;
  float hueVariation;
  float opacity;
  float opacityVariation;
  float rotation[3];           ///< degrees
  float rotationVariation[3];  ///< degrees
  float spin[3];               ///< degrees over a life
  bool autoOrient;
  bool faceCamera;
  LifeCurve opacityOverLife;
  LifeCurve scaleOverLife;
  int32_t transferMode;  ///< BlendId
  bool depthOfField;
  float timeSeconds;
  float frameRate;
  int32_t outputWidth, outputHeight;  ///< pixels at the current resolution
  int32_t fullWidth, fullHeight;      ///< pixels at full resolution
  float downsampleX, downsampleY;     ///< 1 is full resolution
};

/// The composition's camera as the projection needs it.
struct CameraData {
  bool hasCamera = false;
  /// World to camera, column-major: m[0..3] is the first column, the translation stands in m[12..14].
  double viewMatrix[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  double imagePlaneDistance = 0.0;  ///< pixels
  float cameraCentre[2] = {0.0f, 0.0f};
  bool cameraDepthOfField = false;
  float focusDistance = 0.0f;
  float aperture = 0.0f;
  float zoom = 0.0f;
};

}  // namespace vantle
