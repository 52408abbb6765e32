// One picture on every processor: the frames of the list, drawn with each set of vector instructions that
// this processor has. The effect is linked in, so that its level can be set.
#include "base/instruction_level.h"
#include "tests/windows/varied_frames.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

extern "C" {
PF_Err PluginDataEntryFunction(PF_PluginDataPtr, PF_PluginDataCB, SPBasicSuite*, const char*, const char*);
PF_Err EffectMain(PF_Cmd, PF_InData*, PF_OutData*, PF_ParamDef*[], PF_LayerDef*, void*);
}

namespace vantle::host {
namespace {

class FrameLevels : public testing::TestWithParam<InstructionLevel> {
 protected:
  ~FrameLevels() override { SetInstructionLevel(BestInstructionLevel()); }
};

TEST_P(FrameLevels, GiveTheListedSums) {
  if (GetParam() > BestInstructionLevel()) GTEST_SKIP() << "not run: this processor lacks these instructions";
  SetInstructionLevel(GetParam());
  ASSERT_EQ(CurrentInstructionLevel(), GetParam());
  const OpenedEffect opened = OpenEffect(MakeLinkedModule(PluginDataEntryFunction, EffectMain), {});
  ASSERT_TRUE(opened.effect) << opened.result.message;
  std::ifstream list(FRAME_HASHES, std::ios::binary);
  int number = 0;
  for (std::string line; std::getline(list, line); ++number)
    EXPECT_EQ(RenderedLine(*opened.effect, number), line);
  EXPECT_EQ(number, kVariedFrames);
  EXPECT_TRUE(CloseEffect(*opened.effect).problems.empty());
}

std::string NameOf(const testing::TestParamInfo<InstructionLevel>& level) {
  const char* const names[] = {"Sse2", "Avx2", "Avx512"};
  return names[static_cast<int>(level.param)];
}

INSTANTIATE_TEST_SUITE_P(Processor, FrameLevels,
                         testing::Values(InstructionLevel::kSse2, InstructionLevel::kAvx2,
                                         InstructionLevel::kAvx512),
                         NameOf);

}  // namespace
}  // namespace vantle::host
