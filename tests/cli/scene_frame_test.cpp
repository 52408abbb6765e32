#include "host/scene/scene_frame.h"

#include "tests/cli/scratch.h"
#include "tests/cli/with_effect.h"

namespace vantle::scene {
namespace {

using test::FailureOf;

class SceneFrame : public test::WithEffect {
 protected:
  Scene MakeScene() {
    Scene scene;
    scene.composition = {31, 17, {30000, 1001}, 60};
    scene.layers.push_back({"one", SolidSource{{1, 0, 0, 1}, 21, 11}});
    scene.layers.push_back({"two", SolidSource{{0, 1, 0, 1}, 9, 7}});
    scene.effect.target = 1;
    scene.effect.parameters.push_back({"Transform", "p", {{0, 0.0, false}, {50, 100.0, false}}});
    return scene;
  }
  std::vector<std::string> warnings;
};

TEST_F(SceneFrame, SizesAreThoseOfTheResolutionRoundedUp) {
  const Scene scene = MakeScene();
  for (const int32_t divisor : {1, 2, 3, 4}) {
    PreparedScene prepared;
    PrepareScene(scene, {}, *effect, {PixelDepth::k16, divisor}, &prepared, &warnings);
    const host::FrameRequest request = RequestFrame(prepared, 5, std::make_shared<CheckoutFailure>());
    EXPECT_EQ(request.width, (31 + divisor - 1) / divisor);
    EXPECT_EQ(request.height, (17 + divisor - 1) / divisor);
    EXPECT_EQ(request.depth, 16);
    EXPECT_EQ(request.fullWidth, 21);
    EXPECT_EQ(request.fullHeight, 11);
    EXPECT_EQ(request.input->width, (21 + divisor - 1) / divisor);
    EXPECT_EQ(request.downsampleX.num, 1);
    EXPECT_EQ(request.downsampleX.den, static_cast<A_u_long>(divisor));
    EXPECT_EQ(request.downsampleY.den, static_cast<A_u_long>(divisor));
    EXPECT_EQ(std::get<double>(request.values.at(4)), 10.0);
  }
}

TEST_F(SceneFrame, TheClockIsTheExactFrameRate) {
  const host::FrameTime time = TimeOfFrame(MakeScene().composition, 7);
  EXPECT_EQ(time.current, 7 * 1001);
  EXPECT_EQ(time.step, 1001);
  EXPECT_EQ(time.scale, 30000u);
  EXPECT_EQ(time.total, 60 * 1001);
  EXPECT_EQ(TimeOfFrame(MakeScene().composition, -2).current, -2002);
  EXPECT_EQ(FailureOf([&] { TimeOfFrame({1, 1, {1000000, 1000000}, 1}, 5000); }).substr(0, 2), "2 ");
}

TEST_F(SceneFrame, LayersAnswerTheirParameters) {
  Scene scene = MakeScene();
  PreparedScene prepared;
  PrepareScene(scene, {}, *effect, {PixelDepth::k8, 1}, &prepared, &warnings);
  const auto failure = std::make_shared<CheckoutFailure>();
  const host::FrameRequest request = RequestFrame(prepared, 0, failure);
  EXPECT_EQ(request.layers(kSourceLayerParam, 0, 1001, 30000).world, request.input);
  EXPECT_EQ(request.layers(kTargetLayerParam, 0, 1001, 30000).world->width, 9);
  EXPECT_EQ(request.layers(kCustomLayerParam, 0, 1001, 30000).world, nullptr);

  scene.effect.sourceIsOwnLayer = false;
  EXPECT_EQ(request.layers(kSourceLayerParam, 0, 1001, 30000).world, nullptr);
  EXPECT_EQ(failure->message, "");
}

TEST_F(SceneFrame, AFailedCheckoutIsRememberedAndNotThrown) {
  const test::Scratch scratch;
  test::SavePicture(scratch, "s.0.png", test::FlatPicture8(2, 2, 255, 1, 2, 3));
  test::SavePicture(scratch, "s.2.png", test::FlatPicture8(2, 2, 255, 1, 2, 3));
  Scene scene = MakeScene();
  SequenceSource gap;
  gap.pattern = scratch.Path("s.%d.png");
  gap.frameRate = {30000, 1001};
  scene.layers[1].source = gap;
  PreparedScene prepared;
  PrepareScene(scene, {}, *effect, {PixelDepth::k8, 1}, &prepared, &warnings);
  const auto failure = std::make_shared<CheckoutFailure>();
  const host::FrameRequest request = RequestFrame(prepared, 1, failure);
  EXPECT_NE(request.layers(kTargetLayerParam, 1001, 1001, 30000).error, PF_Err_NONE);
  EXPECT_NE(failure->message.find("s.1.png"), std::string::npos);
}

TEST_F(SceneFrame, AssignmentsReplaceTheScenesValues) {
  const Scene scene = MakeScene();
  PreparedScene prepared;
  PrepareScene(scene, {ParseAssignment("Transform=42", {30, 1}), ParseAssignment("19=500", {30, 1})}, *effect,
               {PixelDepth::k8, 1}, &prepared, &warnings);
  const host::FrameRequest request = RequestFrame(prepared, 30, std::make_shared<CheckoutFailure>());
  EXPECT_EQ(std::get<double>(request.values.at(4)), 42.0);
  EXPECT_EQ(std::get<double>(request.values.at(19)), 500.0);
}

TEST_F(SceneFrame, AParameterGivenTwiceUnderTwoNamesIsRefused) {
  Scene scene = MakeScene();
  scene.effect.parameters.push_back({"4", "scene.json: 4", {{0, 1.0, false}}});
  PreparedScene prepared;
  EXPECT_NE(FailureOf([&] {
              PrepareScene(scene, {}, *effect, {PixelDepth::k8, 1}, &prepared, &warnings);
            }).find("given a value twice"),
            std::string::npos);
}

}  // namespace
}  // namespace vantle::scene
