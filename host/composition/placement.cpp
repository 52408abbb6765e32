#include "host/composition/placement.h"

#include <cmath>

namespace vantle::composition {
namespace {

constexpr double kDegreesToRadians = 3.14159265358979323846 / 180.0;
constexpr double kRadiansToDegrees = 180.0 / 3.14159265358979323846;

// Quarter turns come out exact, so that a layer turned by 90 degrees has whole coordinates.
void SineAndCosine(double degrees, double* sine, double* cosine) {
  const double turn = std::fmod(degrees, 360.0);
  if (std::fmod(turn, 90.0) == 0.0) {
    constexpr double kSines[] = {0.0, 1.0, 0.0, -1.0};
    const auto quarter = static_cast<size_t>((static_cast<int>(turn / 90.0) + 4) % 4);
    *sine = kSines[quarter];
    *cosine = kSines[(quarter + 1) % 4];
    return;
  }
  *sine = std::sin(turn * kDegreesToRadians);
  *cosine = std::cos(turn * kDegreesToRadians);
}

Numbers Value(Evaluation& evaluation, const Layer& layer, Stream stream) {
  return StreamValue(evaluation, layer, stream);
}

Matrix Turns(Evaluation& evaluation, const Layer& layer) {
  Matrix turned = Rotation(2, Value(evaluation, layer, kRotationZ)[0]);
  if (!layer.threeD) return turned;
  turned = Multiply(turned, Rotation(1, Value(evaluation, layer, kRotationY)[0]));
  turned = Multiply(turned, Rotation(0, Value(evaluation, layer, kRotationX)[0]));
  const Numbers orientation = Value(evaluation, layer, kOrientation);
  for (const int axis : {2, 1, 0})
    turned = Multiply(turned, Rotation(axis, orientation[static_cast<size_t>(axis)]));
  return turned;
}

// Turns +z into the direction from the camera to its point of interest, keeping x level.
Matrix LookAt(const Numbers& from, const Numbers& to) {
  const Numbers way{to[0] - from[0], to[1] - from[1], to[2] - from[2]};
  const double level = std::hypot(way[0], way[2]);
  if (level == 0.0 && way[1] == 0.0) return Identity();
  const double yaw = level == 0.0 ? 0.0 : std::atan2(way[0], way[2]) * kRadiansToDegrees;
  const double pitch = std::atan2(-way[1], level) * kRadiansToDegrees;
  return Multiply(Rotation(0, pitch), Rotation(1, yaw));
}

// From a layer to its parent's space. A camera has neither scale nor anchor point.
Matrix LayerToParent(Evaluation& evaluation, const Layer& layer) {
  Numbers position = Value(evaluation, layer, kPosition);
  if (layer.kind == LayerKind::kCamera) {
    Matrix matrix = Turns(evaluation, layer);
    if (layer.twoNodes) matrix = Multiply(matrix, LookAt(position, Value(evaluation, layer, kAnchorPoint)));
    return Multiply(matrix, Translation(position));
  }
  Numbers anchor = Value(evaluation, layer, kAnchorPoint);
  Numbers scale = Value(evaluation, layer, kScale);
  if (!layer.threeD) {
    anchor[2] = position[2] = 0.0;
    scale[2] = 100.0;
  }
  Matrix matrix = Translation({-anchor[0], -anchor[1], -anchor[2]});
  matrix = Multiply(matrix, Scaling({scale[0] * 0.01, scale[1] * 0.01, scale[2] * 0.01}));
  matrix = Multiply(matrix, Turns(evaluation, layer));
  return Multiply(matrix, Translation(position));
}

double Dot(const std::array<double, 4>& a, const std::array<double, 4>& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

bool Normalise(std::array<double, 4>& row) {
  const double square = Dot(row, row);
  if (!(square > 0.0) || !std::isfinite(square)) return false;
  const double length = std::sqrt(square);
  if (length != 1.0)
    for (size_t i = 0; i < 3; ++i) row[i] /= length;
  return true;
}

// Scaled parents move a camera, but must not bend what it sees: its direction of view stays, x is made
// perpendicular to it, y follows.
void MakeRigid(Matrix& matrix) {
  Matrix rigid = matrix;
  std::array<double, 4>& x = rigid[0];
  const std::array<double, 4>& z = rigid[2];
  if (!Normalise(rigid[2])) return;
  const double along = Dot(x, z);
  for (size_t i = 0; i < 3; ++i) x[i] -= along * z[i];
  if (!Normalise(x)) return;
  rigid[1] = {z[1] * x[2] - z[2] * x[1], z[2] * x[0] - z[0] * x[2], z[0] * x[1] - z[1] * x[0], 0.0};
  matrix = rigid;
}

}  // namespace

Matrix Identity() {
  Matrix matrix{};
  for (size_t i = 0; i < 4; ++i) matrix[i][i] = 1.0;
  return matrix;
}

Matrix Multiply(const Matrix& a, const Matrix& b) {
  Matrix product{};
  for (size_t row = 0; row < 4; ++row)
    for (size_t column = 0; column < 4; ++column)
      for (size_t k = 0; k < 4; ++k) product[row][column] += a[row][k] * b[k][column];
  return product;
}

Matrix Translation(const Numbers& by) {
  Matrix matrix = Identity();
  for (size_t i = 0; i < 3; ++i) matrix[3][i] = by[i];
  return matrix;
}

Matrix Scaling(const Numbers& factors) {
  Matrix matrix = Identity();
  for (size_t i = 0; i < 3; ++i) matrix[i][i] = factors[i];
  return matrix;
}

Matrix Rotation(int axis, double degrees) {
  double sine = 0.0, cosine = 0.0;
  SineAndCosine(degrees, &sine, &cosine);
  const auto from = static_cast<size_t>((axis + 1) % 3), to = static_cast<size_t>((axis + 2) % 3);
  Matrix matrix = Identity();
  matrix[from][from] = matrix[to][to] = cosine;
  matrix[from][to] = sine;
  matrix[to][from] = -sine;
  return matrix;
}

Numbers Apply(const Matrix& matrix, const Numbers& point) {
  Numbers moved{};
  for (size_t i = 0; i < 3; ++i)
    moved[i] = point[0] * matrix[0][i] + point[1] * matrix[1][i] + point[2] * matrix[2][i] + matrix[3][i];
  return moved;
}

Matrix LayerToWorld(Evaluation& evaluation, const Layer& layer) {
  Matrix matrix = LayerToParent(evaluation, layer);
  const Composition& composition = *evaluation.composition;
  size_t steps = 0;
  for (const Layer* parent = FindLayer(composition, layer.parent);
       parent != nullptr && parent != &layer && steps < composition.layers.size();
       parent = FindLayer(composition, parent->parent), ++steps)
    matrix = Multiply(matrix, LayerToParent(evaluation, *parent));
  return matrix;
}

CameraView ViewOfCamera(Evaluation& evaluation, const Layer& camera) {
  CameraView view;
  view.layer = camera.id;
  view.toWorld = LayerToWorld(evaluation, camera);
  if (camera.parent != 0) MakeRigid(view.toWorld);
  view.zoom = Value(evaluation, camera, kZoom)[0];
  return view;
}

const Layer* ActiveCamera(const Composition& composition) {
  for (const Layer& layer : composition.layers)
    if (layer.kind == LayerKind::kCamera) return &layer;
  return nullptr;
}

}  // namespace vantle::composition
