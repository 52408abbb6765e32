#include "shell/registration.h"

#include "shell/identity.h"

namespace vantle {
namespace {

const A_u_char* Bytes(const char* text) {
  return reinterpret_cast<const A_u_char*>(text);
}

}  // namespace

PF_Err RegisterEffect(PF_PluginDataPtr plugin, PF_PluginDataCB callback) {
  if (callback == nullptr) return PF_Err_BAD_CALLBACK_PARAM;
  return callback(plugin, Bytes(kDisplayName), Bytes(kMatchName), Bytes(kCategory), Bytes(kEntryPointName),
                  kPluginKindEffect, kHostApiMajor, kHostApiMinor, kReservedInfo);
}

}  // namespace vantle
