#include "particles/lanes_avx512.h"
#include "particles/stages_lanes.h"

namespace vantle {

const ParticleStages& StagesAvx512() {
  return kStages;
}

}  // namespace vantle
