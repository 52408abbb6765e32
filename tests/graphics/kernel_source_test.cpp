#include "render/graphics/kernel_source.h"

#include "particles/frame_settings.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace vantle {
namespace {

bool Has(std::string_view part) {
  return KernelSource().find(part) != std::string_view::npos;
}

// What is proved on other compilers is the text that the effect carries.
TEST(KernelSource, IsTheTextOfTheFileThatTestsCompile) {
  std::ifstream file(KERNEL_HLSL, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  EXPECT_EQ(KernelSource(), text.str());
}

TEST(KernelSource, EndsWithItsLastCharacterAndHoldsNoTerminator) {
  ASSERT_FALSE(KernelSource().empty());
  EXPECT_EQ(KernelSource().back(), '\n');
  EXPECT_EQ(KernelSource().find('\0'), std::string_view::npos);
}

// Compilers for shaders read it as ASCII.
TEST(KernelSource, IsPlainAscii) {
  for (const char c : KernelSource()) EXPECT_TRUE(c == '\n' || (c >= ' ' && c <= '~')) << int{c};
}

TEST(KernelSource, HasTheNumbersOfShapesAndModes) {
  const auto line = [](const char* name, int32_t value) {
    return "static const int " + std::string(name) + " = " + std::to_string(value) + ";\n";
  };
  EXPECT_TRUE(Has(line("SHAPE_POINT", SHAPE_POINT)));
  EXPECT_TRUE(Has(line("SHAPE_TRIANGLE", SHAPE_TRIANGLE)));
  EXPECT_TRUE(Has(line("SHAPE_ARROW", SHAPE_ARROW)));
  EXPECT_TRUE(Has(line("SHAPE_LAYER", SHAPE_LAYER)));
  EXPECT_TRUE(Has(line("BLEND_NORMAL", BLEND_NORMAL)));
  EXPECT_TRUE(Has(line("BLEND_SCREEN", BLEND_SCREEN)));
  EXPECT_TRUE(Has(line("BLEND_COLOR_BURN", BLEND_COLOR_BURN)));
}

TEST(KernelSource, KeepsNothingOfTheOtherLanguage) {
  for (const char* word : {"template", "inline ", "namespace", "#include", "static_assert", "::", "//@"}) {
    EXPECT_FALSE(Has(word)) << word;
  }
  for (const char* type : {"float& ", "Real& ", "Particle& ", "ShapeFrame& "})
    EXPECT_FALSE(Has(type)) << type;
}

TEST(KernelSource, NamesItsEntryAndItsRegisters) {
  for (const char* text : {"void CSMain(", "[numthreads(16, 16, 1)]", "cbuffer RenderParamsCB : register(b0)",
                           "StructuredBuffer<Particle> particles : register(t0)",
                           "StructuredBuffer<int> tileOffsets : register(t1)",
                           "StructuredBuffer<int> tileIndices : register(t2)",
                           "RWStructuredBuffer<float4> outputBuffer : register(u0)"}) {
    EXPECT_TRUE(Has(text)) << text;
  }
}

}  // namespace
}  // namespace vantle
