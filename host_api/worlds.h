// Pixel worlds. A pixel is alpha, red, green, blue in ascending memory order at every depth; rows are
// `rowbytes` apart, which is signed and may hold padding.
#pragma once

#include "host_api/basic_types.h"

enum : A_long {  // PF_WorldFlags
  PF_WorldFlag_DEEP = 0x1,
  PF_WorldFlag_WRITEABLE = 0x2,
  PF_WorldFlag_RESERVED0 = 0x1000000,
  PF_WorldFlag_RESERVED1 = 0x2000000,
  PF_WorldFlag_RESERVED2 = 0x4000000,
  PF_WorldFlag_RESERVED3 = 0x8000000,
  PF_WorldFlag_RESERVED4 = 0x10000000,
  PF_WorldFlag_RESERVED5 = 0x20000000,
  PF_WorldFlag_RESERVED6 = 0x40000000,
  PF_WorldFlag_RESERVED = -2147483647 - 1,
};

enum : A_long {  // PF_PixelFormat
  PF_PixelFormat_ARGB32 = 0x62677261,
  PF_PixelFormat_ARGB64 = 0x36316561,
  PF_PixelFormat_ARGB128 = 0x32336561,
  PF_PixelFormat_GPU_BGRA128 = 0x41444340,
  PF_PixelFormat_BGRA32 = 0x61726762,
  PF_PixelFormat_VUYA32 = 0x61797576,
  PF_PixelFormat_INVALID = 0x66646162,
};

enum : A_long {  // PF_NewWorldFlags
  PF_NewWorldFlag_NONE = 0,
  PF_NewWorldFlag_CLEAR_PIXELS = 1,
  PF_NewWorldFlag_DEEP_PIXELS = 2,
  PF_NewWorldFlag_RESERVED0 = 4,
  PF_NewWorldFlag_RESERVED1 = 8,
};

constexpr A_long kMaxWorldEdge = 30000;
constexpr A_long kMaxChannel8 = 255;
constexpr A_long kMaxChannel16 = 32768;

extern "C" {

struct PF_LayerDef {
  void* reserved0;
  void* reserved1;
  PF_WorldFlags world_flags;
  PF_PixelPtr data;
  A_long rowbytes;
  A_long width;
  A_long height;
  PF_UnionableRect extent_hint;
  void* platform_ref;
  A_long reserved_long1;
  void* reserved_long4;
  PF_RationalScale pix_aspect_ratio;
  void* reserved_long2;
  A_long origin_x;
  A_long origin_y;
  A_long reserved_long3;
  A_long dephault;
};

struct PF_Pixel {
  A_u_char alpha;
  A_u_char red;
  A_u_char green;
  A_u_char blue;
};

struct PF_Pixel16 {
  A_u_short alpha;
  A_u_short red;
  A_u_short green;
  A_u_short blue;
};

struct PF_PixelFloat {
  PF_FpShort alpha;
  PF_FpShort red;
  PF_FpShort green;
  PF_FpShort blue;
};

}  // extern "C"
