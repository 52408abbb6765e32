#include "host/panel/value_labels.h"
#include "host/scene/timeline.h"
#include "tests/panel/real_panel.h"

#include <set>

namespace vantle::panel {
namespace {

TEST(PanelLayout, EveryParameterButGroupEndsHasOneRowBelowTheOther) {
  const auto effect = OpenVantle();
  const PanelLayout layout = LayOutPanel(effect->params);
  std::set<int> shown;
  int bottom = kTitleHeight;
  for (const PanelRow& row : layout.rows) {
    EXPECT_TRUE(shown.insert(row.param).second) << row.param;
    EXPECT_GE(row.row.top, bottom);
    EXPECT_EQ(row.row.width, layout.width);
    bottom = row.row.top + row.row.height;
    if (row.frame.width == 0) continue;
    EXPECT_GE(row.frame.top, bottom);
    EXPECT_LE(row.frame.left + row.frame.width, layout.width);
    bottom = row.frame.top + row.frame.height;
  }
  EXPECT_LE(bottom, layout.height);
  for (size_t i = 1; i < effect->params.size(); ++i)
    EXPECT_EQ(shown.count(static_cast<int>(i)),
              effect->params[i].def.param_type == PF_Param_GROUP_END ? 0u : 1u);
}

TEST(PanelLayout, CustomControlsHaveTheirDeclaredSizes) {
  const auto effect = OpenVantle();
  const PanelLayout layout = LayOutPanel(effect->params);
  int own = 0;
  for (const PanelRow& row : layout.rows) own += row.frame.width > 0 ? 1 : 0;
  EXPECT_EQ(own, 3);
  for (const int param : kCustomControls) {
    EXPECT_EQ(FindRow(layout, param)->frame.width, 200);
    EXPECT_EQ(FindRow(layout, param)->frame.height, param == kGradient ? 40 : 140);
  }
  EXPECT_EQ(FindRow(layout, 0), nullptr);
  EXPECT_EQ(FindRow(layout, 9999), nullptr);
}

TEST(PanelLayout, HiddenParametersHaveNoRow) {
  std::vector<host::DeclaredParam> params(4);
  for (host::DeclaredParam& param : params) param.def.param_type = PF_Param_FLOAT_SLIDER;
  params[1].def.ui_flags = PF_PUI_NO_ECW_UI;
  params[2].def.ui_flags = PF_PUI_INVISIBLE;
  const PanelLayout layout = LayOutPanel(params);
  ASSERT_EQ(layout.rows.size(), 1u);
  EXPECT_EQ(layout.rows[0].param, 3);
}

host::DeclaredParam Slider(int precision, bool percent) {
  host::DeclaredParam param;
  param.def.param_type = PF_Param_FLOAT_SLIDER;
  param.def.u.fs_d.precision = static_cast<A_short>(precision);
  param.def.u.fs_d.display_flags = percent ? PF_ValueDisplayFlag_PERCENT : PF_ValueDisplayFlag_NONE;
  param.def.u.fs_d.slider_min = -100;
  param.def.u.fs_d.slider_max = 300;
  param.def.u.fs_d.dephault = 20;
  return param;
}

std::string Label(const host::DeclaredParam& param, const host::ParamValue& value) {
  return ValueLabel(param, &value);
}

TEST(ValueLabels, SlidersShowTheirDecimals) {
  EXPECT_EQ(Label(Slider(1, true), 59.96), "60.0 %");
  EXPECT_EQ(Label(Slider(0, false), 20000.0), "20000");
  EXPECT_EQ(Label(Slider(2, false), -0.004), "0.00");
  EXPECT_EQ(Label(Slider(2, false), -0.006), "-0.01");
  EXPECT_EQ(ValueLabel(Slider(1, false), nullptr), "20.0");
}

TEST(ValueLabels, AnglesShowTurnsAndDegrees) {
  host::DeclaredParam angle;
  angle.def.param_type = PF_Param_ANGLE;
  const std::pair<double, const char*> known[] = {
      {0, "0x+0.0°"},      {40, "0x+40.0°"},      {-40, "0x-40.0°"},   {360, "1x+0.0°"},
      {370.5, "1x+10.5°"}, {-370.5, "-1x-10.5°"}, {359.97, "1x+0.0°"}, {-0.01, "0x+0.0°"}};
  for (const auto& [degrees, text] : known) EXPECT_EQ(Label(angle, scene::FixedDegrees(degrees)), text);
}

TEST(ValueLabels, ChoicesAndBoxes) {
  host::DeclaredParam popup;
  popup.def.param_type = PF_Param_POPUP;
  popup.choices = "One|Two";
  EXPECT_EQ(Label(popup, A_long{2}), "Two");
  EXPECT_EQ(Label(popup, A_long{3}), "?");
  host::DeclaredParam box;
  box.def.param_type = PF_Param_CHECKBOX;
  box.def.u.bd.dephault = 1;
  EXPECT_EQ(ValueLabel(box, nullptr), "On");
  EXPECT_EQ(Label(box, A_long{0}), "Off");
}

TEST(ValueLabels, KnobsStayOnTheirTracks) {
  const auto at = [](double number) {
    const host::ParamValue value = number;
    return GaugePosition(Slider(0, false), &value);
  };
  EXPECT_EQ(at(-100), 0.0);
  EXPECT_EQ(at(0), 0.25);
  EXPECT_EQ(at(300), 1.0);
  EXPECT_EQ(at(1e9), 1.0);
  EXPECT_EQ(at(-1e9), 0.0);
  host::DeclaredParam noTrack = Slider(0, false);
  noTrack.def.u.fs_d.slider_min = noTrack.def.u.fs_d.slider_max;
  EXPECT_EQ(GaugePosition(noTrack, nullptr), 0.0);
}

}  // namespace
}  // namespace vantle::panel
