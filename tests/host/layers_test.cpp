#include "tests/host/linked_effect.h"

#include <gtest/gtest.h>

namespace vantle::host {
namespace {

std::shared_ptr<const World> Sized(int width) {
  return std::make_shared<const World>(MakeWorld(width, 1, 8));
}

int WidthOf(const LayerFrame& frame) {
  return frame.world == nullptr ? 0 : frame.world->width;
}

/// Layer parameters 1 (the effect's own layer) and 2 (none).
EffectInstance& TwoLayers() {
  static EffectInstance effect;
  if (effect.params.empty()) {
    effect.params.resize(3);
    effect.params[1].def.u.ld.dephault = PF_LayerDefault_MYSELF;
    effect.params[2].def.u.ld.dephault = PF_LayerDefault_NONE;
  }
  return effect;
}

TEST(LayersOf, FallsBackToTheDeclaredDefault) {
  const LayerProvider layers = LayersOf(TwoLayers(), {}, Sized(9));
  EXPECT_EQ(WidthOf(layers(1, 0, 1, 1)), 9);
  EXPECT_EQ(WidthOf(layers(2, 0, 1, 1)), 0);
}

TEST(LayersOf, PrefersTheTable) {
  LayerTable table;
  table.layers = {{1, nullptr}, {2, Sized(4)}};
  const LayerProvider layers = LayersOf(TwoLayers(), table, Sized(9));
  EXPECT_EQ(WidthOf(layers(1, 0, 1, 1)), 0);
  EXPECT_EQ(WidthOf(layers(2, 0, 1, 1)), 4);
}

TEST(LayersOf, GivesTheLastFrameNotAboveTheTime) {
  LayerTable table;
  table.frames[2] = {{-2, Sized(1)}, {0, Sized(2)}, {5, Sized(3)}, {6, nullptr}};
  const LayerProvider layers = LayersOf(TwoLayers(), table, nullptr);
  const auto width = [&](A_long time) { return WidthOf(layers(2, time, 1, 1)); };
  EXPECT_EQ(width(-3), 0);
  EXPECT_EQ(width(-2), 1);
  EXPECT_EQ(width(-1), 1);
  EXPECT_EQ(width(0), 2);
  EXPECT_EQ(width(4), 2);
  EXPECT_EQ(width(5), 3);
  EXPECT_EQ(width(6), 0);
  EXPECT_EQ(width(2147483647), 0);
}

TEST(LayersOf, ConvertsBetweenScales) {
  LayerTable table;
  table.frameScale = 24;
  table.frames[2] = {{0, Sized(1)}, {12, Sized(2)}};
  const LayerProvider layers = LayersOf(TwoLayers(), table, nullptr);
  EXPECT_EQ(WidthOf(layers(2, 49, 1, 100)), 1);
  EXPECT_EQ(WidthOf(layers(2, 50, 1, 100)), 2);
  EXPECT_EQ(WidthOf(layers(2, 2147483647, 1, 4294967295U)), 1);
}

/// What an effect gets for a checkout of parameter 1, a layer.
struct Answer {
  PF_Err error = 0;
  PF_ParamDef record{};
};

Answer CheckOut(const LayerProvider& provider) {
  Answer answer;
  OpenedEffect opened =
      OpenEffect(ModuleOf([&](PF_Cmd command, PF_InData* in, PF_OutData* out, PF_ParamDef**, PF_LayerDef*,
                              void*) -> PF_Err {
                   if (command == PF_Cmd_PARAMS_SETUP) {
                     PF_ParamDef layer = Param(1, PF_Param_LAYER, "Layer");
                     in->inter.add_param(in->effect_ref, -1, &layer);
                     out->num_params = 2;
                   } else if (command == PF_Cmd_RENDER) {
                     PF_ParamDef record{};
                     answer.error = in->inter.checkout_param(in->effect_ref, 1, 17, -1, 25, &record);
                     answer.record = record;
                     if (answer.error == 0) {
                       in->inter.checkin_param(in->effect_ref, &record);
                       EXPECT_EQ(record.u.ld.data, nullptr) << "pixels in reach after check-in";
                     }
                   }
                   return PF_Err_NONE;
                 }),
                 {});
  FrameRequest request;
  request.width = request.height = 1;
  request.layers = provider;
  const FrameResult result = RenderFrame(*opened.effect, request, nullptr);
  EXPECT_TRUE(Succeeded(result)) << Joined(result.problems);
  return answer;
}

TEST(Checkout, AsksForTheTimeGiven) {
  const Answer answer = CheckOut([](int param, A_long time, A_long step, A_u_long scale) -> LayerFrame {
    EXPECT_EQ(param, 1);
    EXPECT_EQ(time, 17);
    EXPECT_EQ(step, -1);
    EXPECT_EQ(scale, 25U);
    return {PF_Err_NONE, Sized(6)};
  });
  EXPECT_EQ(answer.error, PF_Err_NONE);
  EXPECT_EQ(answer.record.param_type, PF_Param_LAYER);
  EXPECT_EQ(answer.record.u.ld.width, 6);
  EXPECT_NE(answer.record.u.ld.data, nullptr);
}

TEST(Checkout, OfNoLayerSucceedsWithZeros) {
  const Answer answer = CheckOut([](int, A_long, A_long, A_u_long) { return LayerFrame{}; });
  EXPECT_EQ(answer.error, PF_Err_NONE);
  EXPECT_EQ(answer.record.u.ld.data, nullptr);
  EXPECT_EQ(answer.record.u.ld.width, 0);
  EXPECT_EQ(answer.record.u.ld.pix_aspect_ratio.den, 0U);
}

TEST(Checkout, MayFail) {
  const Answer answer = CheckOut([](int, A_long, A_long, A_u_long) {
    return LayerFrame{PF_Err_OUT_OF_MEMORY, nullptr};
  });
  EXPECT_EQ(answer.error, PF_Err_OUT_OF_MEMORY);
}

}  // namespace
}  // namespace vantle::host
