#include "ui/color_picker.h"

#include "host_api/commands.h"
#include "host_api/pf_suites.h"
#include "ui/drawbot_suites.h"

namespace vantle {
namespace {

constexpr const char* kPickerTitle = "Pick Stop Color";
constexpr PF_Boolean kNoMonitorTransform = 0;

}  // namespace

PF_Err PickStopColor(const PF_InData* in_data, PF_OutData* out_data, const Color& sample, Color* picked) {
  const void* suite = nullptr;
  const PF_Err acquired = AcquireSuite(in_data, out_data, kPFAppSuite6Name, kPFAppSuite6Version, &suite);
  if (acquired != PF_Err_NONE) return acquired;

  const PF_PixelFloat before = {.alpha = 1.0f, .red = sample.r, .green = sample.g, .blue = sample.b};
  PF_PixelFloat after = before;
  const PF_Err answer = static_cast<const PFAppSuite6*>(suite)->PF_AppColorPickerDialog(
      kPickerTitle, &before, kNoMonitorTransform, &after);
  if (answer == PF_Err_NONE) *picked = {after.red, after.green, after.blue};

  const PF_Err released = ReleaseSuite(in_data, out_data, kPFAppSuite6Name, kPFAppSuite6Version);
  return answer != PF_Err_NONE ? answer : released;
}

}  // namespace vantle
