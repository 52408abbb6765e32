// Layers, keyframes and values.
#include "host/composition/evaluation.h"

#include <gtest/gtest.h>

namespace vantle::composition {
namespace {

Property Moving() {
  Property property;
  property.keys = {{1.0, {10, 100, 0}, false}, {2.0, {20, 80, 4}, true}, {4.0, {0, 0, 0}, false}};
  return property;
}

TEST(Keyframes, RunLinearlyStandAndEnd) {
  const Property property = Moving();
  EXPECT_EQ(KeyedValue(property, -5.0), (Numbers{10, 100, 0}));
  EXPECT_EQ(KeyedValue(property, 1.0), (Numbers{10, 100, 0}));
  EXPECT_EQ(KeyedValue(property, 1.25), (Numbers{12.5, 95, 1}));
  EXPECT_EQ(KeyedValue(property, 2.0), (Numbers{20, 80, 4}));
  EXPECT_EQ(KeyedValue(property, 3.999), (Numbers{20, 80, 4})) << "held";
  EXPECT_EQ(KeyedValue(property, 4.0), (Numbers{0, 0, 0}));
  EXPECT_EQ(KeyedValue(property, 1e9), (Numbers{0, 0, 0}));
}

TEST(Layers, TheTopmostOfANameIsMeantAndIdsAreNotReused) {
  Composition composition;
  const int32_t lower = AddOnTop(composition, MakeLayer(composition, LayerKind::kNull, "same"));
  const int32_t upper = AddOnTop(composition, MakeLayer(composition, LayerKind::kNull, "same"));
  EXPECT_EQ(FindLayer(composition, "same")->id, upper);
  composition.layers.erase(composition.layers.begin());
  EXPECT_EQ(FindLayer(composition, "same")->id, lower);
  EXPECT_EQ(FindLayer(composition, upper), nullptr);
  EXPECT_GT(AddOnTop(composition, MakeLayer(composition, LayerKind::kNull, "new")), upper);
  EXPECT_EQ(FindLayer(std::as_const(composition), 0), nullptr);
  EXPECT_EQ(FindLayer(composition, "Same"), nullptr);
}

TEST(Layers, NewOnesLieInTheMiddle) {
  Composition composition;
  composition.width = 33;
  composition.height = 20;
  const Layer null = MakeLayer(composition, LayerKind::kNull, "null");
  EXPECT_EQ(KeyedValue(null.streams[kPosition], 0), (Numbers{16.5, 10, 0}));
  EXPECT_EQ(KeyedValue(null.streams[kScale], 0), (Numbers{100, 100, 100}));
  EXPECT_EQ(KeyedValue(null.streams[kOpacity], 0)[0], 100);
  EXPECT_FALSE(null.threeD);
  EXPECT_TRUE(MakeLayer(composition, LayerKind::kCamera, "camera").threeD);
}

TEST(Values, AnExpressionTakesThePlaceOfItsKeysWhileItIsOn) {
  Composition composition;
  Layer layer = MakeLayer(composition, LayerKind::kNull, "null");
  layer.streams[kOpacity] = Constant({40, 0, 0});
  layer.streams[kOpacity].expression = {"value / 2 + time", true};
  const int32_t id = AddOnTop(composition, layer);
  const auto opacity = [&] {
    Evaluation evaluation;
    evaluation.composition = &composition;
    evaluation.seconds = 3.0;
    return StreamValue(evaluation, *FindLayer(composition, id), kOpacity)[0];
  };
  EXPECT_EQ(opacity(), 23.0);
  FindLayer(composition, id)->streams[kOpacity].expression.on = false;
  EXPECT_EQ(opacity(), 40.0);
}

}  // namespace
}  // namespace vantle::composition
