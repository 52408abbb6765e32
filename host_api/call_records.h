// The records that arrive with every command, and the callbacks they carry.
#pragma once

#include "host_api/basic_types.h"
#include "host_api/parameters.h"

enum : A_long {  // PF_InFlags
  PF_InFlag_NONE = 0,
  PF_InFlag_PROJECT_IS_RENDER_ONLY = 1,
};

enum : A_long {  // PF_Quality
  PF_Quality_DRAWING_AUDIO = -1,
  PF_Quality_LO = 0,
  PF_Quality_HI = 1,
};

enum : A_long {  // PF_Field
  PF_Field_FRAME = 0,
  PF_Field_UPPER = 1,
  PF_Field_LOWER = 2,
};

extern "C" {

struct PF_InteractCallbacks {
  PF_Err (*checkout_param)(PF_ProgPtr effect_ref, PF_ParamIndex index, A_long what_time, A_long time_step,
                           A_u_long time_scale, PF_ParamDef* param);
  PF_Err (*checkin_param)(PF_ProgPtr effect_ref, PF_ParamDef* param);
  PF_Err (*add_param)(PF_ProgPtr effect_ref, PF_ParamIndex index, PF_ParamDefPtr def);
  PF_Err (*abort)(PF_ProgPtr effect_ref);
  PF_Err (*progress)(PF_ProgPtr effect_ref, A_long current, A_long total);
  PF_Err (*register_ui)(PF_ProgPtr effect_ref, PF_CustomUIInfo* cust_info);
  PF_Err (*checkout_layer_audio)(PF_ProgPtr effect_ref, PF_ParamIndex index, A_long start_time,
                                 A_long duration, A_u_long time_scale, PF_UFixed rate,
                                 A_long bytes_per_sample, A_long num_channels, A_long fmt_signed,
                                 PF_LayerAudio* audio);
  PF_Err (*checkin_layer_audio)(PF_ProgPtr effect_ref, PF_LayerAudio audio);
  PF_Err (*get_audio_data)(PF_ProgPtr effect_ref, PF_LayerAudio audio, PF_SndSamplePtr* data0,
                           A_long* num_samples0, PF_UFixed* rate0, A_long* bytes_per_sample0,
                           A_long* num_channels0, A_long* fmt_signed0);
  void* reserved_str[3];
  void* reserved[10];
};

struct PF_SoundFormatInfo {
  PF_FpLong rateF;
  PF_SoundChannels num_channels;
  PF_SoundFormat format;
  PF_SoundSampleSize sample_size;
};

struct PF_SoundWorld {
  PF_SoundFormatInfo fi;
  A_long num_samples;
  void* dataP;
};

struct PF_InData {
  PF_InteractCallbacks inter;
  PF_UtilCallbacks* utils;
  PF_ProgPtr effect_ref;
  PF_Quality quality;
  PF_SpecVersion version;
  A_long serial_num;
  A_long appl_id;
  A_long num_params;
  A_long reserved;
  A_long what_cpu;
  A_long what_fpu;
  A_long current_time;
  A_long time_step;
  A_long total_time;
  A_long local_time_step;
  A_u_long time_scale;
  PF_Field field;
  PF_Fixed shutter_angle;
  A_long width;
  A_long height;
  PF_Rect extent_hint;
  A_long output_origin_x;
  A_long output_origin_y;
  PF_RationalScale downsample_x;
  PF_RationalScale downsample_y;
  PF_RationalScale pixel_aspect_ratio;
  PF_InFlags in_flags;
  PF_Handle global_data;
  PF_Handle sequence_data;
  PF_Handle frame_data;
  A_long start_sampL;
  A_long dur_sampL;
  A_long total_sampL;
  PF_SoundWorld src_snd;
  SPBasicSuite* pica_basicP;
  A_long pre_effect_source_origin_x;
  A_long pre_effect_source_origin_y;
  PF_Fixed shutter_phase;
};

struct PF_OutData {
  A_u_long my_version;
  A_char name[32];
  PF_Handle global_data;
  A_long num_params;
  PF_Handle sequence_data;
  A_long flat_sdata_size;
  PF_Handle frame_data;
  A_long width;
  A_long height;
  PF_Point origin;
  PF_OutFlags out_flags;
  A_char return_msg[256];
  A_long start_sampL;
  A_long dur_sampL;
  PF_SoundWorld dest_snd;
  PF_OutFlags2 out_flags2;
};

struct PF_ANSICallbacks {
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
  A_long ansi_procs[1];
};

struct PF_ColorCallbacks {
  void* RGBtoHLS;
  void* HLStoRGB;
  void* RGBtoYIQ;
  void* YIQtoRGB;
  void* Luminance;
  void* Hue;
  void* Lightness;
  void* Saturation;
};

struct PF_UtilCallbacks {
  void* begin_sampling;
  void* subpixel_sample;
  void* area_sample;
  void* get_batch_func_is_deprecated;
  void* end_sampling;
  void* composite_rect;
  void* blend;
  void* convolve;
  void* copy;
  void* fill;
  void* gaussian_kernel;
  void* iterate;
  void* premultiply;
  void* premultiply_color;
  void* new_world;
  void* dispose_world;
  void* iterate_origin;
  void* iterate_lut;
  void* transfer_rect;
  void* transform_world;
  PF_Handle (*host_new_handle)(A_u_longlong size);
  void* (*host_lock_handle)(PF_Handle pf_handle);
  void (*host_unlock_handle)(PF_Handle pf_handle);
  void (*host_dispose_handle)(PF_Handle pf_handle);
  void* get_callback_addr;
  void* app;
  PF_ANSICallbacks ansi;
  PF_ColorCallbacks colorCB;
  void* get_platform_data;
  A_u_longlong (*host_get_handle_size)(PF_Handle pf_handle);
  void* iterate_origin_non_clip_src;
  void* iterate_generic;
  PF_Err (*host_resize_handle)(A_u_longlong new_sizeL, PF_Handle* handlePH);
  void* subpixel_sample16;
  void* area_sample16;
  void* fill16;
  void* premultiply_color16;
  void* iterate16;
  void* iterate_origin16;
  void* iterate_origin_non_clip_src16;
  void* get_pixel_data8;
  void* get_pixel_data16;
  A_long reserved[1];
};

}  // extern "C"
