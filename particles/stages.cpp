#include "particles/stages.h"

namespace vantle {

const ParticleStages& CurrentStages() {
  switch (CurrentInstructionLevel()) {
    case InstructionLevel::kAvx512:
      return StagesAvx512();
    case InstructionLevel::kAvx2:
      return StagesAvx2();
    default:
      return StagesSse2();
  }
}

}  // namespace vantle
