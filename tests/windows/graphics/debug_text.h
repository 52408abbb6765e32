// What this process sends to the debugger's output. Such a text arrives as an exception, which anybody in the
// process may look at first.
#pragma once

#include <string>
#include <vector>

namespace vantle::test {

/// The effect's texts since the last call, oldest first; the first call begins to listen. Texts of other
/// libraries, which have another beginning, are not among them. Any thread may call.
std::vector<std::string> TakeDebugTexts();

}  // namespace vantle::test
