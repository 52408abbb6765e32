// A library that registers, but has no entry for commands.
#include "base/compiler.h"
#include "host_api/entry_points.h"

extern "C" VANTLE_EXPORT PF_Err PluginDataEntryFunction(PF_PluginDataPtr, PF_PluginDataCB, SPBasicSuite*,
                                                        const char*, const char*);
extern "C" PF_Err PluginDataEntryFunction(PF_PluginDataPtr, PF_PluginDataCB, SPBasicSuite*, const char*,
                                          const char*) {
  return 0;
}
