#include "shell/camera_reader.h"

#include "base/matrix.h"
#include "host_api/aegp_suites.h"
#include "shell/command_handlers.h"
#include "shell/suites.h"

#include <cstring>

namespace vantle {
namespace {

// The camera layer and the moment at which it is asked.
struct CameraLayer {
  AEGP_LayerH layer = nullptr;
  A_Time time{};
};

CameraLayer FindCamera(const PF_InData& in_data, const AEGP_PFInterfaceSuite1& host) {
  CameraLayer camera;
  if (host.AEGP_ConvertEffectToCompTime == nullptr || host.AEGP_GetEffectCamera == nullptr) return {};
  if (host.AEGP_ConvertEffectToCompTime(in_data.effect_ref, in_data.current_time, in_data.time_scale,
                                        &camera.time) != A_Err_NONE) {
    return {};
  }
  if (host.AEGP_GetEffectCamera(in_data.effect_ref, &camera.time, &camera.layer) != A_Err_NONE) return {};
  return camera;
}

// The host's matrix multiplies row vectors and is stored row after row; ours multiplies column vectors and is
// stored column after column. The two are each other's transpose twice over: the same sixteen numbers.
void ReadMatrix(const PF_InData& in_data, const AEGP_PFInterfaceSuite1& host, const A_Time& time,
                CameraData* camera) {
  if (host.AEGP_GetEffectCameraMatrix == nullptr) return;
  A_Matrix4 matrix{};
  A_FpLong distance = 0.0;
  A_short width = 0;
  A_short height = 0;
  if (host.AEGP_GetEffectCameraMatrix(in_data.effect_ref, &time, &matrix, &distance, &width, &height) !=
      A_Err_NONE) {
    return;
  }
  if (!(distance > 0.0) || width < 1 || height < 1) return;
  double cameraToWorld[16];
  static_assert(sizeof(cameraToWorld) == sizeof(matrix.mat));
  std::memcpy(cameraToWorld, matrix.mat, sizeof(cameraToWorld));
  InvertMatrix4(cameraToWorld, camera->viewMatrix);
  camera->imagePlaneDistance = distance;
  camera->cameraCentre[0] = static_cast<float>(width) / 2.0f;
  camera->cameraCentre[1] = static_cast<float>(height) / 2.0f;
  camera->hasCamera = true;
}

// The one-dimensional value of a stream of the camera layer, expressions applied; 0 when it cannot be read.
float ReadStream(const AEGP_StreamSuite6& streams, const CameraLayer& camera, AEGP_LayerStream which) {
  constexpr A_Boolean kWithExpressions = 0;
  const AEGP_PluginID id = GeneralPluginId();
  AEGP_StreamRefH stream = nullptr;
  if (streams.AEGP_GetNewLayerStream(id, camera.layer, which, &stream) != A_Err_NONE || stream == nullptr) {
    return 0.0f;
  }
  float result = 0.0f;
  AEGP_StreamValue2 value{};
  if (streams.AEGP_GetNewStreamValue(id, stream, AEGP_LTimeMode_CompTime, &camera.time, kWithExpressions,
                                     &value) == A_Err_NONE) {
    result = static_cast<float>(value.val.one_d);
    streams.AEGP_DisposeStreamValue(&value);
  }
  streams.AEGP_DisposeStream(stream);
  return result;
}

bool IsComplete(const AEGP_StreamSuite6& streams) {
  return streams.AEGP_GetNewLayerStream != nullptr && streams.AEGP_GetNewStreamValue != nullptr &&
         streams.AEGP_DisposeStreamValue != nullptr && streams.AEGP_DisposeStream != nullptr;
}

void ReadDepthOfField(const PF_InData& in_data, const CameraLayer& layer, CameraData* camera) {
  const ScopedSuite<AEGP_StreamSuite6> streams(&in_data, kAEGP_StreamSuite6Name, kAEGP_StreamSuite6Version);
  if (!streams || !IsComplete(*streams.get())) return;
  camera->cameraDepthOfField = ReadStream(*streams.get(), layer, AEGP_LayerStream_DEPTH_OF_FIELD) > 0.5f;
  if (!camera->cameraDepthOfField) return;
  camera->focusDistance = ReadStream(*streams.get(), layer, AEGP_LayerStream_FOCUS_DISTANCE);
  camera->aperture = ReadStream(*streams.get(), layer, AEGP_LayerStream_APERTURE);
  camera->zoom = ReadStream(*streams.get(), layer, AEGP_LayerStream_ZOOM);
}

}  // namespace

CameraData ReadCamera(const PF_InData& in_data, const FrameSettings& settings) {
  CameraData camera;
  if (IsPremierePro(&in_data)) return camera;
  const ScopedSuite<AEGP_PFInterfaceSuite1> host(&in_data, kAEGP_PFInterfaceSuite1Name,
                                                 kAEGP_PFInterfaceSuite1Version);
  if (!host) return camera;
  const CameraLayer layer = FindCamera(in_data, *host.get());
  if (layer.layer == nullptr) return camera;
  ReadMatrix(in_data, *host.get(), layer.time, &camera);
  if (camera.hasCamera && settings.depthOfField && GeneralPluginId() != 0) {
    ReadDepthOfField(in_data, layer, &camera);
  }
  return camera;
}

}  // namespace vantle
