#include "shell/settings_reader.h"

#include "base/numeric.h"
#include "shell/parameter_table.h"
#include "ui/custom_value_callbacks.h"
#include "ui/host_handles.h"

namespace vantle {
namespace {

// The parameters as plain numbers, each with its declared default where the host hands over none.
struct ParameterReader {
  const PF_InData& in_data;
  PF_ParamDef* const* params;

  const PF_ParamDef* Find(ParamId id) const {
    return params != nullptr && id < in_data.num_params ? params[id] : nullptr;
  }

  double Slider(ParamId id) const {
    const PF_ParamDef* def = Find(id);
    return def != nullptr ? def->u.fs_d.value : Parameter(id).defaultValue;
  }
  float Value(ParamId id) const { return static_cast<float>(Slider(id)); }
  float Fraction(ParamId id) const { return static_cast<float>(Slider(id) * 0.01); }
  int32_t Whole(ParamId id) const { return TruncToInt(Slider(id)); }

  bool IsOn(ParamId id) const {
    const PF_ParamDef* def = Find(id);
    return def != nullptr ? def->u.bd.value != 0 : Parameter(id).defaultValue != 0.0;
  }
  int32_t Choice(ParamId id) const {
    const PF_ParamDef* def = Find(id);
    return def != nullptr ? def->u.pd.value : TruncToInt(Parameter(id).defaultValue);
  }
  PF_Fixed Fixed(ParamId id) const {
    const PF_ParamDef* def = Find(id);
    return def != nullptr ? def->u.ad.value : TruncToInt(Parameter(id).defaultValue * 65536.0);
  }
  float Degrees(ParamId id) const { return static_cast<float>(Fixed(id)) / 65536.0f; }

  PF_Handle Custom(ParamId id) const {
    const PF_ParamDef* def = Find(id);
    return def != nullptr ? def->u.arb_d.value : nullptr;
  }
  ColorGradient Gradient(ParamId id) const {
    ColorGradient gradient;
    MakeDefaultGradient(&gradient);
    CopyFromHandle(&in_data, Custom(id), &gradient);
    return gradient;
  }
  LifeCurve Curve(ParamId id) const {
    LifeCurve curve;
    MakeDefaultLifeCurve(&curve, CurveMaximum(Parameter(id).customTag));
    CopyFromHandle(&in_data, Custom(id), &curve);
    return curve;
  }
};

int32_t PlusOne(int32_t v) {
  return v < INT32_MAX ? v + 1 : v;
}

// Fixed-point degrees to radians: pi / 180 / 65536.
constexpr float kFixedToRadians = 2.6631614e-7f;

PlaneSettings ReadPlaneA(const ParameterReader& read) {
  return {{read.Value(kParamAPositionX), read.Value(kParamAPositionY), read.Value(kParamAPositionZ)},
          {read.Degrees(kParamARotationX), read.Degrees(kParamARotationY), read.Degrees(kParamARotationZ)},
          {read.Fraction(kParamAScaleX), read.Fraction(kParamAScaleY)},
          read.Value(kParamAThickness)};
}

PlaneSettings ReadPlaneB(const ParameterReader& read) {
  return {{read.Value(kParamBPositionX), read.Value(kParamBPositionY), read.Value(kParamBPositionZ)},
          {read.Degrees(kParamBRotationX), read.Degrees(kParamBRotationY), read.Degrees(kParamBRotationZ)},
          {read.Fraction(kParamBScaleX), read.Fraction(kParamBScaleY)},
          read.Value(kParamBThickness)};
}

void ReadTravel(const ParameterReader& read, FrameSettings* settings) {
  settings->transform = read.Fraction(kParamTransform);
  settings->showSolids = read.IsOn(kParamShowSolids);
  settings->fade = read.Fraction(kParamFade);
  settings->scatter = read.Fraction(kParamScatter);
  settings->swirlAngle = read.Degrees(kParamSwirlAngle);
  settings->stagger = read.Fraction(kParamStagger);
  settings->staggerBy = read.Choice(kParamStaggerBy);
  settings->staggerFrom = read.Choice(kParamStaggerFrom);
  settings->variationA = read.Fraction(kParamVariationA);
  settings->variationABy = read.Choice(kParamVariationABy);
  settings->variationB = read.Fraction(kParamVariationB);
  settings->variationBBy = read.Choice(kParamVariationBBy);
  settings->density = read.Whole(kParamDensity);
  settings->seed = read.Whole(kParamSeed);
  settings->planeA = ReadPlaneA(read);
  settings->planeB = ReadPlaneB(read);
  settings->viewAngle = read.Value(kParamViewAngle);
}

void ReadTurbulence(const ParameterReader& read, FrameSettings* settings) {
  settings->turbulenceType = read.Choice(kParamTurbulenceType);
  settings->turbulenceAmount = read.Fraction(kParamTurbulenceAmount);
  settings->turbulenceScale = read.Value(kParamTurbulenceScale);
  settings->turbulenceEvolution = static_cast<float>(read.Fixed(kParamTurbulenceEvolution)) * kFixedToRadians;
  settings->turbulenceSpeed = read.Fraction(kParamTurbulenceSpeed);
  settings->turbulenceZDepth = read.Fraction(kParamTurbulenceZDepth);
  settings->turbulenceSeed = read.Whole(kParamTurbulenceSeed);
}

void ReadAppearance(const ParameterReader& read, FrameSettings* settings) {
  settings->size = read.Value(kParamSize);
  settings->sizeVariation = read.Fraction(kParamSizeVariation);
  // Shape numbers are the graphics kernel's, whose first, a single point, no choice selects.
  settings->shape = PlusOne(read.Choice(kParamShape));
  settings->lineWidth = read.Value(kParamLineWidth);
  settings->lineWidthVariation = read.Fraction(kParamLineWidthVariation);
  settings->roundCap = read.IsOn(kParamRoundCap);
  // The sprite rules number their cases with a gap after the first.
  const int32_t timeType = read.Choice(kParamTimeType);
  settings->timeType = timeType >= 2 ? PlusOne(timeType) : timeType;
  settings->colorMode = read.Choice(kParamColorMode);
  settings->colorGradient = read.Gradient(kParamColorGradient);
  settings->hueVariation = read.Fraction(kParamHueVariation);
  settings->opacity = read.Fraction(kParamOpacity);
  settings->opacityVariation = read.Fraction(kParamOpacityVariation);
  for (int axis = 0; axis < 3; ++axis) {
    settings->rotation[axis] = read.Degrees(static_cast<ParamId>(kParamRotationX + axis));
    settings->rotationVariation[axis] = read.Value(static_cast<ParamId>(kParamRotationVariationX + axis));
    settings->spin[axis] = read.Value(static_cast<ParamId>(kParamSpinX + axis));
  }
  settings->autoOrient = read.IsOn(kParamAutoOrient);
  settings->faceCamera = read.IsOn(kParamFaceCamera);
  settings->opacityOverLife = read.Curve(kParamOpacityOverLife);
  settings->scaleOverLife = read.Curve(kParamScaleOverLife);
  settings->transferMode = read.Choice(kParamTransferMode);
  settings->depthOfField = read.IsOn(kParamDepthOfField);
}

void ReadClock(const PF_InData& in_data, FrameSettings* settings) {
  const float scale = static_cast<float>(in_data.time_scale);
  if (in_data.time_scale != 0) settings->timeSeconds = static_cast<float>(in_data.current_time) / scale;
  const bool steps = in_data.time_scale >= 1 && in_data.time_step >= 1;
  settings->frameRate = steps ? scale / static_cast<float>(in_data.time_step) : 30.0f;
}

float Downsample(const PF_RationalScale& ratio) {
  return ratio.den != 0 ? static_cast<float>(ratio.num) / static_cast<float>(ratio.den) : 1.0f;
}

// Rounds to nearest; a factor of (nearly) nothing says nothing about the full size.
int32_t FullSize(int32_t size, float downsample) {
  return downsample > 0.001f ? TruncToInt(static_cast<float>(size) / downsample + 0.5f) : size;
}

void ReadSizes(const PF_InData& in_data, const PF_LayerDef& output, FrameSettings* settings) {
  settings->outputWidth = output.width;
  settings->outputHeight = output.height;
  settings->downsampleX = Downsample(in_data.downsample_x);
  settings->downsampleY = Downsample(in_data.downsample_y);
  settings->fullWidth = FullSize(output.width, settings->downsampleX);
  settings->fullHeight = FullSize(output.height, settings->downsampleY);
}

}  // namespace

FrameSettings ReadFrameSettings(const PF_InData& in_data, PF_ParamDef* const* params,
                                const PF_LayerDef& output) {
  const ParameterReader read{in_data, params};
  FrameSettings settings{};
  ReadTravel(read, &settings);
  ReadTurbulence(read, &settings);
  ReadAppearance(read, &settings);
  ReadClock(in_data, &settings);
  ReadSizes(in_data, output, &settings);
  return settings;
}

}  // namespace vantle
