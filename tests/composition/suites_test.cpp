// The services around a composition, called as an effect calls them.
#include "host/composition/evaluation.h"
#include "host/engine/effect.h"
#include "host/engine/frame_request.h"
#include "host_api/aegp_suites.h"
#include "host_api/call_records.h"
#include "tests/host/linked_effect.h"

#include <gtest/gtest.h>
#include <string>

namespace vantle::host {
namespace {

/// What a test does inside of a command, with every suite at hand.
struct Services {
  PF_InData* in = nullptr;
  AEGP_PluginID id = 0;
  const AEGP_PFInterfaceSuite1* effect = nullptr;
  const AEGP_StreamSuite6* streams = nullptr;
  const AEGP_LayerSuite9* layers = nullptr;
  const AEGP_CompSuite11* comps = nullptr;
  const AEGP_ItemSuite9* items = nullptr;
  const AEGP_EffectSuite4* effects = nullptr;

  AEGP_LayerH EffectLayer() const {
    AEGP_LayerH layer = nullptr;
    EXPECT_EQ(effect->AEGP_GetEffectLayer(in->effect_ref, &layer), A_Err_NONE);
    return layer;
  }
  AEGP_CompH Comp() const {
    AEGP_CompH comp = nullptr;
    EXPECT_EQ(layers->AEGP_GetLayerParentComp(EffectLayer(), &comp), A_Err_NONE);
    return comp;
  }
  AEGP_LayerH LayerOfId(A_long layerId) const {
    AEGP_LayerH layer = nullptr;
    layers->AEGP_GetLayerFromLayerID(Comp(), layerId, &layer);
    return layer;
  }
  AEGP_StreamRefH Stream(AEGP_LayerH layer, AEGP_LayerStream which) const {
    AEGP_StreamRefH stream = nullptr;
    EXPECT_EQ(streams->AEGP_GetNewLayerStream(id, layer, which, &stream), A_Err_NONE);
    return stream;
  }
  A_Err Read(AEGP_StreamRefH stream, A_long frame, bool own, AEGP_StreamVal2& value) const {
    const A_Time time{frame, 24};
    AEGP_StreamValue2 answer{};
    const A_Err error = streams->AEGP_GetNewStreamValue(id, stream, AEGP_LTimeMode_CompTime, &time,
                                                        static_cast<A_Boolean>(own ? 1 : 0), &answer);
    value = answer.val;
    if (error == A_Err_NONE) streams->AEGP_DisposeStreamValue(&answer);
    return error;
  }
  A_Err Set(AEGP_StreamRefH stream, AEGP_ThreeDVal to) const {
    AEGP_StreamValue2 value{};
    value.streamH = stream;
    value.val.three_d = to;
    return streams->AEGP_SetStreamValue(id, stream, &value);
  }
};

using Work = std::function<void(const Services&)>;

template <typename Suite>
void Acquire(PF_InData* in, const char* name, A_long version, const Suite*& suite) {
  const void* table = nullptr;
  ASSERT_EQ(in->pica_basicP->AcquireSuite(name, version, &table), 0) << name;
  suite = static_cast<const Suite*>(table);
  in->pica_basicP->ReleaseSuite(name, version);
}

AEGP_PluginID pluginId = 0;

PF_Err SetUp(PF_InData* in) {
  const AEGP_UtilitySuite6* utility = nullptr;
  Acquire(in, kAEGP_UtilitySuite6Name, kAEGP_UtilitySuite6Version, utility);
  return utility->AEGP_RegisterWithAEGP(nullptr, "Test", &pluginId);
}

PF_Err Declare(PF_InData* in, PF_OutData* out) {
  PF_ParamDef slider = Param(1, PF_Param_FLOAT_SLIDER, "Slider");
  slider.u.fs_d.valid_max = slider.u.fs_d.slider_max = 10;
  PF_ParamDef layer = Param(2, PF_Param_LAYER, "Layer");
  in->inter.add_param(in->effect_ref, -1, &slider);
  in->inter.add_param(in->effect_ref, -1, &layer);
  out->num_params = 3;
  return PF_Err_NONE;
}

void DoWork(PF_InData* in, const Work& work) {
  Services services;
  services.in = in;
  services.id = pluginId;
  Acquire(in, kAEGP_PFInterfaceSuite1Name, kAEGP_PFInterfaceSuite1Version, services.effect);
  Acquire(in, kAEGP_StreamSuite6Name, kAEGP_StreamSuite6Version, services.streams);
  Acquire(in, kAEGP_LayerSuite9Name, kAEGP_LayerSuite9Version, services.layers);
  Acquire(in, kAEGP_CompSuite11Name, kAEGP_CompSuite11Version, services.comps);
  Acquire(in, kAEGP_ItemSuite9Name, kAEGP_ItemSuite9Version, services.items);
  Acquire(in, kAEGP_EffectSuite4Name, kAEGP_EffectSuite4Version, services.effects);
  work(services);
}

struct CompositionServices : testing::Test {
  void SetUp() override {
    composition = std::make_shared<composition::Composition>();
    composition->width = 320;
    composition->height = 240;
    composition::Layer other = MakeLayer(*composition, composition::LayerKind::kPicture, "other");
    other.source = composition::SourceItem{64, 48, 30, 24};
    otherId = AddOnTop(*composition, other);
    composition->effectLayer =
        AddOnTop(*composition, MakeLayer(*composition, composition::LayerKind::kPicture, "own"));
    composition->chosenLayers[2] = otherId;
  }

  /// The complaints of the host about `work`, done inside of `command`.
  std::string Do(const Work& work, PF_Cmd command = PF_Cmd_USER_CHANGED_PARAM) {
    OpenedEffect opened = OpenEffect(ModuleOf([&](PF_Cmd given, PF_InData* in, PF_OutData* out, PF_ParamDef**,
                                                  PF_LayerDef*, void*) -> PF_Err {
                                       if (given == PF_Cmd_GLOBAL_SETUP) return vantle::host::SetUp(in);
                                       if (given == PF_Cmd_PARAMS_SETUP) return Declare(in, out);
                                       if (given == command) DoWork(in, work);
                                       return PF_Err_NONE;
                                     }),
                                     {});
    EXPECT_NE(opened.effect, nullptr);
    if (opened.effect == nullptr) return "";
    FrameRequest request;
    request.width = 320;
    request.height = 240;
    request.composition = composition;
    const FrameResult result = SendFrameCommand(*opened.effect, command, request, nullptr, nullptr);
    CloseEffect(*opened.effect);
    return Joined(result.problems);
  }

  std::shared_ptr<composition::Composition> composition;
  int32_t otherId = 0;
};

TEST_F(CompositionServices, LayersItemsAndSizes) {
  EXPECT_EQ(Do([&](const Services& host) {
              AEGP_ItemH item = nullptr;
              A_long width = 0, height = 0;
              A_Time duration{};
              EXPECT_EQ(host.comps->AEGP_GetItemFromComp(host.Comp(), &item), A_Err_NONE);
              EXPECT_EQ(host.items->AEGP_GetItemDimensions(item, &width, &height), A_Err_NONE);
              EXPECT_EQ(width, 320);
              EXPECT_EQ(height, 240);
              AEGP_LayerH other = host.LayerOfId(otherId);
              EXPECT_EQ(host.layers->AEGP_GetLayerSourceItem(other, &item), A_Err_NONE);
              EXPECT_EQ(host.items->AEGP_GetItemDimensions(item, &width, &height), A_Err_NONE);
              EXPECT_EQ(host.items->AEGP_GetItemDuration(item, &duration), A_Err_NONE);
              EXPECT_EQ(width, 64);
              EXPECT_EQ(height, 48);
              EXPECT_EQ(duration.value, 30);
              EXPECT_EQ(duration.scale, 24U);
              EXPECT_EQ(host.layers->AEGP_GetLayerSourceItem(host.EffectLayer(), &item), A_Err_NONE);
              EXPECT_EQ(item, nullptr) << "that layer shows nothing";
              EXPECT_EQ(host.LayerOfId(99), nullptr);
            }),
            "");
}

TEST_F(CompositionServices, TheChosenLayerIsKnownByItsId) {
  EXPECT_EQ(Do([&](const Services& host) {
              AEGP_EffectRefH effect = nullptr;
              host.effect->AEGP_GetNewEffectForEffect(host.id, host.in->effect_ref, &effect);
              AEGP_StreamRefH stream = nullptr;
              host.streams->AEGP_GetNewEffectStreamByIndex(host.id, effect, 2, &stream);
              AEGP_StreamVal2 value{};
              EXPECT_EQ(host.Read(stream, 0, false, value), A_Err_NONE);
              EXPECT_EQ(value.layer_id, otherId);
              host.streams->AEGP_DisposeStream(stream);
              host.effects->AEGP_DisposeEffect(effect);
            }),
            "");
}

TEST_F(CompositionServices, StreamsHoldValuesOverTimeAndExpressions) {
  composition::Layer& own = *composition::FindLayer(*composition, composition->effectLayer);
  own.streams[composition::kOpacity].keys = {{0.0, {10, 0, 0}, false}, {1.0, {34, 0, 0}, false}};
  own.streams[composition::kOpacity].expression = {"value * 2", true};
  EXPECT_EQ(Do([&](const Services& host) {
              AEGP_StreamRefH stream = host.Stream(host.EffectLayer(), AEGP_LayerStream_OPACITY);
              AEGP_StreamVal2 value{};
              EXPECT_EQ(host.Read(stream, 6, true, value), A_Err_NONE);
              EXPECT_DOUBLE_EQ(value.one_d, 16);
              EXPECT_EQ(host.Read(stream, 6, false, value), A_Err_NONE);
              EXPECT_DOUBLE_EQ(value.one_d, 32);
              A_Boolean on = 0;
              host.streams->AEGP_GetExpressionState(host.id, stream, &on);
              EXPECT_EQ(on, 1);
              host.streams->AEGP_SetExpressionState(host.id, stream, 0);
              host.streams->AEGP_GetExpressionState(host.id, stream, &on);
              EXPECT_EQ(on, 0);
              EXPECT_EQ(host.Read(stream, 6, false, value), A_Err_NONE);
              EXPECT_DOUBLE_EQ(value.one_d, 16) << "values are looked up anew after a change";
              host.streams->AEGP_DisposeStream(stream);
            }),
            "");
}

TEST_F(CompositionServices, ValuesAreSetWhereThereAreNoKeyframes) {
  EXPECT_EQ(Do([&](const Services& host) {
              AEGP_StreamRefH stream = host.Stream(host.EffectLayer(), AEGP_LayerStream_POSITION);
              EXPECT_EQ(host.Set(stream, {1, 2, 3}), A_Err_NONE);
              host.streams->AEGP_DisposeStream(stream);
            }),
            "");
  composition::Property& position =
      composition::FindLayer(*composition, composition->effectLayer)->streams[composition::kPosition];
  EXPECT_EQ(position.keys[0].value, (composition::Numbers{1, 2, 3}));
  position.keys.push_back({1.0, {}, false});
  EXPECT_EQ(Do([&](const Services& host) {
              AEGP_StreamRefH stream = host.Stream(host.EffectLayer(), AEGP_LayerStream_POSITION);
              EXPECT_EQ(host.Set(stream, {4, 5, 6}), A_Err_PARAMETER);
              host.streams->AEGP_DisposeStream(stream);
            }),
            "set a value that \"Position\" of layer \"own\" does not take\n");
  EXPECT_EQ(position.keys[0].value, (composition::Numbers{1, 2, 3}));
}

TEST_F(CompositionServices, NullsGetTheirNameInUnicode) {
  EXPECT_EQ(Do([&](const Services& host) {
              const A_UTF16Char name[] = {'N', 0xFC, 0x4E2D, 0xD83D, 0xDE00, 0xDC00, 0};
              AEGP_LayerH layer = nullptr;
              EXPECT_EQ(host.comps->AEGP_CreateNullInComp(name, host.Comp(), nullptr, &layer), A_Err_NONE);
              EXPECT_EQ(host.layers->AEGP_SetLayerFlag(layer, AEGP_LayerFlag_LAYER_IS_3D, 1), A_Err_NONE);
            }),
            "");
  EXPECT_EQ(composition->layers[0].name, "N\xC3\xBC\xE4\xB8\xAD\xF0\x9F\x98\x80\xEF\xBF\xBD");
  EXPECT_TRUE(composition->layers[0].threeD);
}

TEST_F(CompositionServices, ARenderMayNotChangeTheComposition) {
  const std::string complaints = Do(
      [&](const Services& host) {
        const A_UTF16Char name[] = {'N', 0};
        AEGP_LayerH layer = nullptr;
        EXPECT_NE(host.comps->AEGP_CreateNullInComp(name, host.Comp(), nullptr, &layer), A_Err_NONE);
        EXPECT_NE(host.layers->AEGP_SetLayerFlag(host.EffectLayer(), AEGP_LayerFlag_LAYER_IS_3D, 1),
                  A_Err_NONE);
        AEGP_StreamRefH stream = host.Stream(host.EffectLayer(), AEGP_LayerStream_POSITION);
        EXPECT_NE(host.Set(stream, {1, 2, 3}), A_Err_NONE);
        EXPECT_NE(host.streams->AEGP_SetExpression(host.id, stream, name), A_Err_NONE);
        EXPECT_NE(host.streams->AEGP_SetExpressionState(host.id, stream, 1), A_Err_NONE);
        host.streams->AEGP_DisposeStream(stream);
      },
      PF_Cmd_RENDER);
  EXPECT_EQ(complaints,
            "AEGP_CreateNullInComp changes the composition in a render\n"
            "AEGP_SetLayerFlag changes the composition in a render\n"
            "AEGP_SetStreamValue changes the composition in a render\n"
            "AEGP_SetExpression changes the composition in a render\n"
            "AEGP_SetExpressionState changes the composition in a render\n");
  EXPECT_EQ(composition->layers.size(), 2U);
  EXPECT_TRUE(composition->changes.empty());
}

TEST_F(CompositionServices, WhatThisHostDoesNotOfferIsSaid) {
  EXPECT_EQ(Do([&](const Services& host) {
              EXPECT_NE(host.layers->AEGP_SetLayerFlag(host.EffectLayer(), AEGP_LayerFlag_SOLO, 1),
                        A_Err_NONE);
              AEGP_StreamRefH stream = host.Stream(host.EffectLayer(), AEGP_LayerStream_ZOOM);
              AEGP_StreamVal2 value{};
              EXPECT_NE(host.Read(stream, 0, false, value), A_Err_NONE) << "only cameras have it";
              host.streams->AEGP_DisposeStream(stream);
              EXPECT_NE(host.streams->AEGP_DisposeStream(stream), A_Err_NONE);
              AEGP_ItemH item = nullptr;
              EXPECT_NE(host.comps->AEGP_GetItemFromComp(nullptr, &item), A_Err_NONE);
            }),
            "set layer flag 16384, which this host does not offer\n"
            "asked the value of stream 11, which this host does not offer\n"
            "used stream 11 after giving it back\n"
            "used a composition that is not this command's\n");
}

TEST_F(CompositionServices, WhatIsKeptIsReported) {
  EXPECT_EQ(Do([&](const Services& host) {
              host.Stream(host.EffectLayer(), AEGP_LayerStream_POSITION);
              AEGP_EffectRefH effect = nullptr;
              host.effect->AEGP_GetNewEffectForEffect(host.id, host.in->effect_ref, &effect);
            }),
            "stream 1 taken 1 times, given back 0\neffect reference taken 1 times, given back 0\n");
}

TEST_F(CompositionServices, AnEffectWithoutALayerHasNone) {
  composition->effectLayer = 0;
  EXPECT_EQ(Do([&](const Services& host) { EXPECT_EQ(host.EffectLayer(), nullptr); }), "");
}

}  // namespace
}  // namespace vantle::host
