// Two large frames, timed on both roads.
#pragma once

namespace vantle::reference {

/// Prints the seconds of each stage on one thread: 20,000 small particles between two full-size layers, and
/// 200,000 larger ones in turbulence. Returns 1 when the pictures differ.
int PrintTimes();

}  // namespace vantle::reference
