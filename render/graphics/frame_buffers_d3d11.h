// What one frame puts on the graphics processor. Nothing of it is kept for the next.
#pragma once

#include "render/graphics/com_pointer_d3d11.h"
#include "render/graphics/gpu_renderer.h"
#include "render/graphics/headers_d3d11.h"

namespace vantle {

/// A list that the shader reads.
struct InputList {
  ComPointer<ID3D11Buffer> buffer;
  ComPointer<ID3D11ShaderResourceView> view;
};

struct FrameBuffers {
  ComPointer<ID3D11Buffer> params;
  InputList particles;
  InputList tileOffsets;
  InputList tileIndices;
  ComPointer<ID3D11Buffer> output;
  ComPointer<ID3D11UnorderedAccessView> outputView;
  ComPointer<ID3D11Buffer> staging;  ///< the output's copy that the processor reads
};

/// Whether the frame's sizes are ones that buffers, views and a dispatch can have.
bool FitsBuffers(const GpuFrame& frame);

/// Creates everything in the order of the fields. False when any creation failed; what was made is released
/// with `buffers`. Needs FitsBuffers.
bool CreateFrameBuffers(ID3D11Device* device, const GpuFrame& frame, FrameBuffers* buffers);

}  // namespace vantle
