// A system without one of the two libraries. Which one is not there, the caller of this program sees to, and
// picks the test.
#include "tests/windows/graphics/debug_text.h"
#include "tests/windows/graphics/graphics_frames.h"
#include "tests/windows/graphics/stand_ins.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace vantle::host {
namespace {

using test::TakeDebugTexts;
using test::Texts;

/// Renders the processor's picture twice, in each depth, with these texts at the first frame after a set-up.
void ExpectProcessor(const Texts& texts) {
  const OpenedEffect processor = OpenProcessorOnly();
  for (const int number : {0, 2, 4}) {
    const OpenedEffect shipped = OpenShipped();
    const FrameRequest request = ParticlesAlone(*processor.effect, number);
    const std::vector<std::uint8_t> expected = PixelsOf(Rendered(*processor.effect, request));
    TakeDebugTexts();
    EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, request)), expected) << number;
    EXPECT_EQ(TakeDebugTexts(), texts);
    EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, request)), expected) << number;
    EXPECT_EQ(TakeDebugTexts(), Texts{});
    EXPECT_TRUE(CloseEffect(*shipped.effect).problems.empty());
  }
  EXPECT_TRUE(CloseEffect(*processor.effect).problems.empty());
}

TEST(MissingLibrary, Direct3D) {
  ASSERT_EQ(LoadLibraryExW(L"d3d11.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32), nullptr);
  ExpectProcessor({test::NoDeviceText(HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND))});
}

// That counts as a compilation that failed without a text.
TEST(MissingLibrary, ShaderCompiler) {
  ASSERT_EQ(LoadLibraryExW(L"d3dcompiler_47.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32), nullptr);
  test::TheGraphics() = {};  // from here on it is Direct3D
  ExpectProcessor({});
  EXPECT_EQ(test::TheGraphics().devices, 6)
      << "the probe's and the one that waited for its shader, each time";
  EXPECT_EQ(test::TheGraphics().live, 0);
  EXPECT_EQ(test::FirstFault(), "");
}

}  // namespace
}  // namespace vantle::host
