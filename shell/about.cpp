#include "host_api/pf_suites.h"
#include "shell/command_handlers.h"
#include "shell/identity.h"
#include "shell/suites.h"

namespace vantle {

PF_Err ShowAbout(const PF_InData* in_data, PF_OutData* out_data) {
  if (IsPremierePro(in_data) || out_data == nullptr) return PF_Err_NONE;
  const ScopedSuite<PF_ANSICallbacksSuite1> ansi(in_data, kPF_ANSICallbacksSuite1Name,
                                                 kPF_ANSICallbacksSuite1Version);
  if (!ansi || ansi->sprintf == nullptr) throw PF_Err{PF_Err_BAD_CALLBACK_PARAM};
  ansi->sprintf(out_data->return_msg, "%s v%d.%d\r%s", kDisplayName, static_cast<int>(kVersionMajor),
                static_cast<int>(kVersionMinor), kDescription);
  return PF_Err_NONE;
}

}  // namespace vantle
