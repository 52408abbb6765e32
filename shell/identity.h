// Who the effect is: what the registration, the global set-up, the about text and the library's property
// resource must all say alike.
#pragma once

#include "host_api/commands.h"

namespace vantle {

inline constexpr char kDisplayName[] = "Vantle";
inline constexpr char kMatchName[] = "Orlan_Vantle";
inline constexpr char kCategory[] = "Simulation";
inline constexpr char kEntryPointName[] = "EffectMain";
inline constexpr char kDescription[] = "Layer-driven particle system. Brightness controls emission.";

inline constexpr A_long kHostApiMajor = 13;
inline constexpr A_long kHostApiMinor = 28;
inline constexpr A_long kReservedInfo = 8;

inline constexpr A_u_long kVersionMajor = 1;
inline constexpr A_u_long kVersionMinor = 2;
inline constexpr A_u_long kVersionBug = 0;
inline constexpr A_u_long kVersionBuild = 1;
inline constexpr A_u_long kEffectVersion =
    PackVersion(kVersionMajor, kVersionMinor, kVersionBug, PF_Stage_DEVELOP, kVersionBuild);
static_assert(kEffectVersion == 0x90001);

inline constexpr PF_OutFlags kOutFlags = PF_OutFlag_NON_PARAM_VARY | PF_OutFlag_CUSTOM_UI |
                                         PF_OutFlag_DEEP_COLOR_AWARE | PF_OutFlag_SEND_UPDATE_PARAMS_UI;
inline constexpr PF_OutFlags2 kOutFlags2 = PF_OutFlag2_I_USE_3D_CAMERA |
                                           PF_OutFlag2_DEPENDS_ON_UNREFERENCED_MASKS |
                                           PF_OutFlag2_SUPPORTS_THREADED_RENDERING;
static_assert(kOutFlags == 0x06008004 && kOutFlags2 == 0x08080002);

}  // namespace vantle
