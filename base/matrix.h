// Matrices of projection: double precision, column-major, m[0..3] being the first column.
#pragma once

namespace vantle {

/// Inverse of a 4x4 matrix by cofactors, the adjugate over the determinant. The identity when the determinant
/// is exactly 0; there is no tolerance. `m` and `out` may be the same. The formula is symmetric in rows and
/// columns, so it serves row-major matrices as well.
void InvertMatrix4(const double m[16], double out[16]);

}  // namespace vantle
