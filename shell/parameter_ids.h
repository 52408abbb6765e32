// The parameters' ids. They equal the host's parameter indices (0 is the effect's own input layer) and
// projects store values under them: no id may move, and nothing is inserted before the last.
#pragma once

#include <cstdint>

namespace vantle {

enum ParamId : int32_t {
  kParamInput = 0,

  kGroupVantle = 1,
  kParamSourceLayerA = 2,
  kParamTargetLayerB = 3,
  kParamTransform = 4,
  kParamSeed = 5,
  kGroupVantleEnd = 6,

  kGroupSolidEndpoints = 7,
  kParamShowSolids = 8,
  kParamFade = 9,
  kGroupSolidEndpointsEnd = 10,

  kGroupMotion = 11,
  kParamScatter = 12,
  kParamSwirlAngle = 13,
  kParamStagger = 14,
  kParamStaggerBy = 15,
  kParamStaggerFrom = 16,
  kGroupMotionEnd = 17,

  kGroupDensity = 18,
  kParamDensity = 19,
  kParamVariationA = 20,
  kParamVariationABy = 21,
  kParamVariationB = 22,
  kParamVariationBBy = 23,
  kGroupDensityEnd = 24,

  kGroupParticle = 25,
  kParamSize = 26,
  kParamSizeVariation = 27,
  kParamScaleOverLife = 28,
  kParamShape = 29,
  kParamLineWidth = 30,
  kParamLineWidthVariation = 31,
  kParamRoundCap = 32,
  kParamCustomLayer = 33,
  kParamTimeType = 34,
  kParamColorMode = 35,
  kParamColorGradient = 36,
  kParamHueVariation = 37,
  kParamOpacity = 38,
  kParamOpacityVariation = 39,
  kParamOpacityOverLife = 40,
  kParamAutoOrient = 41,
  kParamFaceCamera = 42,
  kParamRotationX = 43,
  kParamRotationY = 44,
  kParamRotationZ = 45,
  kParamRotationVariationX = 46,
  kParamRotationVariationY = 47,
  kParamRotationVariationZ = 48,
  kParamSpinX = 49,
  kParamSpinY = 50,
  kParamSpinZ = 51,
  kParamTransferMode = 52,
  kGroupParticleEnd = 53,

  kGroupTurbulence = 54,
  kParamTurbulenceType = 55,
  kParamTurbulenceAmount = 56,
  kParamTurbulenceZDepth = 57,
  kParamTurbulenceScale = 58,
  kParamTurbulenceSpeed = 59,
  kParamTurbulenceEvolution = 60,
  kParamTurbulenceSeed = 61,
  kGroupTurbulenceEnd = 62,

  kGroupRenderSetting = 63,
  kParamDepthOfField = 64,
  kGroupRenderSettingEnd = 65,

  kGroupCamera = 66,
  kParamAPositionX = 67,
  kParamAPositionY = 68,
  kParamAPositionZ = 69,
  kParamARotationX = 70,
  kParamARotationY = 71,
  kParamARotationZ = 72,
  kParamAScaleX = 73,
  kParamAScaleY = 74,
  kParamAThickness = 75,
  kParamBPositionX = 76,
  kParamBPositionY = 77,
  kParamBPositionZ = 78,
  kParamBRotationX = 79,
  kParamBRotationY = 80,
  kParamBRotationZ = 81,
  kParamBScaleX = 82,
  kParamBScaleY = 83,
  kParamBThickness = 84,
  kParamViewAngle = 85,
  kParamControlNulls = 86,
  kGroupCameraEnd = 87,
};

/// Parameters that the effect declares; the host counts one more, the input layer.
inline constexpr int32_t kParameterCount = 87;

}  // namespace vantle
