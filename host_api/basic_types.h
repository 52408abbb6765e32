// Scalar types, opaque references and small records that every other part of the host's binary
// interface is spelled in.
#pragma once

#include <cstddef>
#include <cstdint>

struct PF_UtilCallbacks;
struct PF_LayerDef;
struct PF_Pixel;
struct PF_Pixel16;
struct PF_PixelFloat;
struct PF_ParamDef;
struct PF_Context;
struct PF_InData;
struct PF_EventExtra;
struct PF_CustomUIInfo;
struct PF_LRect;
struct SPBasicSuite;
struct AEGP_CompH_opaque;
struct AEGP_EffectRefH_opaque;
struct AEGP_GlobalRefcon_opaque;
struct AEGP_ItemH_opaque;
struct AEGP_LayerH_opaque;
struct AEGP_MarkerValP_opaque;
struct AEGP_MaskOutlineValH_opaque;
struct AEGP_MemHandle_opaque;
struct AEGP_StreamRefH_opaque;
struct AEGP_TextDocumentH_opaque;
struct DRAWBOT_BrushRef_opaque;
struct DRAWBOT_DrawRef_opaque;
struct DRAWBOT_FontRef_opaque;
struct DRAWBOT_ImageRef_opaque;
struct DRAWBOT_ObjectRef_opaque;
struct DRAWBOT_PathRef_opaque;
struct DRAWBOT_PenRef_opaque;
struct DRAWBOT_SupplierRef_opaque;
struct DRAWBOT_SurfaceRef_opaque;
struct PF_AsyncManagerP_opaque;
struct PF_ContextRefcon_opaque;
struct PF_LayerAudio_opaque;
struct PF_PluginDataPtr_opaque;
struct PF_ProgPtr_opaque;

extern "C" {

typedef char A_char;
typedef unsigned char A_u_char;
typedef short A_short;
typedef unsigned short A_u_short;
typedef int32_t A_long;
typedef uint32_t A_u_long;
typedef unsigned long long A_u_longlong;
typedef long long A_intptr_t;
typedef double A_FpLong;
typedef float A_FpShort;
typedef unsigned char A_Boolean;
typedef A_long A_Err;
typedef A_u_short A_UTF16Char;
typedef void* A_Handle;
typedef A_u_longlong A_HandleSize;
typedef int32_t int32;
typedef int32 SPErr;
typedef int32 SPBoolean;
typedef uint8_t ADOBESDK_Boolean;
typedef uint16_t ADOBESDK_UTF16Char;
typedef A_long PF_Fixed;
typedef A_u_long PF_UFixed;
typedef A_FpLong PF_FpLong;
typedef A_FpShort PF_FpShort;
typedef A_char PF_Boolean;
typedef A_long PF_Err;
typedef A_long PF_Cmd;
typedef A_long PF_ParamIndex;
typedef A_long PF_ParamValue;
typedef void** PF_Handle;
typedef PF_Handle PF_ArbitraryH;
typedef struct PF_ProgPtr_opaque* PF_ProgPtr;
typedef A_long PF_Quality;
typedef A_long PF_Field;
typedef A_long PF_InFlags;
typedef A_long PF_OutFlags;
typedef A_long PF_OutFlags2;
typedef A_long PF_ParamType;
typedef A_long PF_ParamFlags;
typedef A_long PF_ParamUIFlags;
typedef A_long PF_ChangeFlags;
typedef A_short PF_ValueDisplayFlags;
typedef A_u_long PF_FSliderFlags;
typedef A_u_long PF_PathID;
typedef A_long PF_WorldFlags;
typedef A_long PF_PixelFormat;
typedef A_long PF_NewWorldFlags;
typedef PF_Pixel* PF_PixelPtr;
typedef void* PF_SndSamplePtr;
typedef struct PF_LayerAudio_opaque* PF_LayerAudio;
typedef A_short PF_SoundChannels;
typedef A_short PF_SoundFormat;
typedef A_short PF_SoundSampleSize;
typedef A_long PF_FunctionSelector;
typedef A_long PF_ArbCompareResult;
typedef A_long PF_ArbPrintFlags;
typedef A_long PF_CustomEventFlags;
typedef A_long PF_UIAlignment;
typedef A_long PF_EventType;
typedef A_long PF_EventInFlags;
typedef A_long PF_EventOutFlags;
typedef A_long PF_EffectArea;
typedef A_long PF_WindowType;
typedef A_long PF_Modifiers;
typedef A_u_long PF_KeyCode;
typedef A_long PF_CursorType;
typedef struct PF_ContextRefcon_opaque* PF_ContextRefcon;
typedef PF_Context** PF_ContextH;
typedef struct PF_AsyncManagerP_opaque* PF_AsyncManagerP;
typedef A_long AEGP_PluginID;
typedef struct AEGP_GlobalRefcon_opaque* AEGP_GlobalRefcon;
typedef struct AEGP_LayerH_opaque** AEGP_LayerH;
typedef struct AEGP_CompH_opaque** AEGP_CompH;
typedef struct AEGP_ItemH_opaque** AEGP_ItemH;
typedef struct AEGP_EffectRefH_opaque** AEGP_EffectRefH;
typedef struct AEGP_StreamRefH_opaque** AEGP_StreamRefH;
typedef struct AEGP_MemHandle_opaque** AEGP_MemHandle;
typedef A_long AEGP_LayerIDVal;
typedef A_long AEGP_MaskIDVal;
typedef A_long AEGP_LayerFlags;
typedef A_long AEGP_LayerStream;
typedef A_short AEGP_LTimeMode;
typedef A_long AEGP_StreamType;
typedef A_short AEGP_ItemType;
typedef A_long AEGP_ObjectType;
typedef A_FpLong AEGP_OneDVal;
typedef A_FpLong AEGP_FourDVal[4];
typedef A_Handle AEGP_ArbBlockVal;
typedef struct AEGP_MarkerValP_opaque* AEGP_MarkerValP;
typedef struct AEGP_MaskOutlineValH_opaque** AEGP_MaskOutlineValH;
typedef struct AEGP_TextDocumentH_opaque** AEGP_TextDocumentH;
typedef ADOBESDK_Boolean DRAWBOT_Boolean;
typedef ADOBESDK_UTF16Char DRAWBOT_UTF16Char;
typedef struct DRAWBOT_DrawRef_opaque* DRAWBOT_DrawRef;
typedef struct DRAWBOT_SupplierRef_opaque* DRAWBOT_SupplierRef;
typedef struct DRAWBOT_SurfaceRef_opaque* DRAWBOT_SurfaceRef;
typedef struct DRAWBOT_PenRef_opaque* DRAWBOT_PenRef;
typedef struct DRAWBOT_BrushRef_opaque* DRAWBOT_BrushRef;
typedef struct DRAWBOT_PathRef_opaque* DRAWBOT_PathRef;
typedef struct DRAWBOT_FontRef_opaque* DRAWBOT_FontRef;
typedef struct DRAWBOT_ImageRef_opaque* DRAWBOT_ImageRef;
typedef struct DRAWBOT_ObjectRef_opaque* DRAWBOT_ObjectRef;
typedef int DRAWBOT_FillType;
typedef int DRAWBOT_PixelLayout;
typedef int DRAWBOT_TextAlignment;
typedef int DRAWBOT_TextTruncation;
typedef int DRAWBOT_InterpolationPolicy;
typedef int DRAWBOT_AntiAliasPolicy;
typedef PF_LRect PF_Rect;
typedef PF_Rect PF_UnionableRect;
typedef PF_Pixel PF_Pixel8;
typedef PF_PixelFloat PF_Pixel32;
typedef PF_Pixel PF_UnionablePixel;
typedef PF_LayerDef PF_EffectWorld;
typedef PF_ParamDef* PF_ParamDefPtr;
typedef struct PF_PluginDataPtr_opaque* PF_PluginDataPtr;

struct A_Time {
  A_long value;
  A_u_long scale;
};

struct A_Ratio {
  A_long num;
  A_u_long den;
};

struct A_Matrix4 {
  A_FpLong mat[4][4];
};

struct PF_SpecVersion {
  A_short major;
  A_short minor;
};

struct PF_LRect {
  A_long left;
  A_long top;
  A_long right;
  A_long bottom;
};

struct PF_Point {
  A_long h;
  A_long v;
};

struct PF_FixedPoint {
  PF_Fixed x;
  PF_Fixed y;
};

struct PF_RationalScale {
  A_long num;
  A_u_long den;
};

struct PF_FloatMatrix {
  PF_FpLong mat[3][3];
};

}  // extern "C"
