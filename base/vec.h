// Small float vectors. Arithmetic is written out where it is used, so that the order of operations, on which
// identical pictures rest, can be read there.
#pragma once

namespace vantle {

struct Vec2 {
  float x = 0.0f;
  float y = 0.0f;
};

struct Vec3 {
  float x = 0.0f;
  float y = 0.0f;
  float z = 0.0f;
};

}  // namespace vantle
