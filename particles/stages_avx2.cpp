#include "particles/lanes_avx2.h"
#include "particles/stages_lanes.h"

namespace vantle {

const ParticleStages& StagesAvx2() {
  return kStages;
}

}  // namespace vantle
