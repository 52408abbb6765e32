#include "packaging/version_resource.h"

#include <gtest/gtest.h>

namespace vantle::packaging {
namespace {

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(VersionResource, LibraryCarriesVersionAndPropertyList) {
  const std::string script = ResourceScript(FileKind::kLibrary, "Vantle.aex");
  EXPECT_TRUE(Holds(script, "16000 PiPL \"vantle.pipl\"\n"));
  EXPECT_TRUE(Holds(script, "FILEVERSION 1,2,0,1\n"));
  EXPECT_TRUE(Holds(script, "VALUE \"FileVersion\", \"1.2.0.1\"\n"));
  EXPECT_TRUE(Holds(script, "VALUE \"OriginalFilename\", \"Vantle.aex\"\n"));
  EXPECT_TRUE(Holds(script, "FILETYPE 2\n"));
}

TEST(VersionResource, ProgramCarriesItsManifestAndNoPropertyList) {
  const std::string script = ResourceScript(FileKind::kProgram, "vantle.exe");
  EXPECT_TRUE(Holds(script, "1 24 \"vantle.manifest\"\n"));
  EXPECT_FALSE(Holds(script, "PiPL"));
  EXPECT_TRUE(Holds(script, "FILETYPE 1\n"));
  EXPECT_TRUE(Holds(ProgramManifest(), ">UTF-8</activeCodePage>"));
}

}  // namespace
}  // namespace vantle::packaging
