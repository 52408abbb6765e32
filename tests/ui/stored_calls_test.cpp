// What the editors draw, call by call, as it is stored in expected/.
#include "particles/custom_values.h"
#include "tests/ui/fake_drawbot.h"
#include "ui/editor_events.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>

namespace vantle::test {
namespace {

// On a difference the whole list is written to the temporary folder, to be looked at and put in the old one's
// place when it is right.
void ExpectStoredCalls(const FakeHost& host, const std::string& name) {
  std::ifstream file(std::string(EXPECTED_CALLS_FOLDER) + "/" + name);
  std::vector<std::string> expected;
  for (std::string line; std::getline(file, line);) expected.push_back(line);
  if (expected == host.calls) return;

  std::ofstream actual(testing::TempDir() + "/" + name);
  for (const std::string& call : host.calls) actual << call << "\n";
  ASSERT_EQ(expected.size(), host.calls.size()) << name;
  for (size_t i = 0; i < expected.size(); ++i)
    ASSERT_EQ(expected[i], host.calls[i]) << name << " line " << i + 1;
}

template <typename Record>
void ExpectDrawnAsStored(int index, int height, const Record& record, const std::string& name) {
  FakeHost host;
  host.SetValue(index, record);
  host.extra.effect_win.current_frame = {0, 0, 200, height};
  EXPECT_EQ(host.Send(PF_Event_DRAW, index), PF_Err_NONE);
  EXPECT_EQ(host.extra.evt_out_flags, PF_EO_HANDLED_EVENT);
  EXPECT_EQ(host.Imbalance(), "");
  ExpectStoredCalls(host, name);
}

TEST(StoredCalls, OfTheDefaultGradient) {
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  ExpectDrawnAsStored(kColorGradientControl, 40, gradient, "gradient_200x40.txt");
}

// Two of them on one place, and the last but one selected.
TEST(StoredCalls, OfAGradientOfEightStops) {
  const ColorGradient gradient = {.tag = 1,
                                  .count = 8,
                                  .stops = {{0.0f, 1.0f, 0.0f, 0.0f},
                                            {0.125f, 1.0f, 0.5f, 0.0f},
                                            {0.25f, 1.0f, 1.0f, 0.0f},
                                            {0.25f, 0.0f, 1.0f, 0.0f},
                                            {0.5f, 0.0f, 1.0f, 1.0f},
                                            {0.6875f, 0.0f, 0.0f, 1.0f},
                                            {0.875f, 0.5f, 0.0f, 1.0f},
                                            {1.0f, 1.0f, 0.0f, 1.0f}},
                                  .selected = 6};
  ExpectDrawnAsStored(kColorGradientControl, 40, gradient, "gradient_eight_200x40.txt");
}

TEST(StoredCalls, OfTheDefaultCurve) {
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, 2.0f);
  ExpectDrawnAsStored(kScaleOverLifeControl, 140, curve, "curve_200x140.txt");
}

// Swings above its range and below zero between the points.
TEST(StoredCalls, OfACurveOfFivePoints) {
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, 2.0f);
  curve.count = 5;
  const float x[] = {0.0f, 0.25f, 0.5f, 0.8125f, 1.0f};
  const float y[] = {0.0f, 2.0f, 1.875f, 0.0f, 0.125f};
  std::copy(x, x + 5, curve.x);
  std::copy(y, y + 5, curve.y);
  ExpectDrawnAsStored(kScaleOverLifeControl, 140, curve, "curve_five_200x140.txt");
}

}  // namespace
}  // namespace vantle::test
