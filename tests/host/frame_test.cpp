// What arrives at the effect is what the request says.
#include "host_api/arbitrary_data.h"
#include "tests/host/linked_effect.h"
#include "tests/host/misbehaving_effect.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace vantle::host {
namespace {

using Render = std::function<void(PF_InData*, PF_ParamDef**, PF_LayerDef*)>;

/// An effect with a slider, an angle, a popup and a check box that runs `render`.
OpenedEffect OpenRendering(Render render, PF_OutFlags2 flags2 = PF_OutFlag2_SUPPORTS_THREADED_RENDERING,
                           const HostOptions& options = {}) {
  return OpenEffect(ModuleOf([=](PF_Cmd command, PF_InData* in, PF_OutData* out, PF_ParamDef** params,
                                 PF_LayerDef* output, void*) -> PF_Err {
                      if (command == PF_Cmd_GLOBAL_SETUP) {
                        out->out_flags = PF_OutFlag_DEEP_COLOR_AWARE;
                        out->out_flags2 = flags2;
                      } else if (command == PF_Cmd_PARAMS_SETUP) {
                        PF_ParamDef slider = Param(1, PF_Param_FLOAT_SLIDER, "Slider");
                        slider.u.fs_d.valid_max = slider.u.fs_d.slider_max = 10;
                        slider.u.fs_d.dephault = 2.5F;
                        PF_ParamDef angle = Param(2, PF_Param_ANGLE, "Angle");
                        angle.u.ad.dephault = 3 << 16;
                        PF_ParamDef popup = Param(3, PF_Param_POPUP, "Popup");
                        popup.u.pd = {0, 2, 2, {"a|b"}};
                        PF_ParamDef box = Param(4, PF_Param_CHECKBOX, "Box");
                        box.u.bd.dephault = 1;
                        for (PF_ParamDef* def : {&slider, &angle, &popup, &box}) {
                          in->inter.add_param(in->effect_ref, -1, def);
                        }
                        out->num_params = 5;
                      } else if (command == PF_Cmd_RENDER) {
                        render(in, params, output);
                      }
                      return PF_Err_NONE;
                    }),
                    options);
}

TEST(Frame, HandsOverTheClockAndTheSizes) {
  OpenedEffect opened = OpenRendering([](PF_InData* in, PF_ParamDef**, PF_LayerDef* output) {
    EXPECT_EQ(in->current_time, -7);
    EXPECT_EQ(in->time_step, 0);
    EXPECT_EQ(in->time_scale, 0U);
    EXPECT_EQ(in->total_time, 50);
    EXPECT_EQ(in->width, 21);
    EXPECT_EQ(in->height, 5);
    EXPECT_EQ(in->downsample_x.num, 1);
    EXPECT_EQ(in->downsample_x.den, 3U);
    EXPECT_EQ(in->num_params, 5);
    EXPECT_EQ(in->version.major, 13);
    EXPECT_EQ(in->version.minor, 28);
    EXPECT_EQ(in->appl_id, kApplAfterEffects);
    EXPECT_EQ(output->width, 7);
    EXPECT_EQ(output->height, 5);
    EXPECT_EQ(output->world_flags, PF_WorldFlag_WRITEABLE | PF_WorldFlag_DEEP);
  });
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request;
  request.width = 7;
  request.height = 5;
  request.depth = 16;
  request.time = {-7, 0, 0, 50};
  request.downsampleX = {1, 3};
  request.downsampleY = {1, 0};
  const FrameResult result = RenderFrame(*opened.effect, request, nullptr);
  EXPECT_TRUE(Succeeded(result)) << Joined(result.problems);
}

TEST(Frame, HandsOverDefaultsAndValues) {
  int round = 0;
  OpenedEffect opened = OpenRendering([&](PF_InData*, PF_ParamDef** params, PF_LayerDef*) {
    EXPECT_EQ(params[1]->u.fs_d.value, round == 0 ? 2.5 : -0.1);
    EXPECT_EQ(params[2]->u.ad.value, round == 0 ? 3 << 16 : -1);
    EXPECT_EQ(params[3]->u.pd.value, round == 0 ? 2 : 77);
    EXPECT_EQ(params[4]->u.bd.value, round == 0 ? 1 : 0);
    EXPECT_STREQ(params[3]->u.pd.u.namesptr, "a|b");
    EXPECT_EQ(params[0]->u.ld.data, nullptr) << "no input was given";
  });
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request;
  request.width = request.height = 1;
  EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, request, nullptr)));
  round = 1;
  request.values = {{1, -0.1}, {2, A_long{-1}}, {3, A_long{77}}, {4, A_long{0}}};
  EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, request, nullptr)));
}

TEST(Frame, RefusesWhatDoesNotFit) {
  OpenedEffect opened = OpenRendering([](PF_InData*, PF_ParamDef**, PF_LayerDef*) { FAIL(); });
  ASSERT_NE(opened.effect, nullptr);
  const auto refusal = [&](const FrameRequest& request) {
    const FrameResult result = RenderFrame(*opened.effect, request, nullptr);
    EXPECT_TRUE(result.refused);
    return result.message;
  };
  FrameRequest request;
  request.values = {{5, 1.0}};
  EXPECT_EQ(refusal(request), "there is no parameter 5");
  request.values = {{0, 1.0}};
  EXPECT_EQ(refusal(request), "there is no parameter 0");
  request.values = {{3, 1.0}};
  EXPECT_EQ(refusal(request), "parameter 3 \"Popup\" does not take such a value");
  request.values = {{1, A_long{1}}};
  EXPECT_EQ(refusal(request), "parameter 1 \"Slider\" does not take such a value");
  request.values = {{1, CustomBytes{}}};
  EXPECT_EQ(refusal(request), "parameter 1 \"Slider\" does not take such a value");
  request.values.clear();
  request.depth = 12;
  EXPECT_EQ(refusal(request), "frames have 8, 16 or 32 bits, not 12");
  request.depth = 8;
  request.width = 40000;
  EXPECT_EQ(refusal(request), "frames have 0 to 30000 columns and rows, not 40000 x 0");
  CloseEffect(*opened.effect);
  EXPECT_EQ(refusal({}), "the effect is not set up");
}

TEST(Frame, RowsLieAsTheHostWasTold) {
  for (const RowLayout rows : {RowLayout::kTight, RowLayout::kOddPadding, RowLayout::kNegative,
                               RowLayout::kPixelAligned, RowLayout::kByteAligned}) {
    HostOptions options;
    options.rows = rows;
    const World same = MakeWorld(3, 2, 8, rows);
    OpenedEffect opened = OpenRendering(
        [&](PF_InData*, PF_ParamDef** params, PF_LayerDef* output) {
          EXPECT_EQ(output->rowbytes, same.rowBytes);
          EXPECT_EQ(params[0]->u.ld.rowbytes, same.rowBytes);
          reinterpret_cast<std::uint8_t*>(output->data)[output->rowbytes + 11] = 99;
          EXPECT_EQ(reinterpret_cast<std::uint8_t*>(params[0]->u.ld.data)[output->rowbytes + 11], 255);
        },
        0, options);
    ASSERT_NE(opened.effect, nullptr);
    World input = MakeWorld(3, 2, 8);
    WritePixel(input, 2, 1, {0, 0, 0, 1});
    FrameRequest request;
    request.width = 3;
    request.height = 2;
    request.input = std::make_shared<const World>(input);
    World output = MakeWorld(3, 2, 8, RowLayout::kPadded);
    const FrameResult result = RenderFrame(*opened.effect, request, &output);
    EXPECT_TRUE(Succeeded(result)) << Joined(result.problems);
    EXPECT_EQ(WorldRow(output, 1)[11], 99) << "not copied back";
    EXPECT_EQ(output.layout, RowLayout::kPadded);
  }
}

TEST(Frame, HandsOverTheCallersOutputAsItIs) {
  OpenedEffect opened = OpenRendering([](PF_InData*, PF_ParamDef**, PF_LayerDef* output) {
    EXPECT_EQ(reinterpret_cast<std::uint8_t*>(output->data)[0], 42);
  });
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request;
  request.width = request.height = 2;
  World output = MakeWorld(2, 2, 8, RowLayout::kTight);
  WorldRow(output, 0)[0] = 42;
  EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, request, &output)));
  EXPECT_EQ(output.layout, RowLayout::kTight);
}

TEST(Frame, WithoutDeclaredThreadsFramesTakeTurns) {
  for (const bool threaded : {false, true}) {
    std::atomic<int> inside{0};
    std::atomic<int> most{0};
    OpenedEffect opened = OpenRendering(
        [&](PF_InData*, PF_ParamDef**, PF_LayerDef*) {
          const int now = ++inside;
          int seen = most.load();
          while (seen < now && !most.compare_exchange_weak(seen, now)) {
          }
          // Frames that may overlap wait for each other; those that may not have time to break the rule.
          for (int i = 0; i < 2000 && (threaded ? most.load() < 2 : true); ++i) {
            std::this_thread::sleep_for(std::chrono::microseconds(threaded ? 1000 : 5));
          }
          --inside;
        },
        threaded ? PF_OutFlag2_SUPPORTS_THREADED_RENDERING : 0);
    ASSERT_NE(opened.effect, nullptr);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
      threads.emplace_back([&] {
        FrameRequest request;
        request.width = request.height = 1;
        EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, request, nullptr)));
      });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
    EXPECT_EQ(most.load() > 1, threaded);
  }
}

TEST(Frame, ThreadsDoNotMixTheirFrames) {
  OpenedEffect opened = OpenMisbehaving();
  ASSERT_NE(opened.effect, nullptr);
  std::vector<std::thread> threads;
  for (int t = 0; t < 8; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < 50; ++i) {
        const bool leaks = (i + t) % 5 == 0;
        FrameRequest request = SmallFrame(leaks ? kKeepHandle : kBehave);
        request.values[kNumberParam] = static_cast<double>(t * 10);
        World output;
        const FrameResult result = RenderFrame(*opened.effect, request, &output);
        EXPECT_EQ(result.problems.size(), leaks ? 1U : 0U) << Joined(result.problems);
        EXPECT_EQ(WorldRow(output, 2)[7], t * 10);
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(Joined(CloseEffect(*opened.effect).problems), "");
}

TEST(FrameCommand, BringsChangedCustomValuesBack) {
  OpenedEffect opened = OpenEffect(
      ModuleOf([](PF_Cmd command, PF_InData* in, PF_OutData* out, PF_ParamDef** params, PF_LayerDef*,
                  void* extra) -> PF_Err {
        if (command == PF_Cmd_PARAMS_SETUP) {
          PF_ParamDef custom = Param(1, PF_Param_ARBITRARY_DATA, "Custom");
          custom.u.arb_d.dephault = in->utils->host_new_handle(2);
          in->inter.add_param(in->effect_ref, -1, &custom);
          out->num_params = 2;
        } else if (command == PF_Cmd_EVENT) {
          static_cast<std::uint8_t*>(*params[1]->u.arb_d.value)[0] = *static_cast<std::uint8_t*>(extra);
          params[1]->uu.change_flags = PF_ChangeFlag_CHANGED_VALUE;
        } else if (command == PF_Cmd_ARBITRARY_CALLBACK) {
          in->utils->host_dispose_handle(static_cast<PF_ArbParamsExtra*>(extra)->u.dispose_func_params.arbH);
        }
        return PF_Err_NONE;
      }),
      {});
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request;
  request.values[1] = CustomBytes{std::vector<std::uint8_t>{1, 2}};
  std::uint8_t extra = 9;
  std::map<int, CustomBytes> changed;
  const FrameResult result =
      SendFrameCommand(*opened.effect, PF_Cmd_EVENT, request, nullptr, &extra, &changed);
  EXPECT_TRUE(Succeeded(result)) << Joined(result.problems);
  ASSERT_EQ(changed.count(1), 1U);
  EXPECT_EQ(changed[1].bytes, (std::vector<std::uint8_t>{9, 2}));
  EXPECT_EQ(Joined(CloseEffect(*opened.effect).problems), "");
}

}  // namespace
}  // namespace vantle::host
