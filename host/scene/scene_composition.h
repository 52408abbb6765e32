// The composition that a scene describes, and what its expressions make of the effect's parameters.
#pragma once

#include "host/composition/composition.h"
#include "host/scene/scene_frame.h"

#include <memory>

namespace vantle::scene {

/// Makes the composition: layers with ids in the scene's order from 1, what they show as far as the store has
/// opened it, parents, the layers that the effect's parameters chose. Throws Failure (kUnreadableInput) for a
/// parent that is missing or is its own descendant.
std::shared_ptr<composition::Composition> MakeComposition(const Scene& scene, const LayerStore& store);

/// Puts the values that expressions give in place of those that the request has. Numbers are held to the
/// parameter's valid range, choices and check boxes rounded down.
void ApplyExpressions(const PreparedScene& prepared, host::FrameRequest* request);

/// Evaluates every expression of the scene once at a frame, so that what fails is reported before anything
/// is rendered.
void CheckExpressions(const PreparedScene& prepared, int32_t frame);

/// The value of a parameter of numbers without keys.
BoundKey DefaultKey(const host::DeclaredParam& param);

}  // namespace vantle::scene
