// What the effect draws through the host's suites is the stored list of calls, for values and sizes of any
// kind.
#include "tests/panel/real_panel.h"

#include <fstream>
#include <limits>

namespace vantle::panel {
namespace {

// The stored lists tell of suites besides; those the engine counts.
std::vector<std::string> StoredCalls(const std::string& name) {
  std::ifstream file(std::string(EXPECTED_CALLS_FOLDER) + "/" + name);
  std::vector<std::string> calls;
  for (std::string line; std::getline(file, line);)
    if (line.rfind("acquire ", 0) != 0 && line.find(" Suite ") == std::string::npos) calls.push_back(line);
  EXPECT_GT(calls.size(), 100u) << name;
  return calls;
}

TEST(CallList, BothKindsOfControlAreDrawnAsStored) {
  const auto effect = OpenVantle();
  const DrawnControl gradient = DrawAt(*effect, kGradient, {0, 0, 200, 40});
  EXPECT_TRUE(host::Succeeded(gradient.result));
  EXPECT_TRUE(gradient.handled);
  EXPECT_EQ(gradient.calls, StoredCalls("gradient_200x40.txt"));
  const DrawnControl curve = DrawAt(*effect, kScaleCurve, {0, 0, 200, 140});
  EXPECT_TRUE(host::Succeeded(curve.result));
  EXPECT_EQ(curve.calls, StoredCalls("curve_200x140.txt"));
}

TEST(CallList, ControlsOfAnySizeAreDrawnWithoutAProblem) {
  const auto effect = OpenVantle();
  for (const int param : kCustomControls) {
    for (const int width : {0, 1, 8, 9, 50, 200}) {
      for (const int height : {0, 1, 25, 26, 27, 140}) {
        const DrawnControl drawn = DrawAt(*effect, param, {10, 10, width, height});
        EXPECT_TRUE(host::Succeeded(drawn.result)) << param << " " << width << "x" << height;
      }
    }
  }
}

TEST(CallList, HostileValuesAreDrawnWithoutAProblem) {
  const auto effect = OpenVantle();
  const float oddities[] = {0.0f, -1.0f, 1e30f, std::numeric_limits<float>::quiet_NaN(),
                            std::numeric_limits<float>::infinity()};
  for (const float odd : oddities) {
    for (const int count : {-5, 0, 1, 8, 99}) {
      ColorGradient gradient = EightStops();
      gradient.count = count;
      gradient.selected = count;
      gradient.stops[1] = {odd, odd, odd, odd};
      LifeCurve curve = FivePoints();
      curve.count = count;
      curve.maximum = odd;
      curve.x[1] = curve.y[2] = odd;
      host::FrameRequest request;
      request.values[kGradient] = host::CustomBytes{BytesOf(gradient)};
      request.values[kOpacityCurve] = host::CustomBytes{BytesOf(curve)};
      for (const int param : {kGradient, kOpacityCurve}) {
        const DrawnControl drawn =
            DrawAt(*effect, param, {0, 0, 200, param == kGradient ? 40 : 140}, request);
        EXPECT_EQ(drawn.result.error, PF_Err_NONE) << odd << " " << count;
        for (const std::string& problem : drawn.result.problems) ADD_FAILURE() << problem << " " << odd;
      }
    }
  }
}

}  // namespace
}  // namespace vantle::panel
