// Seeded random mice over the three controls: sound values are judged by the model after every event, hostile
// ones must only leave everything in balance.
#include "tests/ui/editing_model.h"
#include "tests/ui/fake_drawbot.h"
#include "ui/editor_events.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace vantle::test {
namespace {

using Random = std::mt19937;

int Between(Random& random, int low, int high) {
  return low + static_cast<int>(random() % static_cast<uint32_t>(high - low + 1));
}

bool OneIn(Random& random, int n) {
  return Between(random, 1, n) == 1;
}

Rectangle RandomFrame(Random& random, int height) {
  const int left = Between(random, -50, 400);
  const int top = Between(random, -50, 900);
  const int width = OneIn(random, 4) ? Between(random, 60, 400) : 200;
  return {left, top, left + width, top + (OneIn(random, 4) ? Between(random, 40, 200) : height)};
}

// Near something (given as x and y) more often than not.
Press RandomPress(Random& random, const Rectangle& frame, const std::vector<std::pair<int, int>>& targets) {
  Press press;
  if (!targets.empty() && !OneIn(random, 3)) {
    const auto& [x, y] = targets[random() % targets.size()];
    press.x = x + Between(random, -9, 9);
    press.y = y + Between(random, -9, 9);
  } else {
    press.x = Between(random, frame.left - 10, frame.right + 10);
    press.y = Between(random, frame.top - 10, frame.bottom + 10);
  }
  press.command = OneIn(random, 5);
  press.repeated = OneIn(random, 8);
  return press;
}

void SetFrame(FakeHost& host, const Rectangle& frame) {
  host.extra.effect_win.current_frame = {frame.left, frame.top, frame.right, frame.bottom};
}

// A click arrives with fresh words, a drag with those that the event before left.
void SetMouse(FakeHost& host, const Press& press, bool fresh) {
  PF_DoClickEventInfo& info = host.extra.u.do_click;
  if (fresh) info = {};
  info.screen_point = {press.x, press.y};
  info.num_clicks = press.repeated ? 2 : 1;
  info.modifiers = press.command ? PF_Mod_CMD_CTRL_KEY : PF_Mod_NONE;
}

template <typename Record>
struct Session {
  FakeHost host;
  Random random;
  int index;
  int height;
  bool dragging = false;
  Rectangle frame = {};
  int drags = 0;
  int clicks = 0;
  int handledClicks = 0;

  explicit Session(uint32_t seed, int parameter, int controlHeight)
      : random(seed), index(parameter), height(controlHeight) {}
};

std::vector<std::pair<int, int>> Targets(const GradientModel& model, const Rectangle& frame) {
  std::vector<std::pair<int, int>> targets;
  for (const GradientStop& stop : model.stops) {
    const float width = static_cast<float>(frame.right - frame.left - 8);
    targets.emplace_back(frame.left + 4 + static_cast<int>(stop.position * width), frame.top + 30);
  }
  return targets;
}

std::vector<std::pair<int, int>> Targets(const CurveModel& model, const Rectangle& frame) {
  std::vector<std::pair<int, int>> targets = {{frame.right - 25, frame.bottom - 12}};
  if (model.points.size() < 14) targets.clear();  // the button only when the curve is nearly full
  for (const CurveModelPoint& point : model.points) {
    const float width = static_cast<float>(frame.right - frame.left - 8);
    const float drop = 1.0f - std::clamp(point.y / model.maximum, 0.0f, 1.0f);
    targets.emplace_back(
        frame.left + 4 + static_cast<int>(point.x * width),
        frame.top + 4 + static_cast<int>(drop * static_cast<float>(frame.bottom - frame.top - 26)));
  }
  return targets;
}

Outcome DragModel(GradientModel& model, const Rectangle& frame, int index, const Press& press) {
  return model.Drag(frame, index, press.x);
}

Outcome DragModel(CurveModel& model, const Rectangle& frame, int index, const Press& press) {
  return model.Drag(frame, index, press.x, press.y);
}

void RecolourModel(GradientModel& model, const PickerAnswer& answer) {
  GradientStop& stop = model.stops[static_cast<size_t>(model.selected)];
  stop = {stop.position, answer.red, answer.green, answer.blue};
}

void RecolourModel(CurveModel&, const PickerAnswer&) {
  FAIL() << "curves have no colours";
}

// The rules that no edit may break, whatever the model says.
void CheckInvariants(const ColorGradient& before, const ColorGradient& after) {
  ASSERT_GE(after.count, 2);
  ASSERT_LE(after.count, kMaxGradientStops);
  ASSERT_GE(after.selected, -1);
  ASSERT_LT(after.selected, after.count);
  for (int32_t i = 1; i < after.count; ++i) ASSERT_LE(after.stops[i - 1].position, after.stops[i].position);
  ASSERT_LE(std::abs(after.count - before.count), 1);
}

void CheckInvariants(const LifeCurve& before, const LifeCurve& after) {
  ASSERT_GE(after.count, 2);
  ASSERT_LE(after.count, kMaxCurvePoints);
  const bool deleted = after.count == before.count - 1 && before.count > 3;
  if (deleted) {
    ASSERT_EQ(after.x[0], before.x[0]);
    ASSERT_EQ(after.y[0], before.y[0]);
    ASSERT_EQ(after.x[after.count - 1], before.x[before.count - 1]);
    ASSERT_EQ(after.y[after.count - 1], before.y[before.count - 1]);
  }
  for (int32_t i = 0; i < after.count; ++i) {
    ASSERT_GE(after.y[i], 0.0f);
    ASSERT_LE(after.y[i], after.maximum);
  }
}

void CheckHost(FakeHost& host, int index, const Outcome& expected) {
  ASSERT_EQ(host.extra.evt_out_flags, expected.handled ? PF_EO_HANDLED_EVENT : PF_EO_NONE);
  ASSERT_EQ(host.Param(index).uu.change_flags, expected.changed ? PF_ChangeFlag_CHANGED_VALUE : 0);
  ASSERT_EQ(host.Imbalance(), "");
  ASSERT_TRUE(host.messages.empty());
}

template <typename Record, typename Model>
void StepClick(Session<Record>& session, Model& model) {
  FakeHost& host = session.host;
  session.frame = RandomFrame(session.random, session.height);
  const Press press = RandomPress(session.random, session.frame, Targets(model, session.frame));
  SetMouse(host, press, true);

  PickerAnswer answer;
  answer.error = OneIn(session.random, 3) ? PF_Interrupt_CANCEL : PF_Err_NONE;
  answer.red = static_cast<float>(Between(session.random, 0, 255)) / 255.0f;
  host.pickerAnswers = {answer};

  const Outcome expected = model.Click(session.frame, press);
  if (expected.asksColor && answer.error == PF_Err_NONE) RecolourModel(model, answer);
  SetFrame(host, session.frame);
  ASSERT_EQ(host.Send(PF_Event_DO_CLICK, session.index), PF_Err_NONE);

  ASSERT_EQ(host.pickerAnswers.empty(), expected.asksColor);
  ASSERT_EQ(host.extra.u.do_click.send_drag != 0, expected.drag >= 0);
  if (expected.drag >= 0) {
    ASSERT_EQ(host.extra.u.do_click.continue_refcon[0], expected.drag);
  }
  session.dragging = expected.drag >= 0;
  ++session.clicks;
  session.handledClicks += expected.handled ? 1 : 0;
  CheckHost(host, session.index, expected);
}

template <typename Record, typename Model>
void StepDrag(Session<Record>& session, Model& model) {
  FakeHost& host = session.host;
  const Press press = RandomPress(session.random, session.frame, Targets(model, session.frame));
  SetMouse(host, press, false);
  PF_DoClickEventInfo& info = host.extra.u.do_click;
  if (!session.dragging) info.continue_refcon[0] = Between(session.random, -2, 20);
  info.last_time = OneIn(session.random, 6) ? 1 : 0;

  const int dragged = static_cast<int>(info.continue_refcon[0]);
  const Outcome expected = DragModel(model, session.frame, dragged, press);
  SetFrame(host, session.frame);
  ASSERT_EQ(host.Send(PF_Event_DRAG, session.index), PF_Err_NONE);
  if (expected.handled) {
    ASSERT_EQ(info.continue_refcon[0], expected.drag);
    ++session.drags;
  }
  if (info.last_time) session.dragging = false;
  CheckHost(host, session.index, expected);
}

template <typename Record>
void PlayAgainstModel(Session<Record>& session, const Record& start, int events) {
  FakeHost& host = session.host;
  host.SetValue(session.index, start);
  auto model = ModelOf(start);
  session.frame = RandomFrame(session.random, session.height);

  for (int event = 0; event < events; ++event) {
    SCOPED_TRACE(event);
    const Record before = host.Value<Record>(session.index);
    host.Param(session.index).uu.change_flags = 0;
    if (session.dragging ? !OneIn(session.random, 20) : OneIn(session.random, 10)) {
      StepDrag(session, model);
    } else {
      StepClick(session, model);
    }
    if (testing::Test::HasFatalFailure()) return;
    const Record after = host.Value<Record>(session.index);
    ASSERT_EQ(model.Difference(after), "");
    CheckInvariants(before, after);
    if (testing::Test::HasFatalFailure()) return;
  }
}

TEST(RandomEditing, FortyThousandEventsOnAGradient) {
  Session<ColorGradient> session(1, kColorGradientControl, 40);
  ColorGradient start;
  MakeDefaultGradient(&start);
  PlayAgainstModel(session, start, 40000);
  EXPECT_GT(session.drags, 10000);
  EXPECT_GT(session.handledClicks, 5000);
  EXPECT_LT(session.handledClicks, session.clicks);
}

TEST(RandomEditing, SixtyThousandEventsOnCurves) {
  Session<LifeCurve> scale(2, kScaleOverLifeControl, 140);
  LifeCurve start;
  MakeDefaultLifeCurve(&start, 2.0f);
  PlayAgainstModel(scale, start, 30000);
  EXPECT_GT(scale.drags, 10000);

  Session<LifeCurve> opacity(3, kOpacityOverLifeControl, 140);
  MakeDefaultLifeCurve(&start, 1.0f);
  PlayAgainstModel(opacity, start, 30000);
  EXPECT_GT(opacity.drags, 10000);
}

// ---- Hostile values ----

float HostileFloat(Random& random) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const float odd[] = {std::numeric_limits<float>::quiet_NaN(),
                       kInfinity,
                       -kInfinity,
                       0.0f,
                       -0.0f,
                       1.0f,
                       1e30f,
                       -1e30f,
                       1e-40f,
                       0.5f};
  if (OneIn(random, 2)) return odd[random() % std::size(odd)];
  return static_cast<float>(Between(random, -100, 200)) / 100.0f;
}

int32_t HostileCount(Random& random) {
  if (OneIn(random, 4)) return static_cast<int32_t>(random());
  return Between(random, -2, 18);
}

void MakeHostile(Random& random, ColorGradient* gradient) {
  gradient->count = HostileCount(random);
  gradient->selected = HostileCount(random);
  for (GradientStop& stop : gradient->stops) {
    stop = {HostileFloat(random), HostileFloat(random), HostileFloat(random), HostileFloat(random)};
  }
}

void MakeHostile(Random& random, LifeCurve* curve) {
  curve->count = HostileCount(random);
  curve->maximum = HostileFloat(random);
  for (int32_t i = 0; i < kMaxCurvePoints; ++i) {
    curve->x[i] = HostileFloat(random);
    curve->y[i] = HostileFloat(random);
  }
}

Rectangle AnyFrame(Random& random) {
  const int left = Between(random, -20, 20);
  const int top = Between(random, -20, 20);
  return {left, top, left + Between(random, -5, 220), top + Between(random, -5, 150)};
}

// Everything drawn is finite and within the frame, but for the half pixel by which the curve is moved.
void CheckDrawn(const FakeHost& host, const Rectangle& frame) {
  for (const DrawnPoint& point : host.drawn) {
    ASSERT_GE(point.x, static_cast<float>(frame.left));
    ASSERT_LE(point.x, static_cast<float>(frame.right) + 0.5f);
    ASSERT_GE(point.y, static_cast<float>(frame.top));
    ASSERT_LE(point.y, static_cast<float>(frame.bottom) + 0.5f);
  }
}

template <typename Record>
void PlayHostile(uint32_t seed, int index, int events) {
  FakeHost host;
  Random random(seed);
  for (int event = 0; event < events; ++event) {
    SCOPED_TRACE(event);
    if (event % 20 == 0) {
      Record record = {};
      MakeHostile(random, &record);
      host.handles.clear();
      host.SetValue(index, record);
    }
    const Rectangle frame = AnyFrame(random);
    SetFrame(host, frame);
    Press press = RandomPress(random, frame, {});
    SetMouse(host, press, true);
    host.extra.u.do_click.continue_refcon[0] = Between(random, -3, 20);
    host.pickerAnswers = {{.red = 0.5f}};
    host.drawn.clear();
    host.calls.clear();

    const PF_EventType types[] = {PF_Event_DRAW, PF_Event_DO_CLICK, PF_Event_DRAG};
    ASSERT_EQ(host.Send(types[random() % 3], index), PF_Err_NONE);
    ASSERT_EQ(host.Imbalance(), "");
    CheckDrawn(host, frame);
    if (testing::Test::HasFatalFailure()) return;
  }
}

TEST(RandomEditing, HostileGradientsStayInBalanceAndInsideTheControl) {
  PlayHostile<ColorGradient>(4, kColorGradientControl, 5000);
}

TEST(RandomEditing, HostileCurvesStayInBalanceAndInsideTheControl) {
  PlayHostile<LifeCurve>(5, kScaleOverLifeControl, 5000);
}

}  // namespace
}  // namespace vantle::test
