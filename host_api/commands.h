// Commands, error codes, capability flags and version packing.
#pragma once

#include "host_api/basic_types.h"

enum : A_long {  // PF_Cmd
  PF_Cmd_ABOUT = 0,
  PF_Cmd_GLOBAL_SETUP = 1,
  PF_Cmd_UNUSED_0 = 2,
  PF_Cmd_GLOBAL_SETDOWN = 3,
  PF_Cmd_PARAMS_SETUP = 4,
  PF_Cmd_SEQUENCE_SETUP = 5,
  PF_Cmd_SEQUENCE_RESETUP = 6,
  PF_Cmd_SEQUENCE_FLATTEN = 7,
  PF_Cmd_SEQUENCE_SETDOWN = 8,
  PF_Cmd_DO_DIALOG = 9,
  PF_Cmd_FRAME_SETUP = 10,
  PF_Cmd_RENDER = 11,
  PF_Cmd_FRAME_SETDOWN = 12,
  PF_Cmd_USER_CHANGED_PARAM = 13,
  PF_Cmd_UPDATE_PARAMS_UI = 14,
  PF_Cmd_EVENT = 15,
  PF_Cmd_GET_EXTERNAL_DEPENDENCIES = 16,
  PF_Cmd_COMPLETELY_GENERAL = 17,
  PF_Cmd_QUERY_DYNAMIC_FLAGS = 18,
  PF_Cmd_AUDIO_RENDER = 19,
  PF_Cmd_AUDIO_SETUP = 20,
  PF_Cmd_AUDIO_SETDOWN = 21,
  PF_Cmd_ARBITRARY_CALLBACK = 22,
  PF_Cmd_SMART_PRE_RENDER = 23,
  PF_Cmd_SMART_RENDER = 24,
  PF_Cmd_RESERVED1 = 25,
  PF_Cmd_RESERVED2 = 26,
  PF_Cmd_RESERVED3 = 27,
  PF_Cmd_GET_FLATTENED_SEQUENCE_DATA = 28,
  PF_Cmd_TRANSLATE_PARAMS_TO_PREFS = 29,
  PF_Cmd_RESERVED4 = 30,
  PF_Cmd_SMART_RENDER_GPU = 31,
  PF_Cmd_GPU_DEVICE_SETUP = 32,
  PF_Cmd_GPU_DEVICE_SETDOWN = 33,
  PF_Cmd_NUM_CMDS = 34,
};

enum : A_long {  // PF_Err
  PF_Err_NONE = 0,
  PF_Err_OUT_OF_MEMORY = 4,
  PF_Err_INTERNAL_STRUCT_DAMAGED = 512,
  PF_Err_INVALID_INDEX = 513,
  PF_Err_UNRECOGNIZED_PARAM_TYPE = 514,
  PF_Err_INVALID_CALLBACK = 515,
  PF_Err_BAD_CALLBACK_PARAM = 516,
  PF_Err_CANNOT_PARSE_KEYFRAME_TEXT = 518,
  PF_Interrupt_CANCEL = 517,
};

enum : A_long {  // A_Err
  A_Err_NONE = 0,
  A_Err_GENERIC = 1,
  A_Err_STRUCT = 2,
  A_Err_PARAMETER = 3,
  A_Err_ALLOC = 4,
  A_Err_WRONG_THREAD = 5,
  A_Err_CONST_PROJECT_MODIFICATION = 6,
  A_Err_MISSING_SUITE = 13,
};

enum : A_long {  // PF_OutFlags
  PF_OutFlag_NONE = 0x0,
  PF_OutFlag_KEEP_RESOURCE_OPEN = 0x1,
  PF_OutFlag_WIDE_TIME_INPUT = 0x2,
  PF_OutFlag_NON_PARAM_VARY = 0x4,
  PF_OutFlag_RESERVED6 = 0x8,
  PF_OutFlag_SEQUENCE_DATA_NEEDS_FLATTENING = 0x10,
  PF_OutFlag_I_DO_DIALOG = 0x20,
  PF_OutFlag_USE_OUTPUT_EXTENT = 0x40,
  PF_OutFlag_SEND_DO_DIALOG = 0x80,
  PF_OutFlag_DISPLAY_ERROR_MESSAGE = 0x100,
  PF_OutFlag_I_EXPAND_BUFFER = 0x200,
  PF_OutFlag_PIX_INDEPENDENT = 0x400,
  PF_OutFlag_I_WRITE_INPUT_BUFFER = 0x800,
  PF_OutFlag_I_SHRINK_BUFFER = 0x1000,
  PF_OutFlag_WORKS_IN_PLACE = 0x2000,
  PF_OutFlag_RESERVED8 = 0x4000,
  PF_OutFlag_CUSTOM_UI = 0x8000,
  PF_OutFlag_RESERVED7 = 0x10000,
  PF_OutFlag_REFRESH_UI = 0x20000,
  PF_OutFlag_NOP_RENDER = 0x40000,
  PF_OutFlag_I_USE_SHUTTER_ANGLE = 0x80000,
  PF_OutFlag_I_USE_AUDIO = 0x100000,
  PF_OutFlag_I_AM_OBSOLETE = 0x200000,
  PF_OutFlag_FORCE_RERENDER = 0x400000,
  PF_OutFlag_PiPL_OVERRIDES_OUTDATA_OUTFLAGS = 0x800000,
  PF_OutFlag_I_HAVE_EXTERNAL_DEPENDENCIES = 0x1000000,
  PF_OutFlag_DEEP_COLOR_AWARE = 0x2000000,
  PF_OutFlag_SEND_UPDATE_PARAMS_UI = 0x4000000,
  PF_OutFlag_AUDIO_FLOAT_ONLY = 0x8000000,
  PF_OutFlag_AUDIO_IIR = 0x10000000,
  PF_OutFlag_I_SYNTHESIZE_AUDIO = 0x20000000,
  PF_OutFlag_AUDIO_EFFECT_TOO = 0x40000000,
  PF_OutFlag_AUDIO_EFFECT_ONLY = -2147483647 - 1,
};

enum : A_long {  // PF_OutFlags2
  PF_OutFlag2_NONE = 0x0,
  PF_OutFlag2_SUPPORTS_QUERY_DYNAMIC_FLAGS = 0x1,
  PF_OutFlag2_I_USE_3D_CAMERA = 0x2,
  PF_OutFlag2_I_USE_3D_LIGHTS = 0x4,
  PF_OutFlag2_PARAM_GROUP_START_COLLAPSED_FLAG = 0x8,
  PF_OutFlag2_I_AM_THREADSAFE = 0x10,
  PF_OutFlag2_CAN_COMBINE_WITH_DESTINATION = 0x20,
  PF_OutFlag2_DOESNT_NEED_EMPTY_PIXELS = 0x40,
  PF_OutFlag2_REVEALS_ZERO_ALPHA = 0x80,
  PF_OutFlag2_PRESERVES_FULLY_OPAQUE_PIXELS = 0x100,
  PF_OutFlag2_SUPPORTS_SMART_RENDER = 0x400,
  PF_OutFlag2_RESERVED9 = 0x800,
  PF_OutFlag2_FLOAT_COLOR_AWARE = 0x1000,
  PF_OutFlag2_I_USE_COLORSPACE_ENUMERATION = 0x2000,
  PF_OutFlag2_I_AM_DEPRECATED = 0x4000,
  PF_OutFlag2_PPRO_DO_NOT_CLONE_SEQUENCE_DATA_FOR_RENDER = 0x8000,
  PF_OutFlag2_RESERVED10 = 0x10000,
  PF_OutFlag2_AUTOMATIC_WIDE_TIME_INPUT = 0x20000,
  PF_OutFlag2_I_USE_TIMECODE = 0x40000,
  PF_OutFlag2_DEPENDS_ON_UNREFERENCED_MASKS = 0x80000,
  PF_OutFlag2_OUTPUT_IS_WATERMARKED = 0x100000,
  PF_OutFlag2_I_MIX_GUID_DEPENDENCIES = 0x200000,
  PF_OutFlag2_AE13_5_THREADSAFE = 0x400000,
  PF_OutFlag2_SUPPORTS_GET_FLATTENED_SEQUENCE_DATA = 0x800000,
  PF_OutFlag2_CUSTOM_UI_ASYNC_MANAGER = 0x1000000,
  PF_OutFlag2_SUPPORTS_GPU_RENDER_F32 = 0x2000000,
  PF_OutFlag2_RESERVED12 = 0x4000000,
  PF_OutFlag2_SUPPORTS_THREADED_RENDERING = 0x8000000,
  PF_OutFlag2_MUTABLE_RENDER_SEQUENCE_DATA_SLOWER = 0x10000000,
  PF_OutFlag2_SUPPORTS_DIRECTX_RENDERING = 0x20000000,
};

enum : A_long {  // PF_Stage
  PF_Stage_DEVELOP = 0,
  PF_Stage_ALPHA = 1,
  PF_Stage_BETA = 2,
  PF_Stage_RELEASE = 3,
};

/// Packs an effect version the way the host compares it with the resource of the library.
constexpr A_u_long PackVersion(A_u_long major, A_u_long minor, A_u_long bug, A_u_long stage, A_u_long build) {
  return ((major >> 3) & 15) << 26 | (major & 7) << 19 | (minor & 15) << 15 | (bug & 15) << 11 |
         (stage & 3) << 9 | (build & 511);
}

/// A four-letter code as the host stores it: the first letter in the highest byte.
constexpr A_long FourLetterCode(const char (&letters)[5]) {
  return static_cast<A_long>(static_cast<A_u_long>(static_cast<A_u_char>(letters[0])) << 24 |
                             static_cast<A_u_long>(static_cast<A_u_char>(letters[1])) << 16 |
                             static_cast<A_u_long>(static_cast<A_u_char>(letters[2])) << 8 |
                             static_cast<A_u_long>(static_cast<A_u_char>(letters[3])));
}

constexpr A_long kApplAfterEffects = FourLetterCode("FXTC");
constexpr A_long kApplPremierePro = FourLetterCode("PrMr");
constexpr A_long kPluginKindEffect = FourLetterCode("eFKT");
extern "C" {}  // extern "C"
