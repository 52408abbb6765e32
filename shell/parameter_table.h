// The parameters, declared once. Host set-up, the settings reader, documents, command lines and tests all
// loop over this table or index it; it names no host type so that all of them can.
#pragma once

#include "shell/parameter_ids.h"
#include "ui/custom_value_kinds.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace vantle {

enum class ParamType {
  kLayer,
  kFloatSlider,
  kAngle,
  kCheckBox,
  kPopup,
  kCustomValue,
  kGroupStart,
  kGroupEnd,
  kButton
};

/// Bits of ParameterInfo::flags.
enum ParamFlag : uint32_t {
  kPercent = 1,    ///< shown as a percentage; the value is 0..100, not a fraction
  kCollapsed = 2,  ///< a group that asks to start closed
  kSupervised = 4  ///< the host reports every change by the user
};

struct Range {
  float min = 0.0f;
  float max = 0.0f;
};

/// One parameter as the host declares it and as the user sees it.
struct ParameterInfo {
  ParamId id;
  const char* name;  ///< at most 31 characters; empty for the end of a group
  ParamType type;
  /// In the control's own units: a slider's value, whole degrees, 0 or 1, the 1-based choice; for a layer 1
  /// is the effect's own layer and 0 is none.
  double defaultValue = 0.0;
  Range valid = {};          ///< what may be typed; sliders only
  Range slider = {};         ///< what the slider's ends stand for
  int32_t precision = 0;     ///< decimals shown
  uint32_t flags = 0;        ///< ParamFlag bits
  const char* text = "";     ///< a popup's choices, separated by vertical bars; a button's label
  uint32_t customTag = 0;    ///< which custom value
  int32_t controlWidth = 0;  ///< pixels of a custom control
  int32_t controlHeight = 0;
  const char* help = "";  ///< one line for documents and command lines; hosts never see it
};

namespace table {

constexpr ParameterInfo Group(ParamId id, const char* name, const char* help, uint32_t flags = 0) {
  return {.id = id, .name = name, .type = ParamType::kGroupStart, .flags = flags, .help = help};
}
constexpr ParameterInfo End(ParamId id) {
  return {.id = id, .name = "", .type = ParamType::kGroupEnd};
}

constexpr ParameterInfo Layer(ParamId id, const char* name, bool ownLayer, const char* help) {
  return {
      .id = id, .name = name, .type = ParamType::kLayer, .defaultValue = ownLayer ? 1.0 : 0.0, .help = help};
}
constexpr ParameterInfo Slider(ParamId id, const char* name, double value, Range valid, Range slider,
                               int32_t precision, uint32_t flags, const char* help) {
  return {.id = id,
          .name = name,
          .type = ParamType::kFloatSlider,
          .defaultValue = value,
          .valid = valid,
          .slider = slider,
          .precision = precision,
          .flags = flags,
          .help = help};
}
/// A percentage with one decimal whose slider spans all valid values.
constexpr ParameterInfo Percent(ParamId id, const char* name, double value, Range range, const char* help) {
  return Slider(id, name, value, range, range, 1, kPercent, help);
}
/// A plain number with one decimal whose slider spans all valid values.
constexpr ParameterInfo Number(ParamId id, const char* name, double value, Range range, const char* help) {
  return Slider(id, name, value, range, range, 1, 0, help);
}
constexpr ParameterInfo Position(ParamId id, const char* name, const char* help) {
  return Slider(id, name, 0, {-30000, 30000}, {-2000, 2000}, 1, 0, help);
}
constexpr ParameterInfo PlaneScale(ParamId id, const char* name, const char* help) {
  return Slider(id, name, 100, {0, 1000}, {0, 400}, 1, kPercent, help);
}
constexpr ParameterInfo Thickness(ParamId id, const char* name, const char* help) {
  return Slider(id, name, 100, {0, 5000}, {0, 1000}, 1, 0, help);
}
constexpr ParameterInfo Angle(ParamId id, const char* name, const char* help) {
  return {.id = id, .name = name, .type = ParamType::kAngle, .help = help};
}
constexpr ParameterInfo CheckBox(ParamId id, const char* name, bool on, uint32_t flags, const char* help) {
  return {.id = id,
          .name = name,
          .type = ParamType::kCheckBox,
          .defaultValue = on ? 1.0 : 0.0,
          .flags = flags,
          .help = help};
}
constexpr ParameterInfo Popup(ParamId id, const char* name, int32_t choice, const char* choices,
                              const char* help) {
  return {.id = id,
          .name = name,
          .type = ParamType::kPopup,
          .defaultValue = static_cast<double>(choice),
          .text = choices,
          .help = help};
}
constexpr ParameterInfo Custom(ParamId id, const char* name, uint32_t tag, int32_t width, int32_t height,
                               const char* help) {
  return {.id = id,
          .name = name,
          .type = ParamType::kCustomValue,
          .flags = kSupervised,
          .customTag = tag,
          .controlWidth = width,
          .controlHeight = height,
          .help = help};
}
constexpr ParameterInfo Button(ParamId id, const char* name, const char* label, const char* help) {
  return {
      .id = id, .name = name, .type = ParamType::kButton, .flags = kSupervised, .text = label, .help = help};
}

inline constexpr char kVariationChoices[] = "Brightness|Saturation|Red|Green|Blue";

}  // namespace table

inline constexpr ParameterInfo kParameters[] = {
    table::Group(kGroupVantle, "Vantle", "The two layers and the way from one to the other."),
    table::Layer(kParamSourceLayerA, "Source Layer (A)", true,
                 "Layer whose pixels the particles start from."),
    table::Layer(kParamTargetLayerB, "Target Layer (B)", false,
                 "Layer whose pixels the particles travel to."),
    table::Percent(kParamTransform, "Transform", 0, {0, 100},
                   "How far the particles have travelled from A to B."),
    table::Slider(kParamSeed, "Seed", 0, {0, 10000}, {0, 10000}, 0, 0,
                  "Another number, another arrangement."),
    table::End(kGroupVantleEnd),

    table::Group(kGroupSolidEndpoints, "Solid Endpoints", "The layers themselves at both ends of the way.",
                 kCollapsed),
    table::CheckBox(kParamShowSolids, "Show Solid A / B", false, 0,
                    "Draw the layers on their planes and cross-fade them with the particles."),
    table::Percent(kParamFade, "Fade", 15, {0, 50}, "Part of the way over which a solid end fades."),
    table::End(kGroupSolidEndpointsEnd),

    table::Group(kGroupMotion, "Motion", "The path between the two ends."),
    table::Slider(kParamScatter, "Scatter", 0, {-100, 200}, {-100, 100}, 1, kPercent,
                  "How far particles fly apart half-way; negative values pull them to the frame's centre."),
    table::Angle(kParamSwirlAngle, "Swirl Angle", "Turn about the frame's centre on the way."),
    table::Percent(kParamStagger, "Stagger", 0, {-100, 100},
                   "Spread of the departure times; negative values reverse the order."),
    table::Popup(kParamStaggerBy, "Stagger By", 1, "Brightness|Saturation|Red|Green|Blue|Alpha",
                 "Channel whose value delays a particle."),
    table::Popup(kParamStaggerFrom, "Stagger From", 1, "Source A|Target B", "Layer whose colour is asked."),
    table::End(kGroupMotionEnd),

    table::Group(kGroupDensity, "Density", "How many particles there are and where they gather."),
    table::Slider(kParamDensity, "Density", 20000, {100, 200000}, {100, 100000}, 0, 0,
                  "Number of particles."),
    table::Percent(kParamVariationA, "Variation A", 0, {-100, 100},
                   "How strongly a channel of A weighs the starts; negative values invert it."),
    table::Popup(kParamVariationABy, "Variation A By", 1, table::kVariationChoices,
                 "Channel of A that weighs."),
    table::Percent(kParamVariationB, "Variation B", 0, {-100, 100},
                   "How strongly a channel of B weighs the ends; negative values invert it."),
    table::Popup(kParamVariationBBy, "Variation B By", 1, table::kVariationChoices,
                 "Channel of B that weighs."),
    table::End(kGroupDensityEnd),

    table::Group(kGroupParticle, "Particle", "What one particle looks like."),
    table::Number(kParamSize, "Size", 4, {0.5f, 100}, "Size in pixels."),
    table::Percent(kParamSizeVariation, "Size Variation", 20, {0, 100}, "Random part of the size."),
    table::Custom(kParamScaleOverLife, "Scale over Life", kScaleCurveTag, 200, 140,
                  "Size along the way, as a curve."),
    table::Popup(kParamShape, "Shape", 2,
                 "Circle|Soft Circle|Triangle|Square|Line|Curve Line|Arrow|Curved Arrow|Layer",
                 "Shape drawn."),
    table::Slider(kParamLineWidth, "Line Width", 2, {0.5f, 50}, {0.5f, 20}, 1, 0,
                  "Stroke width of line shapes, pixels."),
    table::Number(kParamLineWidthVariation, "Line Width Variation", 0, {0, 100},
                  "Random part of the stroke width, in per cent."),
    table::CheckBox(kParamRoundCap, "Round Cap", true, 0, "Round the ends of line shapes."),
    table::Layer(kParamCustomLayer, "Custom Layer", false, "Picture drawn by the shape Layer."),
    table::Popup(kParamTimeType, "Time Type", 1,
                 "Current Time|Start at Birth - Play Once|Start at Birth - Loop|Start at Birth - Stretch|"
                 "Random - Still Frame|Random - Play Once|Random - Loop",
                 "Which moment of the custom layer a particle shows."),
    table::Popup(kParamColorMode, "Color Mode", 2, "Solid|From Emitter|Over Life|Random from Over Life",
                 "Where the colour comes from."),
    table::Custom(kParamColorGradient, "Color Gradient", kGradientTag, 200, 40,
                  "Colours of the gradient modes."),
    table::Percent(kParamHueVariation, "Hue Variation", 0, {0, 100}, "Random shift of the hue."),
    table::Percent(kParamOpacity, "Opacity", 80, {0, 100}, "Opacity of a particle."),
    table::Percent(kParamOpacityVariation, "Opacity Variation", 0, {0, 100}, "Random part of the opacity."),
    table::Custom(kParamOpacityOverLife, "Opacity over Life", kOpacityCurveTag, 200, 140,
                  "Opacity along the way, as a curve."),
    table::CheckBox(kParamAutoOrient, "Auto-Orient", false, 0,
                    "Turn particles into their direction of travel."),
    table::CheckBox(kParamFaceCamera, "Face Camera", false, 0,
                    "Keep particles flat to the composition's camera."),
    table::Angle(kParamRotationX, "Rotation X", "Turn about the horizontal axis."),
    table::Angle(kParamRotationY, "Rotation Y", "Turn about the vertical axis."),
    table::Angle(kParamRotationZ, "Rotation Z", "Turn in the picture plane."),
    table::Number(kParamRotationVariationX, "Rotation Var X", 0, {0, 360}, "Random turn about X, degrees."),
    table::Number(kParamRotationVariationY, "Rotation Var Y", 0, {0, 360}, "Random turn about Y, degrees."),
    table::Number(kParamRotationVariationZ, "Rotation Var Z", 0, {0, 360}, "Random turn about Z, degrees."),
    table::Number(kParamSpinX, "Spin X", 0, {-720, 720}, "Turn about X over the whole way, degrees."),
    table::Number(kParamSpinY, "Spin Y", 0, {-720, 720}, "Turn about Y over the whole way, degrees."),
    table::Number(kParamSpinZ, "Spin Z", 0, {-720, 720}, "Turn about Z over the whole way, degrees."),
    table::Popup(kParamTransferMode, "Transfer Mode", 1,
                 "Normal|Add|Screen|Multiply|Overlay|Soft Light|Hard Light|Color Burn",
                 "How a particle is laid over those behind it."),
    table::End(kGroupParticleEnd),

    table::Group(kGroupTurbulence, "Turbulence", "A noise field that moves particles on their way."),
    table::Popup(kParamTurbulenceType, "Type", 1, "Curl|fBm|Ridged", "Kind of noise."),
    table::Percent(kParamTurbulenceAmount, "Amount", 0, {0, 100}, "Strength of the displacement."),
    table::Percent(kParamTurbulenceZDepth, "Z Depth", 50, {0, 100}, "Strength of the displacement in depth."),
    table::Number(kParamTurbulenceScale, "Scale", 5, {0.1f, 50}, "Size of the noise's features."),
    table::Percent(kParamTurbulenceSpeed, "Speed", 50, {0, 200}, "How fast the noise changes with time."),
    table::Angle(kParamTurbulenceEvolution, "Evolution", "Phase of the noise, to be animated by hand."),
    table::Slider(kParamTurbulenceSeed, "Seed", 0, {0, 10000}, {0, 10000}, 0, 0,
                  "Another number, another noise."),
    table::End(kGroupTurbulenceEnd),

    table::Group(kGroupRenderSetting, "Render Setting", "How the frame is rendered."),
    table::CheckBox(kParamDepthOfField, "Depth of Field", false, kSupervised,
                    "Blur by the composition camera's focus."),
    table::End(kGroupRenderSettingEnd),

    table::Group(kGroupCamera, "3D / Camera", "Where the planes of A and B stand, and how they are seen.",
                 kCollapsed),
    table::Position(kParamAPositionX, "A Position X", "Plane A, right of the frame's centre, pixels."),
    table::Position(kParamAPositionY, "A Position Y", "Plane A, below the frame's centre, pixels."),
    table::Position(kParamAPositionZ, "A Position Z", "Plane A, away from the viewer, pixels."),
    table::Angle(kParamARotationX, "A Rotation X", "Turn of plane A about X."),
    table::Angle(kParamARotationY, "A Rotation Y", "Turn of plane A about Y."),
    table::Angle(kParamARotationZ, "A Rotation Z", "Turn of plane A about Z."),
    table::PlaneScale(kParamAScaleX, "A Scale X", "Width of plane A."),
    table::PlaneScale(kParamAScaleY, "A Scale Y", "Height of plane A."),
    table::Thickness(kParamAThickness, "A Thickness", "Depth over which plane A's particles spread, pixels."),
    table::Position(kParamBPositionX, "B Position X", "Plane B, right of the frame's centre, pixels."),
    table::Position(kParamBPositionY, "B Position Y", "Plane B, below the frame's centre, pixels."),
    table::Position(kParamBPositionZ, "B Position Z", "Plane B, away from the viewer, pixels."),
    table::Angle(kParamBRotationX, "B Rotation X", "Turn of plane B about X."),
    table::Angle(kParamBRotationY, "B Rotation Y", "Turn of plane B about Y."),
    table::Angle(kParamBRotationZ, "B Rotation Z", "Turn of plane B about Z."),
    table::PlaneScale(kParamBScaleX, "B Scale X", "Width of plane B."),
    table::PlaneScale(kParamBScaleY, "B Scale Y", "Height of plane B."),
    table::Thickness(kParamBThickness, "B Thickness", "Depth over which plane B's particles spread, pixels."),
    table::Number(
        kParamViewAngle, "View Angle", 40, {0, 120},
        "Opening of the built-in view without a camera, degrees; below 0.5 there is no perspective."),
    table::Button(kParamControlNulls, "A/B Control Nulls", "Create Nulls",
                  "Create two null layers that move, turn and scale the planes."),
    table::End(kGroupCameraEnd),
};

/// The entry of a declared id, 1..kParameterCount.
constexpr const ParameterInfo& Parameter(ParamId id) {
  return kParameters[id - 1];
}

/// Number of choices in a popup's text.
constexpr int32_t ChoiceCount(const char* choices) {
  int32_t count = 1;
  for (; *choices != '\0'; ++choices) count += *choices == '|' ? 1 : 0;
  return count;
}

namespace table {
constexpr bool IdsAreIndices() {
  for (size_t i = 0; i < std::size(kParameters); ++i) {
    if (kParameters[i].id != static_cast<int32_t>(i + 1)) return false;
  }
  return true;
}
static_assert(std::size(kParameters) == kParameterCount && IdsAreIndices());
}  // namespace table

}  // namespace vantle
