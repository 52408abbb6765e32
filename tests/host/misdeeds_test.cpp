// Every detector is shown to fire, and to stay silent for an effect that behaves.
#include "tests/host/linked_effect.h"
#include "tests/host/misbehaving_effect.h"

#include <gtest/gtest.h>

namespace vantle::host {
namespace {

struct Expectation {
  A_long misdeed;
  const char* line;
};

class MisdeedTest : public testing::TestWithParam<Expectation> {};

TEST_P(MisdeedTest, IsReportedByName) {
  HostOptions options;
  options.checkReadOnly = true;
  OpenedEffect opened = OpenMisbehaving(options);
  ASSERT_NE(opened.effect, nullptr) << Joined(opened.result.problems);
  World output;
  const FrameResult result = RenderFrame(*opened.effect, SmallFrame(GetParam().misdeed), &output);
  EXPECT_NE(Joined(result.problems).find(GetParam().line), std::string::npos) << Joined(result.problems);
  EXPECT_FALSE(Succeeded(result));

  // The next frame and the end of the effect's life must not answer for it again.
  const FrameResult next = RenderFrame(*opened.effect, SmallFrame(kBehave), nullptr);
  EXPECT_TRUE(Succeeded(next)) << Joined(next.problems);
  const CommandResult closed = CloseEffect(*opened.effect);
  EXPECT_EQ(Joined(closed.problems), "");
}

INSTANTIATE_TEST_SUITE_P(
    All, MisdeedTest,
    testing::Values(
        Expectation{kKeepSuite, "suite \"PF ANSI Suite\" 1 taken 1 times, given back 0"},
        Expectation{kReleaseTwice, "suite \"PF ANSI Suite\" 1 given back without having been taken"},
        Expectation{kKeepHandle, "handle of 16 bytes never disposed"},
        Expectation{kDisposeTwice, "disposed a handle that was disposed"},
        Expectation{kUseDisposedHandle, "locked a handle that was disposed"},
        Expectation{kKeepLock, "lock of a handle taken 1 times, given back 0"},
        Expectation{kUnlockTwice, "unlocked a handle that was not locked"},
        Expectation{kDisposeLocked, "disposed a handle that was still locked"},
        Expectation{kWritePastHandle, "wrote past the end of a handle of 16 bytes"},
        Expectation{kKeepCheckout, "checkout of parameter 2 taken 1 times, given back 0"},
        Expectation{kCheckInTwice, "parameter 2 checked in twice"},
        Expectation{kCheckInNothing, "checked in a record that was not checked out"},
        Expectation{kWriteBeforeOutput, "output: 1 bytes written before the rows"},
        Expectation{kWriteBehindOutput, "output: 1 bytes written behind the rows"},
        Expectation{kWritePadding, "output: 1 bytes written in the padding of row 0"},
        Expectation{kWriteInput, "the pixels of the input were written to"},
        Expectation{kWriteLayer, "the pixels of the layer of parameter 2 were written to"},
        Expectation{kWriteParam, "parameter 4 was written to in a render"},
        Expectation{kThrowException, "RENDER: an exception came out of the effect: thrown on purpose"},
        Expectation{kEndlessMessage, "return_msg holds no end"},
        Expectation{kChangeSize, "RENDER changed the output's size without having declared it"},
        Expectation{kCallEmptySlot, "slot 22 of AEGP Stream Suite was called"},
        Expectation{kCallEmptyCallback, "slot 11 of the utility callbacks was called"},
        Expectation{kWrongEffectRef, "checkout_param called with an effect_ref that is not this command's"},
        Expectation{kCallFromOtherThread, "host_new_handle called on a thread where no command runs"},
        Expectation{kKeepStream, "stream 11 taken 1 times, given back 0"},
        Expectation{kKeepStreamValue, "stream value 11 taken 1 times, given back 0"},
        Expectation{kUseDisposedStream, "used stream 11 after giving it back"},
        Expectation{kWrongPluginId, "used plug-in id 30000, which was never given out"},
        Expectation{kKeepEffectRef, "effect reference taken 1 times, given back 0"},
        Expectation{kKeepWorld, "world taken 1 times, given back 0"},
        Expectation{kKeepBlock, "block of memory taken 1 times, given back 0"},
        Expectation{kAskUnknownFormat, "asked the pixel format of a world that is not this frame's"},
        Expectation{kKeepParamLocked, "value of parameter 3 has 2 locks instead of 1"},
        Expectation{kDisposeParam, "value of parameter 3 was disposed by the effect"},
        Expectation{kAddParamInRender, "parameter added outside the set-up of parameters"}));

TEST(Behaviour, OfAGoodEffectIsNotComplainedAbout) {
  HostOptions options;
  options.checkReadOnly = true;
  options.soilOutput = true;
  OpenedEffect opened = OpenMisbehaving(options);
  ASSERT_NE(opened.effect, nullptr);
  EXPECT_EQ(Joined(opened.result.problems), "");
  for (const A_long allowed : {kBehave, kCheckInCopy}) {
    World output;
    const FrameResult result = RenderFrame(*opened.effect, SmallFrame(allowed), &output);
    EXPECT_TRUE(Succeeded(result)) << Joined(result.problems);
    EXPECT_EQ(WorldRow(output, 3)[19], 128) << "the declared default";
    EXPECT_GT(result.hostCalls, 0);
  }
  EXPECT_EQ(Joined(CloseEffect(*opened.effect).problems), "");
}

TEST(Behaviour, AnErrorCarriesItsMessage) {
  OpenedEffect opened = OpenMisbehaving();
  ASSERT_NE(opened.effect, nullptr);
  const FrameResult result = RenderFrame(*opened.effect, SmallFrame(kReturnError), nullptr);
  EXPECT_EQ(result.error, PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(result.failedCommand, PF_Cmd_RENDER);
  EXPECT_EQ(result.message, "the reason");
  EXPECT_TRUE(result.problems.empty()) << Joined(result.problems);
  EXPECT_FALSE(Succeeded(result));
}

}  // namespace
}  // namespace vantle::host
