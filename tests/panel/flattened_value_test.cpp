#include "host/scene/flattened_value.h"

#include "host/scene/timeline.h"
#include "tests/panel/real_panel.h"

#include <limits>
#include <random>

namespace vantle::scene {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes FromText(const std::string& text) {
  return {text.begin(), text.end()};
}

TEST(Base64, KnownTextsBothWays) {
  const std::pair<const char*, const char*> known[] = {{"", ""},
                                                       {"f", "Zg=="},
                                                       {"fo", "Zm8="},
                                                       {"foo", "Zm9v"},
                                                       {"foob", "Zm9vYg=="},
                                                       {"fooba", "Zm9vYmE="},
                                                       {"foobar", "Zm9vYmFy"}};
  for (const auto& [plain, coded] : known) {
    EXPECT_EQ(EncodeBase64(FromText(plain)), coded);
    Bytes bytes;
    EXPECT_TRUE(DecodeBase64(coded, &bytes));
    EXPECT_EQ(bytes, FromText(plain));
  }
}

TEST(Base64, RandomBytesComeBack) {
  std::mt19937 random(7);
  for (size_t size = 0; size < 300; ++size) {
    Bytes bytes(size), back;
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    ASSERT_TRUE(DecodeBase64(EncodeBase64(bytes), &back));
    ASSERT_EQ(back, bytes);
  }
}

TEST(Base64, AnythingElseIsRefused) {
  Bytes bytes;
  for (const char* wrong :
       {"Zg", "Zg=", "Z===", "====", "Zm9v\n", "Zm 9", "Zh==", "Zm9=", "Zg==Zg==", "Z\xC3\xA9=="})
    EXPECT_FALSE(DecodeBase64(wrong, &bytes)) << wrong;
}

Bytes ReadBack(const io::Json& json, const Bytes& defaults) {
  const io::Node node{&json, "scene.json", "value"};
  const std::vector<Key> keys = ReadKeys(node, FrameRate());
  host::DeclaredParam param;
  param.defaultBytes = defaults;
  Bytes bytes;
  EXPECT_TRUE(CustomValueBytes(param, keys.at(0).value, &bytes));
  return bytes;
}

// Through the text of a file, as scenes are kept.
void ExpectRoundTrip(const Bytes& bytes) {
  const io::Json json = io::Json::parse(CustomValueJson(bytes).dump());
  EXPECT_EQ(ReadBack(json, bytes), bytes);
}

TEST(FlattenedValue, PlainValuesStayReadable) {
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  EXPECT_EQ(CustomValueJson(panel::BytesOf(gradient)).dump(),
            "[[0.0,1.0,1.0,0.0],[0.5,0.0,1.0,1.0],[1.0,1.0,0.4,0.7]]");
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, 2.0f);
  EXPECT_EQ(CustomValueJson(panel::BytesOf(curve)).dump(), R"({"max":2.0,"points":[[0.0,1.0],[1.0,1.0]]})");
  ExpectRoundTrip(panel::BytesOf(gradient));
  ExpectRoundTrip(panel::BytesOf(curve));
}

TEST(FlattenedValue, WhatNumbersCannotHoldIsKeptAsBytes) {
  const ColorGradient selected = panel::EightStops();
  const io::Json json = CustomValueJson(panel::BytesOf(selected));
  EXPECT_EQ(json["value"].size(), 8u);
  EXPECT_TRUE(json["flattened"].is_string());
  ExpectRoundTrip(panel::BytesOf(selected));

  ColorGradient stale = selected;
  stale.selected = -1;
  stale.count = 3;
  EXPECT_EQ(CustomValueJson(panel::BytesOf(stale))["value"].size(), 3u);
  ExpectRoundTrip(panel::BytesOf(stale));

  ColorGradient wild = selected;
  wild.count = 99;
  wild.tag = -3;
  wild.stops[1].position = std::numeric_limits<float>::quiet_NaN();
  EXPECT_FALSE(CustomValueJson(panel::BytesOf(wild)).contains("value"));
  ExpectRoundTrip(panel::BytesOf(wild));

  LifeCurve curve = panel::FivePoints();
  curve.extra1[2] = 0.5f;
  ExpectRoundTrip(panel::BytesOf(curve));
  curve.maximum = -std::numeric_limits<float>::infinity();
  ExpectRoundTrip(panel::BytesOf(curve));
}

TEST(FlattenedValue, RandomRecordsComeBackByteForByte) {
  std::mt19937 random(11);
  for (int round = 0; round < 2000; ++round) {
    Bytes bytes(round % 2 == 0 ? sizeof(ColorGradient) : sizeof(LifeCurve));
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    const size_t countAt = round % 2 == 0 ? 4 : 8;
    if (round % 3 != 0) {
      const auto count = static_cast<std::int32_t>(random() % 20);
      std::memcpy(&bytes[countAt], &count, sizeof count);
    }
    ExpectRoundTrip(bytes);
  }
}

TEST(FlattenedValue, ARewrittenValueBesideOldBytesIsAnError) {
  io::Json json = CustomValueJson(panel::BytesOf(panel::EightStops()));
  json["value"][3][1] = 0.75;
  EXPECT_EQ(test::FailureOf([&] { ReadBack(json, {}); }),
            "3 scene.json: value: \"value\" and \"flattened\" are different values: delete \"flattened\" and "
            "write the value alone, or delete \"value\"");
  json.erase("value");
  EXPECT_EQ(ReadBack(json, Bytes(140)), panel::BytesOf(panel::EightStops()));
}

TEST(FlattenedValue, BytesThatAreNoneOrOfTheOtherKindAreRefused) {
  const io::Json wrong = {{"flattened", "not base64"}};
  EXPECT_EQ(test::FailureOf([&] { ReadBack(wrong, {}); }).substr(0, 56),
            "3 scene.json: value.flattened: expected bytes in base64,");
  host::DeclaredParam curve;
  curve.defaultBytes.resize(sizeof(LifeCurve));
  Bytes bytes;
  EXPECT_FALSE(CustomValueBytes(curve, FlattenedValue{Bytes(140)}, &bytes));
}

}  // namespace
}  // namespace vantle::scene
