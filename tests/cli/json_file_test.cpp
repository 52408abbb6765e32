#include "host/io/json_file.h"

#include "tests/cli/scratch.h"

#include <gtest/gtest.h>

namespace vantle::io {
namespace {

using test::FailureOf;
using test::Scratch;

TEST(JsonFile, SyntaxErrorsNameLineAndColumn) {
  const Scratch scratch;
  const std::string path = scratch.Write("x.json", "{\n  \"a\": 1,\n  oops\n}");
  const std::string failure = FailureOf([&] { ReadJsonFile(path); });
  EXPECT_EQ(failure.rfind("3 " + path + ": is not valid JSON, line 3, column", 0), 0u) << failure;
  EXPECT_EQ(failure.find('\n'), std::string::npos);
}

TEST(JsonFile, AKeyGivenTwiceIsAnError) {
  const Scratch scratch;
  const std::string path = scratch.Write("x.json", R"({"a": {"b": 1, "c": 2, "b": 3}})");
  EXPECT_NE(FailureOf([&] { ReadJsonFile(path); }).find("the key \"b\" is given twice"), std::string::npos);
  const std::string fine =
      scratch.Write("y.json", R"({"a": {"b": 1}, "c": {"b": 2}, "d": [{"b": 1}, {"b": 1}]})");
  EXPECT_EQ(FailureOf([&] { ReadJsonFile(fine); }), "");
}

TEST(JsonFile, ADocumentThatIsNoObjectIsAnError) {
  const Scratch scratch;
  EXPECT_NE(FailureOf([&] { ReadJsonFile(scratch.Write("x.json", "[1, 2]")); }).find("found a list of 2"),
            std::string::npos);
  EXPECT_NE(FailureOf([&] { ReadJsonFile(scratch.Write("x.json", "")); }).find("not valid JSON"),
            std::string::npos);
}

TEST(JsonFile, UnknownKeysAreNamedWithTheNearestKnownOne) {
  const Json document = {{"widht", 1}};
  const std::string failure = FailureOf([&] {
    RequireObject({&document, "f.json", "composition"}, {"width", "height"});
  });
  EXPECT_EQ(failure,
            "3 f.json: composition: unknown key \"widht\"; did you mean \"width\"? (known: width, height)");
}

TEST(JsonFile, WrongTypesSayWhatIsExpectedAndWhatWasFound) {
  const Json document = {{"n", "abc"}, {"i", 1.5}, {"b", 1}, {"big", 1e300}, {"list", {1, 2, 3}}};
  const Node root{&document, "f.json", ""};
  EXPECT_EQ(FailureOf([&] { ReadNumber(Member(root, "n")); }),
            "3 f.json: n: expected a number, found \"abc\"");
  EXPECT_EQ(FailureOf([&] { ReadInteger(Member(root, "i"), 1, 9); }),
            "3 f.json: i: expected a whole number from 1 to 9, found 1.5");
  EXPECT_EQ(FailureOf([&] { ReadInteger(Member(root, "big"), 1, 9); }),
            "3 f.json: big: expected a whole number from 1 to 9, found 1e+300");
  EXPECT_EQ(FailureOf([&] { ReadBool(Member(root, "b")); }), "3 f.json: b: expected true or false, found 1");
  EXPECT_EQ(FailureOf([&] { ReadText(Member(root, "list"), "a name"); }),
            "3 f.json: list: expected a name, found a list of 3");
  EXPECT_EQ(FailureOf([&] { RequiredMember(root, "gone"); }),
            "3 f.json: the key \"gone\" is missing: add it");
  EXPECT_EQ(Element(Member(root, "list"), 2).path, "list[2]");
}

}  // namespace
}  // namespace vantle::io
