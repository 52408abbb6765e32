// The start of the graphics path: which calls, which texts, and that a failure is final until the release.
#include "render/graphics/kernel_source.h"
#include "tests/windows/graphics/renderer_fixture.h"

namespace vantle::test {
namespace {

using standin::Compiler;
using standin::Graphics;

class Start : public Renderer {};

TEST_F(Start, HappensOnceAndSaysSo) {
  EXPECT_TRUE(InitGpu());
  EXPECT_TRUE(InitGpu());
  EXPECT_TRUE(IsGpuUsable());
  EXPECT_EQ(TheGraphics().devices, 1);
  EXPECT_EQ(TheGraphics().shaders, 1);
  EXPECT_EQ(TheGraphics().live, kLasting);
  EXPECT_EQ(TheCompiler().live, 1) << "the bytecode stays with the shader";
  EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
}

TEST_F(Start, HandsTheCompilerTheKernelAndNothingElse) {
  ASSERT_TRUE(InitGpu());
  const Compiler& seen = TheCompiler();
  EXPECT_EQ(seen.compilations, 1);
  EXPECT_EQ(std::string_view(static_cast<const char*>(seen.text), seen.textBytes), KernelSource());
  EXPECT_STREQ(seen.sourceName, "VantleKernel.hlsl");
  EXPECT_STREQ(seen.entry, "CSMain");
  EXPECT_STREQ(seen.target, "cs_5_0");
  EXPECT_FALSE(seen.givenMacros);
  EXPECT_FALSE(seen.givenIncludes);
  EXPECT_EQ(seen.compileFlags, 1u << 15) << "the third level of optimisation";
  EXPECT_EQ(seen.effectFlags, 0u);
}

TEST_F(Start, ProbeMakesADeviceAndLetsItGo) {
  EXPECT_TRUE(IsGpuUsable());
  EXPECT_EQ(TheGraphics().devices, 1);
  EXPECT_EQ(TheGraphics().live, 0);
  EXPECT_EQ(TheGraphics().lastDeviceRelease, 0u);
  EXPECT_EQ(TheCompiler().compilations, 0);
  EXPECT_EQ(TakeDebugTexts(), Texts{});
  EXPECT_TRUE(InitGpu());
  EXPECT_EQ(TheGraphics().devices, 2);
}

/// Fails to start with the text given, does not try again, and starts afresh after a release.
void ExpectFinalFailure(const Texts& texts) {
  EXPECT_FALSE(InitGpu());
  EXPECT_EQ(TakeDebugTexts(), texts);
  EXPECT_EQ(TheGraphics().live, 0);
  EXPECT_EQ(TheCompiler().live, 0);

  const int devices = TheGraphics().devices;
  const int compilations = TheCompiler().compilations;
  TheGraphics().createDevice = 0;
  TheGraphics().withholdDevice = false;
  TheGraphics().createShader = 0;
  TheCompiler().result = 0;
  TheCompiler().withholdBytecode = false;
  TheCompiler().givesMessages = false;
  const KernelScene scene = SmallScene();
  const KernelInput input = MakeKernelInput(scene, true);
  EXPECT_FALSE(InitGpu());
  EXPECT_FALSE(IsGpuUsable());
  EXPECT_TRUE(Render(scene, FrameOf(input)).empty());
  EXPECT_EQ(TheGraphics().devices, devices);
  EXPECT_EQ(TheCompiler().compilations, compilations);
  EXPECT_EQ(TakeDebugTexts(), Texts{});

  ReleaseGpu();
  EXPECT_TRUE(InitGpu());
  EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
  EXPECT_EQ(Render(scene, FrameOf(input)), DrawOnProcessor(scene));
}

TEST_F(Start, WithoutADeviceFails) {
  TheGraphics().createDevice = standin::kUnsupported;
  ExpectFinalFailure({"[Vantle GPU] Failed to create D3D11 device: 0x887A0004\n"});
}

TEST_F(Start, OfADeviceThatIsNotHandedOutFails) {
  TheGraphics().withholdDevice = true;
  ExpectFinalFailure({"[Vantle GPU] Failed to create D3D11 device: 0x00000000\n"});
}

TEST_F(Start, ProbeWithoutADeviceIsTheOneAttempt) {
  TheGraphics().createDevice = standin::kUnsupported;
  EXPECT_FALSE(IsGpuUsable());
  EXPECT_EQ(TakeDebugTexts(), Texts{NoDeviceText(standin::kUnsupported)});
  ExpectFinalFailure({});
}

TEST_F(Start, ProbeOfADeviceThatIsNotHandedOutIsTheOneAttempt) {
  TheGraphics().withholdDevice = true;
  EXPECT_FALSE(IsGpuUsable());
  EXPECT_EQ(TakeDebugTexts(), Texts{NoDeviceText(0)});
  ExpectFinalFailure({});
}

TEST_F(Start, CompilationErrorIsTold) {
  TheCompiler().result = standin::kFail;
  TheCompiler().givesMessages = true;
  std::snprintf(TheCompiler().messages, sizeof(TheCompiler().messages), "%s",
                "VantleKernel.hlsl(3,1): error X3000: 100%% wrong");
  ExpectFinalFailure({"[Vantle GPU] HLSL compile error: VantleKernel.hlsl(3,1): error X3000: 100%% wrong\n"});
}

TEST_F(Start, LongCompilationErrorIsCut) {
  TheCompiler().result = standin::kFail;
  TheCompiler().givesMessages = true;
  std::snprintf(TheCompiler().messages, sizeof(TheCompiler().messages), "%s", std::string(1500, 'x').c_str());
  const std::string whole = "[Vantle GPU] HLSL compile error: " + std::string(1500, 'x');
  ExpectFinalFailure({whole.substr(0, 511)});
}

TEST_F(Start, CompilationErrorWithoutTextIsSilent) {
  TheCompiler().result = standin::kFail;
  ExpectFinalFailure({});
}

TEST_F(Start, CompilationWithoutBytecodeFails) {
  TheCompiler().withholdBytecode = true;
  ExpectFinalFailure({});
}

TEST_F(Start, WarningsOfTheCompilerAreNoError) {
  TheCompiler().givesMessages = true;
  EXPECT_TRUE(InitGpu());
  EXPECT_EQ(TheCompiler().live, 1) << "the warnings are released, the bytecode is kept";
  EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
}

TEST_F(Start, WithoutAShaderFails) {
  TheGraphics().createShader = standin::kOutOfMemory;
  ExpectFinalFailure({"[Vantle GPU] Failed to create compute shader: 0x8007000E\n"});
}

TEST_F(Start, ReleaseWithoutADeviceIsHarmless) {
  ReleaseGpu();
  ReleaseGpu();
  EXPECT_EQ(TheGraphics().devices, 0);
  EXPECT_TRUE(InitGpu());
  ReleaseGpu();
  ReleaseGpu();
  EXPECT_EQ(TheGraphics().lastDeviceRelease, 0u);
}

TEST_F(Start, TextsAreFormattedAndCutAt511Characters) {
  GpuDebugPrint("[Vantle GPU] %d of %s, 0x%08X\n", 7, "nine", 0xABCu);
  EXPECT_EQ(TakeDebugTexts(), Texts{"[Vantle GPU] 7 of nine, 0x00000ABC\n"});
  GpuDebugPrint("[Vantle GPU] %600s", "end");
  EXPECT_EQ(TakeDebugTexts(), Texts{"[Vantle GPU] " + std::string(511 - 13, ' ')});
}

}  // namespace
}  // namespace vantle::test
