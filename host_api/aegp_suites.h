// Suites and types of the host's general plug-in services. None of them exists in Premiere Pro.
#pragma once

#include "host_api/basic_types.h"
#include "host_api/commands.h"

constexpr AEGP_LayerIDVal AEGP_LayerIDVal_NONE = 0;

enum : A_long {  // AEGP_LayerStream
  AEGP_LayerStream_NONE = -1,
  AEGP_LayerStream_ANCHORPOINT = 0,
  AEGP_LayerStream_POSITION = 1,
  AEGP_LayerStream_SCALE = 2,
  AEGP_LayerStream_ROTATION = 3,
  AEGP_LayerStream_ROTATE_Z = 3,
  AEGP_LayerStream_OPACITY = 4,
  AEGP_LayerStream_AUDIO = 5,
  AEGP_LayerStream_MARKER = 6,
  AEGP_LayerStream_TIME_REMAP = 7,
  AEGP_LayerStream_ROTATE_X = 8,
  AEGP_LayerStream_ROTATE_Y = 9,
  AEGP_LayerStream_ORIENTATION = 10,
  AEGP_LayerStream_ZOOM = 11,
  AEGP_LayerStream_DEPTH_OF_FIELD = 12,
  AEGP_LayerStream_FOCUS_DISTANCE = 13,
  AEGP_LayerStream_APERTURE = 14,
  AEGP_LayerStream_BLUR_LEVEL = 15,
  AEGP_LayerStream_INTENSITY = 16,
  AEGP_LayerStream_COLOR = 17,
  AEGP_LayerStream_CONE_ANGLE = 18,
  AEGP_LayerStream_CONE_FEATHER = 19,
  AEGP_LayerStream_SHADOW_DARKNESS = 20,
  AEGP_LayerStream_SHADOW_DIFFUSION = 21,
  AEGP_LayerStream_ACCEPTS_SHADOWS = 22,
  AEGP_LayerStream_ACCEPTS_LIGHTS = 23,
  AEGP_LayerStream_AMBIENT_COEFF = 24,
  AEGP_LayerStream_DIFFUSE_COEFF = 25,
  AEGP_LayerStream_SPECULAR_INTENSITY = 26,
  AEGP_LayerStream_SPECULAR_SHININESS = 27,
  AEGP_LayerStream_CASTS_SHADOWS = 28,
  AEGP_LayerStream_LIGHT_TRANSMISSION = 29,
  AEGP_LayerStream_METAL = 30,
  AEGP_LayerStream_SOURCE_TEXT = 31,
};

enum : A_short {  // AEGP_LTimeMode
  AEGP_LTimeMode_LayerTime = 0,
  AEGP_LTimeMode_CompTime = 1,
};

enum : A_long {  // AEGP_LayerFlags
  AEGP_LayerFlag_NONE = 0x0,
  AEGP_LayerFlag_VIDEO_ACTIVE = 0x1,
  AEGP_LayerFlag_AUDIO_ACTIVE = 0x2,
  AEGP_LayerFlag_EFFECTS_ACTIVE = 0x4,
  AEGP_LayerFlag_MOTION_BLUR = 0x8,
  AEGP_LayerFlag_FRAME_BLENDING = 0x10,
  AEGP_LayerFlag_LOCKED = 0x20,
  AEGP_LayerFlag_SHY = 0x40,
  AEGP_LayerFlag_COLLAPSE = 0x80,
  AEGP_LayerFlag_AUTO_ORIENT_ROTATION = 0x100,
  AEGP_LayerFlag_ADJUSTMENT_LAYER = 0x200,
  AEGP_LayerFlag_TIME_REMAPPING = 0x400,
  AEGP_LayerFlag_LAYER_IS_3D = 0x800,
  AEGP_LayerFlag_LOOK_AT_CAMERA = 0x1000,
  AEGP_LayerFlag_LOOK_AT_POI = 0x2000,
  AEGP_LayerFlag_SOLO = 0x4000,
  AEGP_LayerFlag_MARKERS_LOCKED = 0x8000,
  AEGP_LayerFlag_NULL_LAYER = 0x10000,
  AEGP_LayerFlag_HIDE_LOCKED_MASKS = 0x20000,
  AEGP_LayerFlag_GUIDE_LAYER = 0x40000,
  AEGP_LayerFlag_ADVANCED_FRAME_BLENDING = 0x80000,
  AEGP_LayerFlag_SUBLAYERS_RENDER_SEPARATELY = 0x100000,
  AEGP_LayerFlag_ENVIRONMENT_LAYER = 0x200000,
};

enum : A_long {  // AEGP_StreamType
  AEGP_StreamType_NO_DATA = 0,
  AEGP_StreamType_ThreeD_SPATIAL = 1,
  AEGP_StreamType_ThreeD = 2,
  AEGP_StreamType_TwoD_SPATIAL = 3,
  AEGP_StreamType_TwoD = 4,
  AEGP_StreamType_OneD = 5,
  AEGP_StreamType_COLOR = 6,
  AEGP_StreamType_ARB = 7,
  AEGP_StreamType_MARKER = 8,
  AEGP_StreamType_LAYER_ID = 9,
  AEGP_StreamType_MASK_ID = 10,
  AEGP_StreamType_MASK = 11,
  AEGP_StreamType_TEXT_DOCUMENT = 12,
};

enum : A_short {  // AEGP_ItemType
  AEGP_ItemType_NONE = 0,
  AEGP_ItemType_FOLDER = 1,
  AEGP_ItemType_COMP = 2,
  AEGP_ItemType_SOLID_defunct = 3,
  AEGP_ItemType_FOOTAGE = 4,
  AEGP_ItemType_NUM_TYPES1 = 5,
};

enum : A_long {  // AEGP_ObjectType
  AEGP_ObjectType_NONE = -1,
  AEGP_ObjectType_AV = 0,
  AEGP_ObjectType_LIGHT = 1,
  AEGP_ObjectType_CAMERA = 2,
  AEGP_ObjectType_TEXT = 3,
  AEGP_ObjectType_VECTOR = 4,
};

extern "C" {

struct AEGP_TwoDVal {
  A_FpLong x;
  A_FpLong y;
};

struct AEGP_ThreeDVal {
  A_FpLong x;
  A_FpLong y;
  A_FpLong z;
};

struct AEGP_ColorVal {
  A_FpLong alphaF;
  A_FpLong redF;
  A_FpLong greenF;
  A_FpLong blueF;
};

union AEGP_StreamVal2 {
  AEGP_FourDVal four_d;
  AEGP_ThreeDVal three_d;
  AEGP_TwoDVal two_d;
  AEGP_OneDVal one_d;
  AEGP_ColorVal color;
  AEGP_ArbBlockVal arbH;
  AEGP_MarkerValP markerP;
  AEGP_LayerIDVal layer_id;
  AEGP_MaskIDVal mask_id;
  AEGP_MaskOutlineValH mask;
  AEGP_TextDocumentH text_documentH;
};

struct AEGP_StreamValue2 {
  AEGP_StreamRefH streamH;
  AEGP_StreamVal2 val;
};

// "AEGP Utility Suite", acquired with version 13.
struct AEGP_UtilitySuite6 {
  void* AEGP_ReportInfo;
  void* AEGP_ReportInfoUnicode;
  void* AEGP_GetDriverPluginInitFuncVersion;
  void* AEGP_GetDriverImplementationVersion;
  void* AEGP_StartQuietErrors;
  void* AEGP_EndQuietErrors;
  void* AEGP_GetLastErrorMessage;
  A_Err (*AEGP_StartUndoGroup)(const A_char* undo_nameZ);
  A_Err (*AEGP_EndUndoGroup)(void);
  A_Err (*AEGP_RegisterWithAEGP)(AEGP_GlobalRefcon global_refcon, const A_char* plugin_nameZ,
                                 AEGP_PluginID* plugin_id);
  void* AEGP_GetMainHWND;
  void* AEGP_ShowHideAllFloaters;
  void* AEGP_PaintPalGetForeColor;
  void* AEGP_PaintPalGetBackColor;
  void* AEGP_PaintPalSetForeColor;
  void* AEGP_PaintPalSetBackColor;
  void* AEGP_CharPalGetFillColor;
  void* AEGP_CharPalGetStrokeColor;
  void* AEGP_CharPalSetFillColor;
  void* AEGP_CharPalSetStrokeColor;
  void* AEGP_CharPalIsFillColorUIFrontmost;
  void* AEGP_ConvertFpLongToHSFRatio;
  void* AEGP_ConvertHSFRatioToFpLong;
  void* AEGP_CauseIdleRoutinesToBeCalled;
  void* AEGP_GetSuppressInteractiveUI;
  void* AEGP_WriteToOSConsole;
  void* AEGP_WriteToDebugLog;
  void* AEGP_IsScriptingAvailable;
  void* AEGP_ExecuteScript;
  void* AEGP_HostIsActivated;
  void* AEGP_GetPluginPlatformRef;
  void* AEGP_UpdateFontList;
  void* AEGP_GetPluginPaths;
};

// "AEGP PF Interface Suite", acquired with version 1.
struct AEGP_PFInterfaceSuite1 {
  A_Err (*AEGP_GetEffectLayer)(PF_ProgPtr effect_pp_ref, AEGP_LayerH* layerPH);
  A_Err (*AEGP_GetNewEffectForEffect)(AEGP_PluginID aegp_plugin_id, PF_ProgPtr effect_pp_ref,
                                      AEGP_EffectRefH* effect_refPH);
  A_Err (*AEGP_ConvertEffectToCompTime)(PF_ProgPtr effect_pp_ref, A_long what_timeL, A_u_long time_scaleLu,
                                        A_Time* comp_timePT);
  A_Err (*AEGP_GetEffectCamera)(PF_ProgPtr effect_pp_ref, const A_Time* comp_timePT,
                                AEGP_LayerH* camera_layerPH);
  A_Err (*AEGP_GetEffectCameraMatrix)(PF_ProgPtr effect_pp_ref, const A_Time* comp_timePT,
                                      A_Matrix4* camera_matrixP, A_FpLong* dist_to_image_planePF,
                                      A_short* image_plane_widthPL, A_short* image_plane_heightPL);
};

// "AEGP Stream Suite", acquired with version 11.
struct AEGP_StreamSuite6 {
  void* AEGP_IsStreamLegal;
  void* AEGP_CanVaryOverTime;
  void* AEGP_GetValidInterpolations;
  A_Err (*AEGP_GetNewLayerStream)(AEGP_PluginID aegp_plugin_id, AEGP_LayerH layerH,
                                  AEGP_LayerStream which_stream, AEGP_StreamRefH* streamPH);
  A_Err (*AEGP_GetEffectNumParamStreams)(AEGP_EffectRefH effect_refH, A_long* num_paramsPL);
  A_Err (*AEGP_GetNewEffectStreamByIndex)(AEGP_PluginID aegp_plugin_id, AEGP_EffectRefH effect_refH,
                                          PF_ParamIndex param_index, AEGP_StreamRefH* streamPH);
  void* AEGP_GetNewMaskStream;
  A_Err (*AEGP_DisposeStream)(AEGP_StreamRefH streamH);
  void* AEGP_GetStreamName;
  void* AEGP_GetStreamUnitsText;
  void* AEGP_GetStreamProperties;
  void* AEGP_IsStreamTimevarying;
  A_Err (*AEGP_GetStreamType)(AEGP_StreamRefH streamH, AEGP_StreamType* stream_typeP);
  A_Err (*AEGP_GetNewStreamValue)(AEGP_PluginID aegp_plugin_id, AEGP_StreamRefH streamH,
                                  AEGP_LTimeMode time_mode, const A_Time* timePT, A_Boolean pre_expressionB,
                                  AEGP_StreamValue2* valueP);
  A_Err (*AEGP_DisposeStreamValue)(AEGP_StreamValue2* valueP);
  A_Err (*AEGP_SetStreamValue)(AEGP_PluginID aegp_plugin_id, AEGP_StreamRefH streamH,
                               AEGP_StreamValue2* valueP);
  void* AEGP_GetLayerStreamValue;
  A_Err (*AEGP_GetExpressionState)(AEGP_PluginID aegp_plugin_id, AEGP_StreamRefH streamH,
                                   A_Boolean* enabledPB);
  A_Err (*AEGP_SetExpressionState)(AEGP_PluginID aegp_plugin_id, AEGP_StreamRefH streamH, A_Boolean enabledB);
  A_Err (*AEGP_GetExpression)(AEGP_PluginID aegp_plugin_id, AEGP_StreamRefH streamH,
                              AEGP_MemHandle* unicodeHZ);
  A_Err (*AEGP_SetExpression)(AEGP_PluginID aegp_plugin_id, AEGP_StreamRefH streamH,
                              const A_UTF16Char* expressionP);
  void* AEGP_DuplicateStreamRef;
  void* AEGP_GetUniqueStreamID;
};

// "AEGP Layer Suite", acquired with version 15.
struct AEGP_LayerSuite9 {
  void* AEGP_GetCompNumLayers;
  void* AEGP_GetCompLayerByIndex;
  void* AEGP_GetActiveLayer;
  void* AEGP_GetLayerIndex;
  A_Err (*AEGP_GetLayerSourceItem)(AEGP_LayerH layerH, AEGP_ItemH* source_itemPH);
  void* AEGP_GetLayerSourceItemID;
  A_Err (*AEGP_GetLayerParentComp)(AEGP_LayerH layerH, AEGP_CompH* compPH);
  void* AEGP_GetLayerName;
  void* AEGP_GetLayerQuality;
  void* AEGP_SetLayerQuality;
  A_Err (*AEGP_GetLayerFlags)(AEGP_LayerH layerH, AEGP_LayerFlags* layer_flagsP);
  A_Err (*AEGP_SetLayerFlag)(AEGP_LayerH layerH, AEGP_LayerFlags single_flag, A_Boolean valueB);
  void* AEGP_IsLayerVideoReallyOn;
  void* AEGP_IsLayerAudioReallyOn;
  void* AEGP_GetLayerCurrentTime;
  void* AEGP_GetLayerInPoint;
  void* AEGP_GetLayerDuration;
  void* AEGP_SetLayerInPointAndDuration;
  void* AEGP_GetLayerOffset;
  void* AEGP_SetLayerOffset;
  void* AEGP_GetLayerStretch;
  void* AEGP_SetLayerStretch;
  void* AEGP_GetLayerTransferMode;
  void* AEGP_SetLayerTransferMode;
  void* AEGP_IsAddLayerValid;
  void* AEGP_AddLayer;
  void* AEGP_ReorderLayer;
  void* AEGP_GetLayerMaskedBounds;
  void* AEGP_GetLayerObjectType;
  void* AEGP_IsLayer3D;
  void* AEGP_IsLayer2D;
  void* AEGP_IsVideoActive;
  void* AEGP_IsLayerUsedAsTrackMatte;
  void* AEGP_DoesLayerHaveTrackMatte;
  void* AEGP_ConvertCompToLayerTime;
  void* AEGP_ConvertLayerToCompTime;
  void* AEGP_GetLayerDancingRandValue;
  A_Err (*AEGP_GetLayerID)(AEGP_LayerH layerH, AEGP_LayerIDVal* id_valP);
  void* AEGP_GetLayerToWorldXform;
  void* AEGP_GetLayerToWorldXformFromView;
  void* AEGP_SetLayerName;
  void* AEGP_GetLayerParent;
  void* AEGP_SetLayerParent;
  void* AEGP_DeleteLayer;
  void* AEGP_DuplicateLayer;
  A_Err (*AEGP_GetLayerFromLayerID)(AEGP_CompH parent_compH, AEGP_LayerIDVal id, AEGP_LayerH* layerPH);
  void* AEGP_GetLayerLabel;
  void* AEGP_SetLayerLabel;
  void* AEGP_GetLayerSamplingQuality;
  void* AEGP_SetLayerSamplingQuality;
  void* AEGP_GetTrackMatteLayer;
  void* AEGP_SetTrackMatte;
  void* AEGP_RemoveTrackMatte;
};

// "AEGP Comp Suite", acquired with version 25.
struct AEGP_CompSuite11 {
  A_Err (*AEGP_GetCompFromItem)(AEGP_ItemH itemH, AEGP_CompH* compPH);
  A_Err (*AEGP_GetItemFromComp)(AEGP_CompH compH, AEGP_ItemH* itemPH);
  void* AEGP_GetCompDownsampleFactor;
  void* AEGP_SetCompDownsampleFactor;
  void* AEGP_GetCompBGColor;
  void* AEGP_SetCompBGColor;
  void* AEGP_GetCompFlags;
  void* AEGP_GetShowLayerNameOrSourceName;
  void* AEGP_SetShowLayerNameOrSourceName;
  void* AEGP_GetShowBlendModes;
  void* AEGP_SetShowBlendModes;
  void* AEGP_GetCompFramerate;
  void* AEGP_SetCompFrameRate;
  void* AEGP_GetCompShutterAnglePhase;
  void* AEGP_GetCompShutterFrameRange;
  void* AEGP_GetCompSuggestedMotionBlurSamples;
  void* AEGP_SetCompSuggestedMotionBlurSamples;
  void* AEGP_GetCompMotionBlurAdaptiveSampleLimit;
  void* AEGP_SetCompMotionBlurAdaptiveSampleLimit;
  void* AEGP_GetCompWorkAreaStart;
  void* AEGP_GetCompWorkAreaDuration;
  void* AEGP_SetCompWorkAreaStartAndDuration;
  void* AEGP_CreateSolidInComp;
  void* AEGP_CreateCameraInComp;
  void* AEGP_CreateLightInComp;
  void* AEGP_CreateComp;
  void* AEGP_GetNewCollectionFromCompSelection;
  void* AEGP_SetSelection;
  void* AEGP_GetCompDisplayStartTime;
  void* AEGP_SetCompDisplayStartTime;
  void* AEGP_SetCompDuration;
  A_Err (*AEGP_CreateNullInComp)(const A_UTF16Char* utf_nameZ, AEGP_CompH parent_compH,
                                 const A_Time* durationPT0, AEGP_LayerH* new_null_solidPH);
  void* AEGP_SetCompPixelAspectRatio;
  void* AEGP_CreateTextLayerInComp;
  void* AEGP_CreateBoxTextLayerInComp;
  void* AEGP_SetCompDimensions;
  void* AEGP_DuplicateComp;
  void* AEGP_GetCompFrameDuration;
  void* AEGP_GetMostRecentlyUsedComp;
  void* AEGP_CreateVectorLayerInComp;
  void* AEGP_GetNewCompMarkerStream;
  void* AEGP_GetCompDisplayDropFrame;
  void* AEGP_SetCompDisplayDropFrame;
  void* AEGP_ReorderCompSelection;
};

// "AEGP Item Suite", acquired with version 14.
struct AEGP_ItemSuite9 {
  void* AEGP_GetFirstProjItem;
  void* AEGP_GetNextProjItem;
  void* AEGP_GetActiveItem;
  void* AEGP_IsItemSelected;
  void* AEGP_SelectItem;
  void* AEGP_GetItemType;
  void* AEGP_GetTypeName;
  void* AEGP_GetItemName;
  void* AEGP_SetItemName;
  void* AEGP_GetItemID;
  void* AEGP_GetItemFlags;
  void* AEGP_SetItemUseProxy;
  void* AEGP_GetItemParentFolder;
  void* AEGP_SetItemParentFolder;
  A_Err (*AEGP_GetItemDuration)(AEGP_ItemH itemH, A_Time* durationPT);
  void* AEGP_GetItemCurrentTime;
  A_Err (*AEGP_GetItemDimensions)(AEGP_ItemH itemH, A_long* widthPL, A_long* heightPL);
  void* AEGP_GetItemPixelAspectRatio;
  void* AEGP_DeleteItem;
  void* AEGP_CreateNewFolder;
  void* AEGP_SetItemCurrentTime;
  void* AEGP_GetItemComment;
  void* AEGP_SetItemComment;
  void* AEGP_GetItemLabel;
  void* AEGP_SetItemLabel;
  void* AEGP_GetItemMRUView;
};

// "AEGP Effect Suite", acquired with version 4.
struct AEGP_EffectSuite4 {
  void* AEGP_GetLayerNumEffects;
  void* AEGP_GetLayerEffectByIndex;
  void* AEGP_GetInstalledKeyFromLayerEffect;
  void* AEGP_GetEffectParamUnionByIndex;
  void* AEGP_GetEffectFlags;
  void* AEGP_SetEffectFlags;
  void* AEGP_ReorderEffect;
  void* AEGP_EffectCallGeneric;
  A_Err (*AEGP_DisposeEffect)(AEGP_EffectRefH effect_refH);
  void* AEGP_ApplyEffect;
  void* AEGP_DeleteLayerEffect;
  void* AEGP_GetNumInstalledEffects;
  void* AEGP_GetNextInstalledEffect;
  void* AEGP_GetEffectName;
  void* AEGP_GetEffectMatchName;
  void* AEGP_GetEffectCategory;
  void* AEGP_DuplicateEffect;
  void* AEGP_NumEffectMask;
  void* AEGP_GetEffectMaskID;
  void* AEGP_AddEffectMask;
  void* AEGP_RemoveEffectMask;
  void* AEGP_SetEffectMask;
};

}  // extern "C"

// Names and version integers for AcquireSuite.
constexpr const char* kAEGP_UtilitySuite6Name = "AEGP Utility Suite";
constexpr A_long kAEGP_UtilitySuite6Version = 13;
constexpr const char* kAEGP_PFInterfaceSuite1Name = "AEGP PF Interface Suite";
constexpr A_long kAEGP_PFInterfaceSuite1Version = 1;
constexpr const char* kAEGP_StreamSuite6Name = "AEGP Stream Suite";
constexpr A_long kAEGP_StreamSuite6Version = 11;
constexpr const char* kAEGP_LayerSuite9Name = "AEGP Layer Suite";
constexpr A_long kAEGP_LayerSuite9Version = 15;
constexpr const char* kAEGP_CompSuite11Name = "AEGP Comp Suite";
constexpr A_long kAEGP_CompSuite11Version = 25;
constexpr const char* kAEGP_ItemSuite9Name = "AEGP Item Suite";
constexpr A_long kAEGP_ItemSuite9Version = 14;
constexpr const char* kAEGP_EffectSuite4Name = "AEGP Effect Suite";
constexpr A_long kAEGP_EffectSuite4Version = 4;
