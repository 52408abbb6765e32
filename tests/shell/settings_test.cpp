// From parameters to the frame's settings.
#include "shell/parameter_table.h"
#include "shell/settings_reader.h"
#include "tests/shell/fake_host.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace vantle::test {
namespace {

PF_LayerDef Output(int32_t width, int32_t height) {
  PF_LayerDef output{};
  output.width = width;
  output.height = height;
  return output;
}

void ExpectDefaults(const FrameSettings& s) {
  EXPECT_EQ(s.transform, 0.0f);
  EXPECT_FALSE(s.showSolids);
  EXPECT_EQ(s.fade, 0.15f);
  EXPECT_EQ(s.scatter, 0.0f);
  EXPECT_EQ(s.swirlAngle, 0.0f);
  EXPECT_EQ(s.stagger, 0.0f);
  EXPECT_EQ(s.staggerBy, 1);
  EXPECT_EQ(s.staggerFrom, 1);
  EXPECT_EQ(s.variationA, 0.0f);
  EXPECT_EQ(s.variationABy, 1);
  EXPECT_EQ(s.variationB, 0.0f);
  EXPECT_EQ(s.variationBBy, 1);
  EXPECT_EQ(s.density, 20000);
  EXPECT_EQ(s.seed, 0);
  for (const PlaneSettings* plane : {&s.planeA, &s.planeB}) {
    for (int axis = 0; axis < 3; ++axis) {
      EXPECT_EQ(plane->position[axis], 0.0f);
      EXPECT_EQ(plane->rotation[axis], 0.0f);
    }
    EXPECT_EQ(plane->scale[0], 1.0f);
    EXPECT_EQ(plane->scale[1], 1.0f);
    EXPECT_EQ(plane->thickness, 100.0f);
  }
  EXPECT_EQ(s.viewAngle, 40.0f);
  EXPECT_EQ(s.turbulenceType, 1);
  EXPECT_EQ(s.turbulenceAmount, 0.0f);
  EXPECT_EQ(s.turbulenceScale, 5.0f);
  EXPECT_EQ(s.turbulenceEvolution, 0.0f);
  EXPECT_EQ(s.turbulenceSpeed, 0.5f);
  EXPECT_EQ(s.turbulenceZDepth, 0.5f);
  EXPECT_EQ(s.turbulenceSeed, 0);
  EXPECT_EQ(s.size, 4.0f);
  EXPECT_EQ(s.sizeVariation, 0.2f);
  EXPECT_EQ(s.shape, SHAPE_SOFT_CIRCLE);
  EXPECT_EQ(s.lineWidth, 2.0f);
  EXPECT_EQ(s.lineWidthVariation, 0.0f);
  EXPECT_TRUE(s.roundCap);
  EXPECT_EQ(s.timeType, 1);
  EXPECT_EQ(s.colorMode, 2);
  EXPECT_EQ(s.hueVariation, 0.0f);
  EXPECT_EQ(s.opacity, 0.8f);
  EXPECT_EQ(s.opacityVariation, 0.0f);
  for (int axis = 0; axis < 3; ++axis) {
    EXPECT_EQ(s.rotation[axis], 0.0f);
    EXPECT_EQ(s.rotationVariation[axis], 0.0f);
    EXPECT_EQ(s.spin[axis], 0.0f);
  }
  EXPECT_FALSE(s.autoOrient);
  EXPECT_FALSE(s.faceCamera);
  EXPECT_EQ(s.transferMode, BLEND_NORMAL);
  EXPECT_FALSE(s.depthOfField);
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  EXPECT_EQ(std::memcmp(&s.colorGradient, &gradient, sizeof(gradient)), 0);
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, 1.0f);
  EXPECT_EQ(std::memcmp(&s.opacityOverLife, &curve, sizeof(curve)), 0);
  MakeDefaultLifeCurve(&curve, 2.0f);
  EXPECT_EQ(std::memcmp(&s.scaleOverLife, &curve, sizeof(curve)), 0);
}

TEST(Settings, AtTheDeclaredDefaults) {
  FakeHost host;
  PF_ParamDef** params = host.Params();
  host.SetTime(50, 2, 100);
  const FrameSettings s = ReadFrameSettings(host.in, params, Output(64, 48));
  ExpectDefaults(s);
  EXPECT_EQ(s.timeSeconds, 0.5f);
  EXPECT_EQ(s.frameRate, 50.0f);
  EXPECT_EQ(s.outputWidth, 64);
  EXPECT_EQ(s.outputHeight, 48);
  EXPECT_EQ(s.fullWidth, 64);
  EXPECT_EQ(s.fullHeight, 48);
  EXPECT_EQ(s.downsampleX, 1.0f);
  EXPECT_EQ(s.downsampleY, 1.0f);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST(Settings, WithoutParametersTheDefaultsHold) {
  FakeHost host;
  ExpectDefaults(ReadFrameSettings(host.in, nullptr, Output(8, 8)));
  PF_ParamDef* nulls[88] = {};
  host.in.num_params = 88;
  ExpectDefaults(ReadFrameSettings(host.in, nulls, Output(8, 8)));
  // An array that the host declares shorter than the table is never read past its end.
  PF_ParamDef* few[3] = {};
  host.in.num_params = 3;
  ExpectDefaults(ReadFrameSettings(host.in, few, Output(8, 8)));
  host.in.num_params = -5;
  ExpectDefaults(ReadFrameSettings(host.in, few, Output(8, 8)));
}

// Every slider, angle and choice gets a value of its own, so that no two fields can be confused.
TEST(Settings, EveryParameterReachesItsField) {
  FakeHost host;
  PF_ParamDef** params = host.Params();
  for (const ParameterInfo& info : kParameters) {
    PF_ParamDef& value = host.Value(info.id);
    if (info.type == ParamType::kFloatSlider) value.u.fs_d.value = 100.25 + int{info.id};
    if (info.type == ParamType::kAngle) value.u.ad.value = (200 + info.id) * 65536 + 32768;
    if (info.type == ParamType::kCheckBox) value.u.bd.value = info.id == kParamRoundCap ? 0 : 7;
    if (info.type == ParamType::kPopup) value.u.pd.value = 300 + info.id;
  }
  const FrameSettings s = ReadFrameSettings(host.in, params, Output(8, 8));
  const auto number = [](ParamId id) { return static_cast<float>(100.25 + int{id}); };
  const auto fraction = [](ParamId id) { return static_cast<float>((100.25 + int{id}) * 0.01); };
  const auto whole = [](ParamId id) { return 100 + id; };
  const auto degrees = [](ParamId id) { return static_cast<float>(200 + id) + 0.5f; };
  const auto choice = [](ParamId id) { return 300 + id; };
  EXPECT_EQ(s.transform, fraction(kParamTransform));
  EXPECT_TRUE(s.showSolids);
  EXPECT_EQ(s.fade, fraction(kParamFade));
  EXPECT_EQ(s.scatter, fraction(kParamScatter));
  EXPECT_EQ(s.swirlAngle, degrees(kParamSwirlAngle));
  EXPECT_EQ(s.stagger, fraction(kParamStagger));
  EXPECT_EQ(s.staggerBy, choice(kParamStaggerBy));
  EXPECT_EQ(s.staggerFrom, choice(kParamStaggerFrom));
  EXPECT_EQ(s.variationA, fraction(kParamVariationA));
  EXPECT_EQ(s.variationABy, choice(kParamVariationABy));
  EXPECT_EQ(s.variationB, fraction(kParamVariationB));
  EXPECT_EQ(s.variationBBy, choice(kParamVariationBBy));
  EXPECT_EQ(s.density, whole(kParamDensity));
  EXPECT_EQ(s.seed, whole(kParamSeed));
  for (int axis = 0; axis < 3; ++axis) {
    const auto on = [axis](ParamId x) { return static_cast<ParamId>(x + axis); };
    EXPECT_EQ(s.planeA.position[axis], number(on(kParamAPositionX)));
    EXPECT_EQ(s.planeA.rotation[axis], degrees(on(kParamARotationX)));
    EXPECT_EQ(s.planeB.position[axis], number(on(kParamBPositionX)));
    EXPECT_EQ(s.planeB.rotation[axis], degrees(on(kParamBRotationX)));
    EXPECT_EQ(s.rotation[axis], degrees(on(kParamRotationX)));
    EXPECT_EQ(s.rotationVariation[axis], number(on(kParamRotationVariationX)));
    EXPECT_EQ(s.spin[axis], number(on(kParamSpinX)));
  }
  EXPECT_EQ(s.planeA.scale[0], fraction(kParamAScaleX));
  EXPECT_EQ(s.planeA.scale[1], fraction(kParamAScaleY));
  EXPECT_EQ(s.planeA.thickness, number(kParamAThickness));
  EXPECT_EQ(s.planeB.scale[0], fraction(kParamBScaleX));
  EXPECT_EQ(s.planeB.scale[1], fraction(kParamBScaleY));
  EXPECT_EQ(s.planeB.thickness, number(kParamBThickness));
  EXPECT_EQ(s.viewAngle, number(kParamViewAngle));
  EXPECT_EQ(s.turbulenceType, choice(kParamTurbulenceType));
  EXPECT_EQ(s.turbulenceAmount, fraction(kParamTurbulenceAmount));
  EXPECT_EQ(s.turbulenceScale, number(kParamTurbulenceScale));
  EXPECT_EQ(s.turbulenceSpeed, fraction(kParamTurbulenceSpeed));
  EXPECT_EQ(s.turbulenceZDepth, fraction(kParamTurbulenceZDepth));
  EXPECT_EQ(s.turbulenceSeed, whole(kParamTurbulenceSeed));
  EXPECT_EQ(s.turbulenceEvolution, static_cast<float>((200 + 60) * 65536 + 32768) * 2.6631614e-7f);
  EXPECT_NEAR(s.turbulenceEvolution, 260.5 * 3.14159265358979 / 180.0, 1e-6);
  EXPECT_EQ(s.size, number(kParamSize));
  EXPECT_EQ(s.sizeVariation, fraction(kParamSizeVariation));
  EXPECT_EQ(s.shape, choice(kParamShape) + 1);
  EXPECT_EQ(s.lineWidth, number(kParamLineWidth));
  EXPECT_EQ(s.lineWidthVariation, fraction(kParamLineWidthVariation));
  EXPECT_FALSE(s.roundCap);
  EXPECT_EQ(s.timeType, choice(kParamTimeType) + 1);
  EXPECT_EQ(s.colorMode, choice(kParamColorMode));
  EXPECT_EQ(s.hueVariation, fraction(kParamHueVariation));
  EXPECT_EQ(s.opacity, fraction(kParamOpacity));
  EXPECT_EQ(s.opacityVariation, fraction(kParamOpacityVariation));
  EXPECT_TRUE(s.autoOrient);
  EXPECT_TRUE(s.faceCamera);
  EXPECT_EQ(s.transferMode, choice(kParamTransferMode));
  EXPECT_TRUE(s.depthOfField);
}

TEST(Settings, AnglesAreFixedPointDegrees) {
  FakeHost host;
  PF_ParamDef** params = host.Params();
  host.Value(kParamRotationX).u.ad.value = 5898240;
  host.Value(kParamRotationY).u.ad.value = INT32_MIN;
  const FrameSettings s = ReadFrameSettings(host.in, params, Output(8, 8));
  EXPECT_EQ(s.rotation[0], 90.0f);
  EXPECT_EQ(s.rotation[1], -32768.0f);
}

TEST(Settings, PercentIsMultipliedInDoublePrecision) {
  FakeHost host;
  PF_ParamDef** params = host.Params();
  int differs = 0;
  for (int i = 0; i <= 1000; ++i) {
    const double value = i * 0.1;
    host.Value(kParamTransform).u.fs_d.value = value;
    const FrameSettings s = ReadFrameSettings(host.in, params, Output(8, 8));
    EXPECT_EQ(s.transform, static_cast<float>(value * 0.01));
    if (s.transform != static_cast<float>(value) * 0.01f) ++differs;
  }
  EXPECT_GT(differs, 0) << "the two orders would be told apart by no value";
}

TEST(Settings, TimeTypesLeaveAGapAfterTheFirst) {
  FakeHost host;
  PF_ParamDef** params = host.Params();
  const int32_t cases[][2] = {{1, 1}, {2, 3}, {7, 8}, {0, 0}, {-4, -4}, {INT32_MAX, INT32_MAX}};
  for (const auto& [choice, expected] : cases) {
    host.Value(kParamTimeType).u.pd.value = choice;
    host.Value(kParamShape).u.pd.value = INT32_MAX;
    const FrameSettings s = ReadFrameSettings(host.in, params, Output(8, 8));
    EXPECT_EQ(s.timeType, expected);
    EXPECT_EQ(s.shape, INT32_MAX);
  }
}

TEST(Settings, WholeNumbersTruncateAndSaturate) {
  FakeHost host;
  PF_ParamDef** params = host.Params();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  const std::pair<double, int32_t> cases[] = {{1.9, 1},
                                              {-1.9, -1},
                                              {nan, 0},
                                              {1e300, INT32_MAX},
                                              {-1e300, INT32_MIN},
                                              {infinity, INT32_MAX},
                                              {2147483647.9, INT32_MAX}};
  for (const auto& [value, expected] : cases) {
    for (const ParamId id : {kParamDensity, kParamSeed, kParamTurbulenceSeed})
      host.Value(id).u.fs_d.value = value;
    const FrameSettings s = ReadFrameSettings(host.in, params, Output(8, 8));
    EXPECT_EQ(s.density, expected);
    EXPECT_EQ(s.seed, expected);
    EXPECT_EQ(s.turbulenceSeed, expected);
  }
}

TEST(Settings, OddClocks) {
  FakeHost host;
  struct Case {
    int32_t time, step;
    uint32_t scale;
    float seconds, rate;
  };
  const Case cases[] = {{100, 1, 0, 0.0f, 30.0f},
                        {-50, 1, 25, -2.0f, 25.0f},
                        {50, 0, 25, 2.0f, 30.0f},
                        {50, -1, 25, 2.0f, 30.0f},
                        {1, 1, 4294967295u, 1.0f / 4294967296.0f, 4294967296.0f},
                        {3, 1001, 30000, 3.0f / 30000.0f, 30000.0f / 1001.0f}};
  for (const Case& c : cases) {
    host.SetTime(c.time, c.step, c.scale);
    const FrameSettings s = ReadFrameSettings(host.in, nullptr, Output(8, 8));
    EXPECT_EQ(s.timeSeconds, c.seconds);
    EXPECT_EQ(s.frameRate, c.rate);
  }
}

TEST(Settings, OddSizes) {
  FakeHost host;
  struct Case {
    PF_RationalScale ratio;
    int32_t output;
    float factor;
    int32_t full;
  };
  const Case cases[] = {{{1, 2}, 50, 0.5f, 100},
                        {{1, 3}, 34, 1.0f / 3.0f, 102},
                        {{1, 3}, 33, 1.0f / 3.0f, 99},
                        {{1, 0}, 50, 1.0f, 50},
                        {{0, 1}, 50, 0.0f, 50},
                        {{1, 1000}, 50, 0.001f, 50},
                        {{-1, 2}, 50, -0.5f, 50},
                        {{1, 500}, 30000, 0.002f, 15000000},
                        {{1, 100}, INT32_MAX, 0.01f, INT32_MAX}};
  for (const Case& c : cases) {
    host.in.downsample_x = c.ratio;
    host.in.downsample_y = c.ratio;
    const FrameSettings s = ReadFrameSettings(host.in, nullptr, Output(c.output, c.output));
    EXPECT_EQ(s.downsampleX, c.factor);
    EXPECT_EQ(s.downsampleY, c.factor);
    EXPECT_EQ(s.fullWidth, c.full) << c.output;
    EXPECT_EQ(s.fullHeight, c.full);
  }
}

TEST(Settings, CustomValuesAreCopiedByteForByte) {
  FakeHost host;
  PF_ParamDef** params = host.Params();
  ColorGradient gradient;
  std::memset(&gradient, 0x7B, sizeof(gradient));
  LifeCurve curve;
  std::memset(&curve, 0x3C, sizeof(curve));
  host.DisposeOwned();
  host.Value(kParamColorGradient).u.arb_d.value = host.NewHandle(&gradient, sizeof(gradient));
  host.Value(kParamScaleOverLife).u.arb_d.value = host.NewHandle(&curve, sizeof(curve));
  curve.maximum = 0.25f;
  host.Value(kParamOpacityOverLife).u.arb_d.value = host.NewHandle(&curve, sizeof(curve));
  const FrameSettings s = ReadFrameSettings(host.in, params, Output(8, 8));
  EXPECT_EQ(std::memcmp(&s.colorGradient, &gradient, sizeof(gradient)), 0);
  EXPECT_EQ(std::memcmp(&s.opacityOverLife, &curve, sizeof(curve)), 0);
  EXPECT_NE(s.scaleOverLife.maximum, 0.25f);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST(Settings, ACustomValueOfAnotherSizeCountsAsItsDefault) {
  const char bytes[600] = {};
  for (const size_t size : {0u, 1u, 139u, 141u, 267u, 269u, 600u}) {
    FakeHost host;
    PF_ParamDef** params = host.Params();
    host.DisposeOwned();
    for (const ParamId id : {kParamColorGradient, kParamScaleOverLife, kParamOpacityOverLife}) {
      host.Value(id).u.arb_d.value = host.NewHandle(bytes, size);
    }
    ExpectDefaults(ReadFrameSettings(host.in, params, Output(8, 8)));
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST(Settings, EachFailingLockGivesADefault) {
  for (int n = 1; n <= 4; ++n) {
    FakeHost host;
    PF_ParamDef** params = host.Params();
    host.lockCalls = 0;
    host.failLockAt = n;
    ExpectDefaults(ReadFrameSettings(host.in, params, Output(8, 8)));
    EXPECT_EQ(host.Imbalance(), "");
  }
  FakeHost host;
  PF_ParamDef** params = host.Params();
  host.in.utils = nullptr;
  ExpectDefaults(ReadFrameSettings(host.in, params, Output(8, 8)));
}

}  // namespace
}  // namespace vantle::test
