// The real effect, loaded as hosts load it, and panels of it.
#pragma once

#include "host/panel/panel.h"
#include "host/panel/script_player.h"
#include "host/scene/scene_json.h"
#include "particles/custom_values.h"
#include "tests/cli/scratch.h"

#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace vantle::panel {

inline constexpr int kScaleCurve = 28;
inline constexpr int kGradient = 36;
inline constexpr int kOpacityCurve = 40;
inline constexpr int kCustomControls[] = {kScaleCurve, kGradient, kOpacityCurve};

std::unique_ptr<host::EffectInstance> OpenVantle();

/// A scene file with these "parameters".
std::string SceneText(const std::string& parameters);

/// A panel of the real effect over a scene in a folder of its own.
struct RealPanel {
  test::Scratch scratch;
  std::string file;
  scene::Scene scene;
  std::unique_ptr<host::EffectInstance> effect = OpenVantle();
  Panel panel;
  std::vector<std::string> warnings;

  explicit RealPanel(const std::string& parameters = "{}", const PanelOptions& options = {});
  ~RealPanel();
  RealPanel(const RealPanel&) = delete;
  RealPanel& operator=(const RealPanel&) = delete;

  /// Plays one event of a script, given as JSON.
  ActionResult Play(const std::string& event);

  template <typename Record>
  Record Value(int param) const {
    Record record{};
    const ValueBytes& bytes = CurrentValue(panel, param);
    EXPECT_EQ(bytes.size(), sizeof record);
    std::memcpy(&record, bytes.data(), std::min(bytes.size(), sizeof record));
    return record;
  }
  ColorGradient Gradient() const { return Value<ColorGradient>(kGradient); }
};

/// One DRAW event of a control that lies anywhere, of any size.
struct DrawnControl {
  host::FrameResult result;
  bool handled = false;
  std::vector<std::string> calls;
  host::DrawList list;
};
DrawnControl DrawAt(host::EffectInstance& effect, int param, const Rect& frame,
                    const host::FrameRequest& request = {});

template <typename Record>
ValueBytes BytesOf(const Record& record) {
  ValueBytes bytes(sizeof record);
  std::memcpy(bytes.data(), &record, sizeof record);
  return bytes;
}

/// Eight stops, the third selected; a curve with five points that overshoots.
ColorGradient EightStops();
LifeCurve FivePoints();

}  // namespace vantle::panel
