// Where layers and cameras stand in the composition's space: x to the right, y down, z away from the viewer,
// the origin at the composition's top left corner.
#pragma once

#include "host/composition/evaluation.h"

#include <array>
#include <optional>

namespace vantle::composition {

/// Row after row, for row vectors: (x, y, z, 1) times the matrix; a translation stands in the last row.
using Matrix = std::array<std::array<double, 4>, 4>;

Matrix Identity();
/// First `a`, then `b`.
Matrix Multiply(const Matrix& a, const Matrix& b);
Matrix Translation(const Numbers& by);
Matrix Scaling(const Numbers& factors);
/// Turns by `degrees` about x, y or z (0, 1, 2): from y to z, from z to x, from x to y.
Matrix Rotation(int axis, double degrees);
/// The first three numbers of (point, 1) times the matrix.
Numbers Apply(const Matrix& matrix, const Numbers& point);

/// From the layer's own pixels to the composition's space, parents included: anchor point to the origin,
/// scale, Z, Y and X rotation, orientation about z, y and x, position. Layers that are not 3D have only their
/// two dimensions. A layer among its own ancestors has no parent there.
Matrix LayerToWorld(Evaluation& evaluation, const Layer& layer);

/// A camera at one moment. `toWorld` is its place in the composition's space, always rigid: it looks along
/// its own +z, its y points down.
struct CameraView {
  int32_t layer = 0;
  Matrix toWorld{};
  double zoom = 0.0;  ///< distance to the image plane, pixels
};
CameraView ViewOfCamera(Evaluation& evaluation, const Layer& camera);

/// The topmost camera layer, or null.
const Layer* ActiveCamera(const Composition& composition);

}  // namespace vantle::composition
