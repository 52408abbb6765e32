#include "base/matrix.h"

namespace vantle {

void InvertMatrix4(const double m[16], double out[16]) {
  // Two-by-two minors of the upper and of the lower pair of lines (Laplace expansion along both).
  const double u01 = m[0] * m[5] - m[4] * m[1], u02 = m[0] * m[6] - m[4] * m[2];
  const double u03 = m[0] * m[7] - m[4] * m[3], u12 = m[1] * m[6] - m[5] * m[2];
  const double u13 = m[1] * m[7] - m[5] * m[3], u23 = m[2] * m[7] - m[6] * m[3];
  const double v01 = m[8] * m[13] - m[12] * m[9], v02 = m[8] * m[14] - m[12] * m[10];
  const double v03 = m[8] * m[15] - m[12] * m[11], v12 = m[9] * m[14] - m[13] * m[10];
  const double v13 = m[9] * m[15] - m[13] * m[11], v23 = m[10] * m[15] - m[14] * m[11];

  const double determinant = u01 * v23 - u02 * v13 + u03 * v12 + u12 * v03 - u13 * v02 + u23 * v01;
  if (determinant == 0.0) {
    for (int i = 0; i < 16; ++i) out[i] = i % 5 == 0 ? 1.0 : 0.0;
    return;
  }

  const double adjugate[16] = {
      m[5] * v23 - m[6] * v13 + m[7] * v12,    m[2] * v13 - m[1] * v23 - m[3] * v12,
      m[13] * u23 - m[14] * u13 + m[15] * u12, m[10] * u13 - m[9] * u23 - m[11] * u12,
      m[6] * v03 - m[4] * v23 - m[7] * v02,    m[0] * v23 - m[2] * v03 + m[3] * v02,
      m[14] * u03 - m[12] * u23 - m[15] * u02, m[8] * u23 - m[10] * u03 + m[11] * u02,
      m[4] * v13 - m[5] * v03 + m[7] * v01,    m[1] * v03 - m[0] * v13 - m[3] * v01,
      m[12] * u13 - m[13] * u03 + m[15] * u01, m[9] * u03 - m[8] * u13 - m[11] * u01,
      m[5] * v02 - m[4] * v12 - m[6] * v01,    m[0] * v12 - m[1] * v02 + m[2] * v01,
      m[13] * u02 - m[12] * u12 - m[14] * u01, m[8] * u12 - m[9] * u02 + m[10] * u01};
  for (int i = 0; i < 16; ++i) out[i] = adjugate[i] / determinant;
}

}  // namespace vantle
