#include "base/matrix.h"

#include <gtest/gtest.h>
#include <random>

namespace vantle {
namespace {

void ExpectIdentity(const double m[16], double tolerance) {
  for (int i = 0; i < 16; ++i) EXPECT_NEAR(m[i], i % 5 == 0 ? 1.0 : 0.0, tolerance) << "element " << i;
}

TEST(InvertMatrix4, TimesTheMatrixIsTheIdentity) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> value(-2.0, 2.0);
  for (int round = 0; round < 200; ++round) {
    double m[16], inverse[16], product[16];
    for (double& element : m) element = value(random);
    for (int i = 0; i < 4; ++i) m[5 * i] += 8.0;  // well away from singular
    InvertMatrix4(m, inverse);
    for (int c = 0; c < 4; ++c) {
      for (int r = 0; r < 4; ++r) {
        product[4 * c + r] = 0.0;
        for (int k = 0; k < 4; ++k) product[4 * c + r] += inverse[4 * k + r] * m[4 * c + k];
      }
    }
    ExpectIdentity(product, 1e-12);
  }
}

TEST(InvertMatrix4, MovesACameraBack) {
  const double m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 320, 240, -500, 1};
  double inverse[16];
  InvertMatrix4(m, inverse);
  EXPECT_EQ(inverse[12], -320.0);
  EXPECT_EQ(inverse[13], -240.0);
  EXPECT_EQ(inverse[14], 500.0);
  EXPECT_EQ(inverse[0], 1.0);
}

TEST(InvertMatrix4, OfASingularMatrixIsTheIdentity) {
  double m[16] = {1, 2, 3, 4, 2, 4, 6, 8, 0, 1, 0, 1, 5, 5, 5, 1};
  InvertMatrix4(m, m);
  ExpectIdentity(m, 0.0);
}

TEST(InvertMatrix4, HasNoToleranceForSmallDeterminants) {
  const double tiny = 0x1p-80;
  const double m[16] = {tiny, 0, 0, 0, 0, tiny, 0, 0, 0, 0, tiny, 0, 0, 0, 0, 1};
  double inverse[16];
  InvertMatrix4(m, inverse);
  EXPECT_EQ(inverse[0], 0x1p80);
}

}  // namespace
}  // namespace vantle
