// A library that registers, but has no entry for commands.
#include "host_api/entry_points.h"

extern "C" __attribute__((visibility("default"))) PF_Err PluginDataEntryFunction(PF_PluginDataPtr,
                                                                                 PF_PluginDataCB,
                                                                                 SPBasicSuite*, const char*,
                                                                                 const char*);
extern "C" PF_Err PluginDataEntryFunction(PF_PluginDataPtr, PF_PluginDataCB, SPBasicSuite*, const char*,
                                          const char*) {
  return 0;
}
