// What the built library's file says, against what the library says when it runs.
#include "host/engine/effect.h"
#include "packaging/property_resource.h"

#include <gtest/gtest.h>
#include <map>
#include <vector>
#include <windows.h>

namespace vantle::host {
namespace {

using packaging::Property;

HMODULE AsData() {
  return LoadLibraryExA(VANTLE_MODULE, nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
}

std::vector<Property> FileProperties() {
  const HMODULE library = AsData();
  const HRSRC place = FindResourceA(library, MAKEINTRESOURCEA(packaging::kPropertyResourceId),
                                    packaging::kPropertyResourceType);
  if (place == nullptr) return {};
  const auto* bytes = static_cast<const std::uint8_t*>(LockResource(LoadResource(library, place)));
  std::vector<Property> properties;
  EXPECT_TRUE(packaging::ReadProperties(bytes, SizeofResource(library, place), &properties));
  return properties;
}

TEST(Resources, PropertiesAreWhatTheRunningLibrarySays) {
  const LoadedModule loaded = LoadModule(VANTLE_MODULE);
  ASSERT_TRUE(loaded.module) << loaded.message;
  const OpenedEffect opened = OpenEffect(*loaded.module, {});
  ASSERT_TRUE(opened.effect) << opened.result.message;
  const EffectInstance& effect = *opened.effect;
  const Registration& registration = effect.registration;
  const auto kind = static_cast<std::uint32_t>(registration.kind);
  const std::vector<std::pair<std::string, std::vector<std::uint8_t>>> expected = {
      {"kind", packaging::Number(kind)},
      {"name", packaging::CountedText(registration.name)},
      {"catg", packaging::CountedText(registration.category)},
      {"8664", packaging::TerminatedText(registration.entryPoint)},
      {"ePVR", {2, 0, 0, 0}},
      {"eSVR", packaging::MajorMinor(static_cast<std::uint16_t>(registration.apiMajor),
                                     static_cast<std::uint16_t>(registration.apiMinor))},
      {"eVER", packaging::Number(effect.version)},
      {"eINF", {0, 0, 0, 0}},
      {"eGLO", packaging::Number(static_cast<std::uint32_t>(effect.outFlags))},
      {"eGL2", packaging::Number(static_cast<std::uint32_t>(effect.outFlags2))},
      {"eMNA", packaging::CountedText(registration.matchName)},
      {"aeFL", packaging::Number(static_cast<std::uint32_t>(registration.reservedInfo))},
  };
  const std::vector<Property> found = FileProperties();
  ASSERT_EQ(found.size(), expected.size());
  for (size_t i = 0; i < found.size(); ++i) {
    EXPECT_EQ(found[i].vendor, "8BIM") << i;
    EXPECT_EQ(found[i].id, 0) << i;
    EXPECT_EQ(found[i].key, expected[i].first) << i;
    EXPECT_EQ(found[i].data, expected[i].second) << expected[i].first;
  }
  EXPECT_NE(GetProcAddress(static_cast<HMODULE>(loaded.module->library), registration.entryPoint.c_str()),
            nullptr);
  CloseEffect(*opened.effect);
}

TEST(Resources, FileVersionIsTheEffectsVersion) {
  DWORD ignored = 0;
  std::vector<std::uint8_t> info(GetFileVersionInfoSizeA(VANTLE_MODULE, &ignored));
  ASSERT_FALSE(info.empty());
  ASSERT_NE(GetFileVersionInfoA(VANTLE_MODULE, 0, static_cast<DWORD>(info.size()), info.data()), 0);
  void* found = nullptr;
  UINT size = 0;
  ASSERT_NE(VerQueryValueA(info.data(), "\\", &found, &size), 0);
  const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(fixed->dwFileVersionMS, 0x00010002u);
  EXPECT_EQ(fixed->dwFileVersionLS, 0x00000001u);
  EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
  ASSERT_NE(VerQueryValueA(info.data(), "\\StringFileInfo\\040904B0\\ProductName", &found, &size), 0);
  EXPECT_STREQ(static_cast<const char*>(found), "Vantle");
}

}  // namespace
}  // namespace vantle::host
