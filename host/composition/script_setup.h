// What a script finds when it starts.
#pragma once

#include "host/composition/evaluation.h"

#include <duktape.h>

namespace vantle::composition {

/// Takes away everything that a script must not have: compilers, clocks, random numbers, functions that run
/// for long on small input. Must run in a protected call.
void StripGlobals(duk_context* engine);

/// Puts in what the composition offers. `evaluation` and `own` must outlive the engine. Must run in a
/// protected call.
void OfferComposition(duk_context* engine, Evaluation& evaluation, const Numbers& own, int dimensions);

}  // namespace vantle::composition
