// What projects store: the whole declaration, compared with the one on file.
#include "shell/dispatch.h"
#include "shell/parameter_table.h"
#include "tests/shell/fake_host.h"

#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <locale>
#include <set>
#include <sstream>
#include <string>

namespace vantle::test {
namespace {

PF_Err Declare(FakeHost* host) {
  return DispatchCommand(PF_Cmd_PARAMS_SETUP, &host->in, &host->out, nullptr, nullptr, nullptr);
}

std::string Hex(uint64_t value) {
  std::ostringstream text;
  text << "0x" << std::hex << std::uppercase << value;
  return text.str();
}

std::string DumpGradient(const ColorGradient& gradient) {
  std::ostringstream text;
  text << "gradient tag=" << gradient.tag << " count=" << gradient.count << " selected=" << gradient.selected;
  for (const GradientStop& stop : gradient.stops) {
    text << " (" << stop.position << ' ' << stop.r << ' ' << stop.g << ' ' << stop.b << ')';
  }
  return text.str();
}

template <size_t kSize>
std::string DumpArray(const char* name, const float (&values)[kSize]) {
  size_t used = kSize;
  while (used > 0 && values[used - 1] == 0.0f) --used;
  std::ostringstream text;
  text << ' ' << name << "=(";
  for (size_t i = 0; i < used; ++i) text << values[i] << ' ';
  text << kSize - used << " zeros)";
  return text.str();
}

std::string DumpCurve(const LifeCurve& curve) {
  std::ostringstream text;
  text << "curve tag=" << curve.tag << " maximum=" << curve.maximum << " count=" << curve.count;
  return text.str() + DumpArray("x", curve.x) + DumpArray("y", curve.y) + DumpArray("extra1", curve.extra1) +
         DumpArray("extra2", curve.extra2);
}

std::string DumpHandle(PF_Handle handle) {
  if (handle == nullptr) return "none";
  const PF_UtilCallbacks* host = FakeHost::Current()->in.utils;
  const size_t size = host->host_get_handle_size(handle);
  const void* bytes = host->host_lock_handle(handle);
  std::string text = std::to_string(size) + " bytes: ";
  if (size == sizeof(ColorGradient)) {
    ColorGradient gradient;
    std::memcpy(&gradient, bytes, sizeof(gradient));
    text += DumpGradient(gradient);
  } else {
    LifeCurve curve;
    std::memcpy(&curve, bytes, sizeof(curve));
    text += DumpCurve(curve);
  }
  host->host_unlock_handle(handle);
  return text;
}

// The members that a type of parameter uses; they are zeroed in `rest` so that what remains can be checked.
std::string DumpUnion(const PF_ParamDef& def, PF_ParamDef* rest) {
  std::ostringstream text;
  switch (def.param_type) {
    case PF_Param_LAYER:
      text << "default=" << def.u.ld.dephault;
      rest->u.ld.dephault = 0;
      break;
    case PF_Param_FLOAT_SLIDER: {
      const PF_FloatSliderDef& s = def.u.fs_d;
      text << "value=" << s.value << " default=" << s.dephault << " valid=" << s.valid_min << ".."
           << s.valid_max << " slider=" << s.slider_min << ".." << s.slider_max
           << " precision=" << s.precision << " display=" << s.display_flags
           << " tolerance=" << s.curve_tolerance << " phase=" << s.phase << " fs_flags=" << s.fs_flags
           << " exponent=" << int{s.useExponent} << '/' << s.exponent;
      std::memset(&rest->u.fs_d, 0, offsetof(PF_FloatSliderDef, value_desc));
      std::memset(reinterpret_cast<char*>(&rest->u.fs_d) + offsetof(PF_FloatSliderDef, valid_min), 0,
                  sizeof(s) - offsetof(PF_FloatSliderDef, valid_min));
      break;
    }
    case PF_Param_ANGLE:
      text << "value=" << def.u.ad.value << " default=" << def.u.ad.dephault
           << " valid=" << def.u.ad.valid_min << ".." << def.u.ad.valid_max;
      break;
    case PF_Param_CHECKBOX:
      text << "value=" << def.u.bd.value << " default=" << int{def.u.bd.dephault} << " label=\""
           << def.u.bd.u.nameptr << '"';
      rest->u.bd = {};
      break;
    case PF_Param_POPUP:
      text << "value=" << def.u.pd.value << " default=" << def.u.pd.dephault
           << " choices=" << def.u.pd.num_choices << " \"" << def.u.pd.u.namesptr << '"';
      rest->u.pd = {};
      break;
    case PF_Param_ARBITRARY_DATA:
      text << "id=" << def.u.arb_d.id << " tag=" << Hex(reinterpret_cast<uintptr_t>(def.u.arb_d.refconPV))
           << " value=" << DumpHandle(def.u.arb_d.value) << " default=" << DumpHandle(def.u.arb_d.dephault);
      rest->u.arb_d.id = 0;
      rest->u.arb_d.refconPV = nullptr;
      rest->u.arb_d.dephault = nullptr;
      break;
    case PF_Param_BUTTON:
      text << "value=" << def.u.button_d.value << " label=\"" << def.u.button_d.u.namesptr << '"';
      rest->u.button_d.u.namesptr = nullptr;
      break;
    default:
      break;
  }
  return text.str();
}

const char* TypeName(PF_ParamType type) {
  switch (type) {
    case PF_Param_LAYER:
      return "layer";
    case PF_Param_FLOAT_SLIDER:
      return "float slider";
    case PF_Param_ANGLE:
      return "angle";
    case PF_Param_CHECKBOX:
      return "check box";
    case PF_Param_POPUP:
      return "popup";
    case PF_Param_ARBITRARY_DATA:
      return "arbitrary data";
    case PF_Param_GROUP_START:
      return "group start";
    case PF_Param_GROUP_END:
      return "group end";
    case PF_Param_BUTTON:
      return "button";
    default:
      return "unexpected";
  }
}

std::string DumpParameter(size_t index, const PF_ParamDef& def) {
  PF_ParamDef rest;
  std::memcpy(&rest, &def, sizeof(rest));
  std::ostringstream text;
  text << index << " id=" << def.uu.id << " \"" << def.name << "\" " << TypeName(def.param_type) << '('
       << def.param_type << ") flags=" << def.flags << " ui_flags=" << def.ui_flags
       << " control=" << def.ui_width << 'x' << def.ui_height;
  const std::string members = DumpUnion(def, &rest);
  if (!members.empty()) text << " | " << members;
  std::memset(&rest, 0, offsetof(PF_ParamDef, unused));
  const PF_ParamDef zero{};
  if (std::memcmp(&rest.unused, &zero.unused, sizeof(rest) - offsetof(PF_ParamDef, unused)) != 0) {
    text << " | OTHER BYTES NOT ZERO";
  }
  return text.str();
}

std::string DumpDeclaration(const FakeHost& host) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << "num_params=" << host.out.num_params << '\n';
  for (const PF_CustomUIInfo& ui : host.registeredUi) {
    text << "custom ui events=" << ui.events << " comp=" << ui.comp_ui_width << 'x' << ui.comp_ui_height
         << '/' << ui.comp_ui_alignment << " layer=" << ui.layer_ui_width << 'x' << ui.layer_ui_height << '/'
         << ui.layer_ui_alignment << " preview=" << ui.preview_ui_width << 'x' << ui.preview_ui_height << '/'
         << ui.preview_ui_alignment << " reserved=" << ui.reserved << '\n';
  }
  for (size_t i = 0; i < host.declared.size(); ++i) text << DumpParameter(i + 1, host.declared[i]) << '\n';
  return text.str();
}

TEST(Parameters, TheDeclarationIsTheOneOnFile) {
  FakeHost host;
  ASSERT_EQ(Declare(&host), PF_Err_NONE);
  const std::string now = DumpDeclaration(host);
  std::ifstream file(VANTLE_PARAMETER_DUMP);
  const std::string stored((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (now == stored) return;
  std::istringstream a(stored);
  std::istringstream b(now);
  std::string old;
  std::string fresh;
  while (std::getline(a, old) && std::getline(b, fresh) && old == fresh) {
  }
  FAIL() << "Projects store what is declared here, so a change breaks them. First difference:\n  on file: "
         << old << "\n  now:     " << fresh << "\nWhole new dump:\n"
         << now;
}

TEST(Parameters, SetUpTwiceDeclaresTheSameTwice) {
  FakeHost host;
  ASSERT_EQ(Declare(&host), PF_Err_NONE);
  const std::string first = DumpDeclaration(host);
  host.DisposeOwned();
  host.declared.clear();
  host.registeredUi.clear();
  ASSERT_EQ(Declare(&host), PF_Err_NONE);
  EXPECT_EQ(DumpDeclaration(host), first);
}

TEST(Parameters, TheFirstRefusedParameterEndsTheSetUp) {
  for (int n = 1; n <= kParameterCount; ++n) {
    FakeHost host;
    host.failAddParamAt = n;
    const size_t before = host.HandleCount();
    EXPECT_EQ(Declare(&host), 777) << n;
    EXPECT_EQ(host.addParamCalls, n);
    EXPECT_EQ(host.out.num_params, 0);
    EXPECT_TRUE(host.registeredUi.empty());
    host.DisposeOwned();
    EXPECT_EQ(host.HandleCount(), before) << "a refused default leaks, parameter " << n;
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST(Parameters, ARefusedCustomUiIsReported) {
  FakeHost host;
  host.registerUiError = 31;
  EXPECT_EQ(Declare(&host), 31);
  EXPECT_EQ(host.declared.size(), 87u);
  EXPECT_EQ(host.out.num_params, 88);
}

TEST(Parameters, WithoutMemoryAControlIsDeclaredWithoutDefault) {
  const ParamId custom[] = {kParamScaleOverLife, kParamColorGradient, kParamOpacityOverLife};
  for (int n = 1; n <= 3; ++n) {
    for (const bool lockFails : {false, true}) {
      FakeHost host;
      const size_t before = host.HandleCount();
      (lockFails ? host.failLockAt : host.failHandleAt) = n;
      EXPECT_EQ(Declare(&host), PF_Err_NONE);
      ASSERT_EQ(host.declared.size(), 87u);
      for (int i = 0; i < 3; ++i) {
        const PF_ParamDef& def = host.declared[static_cast<size_t>(custom[i] - 1)];
        EXPECT_EQ(def.u.arb_d.dephault == nullptr, i == n - 1);
      }
      EXPECT_EQ(host.HandleCount(), before + 2);
      EXPECT_EQ(host.Imbalance(), "");
    }
  }
}

TEST(Parameters, HostsWithoutTheCallbacksGetAnError) {
  FakeHost host;
  host.in.inter.add_param = nullptr;
  EXPECT_EQ(Declare(&host), PF_Err_BAD_CALLBACK_PARAM);
  FakeHost other;
  other.in.inter.register_ui = nullptr;
  EXPECT_EQ(Declare(&other), PF_Err_BAD_CALLBACK_PARAM);
}

TEST(ParameterTable, IsConsistent) {
  int depth = 0;
  for (const ParameterInfo& info : kParameters) {
    SCOPED_TRACE(info.id);
    EXPECT_LE(std::strlen(info.name), 31u);
    if (info.type == ParamType::kGroupStart) ++depth;
    if (info.type == ParamType::kGroupEnd) --depth;
    EXPECT_TRUE(depth == 0 || depth == 1) << "groups are not nested";
    EXPECT_EQ(std::strlen(info.name) == 0, info.type == ParamType::kGroupEnd);
    EXPECT_EQ(std::strlen(info.help) == 0, info.type == ParamType::kGroupEnd);
    if (info.type == ParamType::kFloatSlider) {
      EXPECT_LE(info.valid.min, info.slider.min);
      EXPECT_LE(info.slider.max, info.valid.max);
      EXPECT_LE(info.slider.min, info.defaultValue);
      EXPECT_LE(info.defaultValue, info.slider.max);
    }
    if (info.type == ParamType::kPopup) {
      EXPECT_GE(info.defaultValue, 1);
      EXPECT_LE(info.defaultValue, ChoiceCount(info.text));
    }
  }
  EXPECT_EQ(depth, 0);
}

TEST(ParameterTable, ExceptionsAreDeliberate) {
  EXPECT_EQ(Parameter(kParamScatter).valid.max, 200.0f);
  EXPECT_EQ(Parameter(kParamScatter).slider.max, 100.0f);
  EXPECT_EQ(Parameter(kParamDensity).valid.min, 100.0f);
  EXPECT_EQ(Parameter(kParamLineWidthVariation).flags & kPercent, 0u);
  std::set<ParamId> notFirst;
  std::set<ParamId> on;
  for (const ParameterInfo& info : kParameters) {
    if (info.type == ParamType::kPopup && info.defaultValue != 1) notFirst.insert(info.id);
    if (info.type == ParamType::kCheckBox && info.defaultValue != 0) on.insert(info.id);
  }
  EXPECT_EQ(notFirst, (std::set<ParamId>{kParamShape, kParamColorMode}));
  EXPECT_EQ(on, (std::set<ParamId>{kParamRoundCap}));
  EXPECT_EQ(ChoiceCount(Parameter(kParamShape).text), 9);
  EXPECT_EQ(ChoiceCount(Parameter(kParamTimeType).text), 7);
  EXPECT_EQ(ChoiceCount(Parameter(kParamTransferMode).text), 8);
}

}  // namespace
}  // namespace vantle::test
