// Every size and offset of the host's binary interface that these headers declare. A wrong one would corrupt
// the host's memory silently, so none is trusted to the compiler's goodwill.
#include "host_api/aegp_suites.h"
#include "host_api/arbitrary_data.h"
#include "host_api/basic_types.h"
#include "host_api/call_records.h"
#include "host_api/commands.h"
#include "host_api/drawbot.h"
#include "host_api/entry_points.h"
#include "host_api/events.h"
#include "host_api/parameters.h"
#include "host_api/pf_suites.h"
#include "host_api/worlds.h"

#include <cstddef>

static_assert(sizeof(A_char) == 1);
static_assert(sizeof(A_u_char) == 1);
static_assert(sizeof(A_short) == 2);
static_assert(sizeof(A_u_short) == 2);
static_assert(sizeof(A_long) == 4);
static_assert(sizeof(A_u_long) == 4);
static_assert(sizeof(A_u_longlong) == 8);
static_assert(sizeof(A_intptr_t) == 8);
static_assert(sizeof(A_FpLong) == 8);
static_assert(sizeof(A_FpShort) == 4);
static_assert(sizeof(A_Boolean) == 1);
static_assert(sizeof(A_Err) == 4);
static_assert(sizeof(A_UTF16Char) == 2);
static_assert(sizeof(A_Handle) == 8);
static_assert(sizeof(A_HandleSize) == 8);
static_assert(sizeof(int32) == 4);
static_assert(sizeof(SPErr) == 4);
static_assert(sizeof(SPBoolean) == 4);
static_assert(sizeof(ADOBESDK_Boolean) == 1);
static_assert(sizeof(ADOBESDK_UTF16Char) == 2);
static_assert(sizeof(PF_Fixed) == 4);
static_assert(sizeof(PF_UFixed) == 4);
static_assert(sizeof(PF_FpLong) == 8);
static_assert(sizeof(PF_FpShort) == 4);
static_assert(sizeof(PF_Boolean) == 1);
static_assert(sizeof(PF_Err) == 4);
static_assert(sizeof(PF_Cmd) == 4);
static_assert(sizeof(PF_ParamIndex) == 4);
static_assert(sizeof(PF_ParamValue) == 4);
static_assert(sizeof(PF_Handle) == 8);
static_assert(sizeof(PF_ArbitraryH) == 8);
static_assert(sizeof(PF_ProgPtr) == 8);
static_assert(sizeof(PF_Quality) == 4);
static_assert(sizeof(PF_Field) == 4);
static_assert(sizeof(PF_InFlags) == 4);
static_assert(sizeof(PF_OutFlags) == 4);
static_assert(sizeof(PF_OutFlags2) == 4);
static_assert(sizeof(PF_ParamType) == 4);
static_assert(sizeof(PF_ParamFlags) == 4);
static_assert(sizeof(PF_ParamUIFlags) == 4);
static_assert(sizeof(PF_ChangeFlags) == 4);
static_assert(sizeof(PF_ValueDisplayFlags) == 2);
static_assert(sizeof(PF_FSliderFlags) == 4);
static_assert(sizeof(PF_PathID) == 4);
static_assert(sizeof(PF_WorldFlags) == 4);
static_assert(sizeof(PF_PixelFormat) == 4);
static_assert(sizeof(PF_NewWorldFlags) == 4);
static_assert(sizeof(PF_PixelPtr) == 8);
static_assert(sizeof(PF_SndSamplePtr) == 8);
static_assert(sizeof(PF_LayerAudio) == 8);
static_assert(sizeof(PF_SoundChannels) == 2);
static_assert(sizeof(PF_SoundFormat) == 2);
static_assert(sizeof(PF_SoundSampleSize) == 2);
static_assert(sizeof(PF_FunctionSelector) == 4);
static_assert(sizeof(PF_ArbCompareResult) == 4);
static_assert(sizeof(PF_ArbPrintFlags) == 4);
static_assert(sizeof(PF_CustomEventFlags) == 4);
static_assert(sizeof(PF_UIAlignment) == 4);
static_assert(sizeof(PF_EventType) == 4);
static_assert(sizeof(PF_EventInFlags) == 4);
static_assert(sizeof(PF_EventOutFlags) == 4);
static_assert(sizeof(PF_EffectArea) == 4);
static_assert(sizeof(PF_WindowType) == 4);
static_assert(sizeof(PF_Modifiers) == 4);
static_assert(sizeof(PF_KeyCode) == 4);
static_assert(sizeof(PF_CursorType) == 4);
static_assert(sizeof(PF_ContextRefcon) == 8);
static_assert(sizeof(PF_ContextH) == 8);
static_assert(sizeof(PF_AsyncManagerP) == 8);
static_assert(sizeof(AEGP_PluginID) == 4);
static_assert(sizeof(AEGP_GlobalRefcon) == 8);
static_assert(sizeof(AEGP_LayerH) == 8);
static_assert(sizeof(AEGP_CompH) == 8);
static_assert(sizeof(AEGP_ItemH) == 8);
static_assert(sizeof(AEGP_EffectRefH) == 8);
static_assert(sizeof(AEGP_StreamRefH) == 8);
static_assert(sizeof(AEGP_MemHandle) == 8);
static_assert(sizeof(AEGP_LayerIDVal) == 4);
static_assert(sizeof(AEGP_MaskIDVal) == 4);
static_assert(sizeof(AEGP_LayerFlags) == 4);
static_assert(sizeof(AEGP_LayerStream) == 4);
static_assert(sizeof(AEGP_LTimeMode) == 2);
static_assert(sizeof(AEGP_StreamType) == 4);
static_assert(sizeof(AEGP_ItemType) == 2);
static_assert(sizeof(AEGP_ObjectType) == 4);
static_assert(sizeof(AEGP_OneDVal) == 8);
static_assert(sizeof(AEGP_FourDVal) == 32);
static_assert(sizeof(AEGP_ArbBlockVal) == 8);
static_assert(sizeof(AEGP_MarkerValP) == 8);
static_assert(sizeof(AEGP_MaskOutlineValH) == 8);
static_assert(sizeof(AEGP_TextDocumentH) == 8);
static_assert(sizeof(DRAWBOT_Boolean) == 1);
static_assert(sizeof(DRAWBOT_UTF16Char) == 2);
static_assert(sizeof(DRAWBOT_DrawRef) == 8);
static_assert(sizeof(DRAWBOT_SupplierRef) == 8);
static_assert(sizeof(DRAWBOT_SurfaceRef) == 8);
static_assert(sizeof(DRAWBOT_PenRef) == 8);
static_assert(sizeof(DRAWBOT_BrushRef) == 8);
static_assert(sizeof(DRAWBOT_PathRef) == 8);
static_assert(sizeof(DRAWBOT_FontRef) == 8);
static_assert(sizeof(DRAWBOT_ImageRef) == 8);
static_assert(sizeof(DRAWBOT_ObjectRef) == 8);
static_assert(sizeof(DRAWBOT_FillType) == 4);
static_assert(sizeof(DRAWBOT_PixelLayout) == 4);
static_assert(sizeof(DRAWBOT_TextAlignment) == 4);
static_assert(sizeof(DRAWBOT_TextTruncation) == 4);
static_assert(sizeof(DRAWBOT_InterpolationPolicy) == 4);
static_assert(sizeof(DRAWBOT_AntiAliasPolicy) == 4);
static_assert(sizeof(PF_Rect) == 16);
static_assert(sizeof(PF_UnionableRect) == 16);
static_assert(sizeof(PF_Pixel8) == 4);
static_assert(sizeof(PF_Pixel32) == 16);
static_assert(sizeof(PF_UnionablePixel) == 4);
static_assert(sizeof(PF_EffectWorld) == 120);
static_assert(sizeof(PF_ParamDefPtr) == 8);
static_assert(sizeof(PF_PluginDataPtr) == 8);

static_assert(sizeof(A_Time) == 8 && alignof(A_Time) == 4);
static_assert(offsetof(A_Time, value) == 0 && sizeof(A_Time::value) == 4);
static_assert(offsetof(A_Time, scale) == 4 && sizeof(A_Time::scale) == 4);

static_assert(sizeof(A_Ratio) == 8 && alignof(A_Ratio) == 4);
static_assert(offsetof(A_Ratio, num) == 0 && sizeof(A_Ratio::num) == 4);
static_assert(offsetof(A_Ratio, den) == 4 && sizeof(A_Ratio::den) == 4);

static_assert(sizeof(A_Matrix4) == 128 && alignof(A_Matrix4) == 8);
static_assert(offsetof(A_Matrix4, mat) == 0 && sizeof(A_Matrix4::mat) == 128);

static_assert(sizeof(PF_SpecVersion) == 4 && alignof(PF_SpecVersion) == 2);
static_assert(offsetof(PF_SpecVersion, major) == 0 && sizeof(PF_SpecVersion::major) == 2);
static_assert(offsetof(PF_SpecVersion, minor) == 2 && sizeof(PF_SpecVersion::minor) == 2);

static_assert(sizeof(PF_LRect) == 16 && alignof(PF_LRect) == 4);
static_assert(offsetof(PF_LRect, left) == 0 && sizeof(PF_LRect::left) == 4);
static_assert(offsetof(PF_LRect, top) == 4 && sizeof(PF_LRect::top) == 4);
static_assert(offsetof(PF_LRect, right) == 8 && sizeof(PF_LRect::right) == 4);
static_assert(offsetof(PF_LRect, bottom) == 12 && sizeof(PF_LRect::bottom) == 4);

static_assert(sizeof(PF_Point) == 8 && alignof(PF_Point) == 4);
static_assert(offsetof(PF_Point, h) == 0 && sizeof(PF_Point::h) == 4);
static_assert(offsetof(PF_Point, v) == 4 && sizeof(PF_Point::v) == 4);

static_assert(sizeof(PF_FixedPoint) == 8 && alignof(PF_FixedPoint) == 4);
static_assert(offsetof(PF_FixedPoint, x) == 0 && sizeof(PF_FixedPoint::x) == 4);
static_assert(offsetof(PF_FixedPoint, y) == 4 && sizeof(PF_FixedPoint::y) == 4);

static_assert(sizeof(PF_RationalScale) == 8 && alignof(PF_RationalScale) == 4);
static_assert(offsetof(PF_RationalScale, num) == 0 && sizeof(PF_RationalScale::num) == 4);
static_assert(offsetof(PF_RationalScale, den) == 4 && sizeof(PF_RationalScale::den) == 4);

static_assert(sizeof(PF_FloatMatrix) == 72 && alignof(PF_FloatMatrix) == 8);
static_assert(offsetof(PF_FloatMatrix, mat) == 0 && sizeof(PF_FloatMatrix::mat) == 72);

static_assert(sizeof(PF_Pixel) == 4 && alignof(PF_Pixel) == 1);
static_assert(offsetof(PF_Pixel, alpha) == 0 && sizeof(PF_Pixel::alpha) == 1);
static_assert(offsetof(PF_Pixel, red) == 1 && sizeof(PF_Pixel::red) == 1);
static_assert(offsetof(PF_Pixel, green) == 2 && sizeof(PF_Pixel::green) == 1);
static_assert(offsetof(PF_Pixel, blue) == 3 && sizeof(PF_Pixel::blue) == 1);

static_assert(sizeof(PF_Pixel16) == 8 && alignof(PF_Pixel16) == 2);
static_assert(offsetof(PF_Pixel16, alpha) == 0 && sizeof(PF_Pixel16::alpha) == 2);
static_assert(offsetof(PF_Pixel16, red) == 2 && sizeof(PF_Pixel16::red) == 2);
static_assert(offsetof(PF_Pixel16, green) == 4 && sizeof(PF_Pixel16::green) == 2);
static_assert(offsetof(PF_Pixel16, blue) == 6 && sizeof(PF_Pixel16::blue) == 2);

static_assert(sizeof(PF_PixelFloat) == 16 && alignof(PF_PixelFloat) == 4);
static_assert(offsetof(PF_PixelFloat, alpha) == 0 && sizeof(PF_PixelFloat::alpha) == 4);
static_assert(offsetof(PF_PixelFloat, red) == 4 && sizeof(PF_PixelFloat::red) == 4);
static_assert(offsetof(PF_PixelFloat, green) == 8 && sizeof(PF_PixelFloat::green) == 4);
static_assert(offsetof(PF_PixelFloat, blue) == 12 && sizeof(PF_PixelFloat::blue) == 4);

static_assert(sizeof(PF_SoundFormatInfo) == 16 && alignof(PF_SoundFormatInfo) == 8);
static_assert(offsetof(PF_SoundFormatInfo, rateF) == 0 && sizeof(PF_SoundFormatInfo::rateF) == 8);
static_assert(offsetof(PF_SoundFormatInfo, num_channels) == 8 &&
              sizeof(PF_SoundFormatInfo::num_channels) == 2);
static_assert(offsetof(PF_SoundFormatInfo, format) == 10 && sizeof(PF_SoundFormatInfo::format) == 2);
static_assert(offsetof(PF_SoundFormatInfo, sample_size) == 12 &&
              sizeof(PF_SoundFormatInfo::sample_size) == 2);

static_assert(sizeof(PF_SoundWorld) == 32 && alignof(PF_SoundWorld) == 8);
static_assert(offsetof(PF_SoundWorld, fi) == 0 && sizeof(PF_SoundWorld::fi) == 16);
static_assert(offsetof(PF_SoundWorld, num_samples) == 16 && sizeof(PF_SoundWorld::num_samples) == 4);
static_assert(offsetof(PF_SoundWorld, dataP) == 24 && sizeof(PF_SoundWorld::dataP) == 8);

static_assert(sizeof(PF_LayerDef) == 120 && alignof(PF_LayerDef) == 8);
static_assert(offsetof(PF_LayerDef, reserved0) == 0 && sizeof(PF_LayerDef::reserved0) == 8);
static_assert(offsetof(PF_LayerDef, reserved1) == 8 && sizeof(PF_LayerDef::reserved1) == 8);
static_assert(offsetof(PF_LayerDef, world_flags) == 16 && sizeof(PF_LayerDef::world_flags) == 4);
static_assert(offsetof(PF_LayerDef, data) == 24 && sizeof(PF_LayerDef::data) == 8);
static_assert(offsetof(PF_LayerDef, rowbytes) == 32 && sizeof(PF_LayerDef::rowbytes) == 4);
static_assert(offsetof(PF_LayerDef, width) == 36 && sizeof(PF_LayerDef::width) == 4);
static_assert(offsetof(PF_LayerDef, height) == 40 && sizeof(PF_LayerDef::height) == 4);
static_assert(offsetof(PF_LayerDef, extent_hint) == 44 && sizeof(PF_LayerDef::extent_hint) == 16);
static_assert(offsetof(PF_LayerDef, platform_ref) == 64 && sizeof(PF_LayerDef::platform_ref) == 8);
static_assert(offsetof(PF_LayerDef, reserved_long1) == 72 && sizeof(PF_LayerDef::reserved_long1) == 4);
static_assert(offsetof(PF_LayerDef, reserved_long4) == 80 && sizeof(PF_LayerDef::reserved_long4) == 8);
static_assert(offsetof(PF_LayerDef, pix_aspect_ratio) == 88 && sizeof(PF_LayerDef::pix_aspect_ratio) == 8);
static_assert(offsetof(PF_LayerDef, reserved_long2) == 96 && sizeof(PF_LayerDef::reserved_long2) == 8);
static_assert(offsetof(PF_LayerDef, origin_x) == 104 && sizeof(PF_LayerDef::origin_x) == 4);
static_assert(offsetof(PF_LayerDef, origin_y) == 108 && sizeof(PF_LayerDef::origin_y) == 4);
static_assert(offsetof(PF_LayerDef, reserved_long3) == 112 && sizeof(PF_LayerDef::reserved_long3) == 4);
static_assert(offsetof(PF_LayerDef, dephault) == 116 && sizeof(PF_LayerDef::dephault) == 4);

static_assert(sizeof(PF_SliderDef) == 88 && alignof(PF_SliderDef) == 4);
static_assert(offsetof(PF_SliderDef, value) == 0 && sizeof(PF_SliderDef::value) == 4);
static_assert(offsetof(PF_SliderDef, value_str) == 4 && sizeof(PF_SliderDef::value_str) == 32);
static_assert(offsetof(PF_SliderDef, value_desc) == 36 && sizeof(PF_SliderDef::value_desc) == 32);
static_assert(offsetof(PF_SliderDef, valid_min) == 68 && sizeof(PF_SliderDef::valid_min) == 4);
static_assert(offsetof(PF_SliderDef, valid_max) == 72 && sizeof(PF_SliderDef::valid_max) == 4);
static_assert(offsetof(PF_SliderDef, slider_min) == 76 && sizeof(PF_SliderDef::slider_min) == 4);
static_assert(offsetof(PF_SliderDef, slider_max) == 80 && sizeof(PF_SliderDef::slider_max) == 4);
static_assert(offsetof(PF_SliderDef, dephault) == 84 && sizeof(PF_SliderDef::dephault) == 4);

static_assert(sizeof(PF_FixedSliderDef) == 92 && alignof(PF_FixedSliderDef) == 4);
static_assert(offsetof(PF_FixedSliderDef, value) == 0 && sizeof(PF_FixedSliderDef::value) == 4);
static_assert(offsetof(PF_FixedSliderDef, value_str) == 4 && sizeof(PF_FixedSliderDef::value_str) == 32);
static_assert(offsetof(PF_FixedSliderDef, value_desc) == 36 && sizeof(PF_FixedSliderDef::value_desc) == 32);
static_assert(offsetof(PF_FixedSliderDef, valid_min) == 68 && sizeof(PF_FixedSliderDef::valid_min) == 4);
static_assert(offsetof(PF_FixedSliderDef, valid_max) == 72 && sizeof(PF_FixedSliderDef::valid_max) == 4);
static_assert(offsetof(PF_FixedSliderDef, slider_min) == 76 && sizeof(PF_FixedSliderDef::slider_min) == 4);
static_assert(offsetof(PF_FixedSliderDef, slider_max) == 80 && sizeof(PF_FixedSliderDef::slider_max) == 4);
static_assert(offsetof(PF_FixedSliderDef, dephault) == 84 && sizeof(PF_FixedSliderDef::dephault) == 4);
static_assert(offsetof(PF_FixedSliderDef, precision) == 88 && sizeof(PF_FixedSliderDef::precision) == 2);
static_assert(offsetof(PF_FixedSliderDef, display_flags) == 90 &&
              sizeof(PF_FixedSliderDef::display_flags) == 2);

static_assert(sizeof(PF_AngleDef) == 16 && alignof(PF_AngleDef) == 4);
static_assert(offsetof(PF_AngleDef, value) == 0 && sizeof(PF_AngleDef::value) == 4);
static_assert(offsetof(PF_AngleDef, dephault) == 4 && sizeof(PF_AngleDef::dephault) == 4);
static_assert(offsetof(PF_AngleDef, valid_min) == 8 && sizeof(PF_AngleDef::valid_min) == 4);
static_assert(offsetof(PF_AngleDef, valid_max) == 12 && sizeof(PF_AngleDef::valid_max) == 4);

static_assert(sizeof(PF_CheckBoxDef_u) == 8 && alignof(PF_CheckBoxDef_u) == 8);
static_assert(offsetof(PF_CheckBoxDef_u, nameptr) == 0 && sizeof(PF_CheckBoxDef_u::nameptr) == 8);

static_assert(sizeof(PF_CheckBoxDef) == 16 && alignof(PF_CheckBoxDef) == 8);
static_assert(offsetof(PF_CheckBoxDef, value) == 0 && sizeof(PF_CheckBoxDef::value) == 4);
static_assert(offsetof(PF_CheckBoxDef, dephault) == 4 && sizeof(PF_CheckBoxDef::dephault) == 1);
static_assert(offsetof(PF_CheckBoxDef, reserved) == 5 && sizeof(PF_CheckBoxDef::reserved) == 1);
static_assert(offsetof(PF_CheckBoxDef, reserved1) == 6 && sizeof(PF_CheckBoxDef::reserved1) == 2);
static_assert(offsetof(PF_CheckBoxDef, u) == 8 && sizeof(PF_CheckBoxDef::u) == 8);

static_assert(sizeof(PF_ColorDef) == 8 && alignof(PF_ColorDef) == 1);
static_assert(offsetof(PF_ColorDef, value) == 0 && sizeof(PF_ColorDef::value) == 4);
static_assert(offsetof(PF_ColorDef, dephault) == 4 && sizeof(PF_ColorDef::dephault) == 4);

static_assert(sizeof(PF_PointDef) == 20 && alignof(PF_PointDef) == 4);
static_assert(offsetof(PF_PointDef, x_value) == 0 && sizeof(PF_PointDef::x_value) == 4);
static_assert(offsetof(PF_PointDef, y_value) == 4 && sizeof(PF_PointDef::y_value) == 4);
static_assert(offsetof(PF_PointDef, reserved) == 8 && sizeof(PF_PointDef::reserved) == 3);
static_assert(offsetof(PF_PointDef, restrict_bounds) == 11 && sizeof(PF_PointDef::restrict_bounds) == 1);
static_assert(offsetof(PF_PointDef, x_dephault) == 12 && sizeof(PF_PointDef::x_dephault) == 4);
static_assert(offsetof(PF_PointDef, y_dephault) == 16 && sizeof(PF_PointDef::y_dephault) == 4);

static_assert(sizeof(PF_PopupDef_u) == 8 && alignof(PF_PopupDef_u) == 8);
static_assert(offsetof(PF_PopupDef_u, namesptr) == 0 && sizeof(PF_PopupDef_u::namesptr) == 8);

static_assert(sizeof(PF_PopupDef) == 16 && alignof(PF_PopupDef) == 8);
static_assert(offsetof(PF_PopupDef, value) == 0 && sizeof(PF_PopupDef::value) == 4);
static_assert(offsetof(PF_PopupDef, num_choices) == 4 && sizeof(PF_PopupDef::num_choices) == 2);
static_assert(offsetof(PF_PopupDef, dephault) == 6 && sizeof(PF_PopupDef::dephault) == 2);
static_assert(offsetof(PF_PopupDef, u) == 8 && sizeof(PF_PopupDef::u) == 8);

static_assert(sizeof(PF_FloatSliderDef) == 88 && alignof(PF_FloatSliderDef) == 8);
static_assert(offsetof(PF_FloatSliderDef, value) == 0 && sizeof(PF_FloatSliderDef::value) == 8);
static_assert(offsetof(PF_FloatSliderDef, phase) == 8 && sizeof(PF_FloatSliderDef::phase) == 8);
static_assert(offsetof(PF_FloatSliderDef, value_desc) == 16 && sizeof(PF_FloatSliderDef::value_desc) == 32);
static_assert(offsetof(PF_FloatSliderDef, valid_min) == 48 && sizeof(PF_FloatSliderDef::valid_min) == 4);
static_assert(offsetof(PF_FloatSliderDef, valid_max) == 52 && sizeof(PF_FloatSliderDef::valid_max) == 4);
static_assert(offsetof(PF_FloatSliderDef, slider_min) == 56 && sizeof(PF_FloatSliderDef::slider_min) == 4);
static_assert(offsetof(PF_FloatSliderDef, slider_max) == 60 && sizeof(PF_FloatSliderDef::slider_max) == 4);
static_assert(offsetof(PF_FloatSliderDef, dephault) == 64 && sizeof(PF_FloatSliderDef::dephault) == 4);
static_assert(offsetof(PF_FloatSliderDef, precision) == 68 && sizeof(PF_FloatSliderDef::precision) == 2);
static_assert(offsetof(PF_FloatSliderDef, display_flags) == 70 &&
              sizeof(PF_FloatSliderDef::display_flags) == 2);
static_assert(offsetof(PF_FloatSliderDef, fs_flags) == 72 && sizeof(PF_FloatSliderDef::fs_flags) == 4);
static_assert(offsetof(PF_FloatSliderDef, curve_tolerance) == 76 &&
              sizeof(PF_FloatSliderDef::curve_tolerance) == 4);
static_assert(offsetof(PF_FloatSliderDef, useExponent) == 80 && sizeof(PF_FloatSliderDef::useExponent) == 1);
static_assert(offsetof(PF_FloatSliderDef, exponent) == 84 && sizeof(PF_FloatSliderDef::exponent) == 4);

static_assert(sizeof(PF_ArbitraryDef) == 32 && alignof(PF_ArbitraryDef) == 8);
static_assert(offsetof(PF_ArbitraryDef, id) == 0 && sizeof(PF_ArbitraryDef::id) == 2);
static_assert(offsetof(PF_ArbitraryDef, pad) == 2 && sizeof(PF_ArbitraryDef::pad) == 2);
static_assert(offsetof(PF_ArbitraryDef, dephault) == 8 && sizeof(PF_ArbitraryDef::dephault) == 8);
static_assert(offsetof(PF_ArbitraryDef, value) == 16 && sizeof(PF_ArbitraryDef::value) == 8);
static_assert(offsetof(PF_ArbitraryDef, refconPV) == 24 && sizeof(PF_ArbitraryDef::refconPV) == 8);

static_assert(sizeof(PF_PathDef) == 12 && alignof(PF_PathDef) == 4);
static_assert(offsetof(PF_PathDef, path_id) == 0 && sizeof(PF_PathDef::path_id) == 4);
static_assert(offsetof(PF_PathDef, reserved0) == 4 && sizeof(PF_PathDef::reserved0) == 4);
static_assert(offsetof(PF_PathDef, dephault) == 8 && sizeof(PF_PathDef::dephault) == 4);

static_assert(sizeof(PF_ButtonDef_u) == 8 && alignof(PF_ButtonDef_u) == 8);
static_assert(offsetof(PF_ButtonDef_u, namesptr) == 0 && sizeof(PF_ButtonDef_u::namesptr) == 8);

static_assert(sizeof(PF_ButtonDef) == 16 && alignof(PF_ButtonDef) == 8);
static_assert(offsetof(PF_ButtonDef, value) == 0 && sizeof(PF_ButtonDef::value) == 4);
static_assert(offsetof(PF_ButtonDef, u) == 8 && sizeof(PF_ButtonDef::u) == 8);

static_assert(sizeof(PF_Point3DDef) == 64 && alignof(PF_Point3DDef) == 8);
static_assert(offsetof(PF_Point3DDef, x_value) == 0 && sizeof(PF_Point3DDef::x_value) == 8);
static_assert(offsetof(PF_Point3DDef, y_value) == 8 && sizeof(PF_Point3DDef::y_value) == 8);
static_assert(offsetof(PF_Point3DDef, z_value) == 16 && sizeof(PF_Point3DDef::z_value) == 8);
static_assert(offsetof(PF_Point3DDef, x_dephault) == 24 && sizeof(PF_Point3DDef::x_dephault) == 8);
static_assert(offsetof(PF_Point3DDef, y_dephault) == 32 && sizeof(PF_Point3DDef::y_dephault) == 8);
static_assert(offsetof(PF_Point3DDef, z_dephault) == 40 && sizeof(PF_Point3DDef::z_dephault) == 8);
static_assert(offsetof(PF_Point3DDef, reserved) == 48 && sizeof(PF_Point3DDef::reserved) == 16);

static_assert(sizeof(PF_ParamDefUnion) == 120 && alignof(PF_ParamDefUnion) == 8);
static_assert(offsetof(PF_ParamDefUnion, ld) == 0 && sizeof(PF_ParamDefUnion::ld) == 120);
static_assert(offsetof(PF_ParamDefUnion, sd) == 0 && sizeof(PF_ParamDefUnion::sd) == 88);
static_assert(offsetof(PF_ParamDefUnion, fd) == 0 && sizeof(PF_ParamDefUnion::fd) == 92);
static_assert(offsetof(PF_ParamDefUnion, ad) == 0 && sizeof(PF_ParamDefUnion::ad) == 16);
static_assert(offsetof(PF_ParamDefUnion, bd) == 0 && sizeof(PF_ParamDefUnion::bd) == 16);
static_assert(offsetof(PF_ParamDefUnion, cd) == 0 && sizeof(PF_ParamDefUnion::cd) == 8);
static_assert(offsetof(PF_ParamDefUnion, td) == 0 && sizeof(PF_ParamDefUnion::td) == 20);
static_assert(offsetof(PF_ParamDefUnion, pd) == 0 && sizeof(PF_ParamDefUnion::pd) == 16);
static_assert(offsetof(PF_ParamDefUnion, fs_d) == 0 && sizeof(PF_ParamDefUnion::fs_d) == 88);
static_assert(offsetof(PF_ParamDefUnion, arb_d) == 0 && sizeof(PF_ParamDefUnion::arb_d) == 32);
static_assert(offsetof(PF_ParamDefUnion, path_d) == 0 && sizeof(PF_ParamDefUnion::path_d) == 12);
static_assert(offsetof(PF_ParamDefUnion, button_d) == 0 && sizeof(PF_ParamDefUnion::button_d) == 16);
static_assert(offsetof(PF_ParamDefUnion, point3d_d) == 0 && sizeof(PF_ParamDefUnion::point3d_d) == 64);

static_assert(sizeof(PF_ParamDef_uu) == 4 && alignof(PF_ParamDef_uu) == 4);
static_assert(offsetof(PF_ParamDef_uu, id) == 0 && sizeof(PF_ParamDef_uu::id) == 4);
static_assert(offsetof(PF_ParamDef_uu, change_flags) == 0 && sizeof(PF_ParamDef_uu::change_flags) == 4);

static_assert(sizeof(PF_ParamDef) == 176 && alignof(PF_ParamDef) == 8);
static_assert(offsetof(PF_ParamDef, uu) == 0 && sizeof(PF_ParamDef::uu) == 4);
static_assert(offsetof(PF_ParamDef, ui_flags) == 4 && sizeof(PF_ParamDef::ui_flags) == 4);
static_assert(offsetof(PF_ParamDef, ui_width) == 8 && sizeof(PF_ParamDef::ui_width) == 2);
static_assert(offsetof(PF_ParamDef, ui_height) == 10 && sizeof(PF_ParamDef::ui_height) == 2);
static_assert(offsetof(PF_ParamDef, param_type) == 12 && sizeof(PF_ParamDef::param_type) == 4);
static_assert(offsetof(PF_ParamDef, name) == 16 && sizeof(PF_ParamDef::name) == 32);
static_assert(offsetof(PF_ParamDef, flags) == 48 && sizeof(PF_ParamDef::flags) == 4);
static_assert(offsetof(PF_ParamDef, unused) == 52 && sizeof(PF_ParamDef::unused) == 4);
static_assert(offsetof(PF_ParamDef, u) == 56 && sizeof(PF_ParamDef::u) == 120);

static_assert(sizeof(PF_CustomUIInfo) == 44 && alignof(PF_CustomUIInfo) == 4);
static_assert(offsetof(PF_CustomUIInfo, reserved) == 0 && sizeof(PF_CustomUIInfo::reserved) == 4);
static_assert(offsetof(PF_CustomUIInfo, events) == 4 && sizeof(PF_CustomUIInfo::events) == 4);
static_assert(offsetof(PF_CustomUIInfo, comp_ui_width) == 8 && sizeof(PF_CustomUIInfo::comp_ui_width) == 4);
static_assert(offsetof(PF_CustomUIInfo, comp_ui_height) == 12 &&
              sizeof(PF_CustomUIInfo::comp_ui_height) == 4);
static_assert(offsetof(PF_CustomUIInfo, comp_ui_alignment) == 16 &&
              sizeof(PF_CustomUIInfo::comp_ui_alignment) == 4);
static_assert(offsetof(PF_CustomUIInfo, layer_ui_width) == 20 &&
              sizeof(PF_CustomUIInfo::layer_ui_width) == 4);
static_assert(offsetof(PF_CustomUIInfo, layer_ui_height) == 24 &&
              sizeof(PF_CustomUIInfo::layer_ui_height) == 4);
static_assert(offsetof(PF_CustomUIInfo, layer_ui_alignment) == 28 &&
              sizeof(PF_CustomUIInfo::layer_ui_alignment) == 4);
static_assert(offsetof(PF_CustomUIInfo, preview_ui_width) == 32 &&
              sizeof(PF_CustomUIInfo::preview_ui_width) == 4);
static_assert(offsetof(PF_CustomUIInfo, preview_ui_height) == 36 &&
              sizeof(PF_CustomUIInfo::preview_ui_height) == 4);
static_assert(offsetof(PF_CustomUIInfo, preview_ui_alignment) == 40 &&
              sizeof(PF_CustomUIInfo::preview_ui_alignment) == 4);

static_assert(sizeof(PF_UserChangedParamExtra) == 4 && alignof(PF_UserChangedParamExtra) == 4);
static_assert(offsetof(PF_UserChangedParamExtra, param_index) == 0 &&
              sizeof(PF_UserChangedParamExtra::param_index) == 4);

static_assert(sizeof(PF_InteractCallbacks) == 176 && alignof(PF_InteractCallbacks) == 8);
static_assert(offsetof(PF_InteractCallbacks, checkout_param) == 0 &&
              sizeof(PF_InteractCallbacks::checkout_param) == 8);
static_assert(offsetof(PF_InteractCallbacks, checkin_param) == 8 &&
              sizeof(PF_InteractCallbacks::checkin_param) == 8);
static_assert(offsetof(PF_InteractCallbacks, add_param) == 16 &&
              sizeof(PF_InteractCallbacks::add_param) == 8);
static_assert(offsetof(PF_InteractCallbacks, abort) == 24 && sizeof(PF_InteractCallbacks::abort) == 8);
static_assert(offsetof(PF_InteractCallbacks, progress) == 32 && sizeof(PF_InteractCallbacks::progress) == 8);
static_assert(offsetof(PF_InteractCallbacks, register_ui) == 40 &&
              sizeof(PF_InteractCallbacks::register_ui) == 8);
static_assert(offsetof(PF_InteractCallbacks, checkout_layer_audio) == 48 &&
              sizeof(PF_InteractCallbacks::checkout_layer_audio) == 8);
static_assert(offsetof(PF_InteractCallbacks, checkin_layer_audio) == 56 &&
              sizeof(PF_InteractCallbacks::checkin_layer_audio) == 8);
static_assert(offsetof(PF_InteractCallbacks, get_audio_data) == 64 &&
              sizeof(PF_InteractCallbacks::get_audio_data) == 8);
static_assert(offsetof(PF_InteractCallbacks, reserved_str) == 72 &&
              sizeof(PF_InteractCallbacks::reserved_str) == 24);
static_assert(offsetof(PF_InteractCallbacks, reserved) == 96 && sizeof(PF_InteractCallbacks::reserved) == 80);

static_assert(sizeof(PF_ANSICallbacks) == 160 && alignof(PF_ANSICallbacks) == 8);
static_assert(offsetof(PF_ANSICallbacks, atan) == 0 && sizeof(PF_ANSICallbacks::atan) == 8);
static_assert(offsetof(PF_ANSICallbacks, atan2) == 8 && sizeof(PF_ANSICallbacks::atan2) == 8);
static_assert(offsetof(PF_ANSICallbacks, ceil) == 16 && sizeof(PF_ANSICallbacks::ceil) == 8);
static_assert(offsetof(PF_ANSICallbacks, cos) == 24 && sizeof(PF_ANSICallbacks::cos) == 8);
static_assert(offsetof(PF_ANSICallbacks, exp) == 32 && sizeof(PF_ANSICallbacks::exp) == 8);
static_assert(offsetof(PF_ANSICallbacks, fabs) == 40 && sizeof(PF_ANSICallbacks::fabs) == 8);
static_assert(offsetof(PF_ANSICallbacks, floor) == 48 && sizeof(PF_ANSICallbacks::floor) == 8);
static_assert(offsetof(PF_ANSICallbacks, fmod) == 56 && sizeof(PF_ANSICallbacks::fmod) == 8);
static_assert(offsetof(PF_ANSICallbacks, hypot) == 64 && sizeof(PF_ANSICallbacks::hypot) == 8);
static_assert(offsetof(PF_ANSICallbacks, log) == 72 && sizeof(PF_ANSICallbacks::log) == 8);
static_assert(offsetof(PF_ANSICallbacks, log10) == 80 && sizeof(PF_ANSICallbacks::log10) == 8);
static_assert(offsetof(PF_ANSICallbacks, pow) == 88 && sizeof(PF_ANSICallbacks::pow) == 8);
static_assert(offsetof(PF_ANSICallbacks, sin) == 96 && sizeof(PF_ANSICallbacks::sin) == 8);
static_assert(offsetof(PF_ANSICallbacks, sqrt) == 104 && sizeof(PF_ANSICallbacks::sqrt) == 8);
static_assert(offsetof(PF_ANSICallbacks, tan) == 112 && sizeof(PF_ANSICallbacks::tan) == 8);
static_assert(offsetof(PF_ANSICallbacks, sprintf) == 120 && sizeof(PF_ANSICallbacks::sprintf) == 8);
static_assert(offsetof(PF_ANSICallbacks, strcpy) == 128 && sizeof(PF_ANSICallbacks::strcpy) == 8);
static_assert(offsetof(PF_ANSICallbacks, asin) == 136 && sizeof(PF_ANSICallbacks::asin) == 8);
static_assert(offsetof(PF_ANSICallbacks, acos) == 144 && sizeof(PF_ANSICallbacks::acos) == 8);
static_assert(offsetof(PF_ANSICallbacks, ansi_procs) == 152 && sizeof(PF_ANSICallbacks::ansi_procs) == 4);

static_assert(sizeof(PF_ColorCallbacks) == 64 && alignof(PF_ColorCallbacks) == 8);
static_assert(offsetof(PF_ColorCallbacks, RGBtoHLS) == 0 && sizeof(PF_ColorCallbacks::RGBtoHLS) == 8);
static_assert(offsetof(PF_ColorCallbacks, HLStoRGB) == 8 && sizeof(PF_ColorCallbacks::HLStoRGB) == 8);
static_assert(offsetof(PF_ColorCallbacks, RGBtoYIQ) == 16 && sizeof(PF_ColorCallbacks::RGBtoYIQ) == 8);
static_assert(offsetof(PF_ColorCallbacks, YIQtoRGB) == 24 && sizeof(PF_ColorCallbacks::YIQtoRGB) == 8);
static_assert(offsetof(PF_ColorCallbacks, Luminance) == 32 && sizeof(PF_ColorCallbacks::Luminance) == 8);
static_assert(offsetof(PF_ColorCallbacks, Hue) == 40 && sizeof(PF_ColorCallbacks::Hue) == 8);
static_assert(offsetof(PF_ColorCallbacks, Lightness) == 48 && sizeof(PF_ColorCallbacks::Lightness) == 8);
static_assert(offsetof(PF_ColorCallbacks, Saturation) == 56 && sizeof(PF_ColorCallbacks::Saturation) == 8);

static_assert(sizeof(PF_UtilCallbacks) == 552 && alignof(PF_UtilCallbacks) == 8);
static_assert(offsetof(PF_UtilCallbacks, begin_sampling) == 0 &&
              sizeof(PF_UtilCallbacks::begin_sampling) == 8);
static_assert(offsetof(PF_UtilCallbacks, subpixel_sample) == 8 &&
              sizeof(PF_UtilCallbacks::subpixel_sample) == 8);
static_assert(offsetof(PF_UtilCallbacks, area_sample) == 16 && sizeof(PF_UtilCallbacks::area_sample) == 8);
static_assert(offsetof(PF_UtilCallbacks, get_batch_func_is_deprecated) == 24 &&
              sizeof(PF_UtilCallbacks::get_batch_func_is_deprecated) == 8);
static_assert(offsetof(PF_UtilCallbacks, end_sampling) == 32 && sizeof(PF_UtilCallbacks::end_sampling) == 8);
static_assert(offsetof(PF_UtilCallbacks, composite_rect) == 40 &&
              sizeof(PF_UtilCallbacks::composite_rect) == 8);
static_assert(offsetof(PF_UtilCallbacks, blend) == 48 && sizeof(PF_UtilCallbacks::blend) == 8);
static_assert(offsetof(PF_UtilCallbacks, convolve) == 56 && sizeof(PF_UtilCallbacks::convolve) == 8);
static_assert(offsetof(PF_UtilCallbacks, copy) == 64 && sizeof(PF_UtilCallbacks::copy) == 8);
static_assert(offsetof(PF_UtilCallbacks, fill) == 72 && sizeof(PF_UtilCallbacks::fill) == 8);
static_assert(offsetof(PF_UtilCallbacks, gaussian_kernel) == 80 &&
              sizeof(PF_UtilCallbacks::gaussian_kernel) == 8);
static_assert(offsetof(PF_UtilCallbacks, iterate) == 88 && sizeof(PF_UtilCallbacks::iterate) == 8);
static_assert(offsetof(PF_UtilCallbacks, premultiply) == 96 && sizeof(PF_UtilCallbacks::premultiply) == 8);
static_assert(offsetof(PF_UtilCallbacks, premultiply_color) == 104 &&
              sizeof(PF_UtilCallbacks::premultiply_color) == 8);
static_assert(offsetof(PF_UtilCallbacks, new_world) == 112 && sizeof(PF_UtilCallbacks::new_world) == 8);
static_assert(offsetof(PF_UtilCallbacks, dispose_world) == 120 &&
              sizeof(PF_UtilCallbacks::dispose_world) == 8);
static_assert(offsetof(PF_UtilCallbacks, iterate_origin) == 128 &&
              sizeof(PF_UtilCallbacks::iterate_origin) == 8);
static_assert(offsetof(PF_UtilCallbacks, iterate_lut) == 136 && sizeof(PF_UtilCallbacks::iterate_lut) == 8);
static_assert(offsetof(PF_UtilCallbacks, transfer_rect) == 144 &&
              sizeof(PF_UtilCallbacks::transfer_rect) == 8);
static_assert(offsetof(PF_UtilCallbacks, transform_world) == 152 &&
              sizeof(PF_UtilCallbacks::transform_world) == 8);
static_assert(offsetof(PF_UtilCallbacks, host_new_handle) == 160 &&
              sizeof(PF_UtilCallbacks::host_new_handle) == 8);
static_assert(offsetof(PF_UtilCallbacks, host_lock_handle) == 168 &&
              sizeof(PF_UtilCallbacks::host_lock_handle) == 8);
static_assert(offsetof(PF_UtilCallbacks, host_unlock_handle) == 176 &&
              sizeof(PF_UtilCallbacks::host_unlock_handle) == 8);
static_assert(offsetof(PF_UtilCallbacks, host_dispose_handle) == 184 &&
              sizeof(PF_UtilCallbacks::host_dispose_handle) == 8);
static_assert(offsetof(PF_UtilCallbacks, get_callback_addr) == 192 &&
              sizeof(PF_UtilCallbacks::get_callback_addr) == 8);
static_assert(offsetof(PF_UtilCallbacks, app) == 200 && sizeof(PF_UtilCallbacks::app) == 8);
static_assert(offsetof(PF_UtilCallbacks, ansi) == 208 && sizeof(PF_UtilCallbacks::ansi) == 160);
static_assert(offsetof(PF_UtilCallbacks, colorCB) == 368 && sizeof(PF_UtilCallbacks::colorCB) == 64);
static_assert(offsetof(PF_UtilCallbacks, get_platform_data) == 432 &&
              sizeof(PF_UtilCallbacks::get_platform_data) == 8);
static_assert(offsetof(PF_UtilCallbacks, host_get_handle_size) == 440 &&
              sizeof(PF_UtilCallbacks::host_get_handle_size) == 8);
static_assert(offsetof(PF_UtilCallbacks, iterate_origin_non_clip_src) == 448 &&
              sizeof(PF_UtilCallbacks::iterate_origin_non_clip_src) == 8);
static_assert(offsetof(PF_UtilCallbacks, iterate_generic) == 456 &&
              sizeof(PF_UtilCallbacks::iterate_generic) == 8);
static_assert(offsetof(PF_UtilCallbacks, host_resize_handle) == 464 &&
              sizeof(PF_UtilCallbacks::host_resize_handle) == 8);
static_assert(offsetof(PF_UtilCallbacks, subpixel_sample16) == 472 &&
              sizeof(PF_UtilCallbacks::subpixel_sample16) == 8);
static_assert(offsetof(PF_UtilCallbacks, area_sample16) == 480 &&
              sizeof(PF_UtilCallbacks::area_sample16) == 8);
static_assert(offsetof(PF_UtilCallbacks, fill16) == 488 && sizeof(PF_UtilCallbacks::fill16) == 8);
static_assert(offsetof(PF_UtilCallbacks, premultiply_color16) == 496 &&
              sizeof(PF_UtilCallbacks::premultiply_color16) == 8);
static_assert(offsetof(PF_UtilCallbacks, iterate16) == 504 && sizeof(PF_UtilCallbacks::iterate16) == 8);
static_assert(offsetof(PF_UtilCallbacks, iterate_origin16) == 512 &&
              sizeof(PF_UtilCallbacks::iterate_origin16) == 8);
static_assert(offsetof(PF_UtilCallbacks, iterate_origin_non_clip_src16) == 520 &&
              sizeof(PF_UtilCallbacks::iterate_origin_non_clip_src16) == 8);
static_assert(offsetof(PF_UtilCallbacks, get_pixel_data8) == 528 &&
              sizeof(PF_UtilCallbacks::get_pixel_data8) == 8);
static_assert(offsetof(PF_UtilCallbacks, get_pixel_data16) == 536 &&
              sizeof(PF_UtilCallbacks::get_pixel_data16) == 8);
static_assert(offsetof(PF_UtilCallbacks, reserved) == 544 && sizeof(PF_UtilCallbacks::reserved) == 4);

static_assert(sizeof(PF_InData) == 408 && alignof(PF_InData) == 8);
static_assert(offsetof(PF_InData, inter) == 0 && sizeof(PF_InData::inter) == 176);
static_assert(offsetof(PF_InData, utils) == 176 && sizeof(PF_InData::utils) == 8);
static_assert(offsetof(PF_InData, effect_ref) == 184 && sizeof(PF_InData::effect_ref) == 8);
static_assert(offsetof(PF_InData, quality) == 192 && sizeof(PF_InData::quality) == 4);
static_assert(offsetof(PF_InData, version) == 196 && sizeof(PF_InData::version) == 4);
static_assert(offsetof(PF_InData, serial_num) == 200 && sizeof(PF_InData::serial_num) == 4);
static_assert(offsetof(PF_InData, appl_id) == 204 && sizeof(PF_InData::appl_id) == 4);
static_assert(offsetof(PF_InData, num_params) == 208 && sizeof(PF_InData::num_params) == 4);
static_assert(offsetof(PF_InData, reserved) == 212 && sizeof(PF_InData::reserved) == 4);
static_assert(offsetof(PF_InData, what_cpu) == 216 && sizeof(PF_InData::what_cpu) == 4);
static_assert(offsetof(PF_InData, what_fpu) == 220 && sizeof(PF_InData::what_fpu) == 4);
static_assert(offsetof(PF_InData, current_time) == 224 && sizeof(PF_InData::current_time) == 4);
static_assert(offsetof(PF_InData, time_step) == 228 && sizeof(PF_InData::time_step) == 4);
static_assert(offsetof(PF_InData, total_time) == 232 && sizeof(PF_InData::total_time) == 4);
static_assert(offsetof(PF_InData, local_time_step) == 236 && sizeof(PF_InData::local_time_step) == 4);
static_assert(offsetof(PF_InData, time_scale) == 240 && sizeof(PF_InData::time_scale) == 4);
static_assert(offsetof(PF_InData, field) == 244 && sizeof(PF_InData::field) == 4);
static_assert(offsetof(PF_InData, shutter_angle) == 248 && sizeof(PF_InData::shutter_angle) == 4);
static_assert(offsetof(PF_InData, width) == 252 && sizeof(PF_InData::width) == 4);
static_assert(offsetof(PF_InData, height) == 256 && sizeof(PF_InData::height) == 4);
static_assert(offsetof(PF_InData, extent_hint) == 260 && sizeof(PF_InData::extent_hint) == 16);
static_assert(offsetof(PF_InData, output_origin_x) == 276 && sizeof(PF_InData::output_origin_x) == 4);
static_assert(offsetof(PF_InData, output_origin_y) == 280 && sizeof(PF_InData::output_origin_y) == 4);
static_assert(offsetof(PF_InData, downsample_x) == 284 && sizeof(PF_InData::downsample_x) == 8);
static_assert(offsetof(PF_InData, downsample_y) == 292 && sizeof(PF_InData::downsample_y) == 8);
static_assert(offsetof(PF_InData, pixel_aspect_ratio) == 300 && sizeof(PF_InData::pixel_aspect_ratio) == 8);
static_assert(offsetof(PF_InData, in_flags) == 308 && sizeof(PF_InData::in_flags) == 4);
static_assert(offsetof(PF_InData, global_data) == 312 && sizeof(PF_InData::global_data) == 8);
static_assert(offsetof(PF_InData, sequence_data) == 320 && sizeof(PF_InData::sequence_data) == 8);
static_assert(offsetof(PF_InData, frame_data) == 328 && sizeof(PF_InData::frame_data) == 8);
static_assert(offsetof(PF_InData, start_sampL) == 336 && sizeof(PF_InData::start_sampL) == 4);
static_assert(offsetof(PF_InData, dur_sampL) == 340 && sizeof(PF_InData::dur_sampL) == 4);
static_assert(offsetof(PF_InData, total_sampL) == 344 && sizeof(PF_InData::total_sampL) == 4);
static_assert(offsetof(PF_InData, src_snd) == 352 && sizeof(PF_InData::src_snd) == 32);
static_assert(offsetof(PF_InData, pica_basicP) == 384 && sizeof(PF_InData::pica_basicP) == 8);
static_assert(offsetof(PF_InData, pre_effect_source_origin_x) == 392 &&
              sizeof(PF_InData::pre_effect_source_origin_x) == 4);
static_assert(offsetof(PF_InData, pre_effect_source_origin_y) == 396 &&
              sizeof(PF_InData::pre_effect_source_origin_y) == 4);
static_assert(offsetof(PF_InData, shutter_phase) == 400 && sizeof(PF_InData::shutter_phase) == 4);

static_assert(sizeof(PF_OutData) == 408 && alignof(PF_OutData) == 8);
static_assert(offsetof(PF_OutData, my_version) == 0 && sizeof(PF_OutData::my_version) == 4);
static_assert(offsetof(PF_OutData, name) == 4 && sizeof(PF_OutData::name) == 32);
static_assert(offsetof(PF_OutData, global_data) == 40 && sizeof(PF_OutData::global_data) == 8);
static_assert(offsetof(PF_OutData, num_params) == 48 && sizeof(PF_OutData::num_params) == 4);
static_assert(offsetof(PF_OutData, sequence_data) == 56 && sizeof(PF_OutData::sequence_data) == 8);
static_assert(offsetof(PF_OutData, flat_sdata_size) == 64 && sizeof(PF_OutData::flat_sdata_size) == 4);
static_assert(offsetof(PF_OutData, frame_data) == 72 && sizeof(PF_OutData::frame_data) == 8);
static_assert(offsetof(PF_OutData, width) == 80 && sizeof(PF_OutData::width) == 4);
static_assert(offsetof(PF_OutData, height) == 84 && sizeof(PF_OutData::height) == 4);
static_assert(offsetof(PF_OutData, origin) == 88 && sizeof(PF_OutData::origin) == 8);
static_assert(offsetof(PF_OutData, out_flags) == 96 && sizeof(PF_OutData::out_flags) == 4);
static_assert(offsetof(PF_OutData, return_msg) == 100 && sizeof(PF_OutData::return_msg) == 256);
static_assert(offsetof(PF_OutData, start_sampL) == 356 && sizeof(PF_OutData::start_sampL) == 4);
static_assert(offsetof(PF_OutData, dur_sampL) == 360 && sizeof(PF_OutData::dur_sampL) == 4);
static_assert(offsetof(PF_OutData, dest_snd) == 368 && sizeof(PF_OutData::dest_snd) == 32);
static_assert(offsetof(PF_OutData, out_flags2) == 400 && sizeof(PF_OutData::out_flags2) == 4);

static_assert(sizeof(PF_ArbParamsExtra_new) == 16 && alignof(PF_ArbParamsExtra_new) == 8);
static_assert(offsetof(PF_ArbParamsExtra_new, refconPV) == 0 && sizeof(PF_ArbParamsExtra_new::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_new, arbPH) == 8 && sizeof(PF_ArbParamsExtra_new::arbPH) == 8);

static_assert(sizeof(PF_ArbParamsExtra_dispose) == 16 && alignof(PF_ArbParamsExtra_dispose) == 8);
static_assert(offsetof(PF_ArbParamsExtra_dispose, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_dispose::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_dispose, arbH) == 8 && sizeof(PF_ArbParamsExtra_dispose::arbH) == 8);

static_assert(sizeof(PF_ArbParamsExtra_copy) == 24 && alignof(PF_ArbParamsExtra_copy) == 8);
static_assert(offsetof(PF_ArbParamsExtra_copy, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_copy::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_copy, src_arbH) == 8 &&
              sizeof(PF_ArbParamsExtra_copy::src_arbH) == 8);
static_assert(offsetof(PF_ArbParamsExtra_copy, dst_arbPH) == 16 &&
              sizeof(PF_ArbParamsExtra_copy::dst_arbPH) == 8);

static_assert(sizeof(PF_ArbParamsExtra_flat_size) == 24 && alignof(PF_ArbParamsExtra_flat_size) == 8);
static_assert(offsetof(PF_ArbParamsExtra_flat_size, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_flat_size::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_flat_size, arbH) == 8 &&
              sizeof(PF_ArbParamsExtra_flat_size::arbH) == 8);
static_assert(offsetof(PF_ArbParamsExtra_flat_size, flat_data_sizePLu) == 16 &&
              sizeof(PF_ArbParamsExtra_flat_size::flat_data_sizePLu) == 8);

static_assert(sizeof(PF_ArbParamsExtra_flatten) == 32 && alignof(PF_ArbParamsExtra_flatten) == 8);
static_assert(offsetof(PF_ArbParamsExtra_flatten, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_flatten::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_flatten, arbH) == 8 && sizeof(PF_ArbParamsExtra_flatten::arbH) == 8);
static_assert(offsetof(PF_ArbParamsExtra_flatten, buf_sizeLu) == 16 &&
              sizeof(PF_ArbParamsExtra_flatten::buf_sizeLu) == 4);
static_assert(offsetof(PF_ArbParamsExtra_flatten, flat_dataPV) == 24 &&
              sizeof(PF_ArbParamsExtra_flatten::flat_dataPV) == 8);

static_assert(sizeof(PF_ArbParamsExtra_unflatten) == 32 && alignof(PF_ArbParamsExtra_unflatten) == 8);
static_assert(offsetof(PF_ArbParamsExtra_unflatten, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_unflatten::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_unflatten, buf_sizeLu) == 8 &&
              sizeof(PF_ArbParamsExtra_unflatten::buf_sizeLu) == 4);
static_assert(offsetof(PF_ArbParamsExtra_unflatten, flat_dataPV) == 16 &&
              sizeof(PF_ArbParamsExtra_unflatten::flat_dataPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_unflatten, arbPH) == 24 &&
              sizeof(PF_ArbParamsExtra_unflatten::arbPH) == 8);

static_assert(sizeof(PF_ArbParamsExtra_interp) == 40 && alignof(PF_ArbParamsExtra_interp) == 8);
static_assert(offsetof(PF_ArbParamsExtra_interp, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_interp::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_interp, left_arbH) == 8 &&
              sizeof(PF_ArbParamsExtra_interp::left_arbH) == 8);
static_assert(offsetof(PF_ArbParamsExtra_interp, right_arbH) == 16 &&
              sizeof(PF_ArbParamsExtra_interp::right_arbH) == 8);
static_assert(offsetof(PF_ArbParamsExtra_interp, tF) == 24 && sizeof(PF_ArbParamsExtra_interp::tF) == 8);
static_assert(offsetof(PF_ArbParamsExtra_interp, interpPH) == 32 &&
              sizeof(PF_ArbParamsExtra_interp::interpPH) == 8);

static_assert(sizeof(PF_ArbParamsExtra_compare) == 32 && alignof(PF_ArbParamsExtra_compare) == 8);
static_assert(offsetof(PF_ArbParamsExtra_compare, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_compare::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_compare, a_arbH) == 8 &&
              sizeof(PF_ArbParamsExtra_compare::a_arbH) == 8);
static_assert(offsetof(PF_ArbParamsExtra_compare, b_arbH) == 16 &&
              sizeof(PF_ArbParamsExtra_compare::b_arbH) == 8);
static_assert(offsetof(PF_ArbParamsExtra_compare, compareP) == 24 &&
              sizeof(PF_ArbParamsExtra_compare::compareP) == 8);

static_assert(sizeof(PF_ArbParamsExtra_print_size) == 24 && alignof(PF_ArbParamsExtra_print_size) == 8);
static_assert(offsetof(PF_ArbParamsExtra_print_size, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_print_size::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_print_size, arbH) == 8 &&
              sizeof(PF_ArbParamsExtra_print_size::arbH) == 8);
static_assert(offsetof(PF_ArbParamsExtra_print_size, print_sizePLu) == 16 &&
              sizeof(PF_ArbParamsExtra_print_size::print_sizePLu) == 8);

static_assert(sizeof(PF_ArbParamsExtra_print) == 40 && alignof(PF_ArbParamsExtra_print) == 8);
static_assert(offsetof(PF_ArbParamsExtra_print, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_print::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_print, print_flags) == 8 &&
              sizeof(PF_ArbParamsExtra_print::print_flags) == 4);
static_assert(offsetof(PF_ArbParamsExtra_print, arbH) == 16 && sizeof(PF_ArbParamsExtra_print::arbH) == 8);
static_assert(offsetof(PF_ArbParamsExtra_print, print_sizeLu) == 24 &&
              sizeof(PF_ArbParamsExtra_print::print_sizeLu) == 4);
static_assert(offsetof(PF_ArbParamsExtra_print, print_bufferPC) == 32 &&
              sizeof(PF_ArbParamsExtra_print::print_bufferPC) == 8);

static_assert(sizeof(PF_ArbParamsExtra_scan) == 32 && alignof(PF_ArbParamsExtra_scan) == 8);
static_assert(offsetof(PF_ArbParamsExtra_scan, refconPV) == 0 &&
              sizeof(PF_ArbParamsExtra_scan::refconPV) == 8);
static_assert(offsetof(PF_ArbParamsExtra_scan, bufPC) == 8 && sizeof(PF_ArbParamsExtra_scan::bufPC) == 8);
static_assert(offsetof(PF_ArbParamsExtra_scan, bytes_to_scanLu) == 16 &&
              sizeof(PF_ArbParamsExtra_scan::bytes_to_scanLu) == 4);
static_assert(offsetof(PF_ArbParamsExtra_scan, arbPH) == 24 && sizeof(PF_ArbParamsExtra_scan::arbPH) == 8);

static_assert(sizeof(PF_ArbParamsExtra_u) == 40 && alignof(PF_ArbParamsExtra_u) == 8);
static_assert(offsetof(PF_ArbParamsExtra_u, new_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::new_func_params) == 16);
static_assert(offsetof(PF_ArbParamsExtra_u, dispose_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::dispose_func_params) == 16);
static_assert(offsetof(PF_ArbParamsExtra_u, copy_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::copy_func_params) == 24);
static_assert(offsetof(PF_ArbParamsExtra_u, flat_size_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::flat_size_func_params) == 24);
static_assert(offsetof(PF_ArbParamsExtra_u, flatten_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::flatten_func_params) == 32);
static_assert(offsetof(PF_ArbParamsExtra_u, unflatten_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::unflatten_func_params) == 32);
static_assert(offsetof(PF_ArbParamsExtra_u, interp_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::interp_func_params) == 40);
static_assert(offsetof(PF_ArbParamsExtra_u, compare_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::compare_func_params) == 32);
static_assert(offsetof(PF_ArbParamsExtra_u, print_size_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::print_size_func_params) == 24);
static_assert(offsetof(PF_ArbParamsExtra_u, print_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::print_func_params) == 40);
static_assert(offsetof(PF_ArbParamsExtra_u, scan_func_params) == 0 &&
              sizeof(PF_ArbParamsExtra_u::scan_func_params) == 32);

static_assert(sizeof(PF_ArbParamsExtra) == 48 && alignof(PF_ArbParamsExtra) == 8);
static_assert(offsetof(PF_ArbParamsExtra, which_function) == 0 &&
              sizeof(PF_ArbParamsExtra::which_function) == 4);
static_assert(offsetof(PF_ArbParamsExtra, id) == 4 && sizeof(PF_ArbParamsExtra::id) == 2);
static_assert(offsetof(PF_ArbParamsExtra, padding) == 6 && sizeof(PF_ArbParamsExtra::padding) == 2);
static_assert(offsetof(PF_ArbParamsExtra, u) == 8 && sizeof(PF_ArbParamsExtra::u) == 40);

static_assert(sizeof(PF_Context) == 72 && alignof(PF_Context) == 8);
static_assert(offsetof(PF_Context, magic) == 0 && sizeof(PF_Context::magic) == 4);
static_assert(offsetof(PF_Context, w_type) == 4 && sizeof(PF_Context::w_type) == 4);
static_assert(offsetof(PF_Context, reserved_flt) == 8 && sizeof(PF_Context::reserved_flt) == 8);
static_assert(offsetof(PF_Context, plugin_state) == 16 && sizeof(PF_Context::plugin_state) == 32);
static_assert(offsetof(PF_Context, reserved_drawref) == 48 && sizeof(PF_Context::reserved_drawref) == 8);
static_assert(offsetof(PF_Context, reserved_paneP) == 56 && sizeof(PF_Context::reserved_paneP) == 8);
static_assert(offsetof(PF_Context, reserved_job_manageP) == 64 &&
              sizeof(PF_Context::reserved_job_manageP) == 8);

static_assert(sizeof(PF_DoClickEventInfo) == 64 && alignof(PF_DoClickEventInfo) == 8);
static_assert(offsetof(PF_DoClickEventInfo, when) == 0 && sizeof(PF_DoClickEventInfo::when) == 4);
static_assert(offsetof(PF_DoClickEventInfo, screen_point) == 4 &&
              sizeof(PF_DoClickEventInfo::screen_point) == 8);
static_assert(offsetof(PF_DoClickEventInfo, num_clicks) == 12 &&
              sizeof(PF_DoClickEventInfo::num_clicks) == 4);
static_assert(offsetof(PF_DoClickEventInfo, modifiers) == 16 && sizeof(PF_DoClickEventInfo::modifiers) == 4);
static_assert(offsetof(PF_DoClickEventInfo, continue_refcon) == 24 &&
              sizeof(PF_DoClickEventInfo::continue_refcon) == 32);
static_assert(offsetof(PF_DoClickEventInfo, send_drag) == 56 && sizeof(PF_DoClickEventInfo::send_drag) == 1);
static_assert(offsetof(PF_DoClickEventInfo, last_time) == 57 && sizeof(PF_DoClickEventInfo::last_time) == 1);

static_assert(sizeof(PF_DrawEventInfo) == 20 && alignof(PF_DrawEventInfo) == 4);
static_assert(offsetof(PF_DrawEventInfo, update_rect) == 0 && sizeof(PF_DrawEventInfo::update_rect) == 16);
static_assert(offsetof(PF_DrawEventInfo, depth) == 16 && sizeof(PF_DrawEventInfo::depth) == 4);

static_assert(sizeof(PF_KeyDownEvent) == 20 && alignof(PF_KeyDownEvent) == 4);
static_assert(offsetof(PF_KeyDownEvent, when) == 0 && sizeof(PF_KeyDownEvent::when) == 4);
static_assert(offsetof(PF_KeyDownEvent, screen_point) == 4 && sizeof(PF_KeyDownEvent::screen_point) == 8);
static_assert(offsetof(PF_KeyDownEvent, keycode) == 12 && sizeof(PF_KeyDownEvent::keycode) == 4);
static_assert(offsetof(PF_KeyDownEvent, modifiers) == 16 && sizeof(PF_KeyDownEvent::modifiers) == 4);

static_assert(sizeof(PF_AdjustCursorEventInfo) == 16 && alignof(PF_AdjustCursorEventInfo) == 4);
static_assert(offsetof(PF_AdjustCursorEventInfo, screen_point) == 0 &&
              sizeof(PF_AdjustCursorEventInfo::screen_point) == 8);
static_assert(offsetof(PF_AdjustCursorEventInfo, modifiers) == 8 &&
              sizeof(PF_AdjustCursorEventInfo::modifiers) == 4);
static_assert(offsetof(PF_AdjustCursorEventInfo, set_cursor) == 12 &&
              sizeof(PF_AdjustCursorEventInfo::set_cursor) == 4);

static_assert(sizeof(PF_EventUnion) == 64 && alignof(PF_EventUnion) == 8);
static_assert(offsetof(PF_EventUnion, do_click) == 0 && sizeof(PF_EventUnion::do_click) == 64);
static_assert(offsetof(PF_EventUnion, draw) == 0 && sizeof(PF_EventUnion::draw) == 20);
static_assert(offsetof(PF_EventUnion, key_down) == 0 && sizeof(PF_EventUnion::key_down) == 20);
static_assert(offsetof(PF_EventUnion, adjust_cursor) == 0 && sizeof(PF_EventUnion::adjust_cursor) == 16);

static_assert(sizeof(PF_EffectWindowInfo) == 44 && alignof(PF_EffectWindowInfo) == 4);
static_assert(offsetof(PF_EffectWindowInfo, index) == 0 && sizeof(PF_EffectWindowInfo::index) == 4);
static_assert(offsetof(PF_EffectWindowInfo, area) == 4 && sizeof(PF_EffectWindowInfo::area) == 4);
static_assert(offsetof(PF_EffectWindowInfo, current_frame) == 8 &&
              sizeof(PF_EffectWindowInfo::current_frame) == 16);
static_assert(offsetof(PF_EffectWindowInfo, param_title_frame) == 24 &&
              sizeof(PF_EffectWindowInfo::param_title_frame) == 16);
static_assert(offsetof(PF_EffectWindowInfo, horiz_offset) == 40 &&
              sizeof(PF_EffectWindowInfo::horiz_offset) == 4);

static_assert(sizeof(PF_EventCallbacks) == 72 && alignof(PF_EventCallbacks) == 8);
static_assert(offsetof(PF_EventCallbacks, refcon) == 0 && sizeof(PF_EventCallbacks::refcon) == 8);
static_assert(offsetof(PF_EventCallbacks, layer_to_comp) == 8 &&
              sizeof(PF_EventCallbacks::layer_to_comp) == 8);
static_assert(offsetof(PF_EventCallbacks, comp_to_layer) == 16 &&
              sizeof(PF_EventCallbacks::comp_to_layer) == 8);
static_assert(offsetof(PF_EventCallbacks, get_comp2layer_xform) == 24 &&
              sizeof(PF_EventCallbacks::get_comp2layer_xform) == 8);
static_assert(offsetof(PF_EventCallbacks, get_layer2comp_xform) == 32 &&
              sizeof(PF_EventCallbacks::get_layer2comp_xform) == 8);
static_assert(offsetof(PF_EventCallbacks, source_to_frame) == 40 &&
              sizeof(PF_EventCallbacks::source_to_frame) == 8);
static_assert(offsetof(PF_EventCallbacks, frame_to_source) == 48 &&
              sizeof(PF_EventCallbacks::frame_to_source) == 8);
static_assert(offsetof(PF_EventCallbacks, info_draw_color) == 56 &&
              sizeof(PF_EventCallbacks::info_draw_color) == 8);
static_assert(offsetof(PF_EventCallbacks, info_draw_text) == 64 &&
              sizeof(PF_EventCallbacks::info_draw_text) == 8);

static_assert(sizeof(PF_EventExtra) == 208 && alignof(PF_EventExtra) == 8);
static_assert(offsetof(PF_EventExtra, contextH) == 0 && sizeof(PF_EventExtra::contextH) == 8);
static_assert(offsetof(PF_EventExtra, e_type) == 8 && sizeof(PF_EventExtra::e_type) == 4);
static_assert(offsetof(PF_EventExtra, u) == 16 && sizeof(PF_EventExtra::u) == 64);
static_assert(offsetof(PF_EventExtra, effect_win) == 80 && sizeof(PF_EventExtra::effect_win) == 44);
static_assert(offsetof(PF_EventExtra, cbs) == 128 && sizeof(PF_EventExtra::cbs) == 72);
static_assert(offsetof(PF_EventExtra, evt_in_flags) == 200 && sizeof(PF_EventExtra::evt_in_flags) == 4);
static_assert(offsetof(PF_EventExtra, evt_out_flags) == 204 && sizeof(PF_EventExtra::evt_out_flags) == 4);

static_assert(sizeof(AEGP_TwoDVal) == 16 && alignof(AEGP_TwoDVal) == 8);
static_assert(offsetof(AEGP_TwoDVal, x) == 0 && sizeof(AEGP_TwoDVal::x) == 8);
static_assert(offsetof(AEGP_TwoDVal, y) == 8 && sizeof(AEGP_TwoDVal::y) == 8);

static_assert(sizeof(AEGP_ThreeDVal) == 24 && alignof(AEGP_ThreeDVal) == 8);
static_assert(offsetof(AEGP_ThreeDVal, x) == 0 && sizeof(AEGP_ThreeDVal::x) == 8);
static_assert(offsetof(AEGP_ThreeDVal, y) == 8 && sizeof(AEGP_ThreeDVal::y) == 8);
static_assert(offsetof(AEGP_ThreeDVal, z) == 16 && sizeof(AEGP_ThreeDVal::z) == 8);

static_assert(sizeof(AEGP_ColorVal) == 32 && alignof(AEGP_ColorVal) == 8);
static_assert(offsetof(AEGP_ColorVal, alphaF) == 0 && sizeof(AEGP_ColorVal::alphaF) == 8);
static_assert(offsetof(AEGP_ColorVal, redF) == 8 && sizeof(AEGP_ColorVal::redF) == 8);
static_assert(offsetof(AEGP_ColorVal, greenF) == 16 && sizeof(AEGP_ColorVal::greenF) == 8);
static_assert(offsetof(AEGP_ColorVal, blueF) == 24 && sizeof(AEGP_ColorVal::blueF) == 8);

static_assert(sizeof(AEGP_StreamVal2) == 32 && alignof(AEGP_StreamVal2) == 8);
static_assert(offsetof(AEGP_StreamVal2, four_d) == 0 && sizeof(AEGP_StreamVal2::four_d) == 32);
static_assert(offsetof(AEGP_StreamVal2, three_d) == 0 && sizeof(AEGP_StreamVal2::three_d) == 24);
static_assert(offsetof(AEGP_StreamVal2, two_d) == 0 && sizeof(AEGP_StreamVal2::two_d) == 16);
static_assert(offsetof(AEGP_StreamVal2, one_d) == 0 && sizeof(AEGP_StreamVal2::one_d) == 8);
static_assert(offsetof(AEGP_StreamVal2, color) == 0 && sizeof(AEGP_StreamVal2::color) == 32);
static_assert(offsetof(AEGP_StreamVal2, arbH) == 0 && sizeof(AEGP_StreamVal2::arbH) == 8);
static_assert(offsetof(AEGP_StreamVal2, markerP) == 0 && sizeof(AEGP_StreamVal2::markerP) == 8);
static_assert(offsetof(AEGP_StreamVal2, layer_id) == 0 && sizeof(AEGP_StreamVal2::layer_id) == 4);
static_assert(offsetof(AEGP_StreamVal2, mask_id) == 0 && sizeof(AEGP_StreamVal2::mask_id) == 4);
static_assert(offsetof(AEGP_StreamVal2, mask) == 0 && sizeof(AEGP_StreamVal2::mask) == 8);
static_assert(offsetof(AEGP_StreamVal2, text_documentH) == 0 && sizeof(AEGP_StreamVal2::text_documentH) == 8);

static_assert(sizeof(AEGP_StreamValue2) == 40 && alignof(AEGP_StreamValue2) == 8);
static_assert(offsetof(AEGP_StreamValue2, streamH) == 0 && sizeof(AEGP_StreamValue2::streamH) == 8);
static_assert(offsetof(AEGP_StreamValue2, val) == 8 && sizeof(AEGP_StreamValue2::val) == 32);

static_assert(sizeof(DRAWBOT_ColorRGBA) == 16 && alignof(DRAWBOT_ColorRGBA) == 4);
static_assert(offsetof(DRAWBOT_ColorRGBA, red) == 0 && sizeof(DRAWBOT_ColorRGBA::red) == 4);
static_assert(offsetof(DRAWBOT_ColorRGBA, green) == 4 && sizeof(DRAWBOT_ColorRGBA::green) == 4);
static_assert(offsetof(DRAWBOT_ColorRGBA, blue) == 8 && sizeof(DRAWBOT_ColorRGBA::blue) == 4);
static_assert(offsetof(DRAWBOT_ColorRGBA, alpha) == 12 && sizeof(DRAWBOT_ColorRGBA::alpha) == 4);

static_assert(sizeof(DRAWBOT_PointF32) == 8 && alignof(DRAWBOT_PointF32) == 4);
static_assert(offsetof(DRAWBOT_PointF32, x) == 0 && sizeof(DRAWBOT_PointF32::x) == 4);
static_assert(offsetof(DRAWBOT_PointF32, y) == 4 && sizeof(DRAWBOT_PointF32::y) == 4);

static_assert(sizeof(DRAWBOT_RectF32) == 16 && alignof(DRAWBOT_RectF32) == 4);
static_assert(offsetof(DRAWBOT_RectF32, left) == 0 && sizeof(DRAWBOT_RectF32::left) == 4);
static_assert(offsetof(DRAWBOT_RectF32, top) == 4 && sizeof(DRAWBOT_RectF32::top) == 4);
static_assert(offsetof(DRAWBOT_RectF32, width) == 8 && sizeof(DRAWBOT_RectF32::width) == 4);
static_assert(offsetof(DRAWBOT_RectF32, height) == 12 && sizeof(DRAWBOT_RectF32::height) == 4);

static_assert(sizeof(DRAWBOT_Rect32) == 16 && alignof(DRAWBOT_Rect32) == 4);
static_assert(offsetof(DRAWBOT_Rect32, left) == 0 && sizeof(DRAWBOT_Rect32::left) == 4);
static_assert(offsetof(DRAWBOT_Rect32, top) == 4 && sizeof(DRAWBOT_Rect32::top) == 4);
static_assert(offsetof(DRAWBOT_Rect32, width) == 8 && sizeof(DRAWBOT_Rect32::width) == 4);
static_assert(offsetof(DRAWBOT_Rect32, height) == 12 && sizeof(DRAWBOT_Rect32::height) == 4);

static_assert(sizeof(DRAWBOT_MatrixF32) == 36 && alignof(DRAWBOT_MatrixF32) == 4);
static_assert(offsetof(DRAWBOT_MatrixF32, mat) == 0 && sizeof(DRAWBOT_MatrixF32::mat) == 36);

static_assert(sizeof(SPBasicSuite) == 56);
static_assert(offsetof(SPBasicSuite, AcquireSuite) == 0);
static_assert(offsetof(SPBasicSuite, ReleaseSuite) == 8);
static_assert(offsetof(SPBasicSuite, IsEqual) == 16);
static_assert(offsetof(SPBasicSuite, AllocateBlock) == 24);
static_assert(offsetof(SPBasicSuite, FreeBlock) == 32);
static_assert(offsetof(SPBasicSuite, ReallocateBlock) == 40);
static_assert(offsetof(SPBasicSuite, Undefined) == 48);

static_assert(sizeof(PF_ANSICallbacksSuite1) == 152);
static_assert(offsetof(PF_ANSICallbacksSuite1, atan) == 0);
static_assert(offsetof(PF_ANSICallbacksSuite1, atan2) == 8);
static_assert(offsetof(PF_ANSICallbacksSuite1, ceil) == 16);
static_assert(offsetof(PF_ANSICallbacksSuite1, cos) == 24);
static_assert(offsetof(PF_ANSICallbacksSuite1, exp) == 32);
static_assert(offsetof(PF_ANSICallbacksSuite1, fabs) == 40);
static_assert(offsetof(PF_ANSICallbacksSuite1, floor) == 48);
static_assert(offsetof(PF_ANSICallbacksSuite1, fmod) == 56);
static_assert(offsetof(PF_ANSICallbacksSuite1, hypot) == 64);
static_assert(offsetof(PF_ANSICallbacksSuite1, log) == 72);
static_assert(offsetof(PF_ANSICallbacksSuite1, log10) == 80);
static_assert(offsetof(PF_ANSICallbacksSuite1, pow) == 88);
static_assert(offsetof(PF_ANSICallbacksSuite1, sin) == 96);
static_assert(offsetof(PF_ANSICallbacksSuite1, sqrt) == 104);
static_assert(offsetof(PF_ANSICallbacksSuite1, tan) == 112);
static_assert(offsetof(PF_ANSICallbacksSuite1, sprintf) == 120);
static_assert(offsetof(PF_ANSICallbacksSuite1, strcpy) == 128);
static_assert(offsetof(PF_ANSICallbacksSuite1, asin) == 136);
static_assert(offsetof(PF_ANSICallbacksSuite1, acos) == 144);

static_assert(sizeof(PF_HandleSuite1) == 48);
static_assert(offsetof(PF_HandleSuite1, host_new_handle) == 0);
static_assert(offsetof(PF_HandleSuite1, host_lock_handle) == 8);
static_assert(offsetof(PF_HandleSuite1, host_unlock_handle) == 16);
static_assert(offsetof(PF_HandleSuite1, host_dispose_handle) == 24);
static_assert(offsetof(PF_HandleSuite1, host_get_handle_size) == 32);
static_assert(offsetof(PF_HandleSuite1, host_resize_handle) == 40);

static_assert(sizeof(PF_WorldSuite2) == 24);
static_assert(offsetof(PF_WorldSuite2, PF_NewWorld) == 0);
static_assert(offsetof(PF_WorldSuite2, PF_DisposeWorld) == 8);
static_assert(offsetof(PF_WorldSuite2, PF_GetPixelFormat) == 16);

static_assert(sizeof(PF_EffectCustomUISuite2) == 16);
static_assert(offsetof(PF_EffectCustomUISuite2, PF_GetDrawingReference) == 0);
static_assert(offsetof(PF_EffectCustomUISuite2, PF_GetContextAsyncManager) == 8);

static_assert(sizeof(PF_EffectCustomUISuite1) == 8);
static_assert(offsetof(PF_EffectCustomUISuite1, PF_GetDrawingReference) == 0);

static_assert(sizeof(PFAppSuite6) == 120);
static_assert(offsetof(PFAppSuite6, PF_AppGetBgColor) == 0);
static_assert(offsetof(PFAppSuite6, PF_AppGetColor) == 8);
static_assert(offsetof(PFAppSuite6, PF_AppGetLanguage) == 16);
static_assert(offsetof(PFAppSuite6, PF_GetPersonalInfo) == 24);
static_assert(offsetof(PFAppSuite6, PF_GetFontStyleSheet) == 32);
static_assert(offsetof(PFAppSuite6, PF_SetCursor) == 40);
static_assert(offsetof(PFAppSuite6, PF_IsRenderEngine) == 48);
static_assert(offsetof(PFAppSuite6, PF_AppColorPickerDialog) == 56);
static_assert(offsetof(PFAppSuite6, PF_GetMouse) == 64);
static_assert(offsetof(PFAppSuite6, PF_InvalidateRect) == 72);
static_assert(offsetof(PFAppSuite6, PF_ConvertLocalToGlobal) == 80);
static_assert(offsetof(PFAppSuite6, PF_GetColorAtGlobalPoint) == 88);
static_assert(offsetof(PFAppSuite6, PF_CreateNewAppProgressDialog) == 96);
static_assert(offsetof(PFAppSuite6, PF_AppProgressDialogUpdate) == 104);
static_assert(offsetof(PFAppSuite6, PF_DisposeAppProgressDialog) == 112);

static_assert(sizeof(PFAppSuite4) == 88);
static_assert(offsetof(PFAppSuite4, PF_AppGetBgColor) == 0);
static_assert(offsetof(PFAppSuite4, PF_AppGetColor) == 8);
static_assert(offsetof(PFAppSuite4, PF_GetPersonalInfo) == 16);
static_assert(offsetof(PFAppSuite4, PF_GetFontStyleSheet) == 24);
static_assert(offsetof(PFAppSuite4, PF_SetCursor) == 32);
static_assert(offsetof(PFAppSuite4, PF_IsRenderEngine) == 40);
static_assert(offsetof(PFAppSuite4, PF_AppColorPickerDialog) == 48);
static_assert(offsetof(PFAppSuite4, PF_GetMouse) == 56);
static_assert(offsetof(PFAppSuite4, PF_InvalidateRect) == 64);
static_assert(offsetof(PFAppSuite4, PF_ConvertLocalToGlobal) == 72);
static_assert(offsetof(PFAppSuite4, PF_GetColorAtGlobalPoint) == 80);

static_assert(sizeof(PFAppSuite5) == 96);
static_assert(offsetof(PFAppSuite5, PF_AppGetBgColor) == 0);
static_assert(offsetof(PFAppSuite5, PF_AppGetColor) == 8);
static_assert(offsetof(PFAppSuite5, PF_AppGetLanguage) == 16);
static_assert(offsetof(PFAppSuite5, PF_GetPersonalInfo) == 24);
static_assert(offsetof(PFAppSuite5, PF_GetFontStyleSheet) == 32);
static_assert(offsetof(PFAppSuite5, PF_SetCursor) == 40);
static_assert(offsetof(PFAppSuite5, PF_IsRenderEngine) == 48);
static_assert(offsetof(PFAppSuite5, PF_AppColorPickerDialog) == 56);
static_assert(offsetof(PFAppSuite5, PF_GetMouse) == 64);
static_assert(offsetof(PFAppSuite5, PF_InvalidateRect) == 72);
static_assert(offsetof(PFAppSuite5, PF_ConvertLocalToGlobal) == 80);
static_assert(offsetof(PFAppSuite5, PF_GetColorAtGlobalPoint) == 88);

static_assert(sizeof(AEGP_UtilitySuite6) == 264);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_ReportInfo) == 0);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_ReportInfoUnicode) == 8);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_GetDriverPluginInitFuncVersion) == 16);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_GetDriverImplementationVersion) == 24);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_StartQuietErrors) == 32);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_EndQuietErrors) == 40);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_GetLastErrorMessage) == 48);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_StartUndoGroup) == 56);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_EndUndoGroup) == 64);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_RegisterWithAEGP) == 72);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_GetMainHWND) == 80);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_ShowHideAllFloaters) == 88);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_PaintPalGetForeColor) == 96);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_PaintPalGetBackColor) == 104);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_PaintPalSetForeColor) == 112);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_PaintPalSetBackColor) == 120);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_CharPalGetFillColor) == 128);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_CharPalGetStrokeColor) == 136);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_CharPalSetFillColor) == 144);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_CharPalSetStrokeColor) == 152);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_CharPalIsFillColorUIFrontmost) == 160);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_ConvertFpLongToHSFRatio) == 168);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_ConvertHSFRatioToFpLong) == 176);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_CauseIdleRoutinesToBeCalled) == 184);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_GetSuppressInteractiveUI) == 192);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_WriteToOSConsole) == 200);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_WriteToDebugLog) == 208);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_IsScriptingAvailable) == 216);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_ExecuteScript) == 224);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_HostIsActivated) == 232);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_GetPluginPlatformRef) == 240);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_UpdateFontList) == 248);
static_assert(offsetof(AEGP_UtilitySuite6, AEGP_GetPluginPaths) == 256);

static_assert(sizeof(AEGP_PFInterfaceSuite1) == 40);
static_assert(offsetof(AEGP_PFInterfaceSuite1, AEGP_GetEffectLayer) == 0);
static_assert(offsetof(AEGP_PFInterfaceSuite1, AEGP_GetNewEffectForEffect) == 8);
static_assert(offsetof(AEGP_PFInterfaceSuite1, AEGP_ConvertEffectToCompTime) == 16);
static_assert(offsetof(AEGP_PFInterfaceSuite1, AEGP_GetEffectCamera) == 24);
static_assert(offsetof(AEGP_PFInterfaceSuite1, AEGP_GetEffectCameraMatrix) == 32);

static_assert(sizeof(AEGP_StreamSuite6) == 184);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_IsStreamLegal) == 0);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_CanVaryOverTime) == 8);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetValidInterpolations) == 16);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetNewLayerStream) == 24);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetEffectNumParamStreams) == 32);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetNewEffectStreamByIndex) == 40);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetNewMaskStream) == 48);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_DisposeStream) == 56);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetStreamName) == 64);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetStreamUnitsText) == 72);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetStreamProperties) == 80);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_IsStreamTimevarying) == 88);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetStreamType) == 96);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetNewStreamValue) == 104);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_DisposeStreamValue) == 112);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_SetStreamValue) == 120);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetLayerStreamValue) == 128);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetExpressionState) == 136);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_SetExpressionState) == 144);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetExpression) == 152);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_SetExpression) == 160);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_DuplicateStreamRef) == 168);
static_assert(offsetof(AEGP_StreamSuite6, AEGP_GetUniqueStreamID) == 176);

static_assert(sizeof(AEGP_LayerSuite9) == 424);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetCompNumLayers) == 0);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetCompLayerByIndex) == 8);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetActiveLayer) == 16);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerIndex) == 24);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerSourceItem) == 32);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerSourceItemID) == 40);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerParentComp) == 48);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerName) == 56);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerQuality) == 64);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerQuality) == 72);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerFlags) == 80);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerFlag) == 88);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_IsLayerVideoReallyOn) == 96);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_IsLayerAudioReallyOn) == 104);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerCurrentTime) == 112);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerInPoint) == 120);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerDuration) == 128);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerInPointAndDuration) == 136);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerOffset) == 144);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerOffset) == 152);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerStretch) == 160);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerStretch) == 168);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerTransferMode) == 176);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerTransferMode) == 184);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_IsAddLayerValid) == 192);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_AddLayer) == 200);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_ReorderLayer) == 208);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerMaskedBounds) == 216);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerObjectType) == 224);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_IsLayer3D) == 232);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_IsLayer2D) == 240);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_IsVideoActive) == 248);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_IsLayerUsedAsTrackMatte) == 256);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_DoesLayerHaveTrackMatte) == 264);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_ConvertCompToLayerTime) == 272);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_ConvertLayerToCompTime) == 280);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerDancingRandValue) == 288);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerID) == 296);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerToWorldXform) == 304);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerToWorldXformFromView) == 312);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerName) == 320);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerParent) == 328);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerParent) == 336);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_DeleteLayer) == 344);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_DuplicateLayer) == 352);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerFromLayerID) == 360);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerLabel) == 368);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerLabel) == 376);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetLayerSamplingQuality) == 384);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetLayerSamplingQuality) == 392);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_GetTrackMatteLayer) == 400);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_SetTrackMatte) == 408);
static_assert(offsetof(AEGP_LayerSuite9, AEGP_RemoveTrackMatte) == 416);

static_assert(sizeof(AEGP_CompSuite11) == 352);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompFromItem) == 0);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetItemFromComp) == 8);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompDownsampleFactor) == 16);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompDownsampleFactor) == 24);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompBGColor) == 32);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompBGColor) == 40);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompFlags) == 48);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetShowLayerNameOrSourceName) == 56);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetShowLayerNameOrSourceName) == 64);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetShowBlendModes) == 72);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetShowBlendModes) == 80);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompFramerate) == 88);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompFrameRate) == 96);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompShutterAnglePhase) == 104);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompShutterFrameRange) == 112);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompSuggestedMotionBlurSamples) == 120);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompSuggestedMotionBlurSamples) == 128);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompMotionBlurAdaptiveSampleLimit) == 136);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompMotionBlurAdaptiveSampleLimit) == 144);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompWorkAreaStart) == 152);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompWorkAreaDuration) == 160);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompWorkAreaStartAndDuration) == 168);
static_assert(offsetof(AEGP_CompSuite11, AEGP_CreateSolidInComp) == 176);
static_assert(offsetof(AEGP_CompSuite11, AEGP_CreateCameraInComp) == 184);
static_assert(offsetof(AEGP_CompSuite11, AEGP_CreateLightInComp) == 192);
static_assert(offsetof(AEGP_CompSuite11, AEGP_CreateComp) == 200);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetNewCollectionFromCompSelection) == 208);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetSelection) == 216);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompDisplayStartTime) == 224);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompDisplayStartTime) == 232);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompDuration) == 240);
static_assert(offsetof(AEGP_CompSuite11, AEGP_CreateNullInComp) == 248);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompPixelAspectRatio) == 256);
static_assert(offsetof(AEGP_CompSuite11, AEGP_CreateTextLayerInComp) == 264);
static_assert(offsetof(AEGP_CompSuite11, AEGP_CreateBoxTextLayerInComp) == 272);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompDimensions) == 280);
static_assert(offsetof(AEGP_CompSuite11, AEGP_DuplicateComp) == 288);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompFrameDuration) == 296);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetMostRecentlyUsedComp) == 304);
static_assert(offsetof(AEGP_CompSuite11, AEGP_CreateVectorLayerInComp) == 312);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetNewCompMarkerStream) == 320);
static_assert(offsetof(AEGP_CompSuite11, AEGP_GetCompDisplayDropFrame) == 328);
static_assert(offsetof(AEGP_CompSuite11, AEGP_SetCompDisplayDropFrame) == 336);
static_assert(offsetof(AEGP_CompSuite11, AEGP_ReorderCompSelection) == 344);

static_assert(sizeof(AEGP_ItemSuite9) == 208);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetFirstProjItem) == 0);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetNextProjItem) == 8);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetActiveItem) == 16);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_IsItemSelected) == 24);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_SelectItem) == 32);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemType) == 40);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetTypeName) == 48);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemName) == 56);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_SetItemName) == 64);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemID) == 72);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemFlags) == 80);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_SetItemUseProxy) == 88);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemParentFolder) == 96);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_SetItemParentFolder) == 104);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemDuration) == 112);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemCurrentTime) == 120);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemDimensions) == 128);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemPixelAspectRatio) == 136);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_DeleteItem) == 144);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_CreateNewFolder) == 152);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_SetItemCurrentTime) == 160);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemComment) == 168);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_SetItemComment) == 176);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemLabel) == 184);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_SetItemLabel) == 192);
static_assert(offsetof(AEGP_ItemSuite9, AEGP_GetItemMRUView) == 200);

static_assert(sizeof(AEGP_EffectSuite4) == 176);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetLayerNumEffects) == 0);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetLayerEffectByIndex) == 8);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetInstalledKeyFromLayerEffect) == 16);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetEffectParamUnionByIndex) == 24);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetEffectFlags) == 32);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_SetEffectFlags) == 40);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_ReorderEffect) == 48);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_EffectCallGeneric) == 56);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_DisposeEffect) == 64);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_ApplyEffect) == 72);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_DeleteLayerEffect) == 80);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetNumInstalledEffects) == 88);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetNextInstalledEffect) == 96);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetEffectName) == 104);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetEffectMatchName) == 112);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetEffectCategory) == 120);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_DuplicateEffect) == 128);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_NumEffectMask) == 136);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_GetEffectMaskID) == 144);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_AddEffectMask) == 152);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_RemoveEffectMask) == 160);
static_assert(offsetof(AEGP_EffectSuite4, AEGP_SetEffectMask) == 168);

static_assert(sizeof(DRAWBOT_DrawbotSuite1) == 16);
static_assert(offsetof(DRAWBOT_DrawbotSuite1, GetSupplier) == 0);
static_assert(offsetof(DRAWBOT_DrawbotSuite1, GetSurface) == 8);

static_assert(sizeof(DRAWBOT_SupplierSuite1) == 104);
static_assert(offsetof(DRAWBOT_SupplierSuite1, NewPen) == 0);
static_assert(offsetof(DRAWBOT_SupplierSuite1, NewBrush) == 8);
static_assert(offsetof(DRAWBOT_SupplierSuite1, SupportsText) == 16);
static_assert(offsetof(DRAWBOT_SupplierSuite1, GetDefaultFontSize) == 24);
static_assert(offsetof(DRAWBOT_SupplierSuite1, NewDefaultFont) == 32);
static_assert(offsetof(DRAWBOT_SupplierSuite1, NewImageFromBuffer) == 40);
static_assert(offsetof(DRAWBOT_SupplierSuite1, NewPath) == 48);
static_assert(offsetof(DRAWBOT_SupplierSuite1, SupportsPixelLayoutBGRA) == 56);
static_assert(offsetof(DRAWBOT_SupplierSuite1, PrefersPixelLayoutBGRA) == 64);
static_assert(offsetof(DRAWBOT_SupplierSuite1, SupportsPixelLayoutARGB) == 72);
static_assert(offsetof(DRAWBOT_SupplierSuite1, PrefersPixelLayoutARGB) == 80);
static_assert(offsetof(DRAWBOT_SupplierSuite1, RetainObject) == 88);
static_assert(offsetof(DRAWBOT_SupplierSuite1, ReleaseObject) == 96);

static_assert(sizeof(DRAWBOT_SurfaceSuite2) == 136);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, PushStateStack) == 0);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, PopStateStack) == 8);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, PaintRect) == 16);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, FillPath) == 24);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, StrokePath) == 32);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, Clip) == 40);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, GetClipBounds) == 48);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, IsWithinClipBounds) == 56);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, Transform) == 64);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, DrawString) == 72);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, DrawImage) == 80);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, SetInterpolationPolicy) == 88);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, GetInterpolationPolicy) == 96);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, SetAntiAliasPolicy) == 104);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, GetAntiAliasPolicy) == 112);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, Flush) == 120);
static_assert(offsetof(DRAWBOT_SurfaceSuite2, GetTransformToScreenScale) == 128);

static_assert(sizeof(DRAWBOT_PathSuite1) == 48);
static_assert(offsetof(DRAWBOT_PathSuite1, MoveTo) == 0);
static_assert(offsetof(DRAWBOT_PathSuite1, LineTo) == 8);
static_assert(offsetof(DRAWBOT_PathSuite1, BezierTo) == 16);
static_assert(offsetof(DRAWBOT_PathSuite1, AddRect) == 24);
static_assert(offsetof(DRAWBOT_PathSuite1, AddArc) == 32);
static_assert(offsetof(DRAWBOT_PathSuite1, Close) == 40);

static_assert(PackVersion(1, 2, 0, PF_Stage_DEVELOP, 1) == 0x00090001);
static_assert(kPluginKindEffect == 0x65464B54);
static_assert(kApplAfterEffects == 0x46585443);
static_assert(kApplPremierePro == 0x50724D72);
