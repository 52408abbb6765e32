#include "host/cli/arguments.h"

#include "host/cli/commands.h"
#include "tests/cli/scratch.h"

#include <gtest/gtest.h>
#include <sstream>

namespace vantle::cli {
namespace {

using test::FailureOf;

Command Sample() {
  return {"sample",
          "Does something.",
          "FILE [options]",
          "FILE",
          1,
          "",
          {{"-o", "output", "NAME", "Output", "file to write"},
           {"-y", "overwrite", nullptr, "Output", "overwrite"},
           {nullptr, "set", "A=B", "Values", "first line\nsecond line", true}}};
}

TEST(Arguments, BothFormsOfAValueAreTheSame) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"x", "--output", "-5--1"}, {"--output=-5--1", "x"}, {"-o", "-5--1", "x"}}) {
    const Arguments arguments = ParseArguments(Sample(), words);
    EXPECT_EQ(ValueOf(arguments, "output"), "-5--1");
    EXPECT_EQ(arguments.positionals, std::vector<std::string>{"x"});
    EXPECT_FALSE(Has(arguments, "overwrite"));
  }
}

TEST(Arguments, RepeatableOptionsKeepTheirOrder) {
  const Arguments arguments = ParseArguments(Sample(), {"--set", "a=1", "-y", "--set=b=2"});
  EXPECT_EQ(arguments.values.at("set"), (std::vector<std::string>{"a=1", "b=2"}));
  EXPECT_TRUE(Has(arguments, "overwrite"));
}

TEST(Arguments, ADashAloneAndWordsAfterTwoDashesArePositionals) {
  EXPECT_EQ(ParseArguments(Sample(), {"-"}).positionals, std::vector<std::string>{"-"});
  EXPECT_EQ(ParseArguments(Sample(), {"--", "-y"}).positionals, std::vector<std::string>{"-y"});
}

TEST(Arguments, MistakesAreUsageErrorsThatNameTheWord) {
  const struct {
    std::vector<std::string> words;
    const char* message;
  } cases[] = {{{"--outptu", "x"}, "unknown option --outptu, did you mean --output?"},
               {{"--zzzzzzzzz"}, "unknown option --zzzzzzzzz;"},
               {{"-q"}, "unknown option -q"},
               {{"--output"}, "--output needs a value: --output NAME"},
               {{"-o", "a", "-o", "b"}, "-o is given twice"},
               {{"--overwrite=1"}, "--overwrite takes no value"},
               {{"x", "y"}, "\"y\" is one argument too many"}};
  for (const auto& entry : cases) {
    const std::string failure = FailureOf([&] { ParseArguments(Sample(), entry.words); });
    EXPECT_EQ(failure.substr(0, 2), "2 ");
    EXPECT_NE(failure.find(entry.message), std::string::npos) << failure;
    EXPECT_NE(failure.find("vantle sample --help"), std::string::npos) << failure;
  }
}

TEST(Arguments, WholeNumbersAreChecked) {
  const Arguments arguments = ParseArguments(Sample(), {"--output", "12"});
  EXPECT_EQ(IntegerOf(arguments, "output", 3, 1, 20), 12);
  EXPECT_EQ(IntegerOf(arguments, "set", 3, 1, 20), 3);
  EXPECT_EQ(FailureOf([&] { IntegerOf(arguments, "output", 3, 1, 5); }),
            "2 --output takes a whole number from 1 to 5, found \"12\"");
}

TEST(Arguments, HelpIsAlignedAndWithinTheTerminal) {
  for (const Command* command :
       {&InfoCommand(), &RenderCommand(), &FrameCommand(), &BenchCommand(), &SheetCommand()}) {
    std::istringstream help(HelpText(*command));
    for (std::string line; std::getline(help, line);) {
      EXPECT_LE(line.size(), 100u) << command->name << ": " << line;
      EXPECT_FALSE(line.ends_with(' ')) << command->name << ": " << line;
    }
    for (const Option& option : command->options)
      EXPECT_NE(HelpText(*command).find(std::string("--") + option.name), std::string::npos) << option.name;
  }
}

}  // namespace
}  // namespace vantle::cli
