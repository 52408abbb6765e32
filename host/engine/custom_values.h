// Custom values through the effect's own callbacks: bytes in, bytes out. Handles are made, handed over,
// locked and given back as a host does around each callback.
#pragma once

#include "host/engine/effect.h"
#include "host_api/arbitrary_data.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantle::host {

/// What a callback gave. `present` is false when it succeeded without making a value. `problems` are what
/// the host found wrong.
struct CustomResult {
  PF_Err error = PF_Err_NONE;
  bool present = false;
  std::vector<std::uint8_t> bytes;
  std::vector<std::string> problems;
};

/// `param` is always a parameter's index; one that is no custom value gives PF_Err_INVALID_INDEX. All
/// functions may be called on several threads at once.
///
/// A new default value.
CustomResult NewCustomValue(EffectInstance& effect, int param);
/// A copy made by the effect.
CustomResult CopyCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& value);
/// The value at `fraction` (0..1, eased already) between two keyframes.
CustomResult InterpolateCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& left,
                                    const std::vector<std::uint8_t>& right, double fraction);
/// The form that projects store.
CustomResult FlattenCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& value);
CustomResult UnflattenCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& flat);
/// The value that the effect reads out of a text.
CustomResult ScanCustomValue(EffectInstance& effect, int param, const std::string& text);

struct CustomComparison {
  PF_Err error = PF_Err_NONE;
  PF_ArbCompareResult order = PF_ArbCompare_NOT_EQUAL;
  std::vector<std::string> problems;
};
CustomComparison CompareCustomValues(EffectInstance& effect, int param, const std::vector<std::uint8_t>& a,
                                     const std::vector<std::uint8_t>& b);

struct CustomText {
  PF_Err error = PF_Err_NONE;
  std::string text;
  std::vector<std::string> problems;
};
/// The text that hosts show beside the parameter.
CustomText PrintCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& value);

/// Has the effect dispose of a value of the host's; lines on what went wrong.
std::vector<std::string> DisposeCustomHandle(EffectInstance& effect, int param, PF_ArbitraryH handle);

/// Sends one callback as it is, for whoever wants the parts by themselves.
CommandResult SendCustomCallback(EffectInstance& effect, PF_ArbParamsExtra& extra);

}  // namespace vantle::host
