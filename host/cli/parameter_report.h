// What an effect declared, for programs and for people.
#pragma once

#include "host/engine/effect.h"
#include "host/io/json_file.h"

#include <string>

namespace vantle::cli {

/// Registration, version, flags, about text and the parameter table.
io::Json EffectReport(const host::EffectInstance& effect, const std::string& about);

/// The same as text in columns.
std::string EffectTable(const host::EffectInstance& effect, const std::string& about);

}  // namespace vantle::cli
