// Everything that Direct3D can fail with, through the whole effect: the frame is the processor's picture, the
// debugger hears what it must and nothing else, a failed start is final until set-down, and set-up starts
// afresh.
#include "tests/windows/graphics/road_fixture.h"

#include <cstdio>

namespace vantle::host {
namespace {

struct Failure {
  const char* name;
  void (*provoke)();
  Texts texts;
  bool isFinal;  ///< the start failed, as opposed to one frame
};

void FailCompilation(const char* messages) {
  TheCompiler().result = standin::kFail;
  TheCompiler().givesMessages = messages != nullptr;
  if (messages != nullptr)
    std::snprintf(TheCompiler().messages, sizeof(TheCompiler().messages), "%s", messages);
}

const Failure kFailures[] = {
    {"NoDevice",
     [] { TheGraphics().createDevice = standin::kUnsupported; },
     {"[Vantle GPU] Failed to create D3D11 device: 0x887A0004\n"},
     true},
    {"DeviceNotHandedOut",
     [] { TheGraphics().withholdDevice = true; },
     {"[Vantle GPU] Failed to create D3D11 device: 0x00000000\n"},
     true},
    {"ContextNotHandedOut",
     [] { TheGraphics().withholdContext = true; },
     {"[Vantle GPU] Failed to create D3D11 device: 0x00000000\n"},
     true},
    {"DeviceAfterAGoodProbe",
     [] { TheGraphics().failDevice = 2; },
     {"[Vantle GPU] Failed to create D3D11 device: 0x887A0004\n"},
     true},
    {"CompilationErrorWithText",
     [] { FailCompilation("VantleKernel.hlsl(7,3): error X3018: no such thing\n"); },
     {"[Vantle GPU] HLSL compile error: VantleKernel.hlsl(7,3): error X3018: no such thing\n\n"},
     true},
    {"CompilationErrorWithoutText", [] { FailCompilation(nullptr); }, {}, true},
    {"NoBytecode", [] { TheCompiler().withholdBytecode = true; }, {}, true},
    {"NoShader",
     [] { TheGraphics().createShader = standin::kOutOfMemory; },
     {"[Vantle GPU] Failed to create compute shader: 0x8007000E\n"},
     true},
    {"MapFails", [] { TheGraphics().map = standin::kFail; }, {kStarted}, false},
    {"DeviceRemovedAtMap", [] { TheGraphics().map = standin::kDeviceRemoved; }, {kStarted}, false},
};

void StopFailing() {
  TheGraphics().createDevice = 0;
  TheGraphics().withholdDevice = false;
  TheGraphics().withholdContext = false;
  TheGraphics().failDevice = 0;
  TheGraphics().createShader = 0;
  TheGraphics().map = 0;
  TheCompiler().result = 0;
  TheCompiler().givesMessages = false;
  TheCompiler().withholdBytecode = false;
}

class Failing : public Road, public testing::WithParamInterface<Failure> {
 protected:
  void ExpectProcessorSilently(const FrameRequest& request) {
    ExpectProcessor(request);
    EXPECT_EQ(TakeDebugTexts(), Texts{});
  }

  /// The frames after a failed start, and after a failed frame, once nothing fails any more.
  void ExpectNoSecondAttempt(const FrameRequest& request) {
    const int devices = TheGraphics().devices;
    const int compilations = TheCompiler().compilations;
    for (int frame = 0; frame < 3; ++frame) ExpectProcessorSilently(request);
    EXPECT_EQ(TheGraphics().devices, devices);
    EXPECT_EQ(TheCompiler().compilations, compilations);
    EXPECT_EQ(TheGraphics().live, 0) << "a failed start keeps nothing";
    EXPECT_EQ(TheGraphics().dispatches, 0);
  }

  void ExpectAFreshStart(const FrameRequest& request) {
    Close();
    Open();
    ExpectGraphics(request);
    EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
    Close();
    Open();
  }
};

TEST_P(Failing, GivesTheProcessorsPicture) {
  for (const int number : kFrameOfDepth) {
    SCOPED_TRACE(number);
    const FrameRequest request = Frame(number);
    GetParam().provoke();
    ExpectProcessor(request);
    EXPECT_EQ(TakeDebugTexts(), GetParam().texts);
    ExpectProcessorSilently(request);
    StopFailing();
    if (GetParam().isFinal) {
      ExpectNoSecondAttempt(request);
    } else {
      ExpectGraphics(request);
      EXPECT_EQ(TakeDebugTexts(), Texts{});
    }
    ExpectAFreshStart(request);
    Close();
    test::ResetStandIns();
    Open();
  }
}

INSTANTIATE_TEST_SUITE_P(Direct3D, Failing, testing::ValuesIn(kFailures),
                         [](const testing::TestParamInfo<Failure>& failing) { return failing.param.name; });

// The parameters, three lists with a view each, the output with its view, and the staging buffer.
TEST_F(Road, EachBufferAndEachViewMayFailForAFrame) {
  for (const int number : kFrameOfDepth) {
    const FrameRequest request = Frame(number);
    ExpectGraphics(request);
    TakeDebugTexts();
    const int resting = TheGraphics().live;
    for (int creation = 1; creation <= 10; ++creation) {
      SCOPED_TRACE(testing::Message() << "frame " << number << ", creation " << creation);
      const int before = TheGraphics().creations;
      TheGraphics().failCreation = creation;
      ExpectProcessor(request);
      EXPECT_EQ(TheGraphics().creations, before + creation) << "given up at the failed one";
      EXPECT_EQ(TheGraphics().live, resting);
      ExpectGraphics(request);
      EXPECT_EQ(TakeDebugTexts(), Texts{});
    }
  }
}

TEST_F(Road, ALostDeviceLeavesTheProcessorUntilSetDown) {
  for (const int number : kFrameOfDepth) {
    SCOPED_TRACE(number);
    const FrameRequest request = Frame(number);
    ExpectGraphics(request);
    EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
    const int devices = TheGraphics().devices;
    TheGraphics().removed = true;
    ExpectProcessor(request);
    TheGraphics().removed = false;
    for (int frame = 0; frame < 3; ++frame) ExpectProcessor(request);
    EXPECT_EQ(TheGraphics().devices, devices);
    EXPECT_EQ(TakeDebugTexts(), Texts{});
    Close();
    Open();
    ExpectGraphics(request);
    EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
    Close();
    Open();
  }
}

// Lost between dispatch and read-back: the half-drawn frame must not show.
TEST_F(Road, ADeviceLostWhileItDrawsLeavesTheProcessorsPicture) {
  for (const int number : kFrameOfDepth) {
    TheGraphics().insideMap = [](void*) { TheGraphics().removed = true; };
    ExpectProcessor(Frame(number));
    TheGraphics().insideMap = nullptr;
    TheGraphics().removed = false;
    Close();
    Open();
  }
  EXPECT_EQ(TheGraphics().dispatches, 3);
}

}  // namespace
}  // namespace vantle::host
