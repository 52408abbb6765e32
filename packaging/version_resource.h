// The version resource and the text that a resource compiler makes a file's resources from.
#pragma once

#include <string>

namespace vantle::packaging {

/// What kind of file carries the resources.
enum class FileKind { kLibrary, kProgram };

/// Text for windres or rc. The library's names "vantle.pipl" (the property list, as a file of bytes: texts
/// with bytes of 0x80 and above are changed by resource compilers); the program's names "vantle.manifest".
std::string ResourceScript(FileKind kind, const std::string& fileName);

/// The program's manifest: paths and arguments are UTF-8, and long paths are welcome.
std::string ProgramManifest();

}  // namespace vantle::packaging
