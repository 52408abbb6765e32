// Scenes written again after an effect changed the composition around it.
#pragma once

#include "host/composition/composition.h"
#include "host/engine/effect.h"
#include "host/io/json_file.h"
#include "host/scene/scene.h"

#include <string>

namespace vantle::scene {

/// Adds to a scene's document what `after` has more than `before`: layers on top, and expressions of the
/// effect's parameters. Everything else stays as it was written.
void WriteChanges(const composition::Composition& before, const composition::Composition& after,
                  const host::EffectInstance& effect, FrameRate rate, io::Json* document);

/// Paths of pictures that were relative to `from` become relative to `to`.
void MovePaths(const std::string& from, const std::string& to, io::Json* document);

/// JSON as people write it: what fits on a line stays on one.
std::string TidyText(const io::Json& document);

}  // namespace vantle::scene
