// The table of a level's loops. Included after a lanes_*.h.
#pragma once

#include "particles/appearance_lanes.h"
#include "particles/motion_lanes.h"
#include "particles/pick_lanes.h"
#include "particles/projection_lanes.h"
#include "particles/stages.h"
#include "particles/weights_lanes.h"

namespace vantle {
namespace {

inline constexpr ParticleStages kStages = {
    WeighLanes,  SumBlocksOf,       SumBlockPairsOf,  BeginPickLanes,  FinishPickLanes,
    KeysOfLanes, StartLanes,        PositionsAtLanes, DirectionsLanes, EvaluateTurbulenceLanes,
    NoiseLanes,  AppearanceOfLanes, SizesOfLanes,     ShiftHueLanes,   ProjectLanes,
    StoreRecords};

}  // namespace
}  // namespace vantle
