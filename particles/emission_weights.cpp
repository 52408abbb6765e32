#include "particles/emission_weights.h"

#include "particles/stages.h"

namespace vantle {

void PixelWeights(PixelDepth depth, const std::byte* at, int32_t count, float variation, int32_t channel,
                  float* weights) {
  CurrentStages().weigh(depth, at, count, variation, channel, weights);
}

}  // namespace vantle
