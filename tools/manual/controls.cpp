// Prints the reference of docs/manual.md, every control with its default and range, from the parameter table.
#include "shell/parameter_table.h"

#include <cstdio>
#include <string>

namespace {

using vantle::ParameterInfo;
using vantle::ParamType;

std::string Number(double value, const ParameterInfo& info) {
  char text[32];
  std::snprintf(text, sizeof text, "%g%s", value, (info.flags & vantle::kPercent) != 0 ? " %" : "");
  return text;
}

std::string Choice(const char* choices, int index) {
  std::string text = choices;
  for (; index > 1; --index) text.erase(0, text.find('|') + 1);
  return text.substr(0, text.find('|'));
}

std::string Default(const ParameterInfo& info) {
  switch (info.type) {
    case ParamType::kLayer:
      return info.defaultValue > 0 ? "the effect's own layer" : "none";
    case ParamType::kFloatSlider:
      return Number(info.defaultValue, info);
    case ParamType::kAngle:
      return "0°";
    case ParamType::kCheckBox:
      return info.defaultValue > 0 ? "on" : "off";
    case ParamType::kPopup:
      return Choice(info.text, static_cast<int>(info.defaultValue));
    case ParamType::kCustomValue:
      return info.customTag == vantle::kGradientTag ? "yellow, cyan, pink" : "flat, 100 %";
    default:
      return "";
  }
}

std::string Commas(const char* choices) {
  std::string text;
  for (; *choices != '\0'; ++choices) text += *choices == '|' ? ", " : std::string(1, *choices);
  return text;
}

std::string Values(const ParameterInfo& info) {
  switch (info.type) {
    case ParamType::kLayer:
      return "a layer";
    case ParamType::kFloatSlider: {
      std::string text = Number(info.valid.min, info) + " to " + Number(info.valid.max, info);
      if (info.slider.min != info.valid.min || info.slider.max != info.valid.max)
        text += " (slider: " + Number(info.slider.min, info) + " to " + Number(info.slider.max, info) + ")";
      return text;
    }
    case ParamType::kAngle:
      return "any angle";
    case ParamType::kCheckBox:
      return "on, off";
    case ParamType::kPopup:
      return Commas(info.text);
    case ParamType::kCustomValue:
      return info.customTag == vantle::kGradientTag ? "up to 8 colours" : "up to 16 points";
    case ParamType::kButton:
      return std::string("button \"") + info.text + "\"";
    default:
      return "";
  }
}

}  // namespace

int main() {
  for (const ParameterInfo& info : vantle::kParameters) {
    if (info.type == ParamType::kGroupEnd) continue;
    if (info.type == ParamType::kGroupStart) {
      std::printf("\n### %s\n\n%s\n\n| Control | Default | Values | What it does |\n|---|---|---|---|\n",
                  info.name, info.help);
      continue;
    }
    std::printf("| %s | %s | %s | %s |\n", info.name, Default(info).c_str(), Values(info).c_str(), info.help);
  }
  return 0;
}
