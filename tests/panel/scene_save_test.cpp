#include "host/panel/scene_save.h"

#include "host/io/json_file.h"
#include "host/scene/timeline.h"
#include "tests/panel/real_panel.h"

namespace vantle::panel {
namespace {

std::string Save(RealPanel& real, const std::string& newPath) {
  return SceneTextWithEdits(real.file, newPath, *real.effect, CollectEdits(real.panel),
                            real.panel.options.frame);
}

TEST(SceneSave, SavedValuesComeBackByteForByte) {
  RealPanel real(R"({ "Size": 7, "Particle/Scale over Life": { "max": 2, "points": [[0, 1], [1, 1]] } })");
  real.Play(R"({ "control": "Color Gradient", "drag": [[100, 30], [33, 30]] })");
  real.Play(R"({ "control": "Scale over Life", "drag": [[100, 50], [77, 41]] })");
  const std::string path = real.scratch.Write("new.json", Save(real, real.scratch.Path("new.json")));
  const scene::Scene saved = scene::ReadScene(path);
  ASSERT_EQ(saved.effect.parameters.size(), 3u);
  Panel again;
  std::vector<std::string> warnings;
  OpenPanel(saved, *real.effect, {}, &again, &warnings);
  for (const int param : kCustomControls)
    EXPECT_EQ(CurrentValue(again, param), CurrentValue(real.panel, param)) << param;
  EXPECT_EQ(std::get<double>(again.request.values.at(26)), 7.0);
  ClosePanel(again);
}

TEST(SceneSave, WithoutEditsTheSceneStaysAsItIs) {
  RealPanel real(R"({ "Size": 7.25, "Color Mode": "Solid" })");
  real.Play(R"({ "control": "Color Gradient", "click": [100, 30] })");
  real.Play(R"({ "undo": 9 })");
  const std::string path = real.scratch.Write("new.json", Save(real, real.scratch.Path("new.json")));
  EXPECT_EQ(io::ReadJsonFile(path), io::ReadJsonFile(real.file));
}

TEST(SceneSave, AnAnimatedValueGetsAKeyAtTheFrame) {
  const std::string keys = R"({ "Opacity over Life": { "keyframes": [
      { "frame": 0, "value": { "max": 1, "points": [[0, 0], [1, 0]] } },
      { "time": 0.32, "value": { "max": 1, "points": [[0, 1], [1, 1]] } } ] } })";
  for (const int frame : {2, 8, 9}) {
    PanelOptions options;
    options.frame = frame;
    RealPanel real(keys, options);
    real.Play(R"({ "control": "Opacity over Life", "click": [154, 120] })");
    const std::string path = real.scratch.Write("new.json", Save(real, real.scratch.Path("new.json")));
    const io::Json list = io::ReadJsonFile(path)["effect"]["parameters"]["Opacity over Life"]["keyframes"];
    ASSERT_EQ(list.size(), frame == 8 ? 2u : 3u) << frame;
    const io::Json& key = list[frame == 9 ? 2 : 1];
    EXPECT_EQ(key["value"].dump(), R"({"max":1,"points":[[0,1],[1,1]]})");
    EXPECT_EQ(key.contains("time"), frame == 8);
    scene::ReadScene(path);
  }
}

TEST(SceneSave, PathsAreTurnedTowardsTheNewFolder) {
  RealPanel real;
  const std::string old = real.scratch.Write("old.json", R"({
    "composition": { "width": 8, "height": 8, "frame_rate": 25, "frames": 1 },
    "layers": [ { "name": "a", "file": "pics/a.png" }, { "name": "b", "sequence": "../b.####.png" },
                { "name": "c", "file": "/far/c.png" } ],
    "effect": { "layer": "a" } })");
  std::filesystem::create_directories(real.scratch.folder / "deep" / "er");
  const auto layers = [&](const std::string& newPath) {
    io::Json document;
    io::ParseJsonText(SceneTextWithEdits(old, newPath, *real.effect, {}, 0), &document);
    return document["layers"];
  };
  const io::Json beside = layers(real.scratch.Path("new.json"));
  EXPECT_EQ(beside[0]["file"], "pics/a.png");
  const io::Json deeper = layers(real.scratch.Path("deep/er/new.json"));
  EXPECT_EQ(deeper[0]["file"], "../../pics/a.png");
  EXPECT_EQ(deeper[1]["sequence"], "../../../b.####.png");
  EXPECT_EQ(deeper[2]["file"], "/far/c.png");
}

TEST(PrettyJson, SmallThingsStandOnOneLineAndNumbersStayShort) {
  io::Json json = {{"a", {1, 2.5, 0.1}}, {"b", io::Json::object()}, {"c", {{"d", "x\"y"}}}, {"e", nullptr}};
  EXPECT_EQ(PrettyJson(json),
            "{\n  \"a\": [1, 2.5, 0.1],\n  \"b\": {},\n  \"c\": { \"d\": \"x\\\"y\" },\n"
            "  \"e\": null\n}\n");
  json["a"] = io::Json::array();
  for (int i = 0; i < 60; ++i) json["a"].push_back({i, i});
  io::Json back;
  ASSERT_TRUE(io::ParseJsonText(PrettyJson(json), &back));
  EXPECT_EQ(back, json);
  EXPECT_EQ(PrettyJson(io::Json(0.9122807)), "0.9122807\n");
}

}  // namespace
}  // namespace vantle::panel
