// Which known name somebody may have meant.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vantle::io {

/// Number of letters to insert, delete, replace or swap with their neighbour to get from one to the other.
/// Capitals do not count.
size_t EditDistance(const std::string& a, const std::string& b);

/// The known names nearest to `name`, nearest first, at most `count`, and none that differs in more than
/// about half of its letters. A name that merely begins with or contains `name` counts as near.
std::vector<std::string> NearestNames(const std::string& name, const std::vector<std::string>& known,
                                      size_t count);

}  // namespace vantle::io
