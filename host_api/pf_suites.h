// Suites of the effect interface. The version next to a table is the integer passed to AcquireSuite;
// it is unrelated to the number in the table's name.
#pragma once

#include "host_api/basic_types.h"
#include "host_api/call_records.h"
#include "host_api/events.h"
#include "host_api/worlds.h"

extern "C" {

// "SP Basic Suite", acquired with version 4.
struct SPBasicSuite {
  SPErr (*AcquireSuite)(const char* name, int32 version, const void** suite);
  SPErr (*ReleaseSuite)(const char* name, int32 version);
  SPBoolean (*IsEqual)(const char* token1, const char* token2);
  SPErr (*AllocateBlock)(size_t size, void** block);
  SPErr (*FreeBlock)(void* block);
  SPErr (*ReallocateBlock)(void* block, size_t newSize, void** newblock);
  SPErr (*Undefined)(void);
};

// "PF ANSI Suite", acquired with version 1.
struct PF_ANSICallbacksSuite1 {
  A_FpLong (*atan)(A_FpLong arg1);
  A_FpLong (*atan2)(A_FpLong y, A_FpLong x);
  A_FpLong (*ceil)(A_FpLong arg1);
  A_FpLong (*cos)(A_FpLong arg1);
  A_FpLong (*exp)(A_FpLong arg1);
  A_FpLong (*fabs)(A_FpLong arg1);
  A_FpLong (*floor)(A_FpLong arg1);
  A_FpLong (*fmod)(A_FpLong x, A_FpLong y);
  A_FpLong (*hypot)(A_FpLong x, A_FpLong y);
  A_FpLong (*log)(A_FpLong arg1);
  A_FpLong (*log10)(A_FpLong arg1);
  A_FpLong (*pow)(A_FpLong x, A_FpLong y);
  A_FpLong (*sin)(A_FpLong arg1);
  A_FpLong (*sqrt)(A_FpLong arg1);
  A_FpLong (*tan)(A_FpLong arg1);
  int (*sprintf)(A_char* arg1, const A_char* arg2, ...);
  A_char* (*strcpy)(A_char* arg1, const A_char* arg2);
  A_FpLong (*asin)(A_FpLong arg1);
  A_FpLong (*acos)(A_FpLong arg1);
};

// "PF Handle Suite", acquired with version 2.
struct PF_HandleSuite1 {
  PF_Handle (*host_new_handle)(A_HandleSize size);
  void* (*host_lock_handle)(PF_Handle pf_handle);
  void (*host_unlock_handle)(PF_Handle pf_handle);
  void (*host_dispose_handle)(PF_Handle pf_handle);
  A_HandleSize (*host_get_handle_size)(PF_Handle pf_handle);
  PF_Err (*host_resize_handle)(A_HandleSize new_sizeL, PF_Handle* handlePH);
};

// "PF World Suite", acquired with version 2.
struct PF_WorldSuite2 {
  PF_Err (*PF_NewWorld)(PF_ProgPtr effect_ref, A_long widthL, A_long heightL, PF_Boolean clear_pixB,
                        PF_PixelFormat pixel_format, PF_EffectWorld* worldP);
  PF_Err (*PF_DisposeWorld)(PF_ProgPtr effect_ref, PF_EffectWorld* worldP);
  PF_Err (*PF_GetPixelFormat)(const PF_EffectWorld* worldP, PF_PixelFormat* pixel_formatP);
};

// "PF Effect Custom UI Suite", acquired with version 2.
struct PF_EffectCustomUISuite2 {
  PF_Err (*PF_GetDrawingReference)(PF_ContextH effect_contextH, DRAWBOT_DrawRef* referenceP0);
  PF_Err (*PF_GetContextAsyncManager)(PF_InData* in_data, PF_EventExtra* extra, PF_AsyncManagerP* managerPP0);
};

// "PF Effect Custom UI Suite", acquired with version 1.
struct PF_EffectCustomUISuite1 {
  PF_Err (*PF_GetDrawingReference)(PF_ContextH effect_contextH, DRAWBOT_DrawRef* referenceP0);
};

// "PF AE App Suite", acquired with version 1.
struct PFAppSuite6 {
  void* PF_AppGetBgColor;
  void* PF_AppGetColor;
  void* PF_AppGetLanguage;
  void* PF_GetPersonalInfo;
  void* PF_GetFontStyleSheet;
  void* PF_SetCursor;
  void* PF_IsRenderEngine;
  PF_Err (*PF_AppColorPickerDialog)(const A_char* dialog_titleZ0, const PF_PixelFloat* sample_colorP,
                                    PF_Boolean use_ws_to_monitor_xformB, PF_PixelFloat* new_colorP);
  PF_Err (*PF_GetMouse)(PF_Point* pointP);
  PF_Err (*PF_InvalidateRect)(PF_ContextH contextH, const PF_Rect* rectP0);
  void* PF_ConvertLocalToGlobal;
  void* PF_GetColorAtGlobalPoint;
  void* PF_CreateNewAppProgressDialog;
  void* PF_AppProgressDialogUpdate;
  void* PF_DisposeAppProgressDialog;
};

// "PF AE App Suite", acquired with version 6.
struct PFAppSuite4 {
  void* PF_AppGetBgColor;
  void* PF_AppGetColor;
  void* PF_GetPersonalInfo;
  void* PF_GetFontStyleSheet;
  void* PF_SetCursor;
  void* PF_IsRenderEngine;
  PF_Err (*PF_AppColorPickerDialog)(const A_char* dialog_titleZ0, const PF_PixelFloat* sample_colorP,
                                    PF_Boolean use_ws_to_monitor_xformB, PF_PixelFloat* new_colorP);
  void* PF_GetMouse;
  void* PF_InvalidateRect;
  void* PF_ConvertLocalToGlobal;
  void* PF_GetColorAtGlobalPoint;
};

// "PF AE App Suite", acquired with version 7.
struct PFAppSuite5 {
  void* PF_AppGetBgColor;
  void* PF_AppGetColor;
  void* PF_AppGetLanguage;
  void* PF_GetPersonalInfo;
  void* PF_GetFontStyleSheet;
  void* PF_SetCursor;
  void* PF_IsRenderEngine;
  PF_Err (*PF_AppColorPickerDialog)(const A_char* dialog_titleZ0, const PF_PixelFloat* sample_colorP,
                                    PF_Boolean use_ws_to_monitor_xformB, PF_PixelFloat* new_colorP);
  void* PF_GetMouse;
  void* PF_InvalidateRect;
  void* PF_ConvertLocalToGlobal;
  void* PF_GetColorAtGlobalPoint;
};

}  // extern "C"

// Names and version integers for AcquireSuite.
constexpr const char* kSPBasicSuiteName = "SP Basic Suite";
constexpr A_long kSPBasicSuiteVersion = 4;
constexpr const char* kPF_ANSICallbacksSuite1Name = "PF ANSI Suite";
constexpr A_long kPF_ANSICallbacksSuite1Version = 1;
constexpr const char* kPF_HandleSuite1Name = "PF Handle Suite";
constexpr A_long kPF_HandleSuite1Version = 2;
constexpr const char* kPF_WorldSuite2Name = "PF World Suite";
constexpr A_long kPF_WorldSuite2Version = 2;
constexpr const char* kPF_EffectCustomUISuite2Name = "PF Effect Custom UI Suite";
constexpr A_long kPF_EffectCustomUISuite2Version = 2;
constexpr const char* kPF_EffectCustomUISuite1Name = "PF Effect Custom UI Suite";
constexpr A_long kPF_EffectCustomUISuite1Version = 1;
constexpr const char* kPFAppSuite6Name = "PF AE App Suite";
constexpr A_long kPFAppSuite6Version = 1;
constexpr const char* kPFAppSuite4Name = "PF AE App Suite";
constexpr A_long kPFAppSuite4Version = 6;
constexpr const char* kPFAppSuite5Name = "PF AE App Suite";
constexpr A_long kPFAppSuite5Version = 7;
