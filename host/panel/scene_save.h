// A scene's file with the values that were edited in the panel.
#pragma once

#include "host/io/json_file.h"
#include "host/panel/panel.h"

#include <cstdint>
#include <map>
#include <string>

namespace vantle::panel {

/// Values of custom parameters that were edited, by index.
using EditedValues = std::map<int, ValueBytes>;

/// Those with steps in force; each value is first taken through the effect's own
/// flattening. Throws Failure (kEffectError) when a value does not come back from there as it was.
EditedValues CollectEdits(Panel& panel);

/// The text of the scene file at `scenePath` with the edits in it, for a file at `newPath`. Everything else
/// stays as it is written there, save spacing, and paths where the two files lie in different folders. The
/// value of a parameter with keyframes becomes the key at `frame`. Throws Failure (kUnreadableInput).
std::string SceneTextWithEdits(const std::string& scenePath, const std::string& newPath,
                               const host::EffectInstance& effect, const EditedValues& edits, int32_t frame);

/// JSON as people write it: two blanks a level, lists of plain values on one line.
std::string PrettyJson(const io::Json& json);

}  // namespace vantle::panel
