// Every call that the effect makes while it draws or edits fails in turn: the error comes back, nothing
// leaks.
#include "host_api/commands.h"
#include "tests/panel/real_panel.h"

namespace vantle::panel {
namespace {

constexpr PF_Err kInjected = 4242;

host::FrameRequest Failing(long n) {
  host::FrameRequest request;
  request.values[kGradient] = host::CustomBytes{BytesOf(EightStops())};
  request.values[kScaleCurve] = host::CustomBytes{BytesOf(FivePoints())};
  request.faults.emplace();
  request.faults->failCall = n;
  request.faults->failWith = kInjected;
  return request;
}

TEST(DrawingFaults, EveryFailingCallIsReturnedAndNothingLeaks) {
  const auto effect = OpenVantle();
  for (const int param : kCustomControls) {
    const Rect frame{0, 0, 200, param == kGradient ? 40 : 140};
    const DrawnControl clean = DrawAt(*effect, param, frame, Failing(0));
    ASSERT_TRUE(host::Succeeded(clean.result));
    int errors = 0;
    for (long n = 1; n <= clean.result.hostCalls; ++n) {
      const DrawnControl drawn = DrawAt(*effect, param, frame, Failing(n));
      EXPECT_TRUE(drawn.result.problems.empty()) << n << ": " << drawn.result.problems[0];
      // Functions of handles have no result to fail with, a failed release of a suite is no error of the
      // drawing, and a suite that is not had has an error of its own.
      const bool known = drawn.result.error == kInjected || drawn.result.error == PF_Err_NONE ||
                         drawn.result.error == PF_Err_BAD_CALLBACK_PARAM;
      EXPECT_TRUE(known) << n << ": " << drawn.result.error;
      errors += drawn.result.error != PF_Err_NONE ? 1 : 0;
    }
    // All but a handful are calls with a result: 7 that have none or are suites given back.
    EXPECT_GE(errors, clean.result.hostCalls - 12) << param;
  }
}

TEST(DrawingFaults, EachFunctionsErrorComesBackAsItIs) {
  const auto effect = OpenVantle();
  for (const char* function :
       {"PF_GetDrawingReference", "GetSupplier", "GetSurface", "NewPen", "NewBrush", "NewPath",
        "GetDefaultFontSize", "NewDefaultFont", "MoveTo", "LineTo", "AddRect", "AddArc", "Close", "PaintRect",
        "FillPath", "StrokePath", "DrawString", "ReleaseObject"}) {
    host::FrameRequest request = Failing(0);
    request.faults->failCallNamed[function] = 1;
    const DrawnControl drawn = DrawAt(*effect, kScaleCurve, {0, 0, 200, 140}, request);
    EXPECT_EQ(drawn.result.error, kInjected) << function;
    EXPECT_TRUE(drawn.result.problems.empty()) << function << ": " << drawn.result.problems[0];
  }
}

TEST(DrawingFaults, AMissingSuiteIsToldAndTheOthersAreGivenBack) {
  const auto effect = OpenVantle();
  for (const char* name : {"DRAWBOT Draw Suite", "DRAWBOT Supplier Suite", "DRAWBOT Surface Suite",
                           "DRAWBOT Path Suite", "PF Effect Custom UI Suite"}) {
    for (const auto manner : {host::HiddenManner::kErrorAndNull, host::HiddenManner::kErrorPointerUntouched,
                              host::HiddenManner::kSuccessAndNull}) {
      host::FrameRequest request = Failing(0);
      request.faults->hiddenSuites.push_back({name, 0, manner});
      const DrawnControl drawn = DrawAt(*effect, kGradient, {0, 0, 200, 40}, request);
      EXPECT_EQ(drawn.result.error, PF_Err_BAD_CALLBACK_PARAM) << name;
      EXPECT_EQ(drawn.result.message, "Not able to acquire AEFX Suite.") << name;
      EXPECT_TRUE(drawn.result.problems.empty()) << name;
      EXPECT_TRUE(drawn.list.empty()) << name;
    }
  }
}

/// A double click on the third stop of eight, with a colour picked.
host::FrameResult Recolour(host::EffectInstance& effect, const host::FrameRequest& request,
                           std::map<int, host::CustomBytes>* changed) {
  host::DrawingSession session;
  session.picker = [](const std::string&, const PF_PixelFloat&) {
    return host::PickerReply{PF_Err_NONE, {1, 0.5f, 0.25f, 0.125f}};
  };
  PF_EventExtra extra{};
  extra.contextH = host::ContextOf(session);
  extra.e_type = PF_Event_DO_CLICK;
  extra.effect_win.index = kGradient;
  extra.effect_win.area = PF_EA_CONTROL;
  extra.effect_win.current_frame = {0, 0, 200, 40};
  extra.u.do_click.screen_point.h = 4 + 192 * 2 / 7;
  extra.u.do_click.screen_point.v = 30;
  extra.u.do_click.num_clicks = 2;
  const host::DrawingScope scope(session);
  host::BeginEvent(session, false, {});
  host::FrameResult result = host::SendFrameCommand(effect, PF_Cmd_EVENT, request, nullptr, &extra, changed);
  host::EndEvent(session);
  return result;
}

TEST(DrawingFaults, EveryFailingCallOfARecolouringLeavesTheBooksBalanced) {
  const auto effect = OpenVantle();
  std::map<int, host::CustomBytes> changed;
  const host::FrameResult clean = Recolour(*effect, Failing(0), &changed);
  ASSERT_TRUE(host::Succeeded(clean));
  ASSERT_EQ(changed.size(), 1u);
  ColorGradient picked;
  std::memcpy(&picked, changed[kGradient].bytes->data(), sizeof picked);
  EXPECT_EQ(picked.stops[2].r, 0.5f);
  EXPECT_EQ(picked.stops[2].b, 0.125f);
  for (long n = 1; n <= clean.hostCalls; ++n) {
    const host::FrameResult result = Recolour(*effect, Failing(n), nullptr);
    EXPECT_TRUE(result.problems.empty()) << n << ": " << result.problems[0];
  }
  host::FrameRequest noPicker = Failing(0);
  noPicker.faults->failCallNamed["PF_AppColorPickerDialog"] = 1;
  EXPECT_EQ(Recolour(*effect, noPicker, nullptr).error, kInjected);
  host::FrameRequest noSuite = Failing(0);
  noSuite.faults->hiddenSuites.push_back({"PF AE App Suite", 1, host::HiddenManner::kErrorAndNull});
  const host::FrameResult hidden = Recolour(*effect, noSuite, nullptr);
  EXPECT_EQ(hidden.error, PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(hidden.message, "Not able to acquire AEFX Suite.");
}

TEST(DrawingFaults, AValueThatCannotBeLockedDrawsNothing) {
  const auto effect = OpenVantle();
  host::FrameRequest request = Failing(0);
  request.faults->locksReturnNull = true;
  const DrawnControl drawn = DrawAt(*effect, kGradient, {0, 0, 200, 40}, request);
  EXPECT_EQ(drawn.result.error, PF_Err_NONE);
  EXPECT_FALSE(drawn.handled);
  EXPECT_TRUE(drawn.calls.empty());
}

}  // namespace
}  // namespace vantle::panel
