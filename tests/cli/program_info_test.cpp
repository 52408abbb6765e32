#include "tests/cli/run_program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantle {
namespace {

using nlohmann::json;
using test::RunProgram;
using test::Scratch;

json Info(const std::vector<std::string>& more = {}) {
  const Scratch scratch;
  std::vector<std::string> words = {"info", "--json"};
  words.insert(words.end(), more.begin(), more.end());
  const test::ProgramRun run = RunProgram(scratch, words);
  EXPECT_EQ(run.code, 0) << run.errors;
  EXPECT_EQ(run.errors, "");
  return json::parse(run.output, nullptr, false);
}

TEST(Info, TellsTheRegistrationAndTheFlags) {
  const json info = Info();
  EXPECT_EQ(info["registration"]["name"], "Vantle");
  EXPECT_EQ(info["registration"]["match_name"], "Orlan_Vantle");
  EXPECT_EQ(info["registration"]["category"], "Simulation");
  EXPECT_EQ(info["registration"]["entry_point"], "EffectMain");
  EXPECT_EQ(info["registration"]["kind"], "eFKT");
  EXPECT_EQ(info["registration"]["api_version"], (json{13, 28}));
  EXPECT_EQ(info["registration"]["reserved_info"], 8);
  EXPECT_EQ(info["version"], 0x90001);
  EXPECT_EQ(info["version_text"], "1.2.0 development 1");
  EXPECT_EQ(info["out_flags"], 0x06008004);
  EXPECT_EQ(info["out_flags2"], 0x08080002);
  EXPECT_EQ(info["out_flags2_names"],
            (json{"I_USE_3D_CAMERA", "DEPENDS_ON_UNREFERENCED_MASKS", "SUPPORTS_THREADED_RENDERING"}));
  EXPECT_NE(info["about"].get<std::string>().find("Layer-driven particle system"), std::string::npos);
}

TEST(Info, PremiereGetsNoAboutText) {
  EXPECT_EQ(Info({"--host-id", "PrMr"})["about"], "");
}

TEST(Info, ListsEveryParameterInOrder) {
  const json parameters = Info()["parameters"];
  ASSERT_EQ(parameters.size(), 87u);
  for (size_t i = 0; i < 87; ++i) {
    EXPECT_EQ(parameters[i]["index"], i + 1);
    EXPECT_EQ(parameters[i]["id"], i + 1);
  }
}

// One parameter of every kind, as the panel shows it.
TEST(Info, TellsWhatEveryKindDeclares) {
  const json parameters = Info()["parameters"];
  const auto at = [&](size_t id) { return parameters[id - 1]; };
  EXPECT_EQ(at(2)["default"], "own layer");
  EXPECT_EQ(at(3)["default"], "none");
  EXPECT_EQ(at(12)["name"], "Scatter");
  EXPECT_EQ(at(12)["group"], "Motion");
  EXPECT_EQ(at(12)["valid_range"], (json{-100.0, 200.0}));
  EXPECT_EQ(at(12)["slider_range"], (json{-100.0, 100.0}));
  EXPECT_EQ(at(12)["percent"], true);
  EXPECT_EQ(at(12)["precision"], 1);
  EXPECT_EQ(at(13)["type"], "angle");
  EXPECT_EQ(at(13)["default"], 0.0);
  EXPECT_EQ(at(29)["type"], "popup");
  EXPECT_EQ(at(29)["default"], 2);
  EXPECT_EQ(at(29)["choices"].size(), 9u);
  EXPECT_EQ(at(29)["choices"][8], "Layer");
  EXPECT_EQ(at(31)["percent"], false);
  EXPECT_EQ(at(32)["type"], "check box");
  EXPECT_EQ(at(32)["default"], true);
  EXPECT_EQ(at(36)["type"], "custom value");
  EXPECT_EQ(at(36)["default"].size(), 3u);
  EXPECT_EQ(at(36)["control_size"], (json{200, 40}));
  EXPECT_EQ(at(36)["refcon"], 0xC01C);
  EXPECT_EQ(at(28)["default"]["max"], 2.0);
  EXPECT_EQ(at(40)["control_size"], (json{200, 140}));
  EXPECT_EQ(at(40)["flags"], json::array({"SUPERVISE"}));
  EXPECT_EQ(at(40)["ui_flags"], (json{"CONTROL", "DONT_ERASE_CONTROL"}));
  EXPECT_EQ(at(58)["valid_range"], (json{0.1, 50.0}));
  EXPECT_EQ(at(66)["flags"], json::array({"COLLAPSE_TWIRLY"}));
  EXPECT_EQ(at(86)["type"], "button");
  EXPECT_EQ(at(86)["label"], "Create Nulls");
  EXPECT_EQ(at(87)["type"], "group end");
}

// The effect prints its custom values itself, as hosts have it do.
TEST(Info, CustomValuesReadAsTheEffectPrintsThem) {
  const json parameters = Info()["parameters"];
  EXPECT_EQ(parameters[28 - 1]["text"], "100,100");
  EXPECT_EQ(parameters[36 - 1]["text"], "0%,50%,100%");
  EXPECT_EQ(parameters[40 - 1]["text"], "100,100");
  EXPECT_FALSE(parameters[4 - 1].contains("text"));
}

TEST(Info, TheTableForPeopleNamesEveryParameter) {
  const Scratch scratch;
  const std::string table = RunProgram(scratch, {"info"}).output;
  const json info = Info();
  for (const json& parameter : info["parameters"])
    EXPECT_NE(table.find(parameter["name"].get<std::string>()), std::string::npos);
  EXPECT_NE(table.find("Circle | Soft Circle | Triangle"), std::string::npos);
}

TEST(Help, IsPrintedForTheProgramAndEveryCommand) {
  const Scratch scratch;
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"--help"},
                                             {"-h"},
                                             {"render", "--help"},
                                             {"frame", "-h"},
                                             {"info", "--help"},
                                             {"sheet", "--help"},
                                             {"bench", "x", "--help"}}) {
    const test::ProgramRun run = RunProgram(scratch, words);
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.output.rfind("Usage: vantle ", 0), 0u) << run.output;
    EXPECT_EQ(run.errors, "");
  }
  EXPECT_NE(RunProgram(scratch, {"--help"}).output.find("130  "), std::string::npos);
  EXPECT_EQ(RunProgram(scratch, {"--version"}).output.rfind("vantle 1.", 0), 0u);
}

}  // namespace
}  // namespace vantle
