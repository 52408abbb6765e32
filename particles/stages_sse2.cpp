#include "particles/lanes_sse2.h"
#include "particles/stages_lanes.h"

namespace vantle {

const ParticleStages& StagesSse2() {
  return kStages;
}

}  // namespace vantle
