// What an effect declared, for programs and for people.
#pragma once

#include "host/engine/effect.h"
#include "host/io/json_file.h"

#include <string>

namespace vantle::cli {

/// Registration, version, flags, about text and the parameter table, with the texts that the effect itself
/// prints of its custom values.
io::Json EffectReport(host::EffectInstance& effect, const std::string& about);

/// The same as text in columns.
std::string EffectTable(host::EffectInstance& effect, const std::string& about);

}  // namespace vantle::cli
