// Parameter definitions, as registered at set-up and as handed over with every later command.
#pragma once

#include "host_api/basic_types.h"
#include "host_api/worlds.h"

enum : A_long {  // PF_ParamType
  PF_Param_RESERVED = -1,
  PF_Param_LAYER = 0,
  PF_Param_SLIDER = 1,
  PF_Param_FIX_SLIDER = 2,
  PF_Param_ANGLE = 3,
  PF_Param_CHECKBOX = 4,
  PF_Param_COLOR = 5,
  PF_Param_POINT = 6,
  PF_Param_POPUP = 7,
  PF_Param_CUSTOM = 8,
  PF_Param_NO_DATA = 9,
  PF_Param_FLOAT_SLIDER = 10,
  PF_Param_ARBITRARY_DATA = 11,
  PF_Param_PATH = 12,
  PF_Param_GROUP_START = 13,
  PF_Param_GROUP_END = 14,
  PF_Param_BUTTON = 15,
  PF_Param_RESERVED2 = 16,
  PF_Param_RESERVED3 = 17,
  PF_Param_POINT_3D = 18,
};

enum : A_long {  // PF_ParamFlags
  PF_ParamFlag_RESERVED1 = 1,
  PF_ParamFlag_CANNOT_TIME_VARY = 2,
  PF_ParamFlag_CANNOT_INTERP = 4,
  PF_ParamFlag_RESERVED2 = 8,
  PF_ParamFlag_RESERVED3 = 16,
  PF_ParamFlag_COLLAPSE_TWIRLY = 32,
  PF_ParamFlag_SUPERVISE = 64,
  PF_ParamFlag_START_COLLAPSED = 32,
  PF_ParamFlag_USE_VALUE_FOR_OLD_PROJECTS = 128,
  PF_ParamFlag_LAYER_PARAM_IS_TRACKMATTE = 128,
  PF_ParamFlag_EXCLUDE_FROM_HAVE_INPUTS_CHANGED = 256,
  PF_ParamFlag_SKIP_REVEAL_WHEN_UNHIDDEN = 512,
};

enum : A_long {  // PF_ParamUIFlags
  PF_PUI_NONE = 0,
  PF_PUI_TOPIC = 1,
  PF_PUI_CONTROL = 2,
  PF_PUI_STD_CONTROL_ONLY = 4,
  PF_PUI_NO_ECW_UI = 8,
  PF_PUI_ECW_SEPARATOR = 16,
  PF_PUI_DISABLED = 32,
  PF_PUI_DONT_ERASE_TOPIC = 64,
  PF_PUI_DONT_ERASE_CONTROL = 128,
  PF_PUI_RADIO_BUTTON = 256,
  PF_PUI_INVISIBLE = 512,
};

enum : A_short {  // PF_ValueDisplayFlags
  PF_ValueDisplayFlag_NONE = 0,
  PF_ValueDisplayFlag_PERCENT = 1,
  PF_ValueDisplayFlag_PIXEL = 2,
  PF_ValueDisplayFlag_RESERVED1 = 4,
  PF_ValueDisplayFlag_REVERSE = 8,
};

enum : A_u_long {  // PF_FSliderFlags
  PF_FSliderFlag_NONE = 0,
  PF_FSliderFlag_WANT_PHASE = 1,
};

enum : A_long {  // PF_LayerDef.dephault
  PF_LayerDefault_MYSELF = -1,
  PF_LayerDefault_NONE = 0,
};

enum : A_long {  // PF_ChangeFlags
  PF_ChangeFlag_NONE = 0,
  PF_ChangeFlag_CHANGED_VALUE = 1,
  PF_ChangeFlag_RESERVED = 2,
  PF_ChangeFlag_SET_TO_VARY = 4,
  PF_ChangeFlag_SET_TO_CONSTANT = 8,
};

enum : A_long {  // PF_CustomEventFlags
  PF_CustomEFlag_NONE = 0,
  PF_CustomEFlag_COMP = 1,
  PF_CustomEFlag_LAYER = 2,
  PF_CustomEFlag_EFFECT = 4,
  PF_CustomEFlag_PREVIEW = 8,
};

enum : A_long {  // PF_UIAlignment
  PF_UIAlignment_NONE = 0,
  PF_UIAlignment_TOP = 1,
  PF_UIAlignment_LEFT = 2,
  PF_UIAlignment_BOTTOM = 4,
  PF_UIAlignment_RIGHT = 8,
};

extern "C" {

union PF_ParamDef_uu {
  A_long id;
  PF_ChangeFlags change_flags;
};

struct PF_SliderDef {
  PF_ParamValue value;
  A_char value_str[32];
  A_char value_desc[32];
  PF_ParamValue valid_min;
  PF_ParamValue valid_max;
  PF_ParamValue slider_min;
  PF_ParamValue slider_max;
  PF_ParamValue dephault;
};

struct PF_FixedSliderDef {
  PF_Fixed value;
  A_char value_str[32];
  A_char value_desc[32];
  PF_Fixed valid_min;
  PF_Fixed valid_max;
  PF_Fixed slider_min;
  PF_Fixed slider_max;
  PF_Fixed dephault;
  A_short precision;
  PF_ValueDisplayFlags display_flags;
};

struct PF_AngleDef {
  PF_Fixed value;
  PF_Fixed dephault;
  PF_Fixed valid_min;
  PF_Fixed valid_max;
};

union PF_CheckBoxDef_u {
  const A_char* nameptr;
};

struct PF_CheckBoxDef {
  PF_ParamValue value;
  PF_Boolean dephault;
  A_char reserved;
  A_short reserved1;
  PF_CheckBoxDef_u u;
};

struct PF_ColorDef {
  PF_UnionablePixel value;
  PF_UnionablePixel dephault;
};

struct PF_PointDef {
  PF_Fixed x_value;
  PF_Fixed y_value;
  A_char reserved[3];
  PF_Boolean restrict_bounds;
  PF_Fixed x_dephault;
  PF_Fixed y_dephault;
};

union PF_PopupDef_u {
  const A_char* namesptr;
};

struct PF_PopupDef {
  PF_ParamValue value;
  A_short num_choices;
  A_short dephault;
  PF_PopupDef_u u;
};

struct PF_FloatSliderDef {
  PF_FpLong value;
  PF_FpLong phase;
  A_char value_desc[32];
  PF_FpShort valid_min;
  PF_FpShort valid_max;
  PF_FpShort slider_min;
  PF_FpShort slider_max;
  PF_FpShort dephault;
  A_short precision;
  PF_ValueDisplayFlags display_flags;
  PF_FSliderFlags fs_flags;
  PF_FpShort curve_tolerance;
  PF_Boolean useExponent;
  PF_FpShort exponent;
};

struct PF_ArbitraryDef {
  A_short id;
  A_short pad;
  PF_ArbitraryH dephault;
  PF_ArbitraryH value;
  void* refconPV;
};

struct PF_PathDef {
  PF_PathID path_id;
  A_long reserved0;
  A_long dephault;
};

union PF_ButtonDef_u {
  const A_char* namesptr;
};

struct PF_ButtonDef {
  PF_ParamValue value;
  PF_ButtonDef_u u;
};

struct PF_Point3DDef {
  PF_FpLong x_value;
  PF_FpLong y_value;
  PF_FpLong z_value;
  PF_FpLong x_dephault;
  PF_FpLong y_dephault;
  PF_FpLong z_dephault;
  char reserved[16];
};

union PF_ParamDefUnion {
  PF_LayerDef ld;
  PF_SliderDef sd;
  PF_FixedSliderDef fd;
  PF_AngleDef ad;
  PF_CheckBoxDef bd;
  PF_ColorDef cd;
  PF_PointDef td;
  PF_PopupDef pd;
  PF_FloatSliderDef fs_d;
  PF_ArbitraryDef arb_d;
  PF_PathDef path_d;
  PF_ButtonDef button_d;
  PF_Point3DDef point3d_d;
};

struct PF_ParamDef {
  PF_ParamDef_uu uu;
  PF_ParamUIFlags ui_flags;
  A_short ui_width;
  A_short ui_height;
  PF_ParamType param_type;
  A_char name[32];
  PF_ParamFlags flags;
  A_long unused;
  PF_ParamDefUnion u;
};

struct PF_CustomUIInfo {
  A_long reserved;
  PF_CustomEventFlags events;
  A_long comp_ui_width;
  A_long comp_ui_height;
  PF_UIAlignment comp_ui_alignment;
  A_long layer_ui_width;
  A_long layer_ui_height;
  PF_UIAlignment layer_ui_alignment;
  A_long preview_ui_width;
  A_long preview_ui_height;
  PF_UIAlignment preview_ui_alignment;
};

struct PF_UserChangedParamExtra {
  PF_ParamIndex param_index;
};

}  // extern "C"
