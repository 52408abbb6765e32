// How the program ends: one number and one line, for every way in which a run can fail.
#pragma once

#include <stdexcept>
#include <string>

namespace vantle::io {

/// Exit codes of the program. Scripts rely on them: never renumber.
enum ExitCode : int {
  kDone = 0,
  kSomeFramesFailed = 1,  ///< some frames were written, others failed
  kUsage = 2,             ///< the command line does not make sense
  kUnreadableInput = 3,   ///< a scene, a picture or an array cannot be read or is not valid
  kModuleNotLoadable = 4,
  kEffectError = 5,  ///< the effect returned an error, or left the host's books unbalanced
  kOutputNotWritable = 6,
  kInterrupted = 130,
};

/// A failure that ends a command. The message is one line that names the culprit and the fix.
struct Failure : std::runtime_error {
  Failure(ExitCode exitCode, const std::string& message) : std::runtime_error(message), code(exitCode) {}
  ExitCode code;
};

}  // namespace vantle::io
