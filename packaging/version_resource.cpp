#include "packaging/version_resource.h"

#include "packaging/property_resource.h"
#include "shell/identity.h"

namespace vantle::packaging {
namespace {

std::string VersionText(const char* separator) {
  return std::to_string(kVersionMajor) + separator + std::to_string(kVersionMinor) + separator +
         std::to_string(kVersionBug) + separator + std::to_string(kVersionBuild);
}

std::string Entry(const std::string& name, const std::string& value) {
  return "      VALUE \"" + name + "\", \"" + value + "\"\n";
}

// The numbers are those of the system's headers, so that none has to be found: file flags, system (NT with
// 32-bit and 64-bit Windows), kind of file, language (US English), character set (Unicode).
std::string VersionScript(FileKind kind, const std::string& fileName) {
  const std::string commas = VersionText(",");
  const std::string dots = VersionText(".");
  return "1 VERSIONINFO\n  FILEVERSION " + commas + "\n  PRODUCTVERSION " + commas +
         "\n  FILEFLAGSMASK 0x3F\n  FILEFLAGS 0\n  FILEOS 0x40004\n  FILETYPE " +
         (kind == FileKind::kLibrary ? "2" : "1") +
         "\n  FILESUBTYPE 0\nBEGIN\n  BLOCK \"StringFileInfo\"\n  BEGIN\n    BLOCK \"040904B0\"\n    "
         "BEGIN\n" +
         Entry("FileDescription",
               kind == FileKind::kLibrary ? kDescription : "Renders Vantle without a host") +
         Entry("FileVersion", dots) + Entry("InternalName", kDisplayName) +
         Entry("OriginalFilename", fileName) + Entry("ProductName", kDisplayName) +
         Entry("ProductVersion", dots) +
         "    END\n  END\n  BLOCK \"VarFileInfo\"\n  BEGIN\n    VALUE \"Translation\", 0x409, 1200\n  "
         "END\nEND\n";
}

}  // namespace

std::string ResourceScript(FileKind kind, const std::string& fileName) {
  const std::string extra = kind == FileKind::kLibrary
                                ? std::to_string(kPropertyResourceId) + " PiPL \"vantle.pipl\"\n"
                                : std::string("1 24 \"vantle.manifest\"\n");
  return "LANGUAGE 9, 1\n" + extra + VersionScript(kind, fileName);
}

std::string ProgramManifest() {
  return R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <application xmlns="urn:schemas-microsoft-com:asm.v3">
    <windowsSettings>
      <activeCodePage xmlns="http://schemas.microsoft.com/SMI/2019/WindowsSettings">UTF-8</activeCodePage>
      <longPathAware xmlns="http://schemas.microsoft.com/SMI/2016/WindowsSettings">true</longPathAware>
    </windowsSettings>
  </application>
</assembly>
)";
}

}  // namespace vantle::packaging
