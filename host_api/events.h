// Events of controls that the effect draws itself.
#pragma once

#include "host_api/basic_types.h"
#include "host_api/worlds.h"

enum : A_long {  // PF_EventType
  PF_Event_NONE = -1,
  PF_Event_NEW_CONTEXT = 0,
  PF_Event_ACTIVATE = 1,
  PF_Event_DO_CLICK = 2,
  PF_Event_DRAG = 3,
  PF_Event_DRAW = 4,
  PF_Event_DEACTIVATE = 5,
  PF_Event_CLOSE_CONTEXT = 6,
  PF_Event_IDLE = 7,
  PF_Event_KEYDOWN_OBSOLETE = 8,
  PF_Event_ADJUST_CURSOR = 9,
  PF_Event_KEYDOWN = 10,
  PF_Event_MOUSE_EXITED = 11,
  PF_Event_NUM_EVENTS = 12,
};

enum : A_long {  // PF_EventOutFlags
  PF_EO_NONE = 0,
  PF_EO_HANDLED_EVENT = 1,
  PF_EO_ALWAYS_UPDATE = 2,
  PF_EO_NEVER_UPDATE = 4,
  PF_EO_UPDATE_NOW = 8,
};

enum : A_long {  // PF_EventInFlags
  PF_EI_NONE = 0,
  PF_EI_DONT_DRAW = 1,
};

enum : A_long {  // PF_EffectArea
  PF_EA_NONE = 0,
  PF_EA_PARAM_TITLE = 1,
  PF_EA_CONTROL = 2,
};

enum : A_long {  // PF_WindowType
  PF_Window_NONE = -1,
  PF_Window_COMP = 0,
  PF_Window_LAYER = 1,
  PF_Window_EFFECT = 2,
  PF_Window_PREVIEW = 3,
};

enum : A_long {  // PF_Modifiers
  PF_Mod_NONE = 0,
  PF_Mod_CMD_CTRL_KEY = 256,
  PF_Mod_SHIFT_KEY = 512,
  PF_Mod_CAPS_LOCK_KEY = 1024,
  PF_Mod_OPT_ALT_KEY = 2048,
  PF_Mod_MAC_CONTROL_KEY = 4096,
};

extern "C" {

struct PF_DoClickEventInfo {
  A_u_long when;
  PF_Point screen_point;
  A_long num_clicks;
  PF_Modifiers modifiers;
  A_intptr_t continue_refcon[4];
  PF_Boolean send_drag;
  PF_Boolean last_time;
};

struct PF_DrawEventInfo {
  PF_UnionableRect update_rect;
  A_long depth;
};

struct PF_KeyDownEvent {
  A_u_long when;
  PF_Point screen_point;
  PF_KeyCode keycode;
  PF_Modifiers modifiers;
};

struct PF_AdjustCursorEventInfo {
  PF_Point screen_point;
  PF_Modifiers modifiers;
  PF_CursorType set_cursor;
};

union PF_EventUnion {
  PF_DoClickEventInfo do_click;
  PF_DrawEventInfo draw;
  PF_KeyDownEvent key_down;
  PF_AdjustCursorEventInfo adjust_cursor;
};

struct PF_EffectWindowInfo {
  PF_ParamIndex index;
  PF_EffectArea area;
  PF_UnionableRect current_frame;
  PF_UnionableRect param_title_frame;
  A_long horiz_offset;
};

struct PF_EventCallbacks {
  void* refcon;
  PF_Err (*layer_to_comp)(void* refcon, PF_ContextH context, A_long curr_time, A_long time_scale,
                          PF_FixedPoint* pt);
  PF_Err (*comp_to_layer)(void* refcon, PF_ContextH context, A_long curr_time, A_long time_scale,
                          PF_FixedPoint* pt);
  PF_Err (*get_comp2layer_xform)(void* refcon, PF_ContextH context, A_long curr_time, A_long time_scale,
                                 A_long* exists, PF_FloatMatrix* c2l);
  PF_Err (*get_layer2comp_xform)(void* refcon, PF_ContextH context, A_long curr_time, A_long time_scale,
                                 PF_FloatMatrix* l2c);
  PF_Err (*source_to_frame)(void* refcon, PF_ContextH context, PF_FixedPoint* pt);
  PF_Err (*frame_to_source)(void* refcon, PF_ContextH context, PF_FixedPoint* pt);
  PF_Err (*info_draw_color)(void* refcon, PF_Pixel color);
  PF_Err (*info_draw_text)(void* refcon, const A_char* text1Z0, const A_char* text2Z0);
};

struct PF_EventExtra {
  PF_ContextH contextH;
  PF_EventType e_type;
  PF_EventUnion u;
  PF_EffectWindowInfo effect_win;
  PF_EventCallbacks cbs;
  PF_EventInFlags evt_in_flags;
  PF_EventOutFlags evt_out_flags;
};

struct PF_Context {
  A_u_long magic;
  PF_WindowType w_type;
  PF_ContextRefcon reserved_flt;
  A_intptr_t plugin_state[4];
  DRAWBOT_DrawRef reserved_drawref;
  void* reserved_paneP;
  void* reserved_job_manageP;
};

}  // extern "C"
