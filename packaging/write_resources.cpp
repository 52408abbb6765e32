// Writes into a folder what the resource compiler needs. Runs on the machine that builds.
#include "packaging/property_resource.h"
#include "packaging/version_resource.h"

#include <cstdio>
#include <string>

namespace {

bool WriteBytes(const std::string& path, const void* bytes, size_t count) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  const bool written = std::fwrite(bytes, 1, count, file) == count;
  return std::fclose(file) == 0 && written;
}

bool WriteText(const std::string& path, const std::string& text) {
  return WriteBytes(path, text.data(), text.size());
}

}  // namespace

int main(int argc, char** argv) {
  using namespace vantle::packaging;
  if (argc != 2) return 2;
  const std::string folder = std::string(argv[1]) + "/";
  const auto properties = WriteProperties(EffectProperties());
  const bool written = WriteBytes(folder + "vantle.pipl", properties.data(), properties.size()) &&
                       WriteText(folder + "library.rc", ResourceScript(FileKind::kLibrary, "Vantle.aex")) &&
                       WriteText(folder + "vantle.manifest", ProgramManifest()) &&
                       WriteText(folder + "program.rc", ResourceScript(FileKind::kProgram, "vantle.exe"));
  if (!written) std::fprintf(stderr, "cannot write the resources into %s\n", folder.c_str());
  return written ? 0 : 1;
}
