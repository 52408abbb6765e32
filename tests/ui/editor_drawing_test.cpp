// What the editors draw, shape by shape, and that they clean up whatever fails.
#include "particles/custom_values.h"
#include "tests/ui/fake_drawbot.h"
#include "ui/editor_events.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace vantle::test {
namespace {

struct Control {
  int index;
  int width;
  int height;
};

constexpr Control kGradient = {kColorGradientControl, 200, 40};
constexpr Control kCurve = {kScaleOverLifeControl, 200, 140};

ColorGradient DefaultGradient() {
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  return gradient;
}

LifeCurve DefaultCurve() {
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, 2.0f);
  return curve;
}

LifeCurve CurveOfThreePoints() {
  LifeCurve curve = DefaultCurve();
  curve.count = 3;
  const float x[] = {0.0f, 0.5f, 1.0f};
  const float y[] = {0.0f, 2.0f, 1.0f};
  std::copy(x, x + 3, curve.x);
  std::copy(y, y + 3, curve.y);
  return curve;
}

PF_Err Draw(FakeHost& host, const Control& control) {
  host.extra.effect_win.current_frame = {0, 0, control.width, control.height};
  return host.Send(PF_Event_DRAW, control.index);
}

int CountOf(const FakeHost& host, const std::string& start) {
  return static_cast<int>(std::count_if(host.calls.begin(), host.calls.end(),
                                        [&](const std::string& call) { return call.rfind(start, 0) == 0; }));
}

// Index of the first call that contains `text`, from `from` on; -1 when there is none.
int Find(const FakeHost& host, const std::string& text, int from = 0) {
  for (size_t i = static_cast<size_t>(from); i < host.calls.size(); ++i) {
    if (host.calls[i].find(text) != std::string::npos) return static_cast<int>(i);
  }
  return -1;
}

std::string CallAt(const FakeHost& host, int index) {
  const auto i = static_cast<size_t>(index);
  return index >= 0 && i < host.calls.size() ? host.calls[i] : "(no call)";
}

TEST(GradientDrawing, CheckerboardColumnsOutlineHandles) {
  FakeHost host;
  host.SetValue(kColorGradientControl, DefaultGradient());
  Draw(host, kGradient);

  // 39 x 4 cells, the last column of cells 2 pixels wide, then 192 columns.
  EXPECT_EQ(CountOf(host, "paint rect"), 39 * 4 + 192);
  const int cells = Find(host, "paint rect");
  EXPECT_EQ(CallAt(host, cells), "paint rect 4 4 5 5 in 0.3 0.3 0.3 1");
  EXPECT_EQ(CallAt(host, cells + 1), "paint rect 9 4 5 5 in 0.2 0.2 0.2 1");
  EXPECT_EQ(CallAt(host, cells + 38), "paint rect 194 4 2 5 in 0.3 0.3 0.3 1");
  EXPECT_EQ(CallAt(host, cells + 39), "paint rect 4 9 5 5 in 0.2 0.2 0.2 1");
  EXPECT_EQ(CallAt(host, cells + 156), "paint rect 4 4 1 20 in 1 1 0 1");
  EXPECT_EQ(CallAt(host, cells + 156 + 191), "paint rect 195 4 1 20 in 1 0.4 0.7 1");

  const int outline = cells + 156 + 192;
  EXPECT_EQ(CallAt(host, outline), "pen1 = new pen 0.4 0.4 0.4 1 width 1");
  EXPECT_EQ(CallAt(host, outline + 2), "path1 rect 4 4 192 20");
  EXPECT_EQ(CallAt(host, outline + 3), "stroke path1 with pen1");

  // The middle handle: its tip 2 pixels under the bar, 8 wide and 10 high.
  const int handle = Find(host, "path3 move to");
  EXPECT_EQ(CallAt(host, handle), "path3 move to 100 26");
  EXPECT_EQ(CallAt(host, handle + 1), "path3 line to 96 30");
  EXPECT_EQ(CallAt(host, handle + 2), "path3 line to 96 36");
  EXPECT_EQ(CallAt(host, handle + 3), "path3 line to 104 36");
  EXPECT_EQ(CallAt(host, handle + 4), "path3 line to 104 30");
  EXPECT_EQ(CallAt(host, handle + 5), "path3 close");
  EXPECT_EQ(CallAt(host, handle + 6), "brush2 = new brush 0 1 1 1");
  EXPECT_EQ(CallAt(host, handle + 7), "fill path3 with brush2 rule 1");
  EXPECT_EQ(CallAt(host, handle + 8), "stroke path3 with pen3");
}

TEST(GradientDrawing, OnlyTheSelectedHandleHasAWhiteOutline) {
  FakeHost host;
  ColorGradient gradient = DefaultGradient();
  gradient.selected = 1;
  host.SetValue(kColorGradientControl, gradient);
  Draw(host, kGradient);
  EXPECT_EQ(CallAt(host, Find(host, "pen2 =")), "pen2 = new pen 1 1 1 1 width " + Text(1.0f / 191.0f));
  EXPECT_EQ(CallAt(host, Find(host, "pen3 =")), "pen3 = new pen 0.5 0.5 0.5 1 width " + Text(1.0f / 191.0f));
  EXPECT_EQ(CallAt(host, Find(host, "stroke path2")), "stroke path2 with pen3");
  EXPECT_EQ(CallAt(host, Find(host, "stroke path3")), "stroke path3 with pen2");
  EXPECT_EQ(CallAt(host, Find(host, "stroke path4")), "stroke path4 with pen3");
}

TEST(GradientDrawing, HostileStopsAreShownAtTheEndsInDisplayableColours) {
  FakeHost host;
  ColorGradient gradient = DefaultGradient();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  gradient.stops[0] = {nan, nan, -1.0f, 2.0f};
  gradient.stops[2].position = 9.0f;
  gradient.selected = 77;
  host.SetValue(kColorGradientControl, gradient);
  EXPECT_EQ(Draw(host, kGradient), PF_Err_NONE);
  EXPECT_EQ(CallAt(host, Find(host, "path2 move to")), "path2 move to 4 26");
  EXPECT_EQ(CallAt(host, Find(host, "brush1 =")), "brush1 = new brush 0 0 1 1");
  EXPECT_EQ(CallAt(host, Find(host, "path4 move to")), "path4 move to 196 26");
  EXPECT_EQ(Find(host, "nan"), -1);
}

TEST(CurveDrawing, PlotGridAreaPointsButton) {
  FakeHost host;
  host.SetValue(kScaleOverLifeControl, CurveOfThreePoints());
  Draw(host, kCurve);

  int at = Find(host, "paint rect");
  EXPECT_EQ(CallAt(host, at), "paint rect 0.5 0.5 200 140 in 0.15 0.15 0.15 1");
  EXPECT_EQ(CallAt(host, at + 1), "path1 = new path");
  EXPECT_EQ(CallAt(host, at + 2), "path1 move to 52.5 4.5");
  EXPECT_EQ(CallAt(host, at + 3), "path1 line to 52.5 118.5");
  EXPECT_EQ(CallAt(host, at + 8), "path1 move to 4.5 33");
  EXPECT_EQ(CallAt(host, at + 9), "path1 line to 196.5 33");
  EXPECT_EQ(CallAt(host, Find(host, "pen1 =")), "pen1 = new pen 0.25 0.25 0.25 1 width 1");
  EXPECT_NE(Find(host, "path2 rect 4.5 4.5 192 114"), -1);

  // The area starts and ends on the plot's bottom edge, with 61 samples between.
  at = Find(host, "path3 move to");
  EXPECT_EQ(CallAt(host, at), "path3 move to 4.5 118.5");
  EXPECT_EQ(CallAt(host, at + 1), "path3 line to 4.5 118.5");
  EXPECT_EQ(CallAt(host, at + 31), "path3 line to 100.5 4.5");
  EXPECT_EQ(CallAt(host, at + 61), "path3 line to 196.5 61.5");
  EXPECT_EQ(CallAt(host, at + 62), "path3 line to 196.5 118.5");
  EXPECT_EQ(CallAt(host, at + 63), "path3 close");
  EXPECT_EQ(CallAt(host, at + 64), "brush1 = new brush 0.25 0.55 0.55 0.6");

  // The line over it.
  EXPECT_EQ(CallAt(host, Find(host, "path4 move to")), "path4 move to 4.5 118.5");
  EXPECT_EQ(CountOf(host, "path4 line to"), 60);
  EXPECT_EQ(CallAt(host, Find(host, "pen3 =")), "pen3 = new pen 0.8 0.9 0.9 1 width 1.5");

  // Points: first the outline, then the disc.
  EXPECT_NE(Find(host, "path5 arc 4.5 118.5 4 0 360"), -1);
  at = Find(host, "path6 arc");
  EXPECT_EQ(CallAt(host, at), "path6 arc 100.5 4.5 3.5 0 360");
  EXPECT_EQ(CallAt(host, at + 1), "stroke path6 with pen4");
  EXPECT_EQ(CallAt(host, at + 2), "fill path6 with brush3 rule 1");
  EXPECT_NE(Find(host, "path7 arc 196.5 61.5 4 0 360"), -1);
  EXPECT_EQ(CallAt(host, Find(host, "pen4 =")), "pen4 = new pen 1 1 1 1 width 1.5");
  EXPECT_EQ(CallAt(host, Find(host, "brush2 =")), "brush2 = new brush 0.3 0.7 0.7 1");
  EXPECT_EQ(CallAt(host, Find(host, "brush3 =")), "brush3 = new brush 0.4 0.8 0.5 1");

  // The control polygon, then the button.
  at = Find(host, "path8 move to 4.5 118.5");
  EXPECT_EQ(CallAt(host, at + 1), "path8 line to 100.5 4.5");
  EXPECT_EQ(CallAt(host, at + 2), "path8 line to 196.5 61.5");
  EXPECT_EQ(CallAt(host, at + 3), "pen5 = new pen 0.6 0.6 0.6 0.5 width 1");
  at = Find(host, "paint rect", at);
  EXPECT_EQ(CallAt(host, at), "paint rect 154.5 120.5 42 16 in 0.25 0.25 0.25 0.9");
  EXPECT_EQ(CallAt(host, at + 1), "pen6 = new pen 0.5 0.5 0.5 0.9 width 1");
  EXPECT_EQ(CallAt(host, at + 3), "path9 rect 154.5 120.5 42 16");
  EXPECT_EQ(CallAt(host, Find(host, "font1 =")), "font1 = new font size 11");
  EXPECT_EQ(CallAt(host, Find(host, "brush4 =")), "brush4 = new brush 0.8 0.8 0.8 1");
  EXPECT_EQ(CallAt(host, Find(host, "draw \"")),
            "draw \"RESET\" at 158.5 131.5 with font1 brush4 alignment 0 truncation 0 0");
}

TEST(CurveDrawing, ValuesAreShownWithinTheRange) {
  FakeHost host;
  LifeCurve curve = DefaultCurve();
  curve.y[0] = 50.0f;
  curve.y[1] = std::numeric_limits<float>::quiet_NaN();
  curve.maximum = 0.0f;
  host.SetValue(kOpacityOverLifeControl, curve);
  EXPECT_EQ(Draw(host, {kOpacityOverLifeControl, 200, 140}), PF_Err_NONE);
  EXPECT_NE(Find(host, "arc 4.5 4.5 4 0 360"), -1);
  EXPECT_NE(Find(host, "arc 196.5 118.5 4 0 360"), -1);
  EXPECT_EQ(Find(host, "nan"), -1);
}

TEST(CurveDrawing, WithoutPointsThereIsNoPolygon) {
  FakeHost host;
  LifeCurve curve = DefaultCurve();
  curve.count = -1;
  host.SetValue(kScaleOverLifeControl, curve);
  EXPECT_EQ(Draw(host, kCurve), PF_Err_NONE);
  EXPECT_EQ(Find(host, "arc"), -1);
  EXPECT_EQ(Find(host, "0.6 0.6 0.6 0.5"), -1);
  EXPECT_NE(Find(host, "RESET"), -1);
}

TEST(TinyControls, NothingIsDrawnOutside) {
  for (int width = 0; width < 60; ++width) {
    for (const int height : {0, 1, 8, 9, 20, 23, 24, 26, 27, 35, 36, 40, 140}) {
      for (const int index : {kColorGradientControl, kScaleOverLifeControl}) {
        FakeHost host;
        host.SetValue(kColorGradientControl, DefaultGradient());
        host.SetValue(kScaleOverLifeControl, CurveOfThreePoints());
        ASSERT_EQ(Draw(host, {index, width, height}), PF_Err_NONE);
        ASSERT_EQ(host.Imbalance(), "");
        for (const DrawnPoint& point : host.drawn) {
          // A curve is drawn half a pixel to the right and down.
          ASSERT_TRUE(point.x >= 0.0f && point.x <= static_cast<float>(width) + 0.5f)
              << width << "x" << height;
          ASSERT_TRUE(point.y >= 0.0f && point.y <= static_cast<float>(height) + 0.5f)
              << width << "x" << height;
        }
        if (width == 0 || height == 0) {
          ASSERT_TRUE(host.drawn.empty());
        }
      }
    }
  }
}

TEST(TinyControls, ABarOfOnePixelHasTwoColumns) {
  FakeHost host;
  host.SetValue(kColorGradientControl, DefaultGradient());
  Draw(host, {kColorGradientControl, 9, 40});
  EXPECT_NE(Find(host, "paint rect 4 4 1 20 in 1 1 0 1"), -1);
  EXPECT_NE(Find(host, "paint rect 5 4 1 20 in 1 0.4 0.7 1"), -1);
  EXPECT_EQ(CallAt(host, Find(host, "pen2 =")), "pen2 = new pen 1 1 1 1 width 1");
}

TEST(TinyControls, AnAbsurdRectangleDrawsNothing) {
  FakeHost host;
  host.SetValue(kColorGradientControl, DefaultGradient());
  constexpr A_long kMin = std::numeric_limits<A_long>::min();
  constexpr A_long kMax = std::numeric_limits<A_long>::max();
  for (const PF_UnionableRect& rect : {PF_UnionableRect{kMin, kMin, kMax, kMax}, {kMax, kMax, kMin, kMin}}) {
    host.extra.effect_win.current_frame = rect;
    EXPECT_EQ(host.Send(PF_Event_DRAW, kColorGradientControl), PF_Err_NONE);
    EXPECT_TRUE(host.drawn.empty());
  }
}

// ---- Failures ----

PF_Err DrawFailing(FakeHost& host, const Control& control, int failCall, bool madeNothing) {
  host.SetValue(kColorGradientControl, DefaultGradient());
  host.SetValue(kScaleOverLifeControl, CurveOfThreePoints());
  host.failCall = failCall;
  host.madeNothing = madeNothing;
  return Draw(host, control);
}

// The first five counted calls acquire the suites; a failing one has its own error.
constexpr int kAcquisitions = 5;

TEST(FailingCalls, EveryOneIsReturnedAndNothingLeaks) {
  for (const Control& control : {kGradient, kCurve}) {
    FakeHost clean;
    ASSERT_EQ(DrawFailing(clean, control, 0, false), PF_Err_NONE);
    ASSERT_GT(clean.countedCalls, 100);
    for (int n = 1; n <= clean.countedCalls; ++n) {
      FakeHost host;
      const PF_Err error = DrawFailing(host, control, n, false);
      ASSERT_EQ(error, n <= kAcquisitions ? PF_Err_BAD_CALLBACK_PARAM : kInjectedError) << n;
      ASSERT_EQ(host.Imbalance(), "") << n;
    }
  }
}

TEST(FailingCalls, NothingIsDrawnAfterOne) {
  // The pen of the outline, after cells and columns: only suites are released from there on.
  FakeHost host;
  const int pen = 4 + 4 + 39 * 4 + 192 + 1;
  DrawFailing(host, kGradient, pen, false);
  const int failed = Find(host, "pen1 = new pen");
  ASSERT_GE(failed, 0);
  for (size_t i = static_cast<size_t>(failed) + 1; i < host.calls.size(); ++i) {
    EXPECT_EQ(host.calls[i].rfind("release DRAWBOT", 0), 0u) << host.calls[i];
  }
  EXPECT_EQ(host.calls.size(), static_cast<size_t>(failed) + 5);
}

// A call of the host that claims success and makes nothing.
TEST(FailingCalls, ObjectsThatAreNotMadeAreAnError) {
  for (const Control& control : {kGradient, kCurve}) {
    FakeHost clean;
    DrawFailing(clean, control, 0, false);
    for (int n = 1; n <= clean.countedCalls; ++n) {
      const std::string& call = clean.counted[static_cast<size_t>(n - 1)];
      PF_Err expected = PF_Err_NONE;
      if (call.find(" = new ") != std::string::npos) expected = PF_Err_OUT_OF_MEMORY;
      if (call.rfind("acquire", 0) == 0) expected = PF_Err_BAD_CALLBACK_PARAM;

      FakeHost host;
      ASSERT_EQ(DrawFailing(host, control, n, true), expected) << call;
      ASSERT_EQ(host.Imbalance(), "") << call;
    }
  }
}

TEST(FailingCalls, MissingSuitesAreReported) {
  for (const char* name : {"DRAWBOT Draw Suite", "DRAWBOT Supplier Suite", "DRAWBOT Surface Suite",
                           "DRAWBOT Path Suite", "PF Effect Custom UI Suite"}) {
    FakeHost host;
    host.hiddenSuite = name;
    EXPECT_EQ(DrawFailing(host, kCurve, 0, false), PF_Err_BAD_CALLBACK_PARAM) << name;
    EXPECT_STREQ(host.outData.return_msg, "Not able to acquire AEFX Suite.");
    EXPECT_EQ(host.outData.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
    EXPECT_TRUE(host.drawn.empty());
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST(NothingToDrawOn, IsNoError) {
  FakeHost host;
  host.nullReference = true;
  EXPECT_EQ(DrawFailing(host, kGradient, 0, false), PF_Err_NONE);
  EXPECT_TRUE(host.drawn.empty());
  EXPECT_EQ(host.Imbalance(), "");
}

TEST(NothingToDrawOn, WhenTheHostForbidsDrawing) {
  FakeHost host;
  host.extra.evt_in_flags = PF_EI_DONT_DRAW;
  EXPECT_EQ(DrawFailing(host, kGradient, 0, false), PF_Err_NONE);
  EXPECT_TRUE(host.calls.empty());
  EXPECT_EQ(host.extra.evt_out_flags, PF_EO_NONE);
}

}  // namespace
}  // namespace vantle::test
