// The measurements that the program makes, each printed as JSON.
#pragma once

#include "bench/measure/timing.h"

namespace vantle::measure {

/// Every stage on the plain road and at every level, on one thread and two, all in turns.
Report MeasureTable(const Effort& effort);

/// Every shape, transfer mode and depth, by the pixel touched.
Report MeasureShapes(const Effort& effort);

/// Time over the number of particles, their size, the size of the layers, and threads.
Report MeasureScaling(const Effort& effort);

/// Runs the small work of each stage once, under the eyes of an instruction counter, and names the stages in
/// the order in which they ran.
Report RunCountedWorks();

}  // namespace vantle::measure
