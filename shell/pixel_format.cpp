#include "shell/pixel_format.h"

#include "base/pixels.h"
#include "host_api/pf_suites.h"
#include "shell/suites.h"

namespace vantle {
namespace {

bool IsEdge(A_long length) {
  return length > 0 && length <= kMaxWorldEdge;
}

bool HoldsPixels(const PF_LayerDef& world, PixelDepth depth) {
  if (world.data == nullptr || !IsEdge(world.width) || !IsEdge(world.height)) return false;
  const int64_t stride = world.rowbytes < 0 ? -int64_t{world.rowbytes} : int64_t{world.rowbytes};
  return stride >= int64_t{world.width} * static_cast<int64_t>(PixelBytes(depth));
}

}  // namespace

PixelDepth QueryPixelDepth(const PF_InData& in_data, const PF_LayerDef& output) {
  const ScopedSuite<PF_WorldSuite2> worlds(&in_data, kPF_WorldSuite2Name, kPF_WorldSuite2Version);
  if (!worlds || worlds->PF_GetPixelFormat == nullptr) return PixelDepth::k8;
  PF_PixelFormat format = PF_PixelFormat_INVALID;
  if (worlds->PF_GetPixelFormat(&output, &format) != PF_Err_NONE) return PixelDepth::k8;
  if (format == PF_PixelFormat_ARGB64) return PixelDepth::k16;
  return format == PF_PixelFormat_ARGB128 ? PixelDepth::k32 : PixelDepth::k8;
}

ImageView ViewWorld(const PF_LayerDef& world, PixelDepth depth) {
  if (!HoldsPixels(world, depth)) return {};
  return {reinterpret_cast<const std::byte*>(world.data), world.rowbytes, world.width, world.height, depth};
}

MutableImage ViewOutput(const PF_LayerDef& world, PixelDepth depth) {
  if (!HoldsPixels(world, depth)) return {};
  return {reinterpret_cast<std::byte*>(world.data), world.rowbytes, world.width, world.height, depth};
}

}  // namespace vantle
