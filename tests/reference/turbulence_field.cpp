#include "tests/reference/turbulence_field.h"

#include "base/numeric.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vantle::reference {
namespace {

// The product of a corner's offset with the gradient that its hash chooses.
float Lattice(uint32_t ix, uint32_t iy, uint32_t iz, float fx, float fy, float fz, uint32_t seed) {
  uint32_t h = (seed * 83492791u) ^ (ix * 73856093u) ^ (iz * 53471161u) ^ (iy * 19349663u);
  h = ((h >> 16) ^ h) * 73244475u;
  h = ((h >> 16) ^ h) * 73244475u;
  h = (h >> 16) ^ h;

  const float x = (h & 1u) != 0 ? fx : -fx;
  const float y = (h & 2u) != 0 ? fy : -fy;
  const float z = (h & 4u) != 0 ? 0.7071f : -0.7071f;
  const float wx = (h & 8u) != 0 ? 1.0f : 0.5f;
  const float wy = (h & 8u) != 0 ? 0.5f : 1.0f;
  return y * wy + x * wx + z * fz;
}

int32_t FloorToInt(float v) {
  const int32_t whole = TruncToInt(v);
  const bool fractional = static_cast<float>(whole) != v && whole != INT32_MIN;
  return v < 0.0f && fractional ? whole - 1 : whole;
}

float FadeCurve(float t) {
  return t * t * t * (t * (6.0f * t - 15.0f) + 10.0f);
}

float Mix(float a, float b, float t) {
  return a + (b - a) * t;
}

float Noise(float x, float y, float z, uint32_t seed) {
  const int32_t floorX = FloorToInt(x);
  const int32_t floorY = FloorToInt(y);
  const int32_t floorZ = FloorToInt(z);
  const float fx = x - static_cast<float>(floorX);
  const float fy = y - static_cast<float>(floorY);
  const float fz = z - static_cast<float>(floorZ);

  const auto corner = [&](uint32_t i, uint32_t j, uint32_t k) {
    return Lattice(static_cast<uint32_t>(floorX) + i, static_cast<uint32_t>(floorY) + j,
                   static_cast<uint32_t>(floorZ) + k, fx - static_cast<float>(i), fy - static_cast<float>(j),
                   fz - static_cast<float>(k), seed);
  };
  const float u = FadeCurve(fx);
  const auto alongX = [&](uint32_t j, uint32_t k) { return Mix(corner(0, j, k), corner(1, j, k), u); };
  const float v = FadeCurve(fy);
  const auto alongY = [&](uint32_t k) { return Mix(alongX(0, k), alongX(1, k), v); };
  return Mix(alongY(0), alongY(1), FadeCurve(fz));
}

// Four octaves: of the noise itself, or of its ridges (1 - |noise|) squared.
float Octaves(bool ridged, float x, float y, float z, uint32_t seed) {
  float sum = 0.0f;
  float amplitude = 1.0f;
  float frequency = 1.0f;
  for (int octave = 0; octave < 4; ++octave) {
    const float noise = Noise(frequency * x, frequency * y, frequency * z, seed);
    const float ridge = 1.0f - std::fabs(noise);
    sum += amplitude * (ridged ? ridge * ridge : noise);
    amplitude *= 0.5f;
    frequency *= 2.0f;
    seed += 17u;
  }
  return sum / 1.875f;
}

}  // namespace

Vec3 TurbulenceAt(float px, float py, const FrameSettings& s) {
  if (s.turbulenceAmount < 0.001f) return {};

  // The normaliser is the size at the current resolution, while positions are full-resolution pixels.
  const float m = static_cast<float>(std::max({s.outputWidth, s.outputHeight, 1}));
  const float k = std::max(0.2f * s.turbulenceScale, 0.01f);
  const float u = px / m * 10.0f / k;
  const float v = py / m * 10.0f / k;
  const float w = 2.0f * s.timeSeconds * s.turbulenceSpeed + s.turbulenceEvolution;

  const bool gradientFlow = s.turbulenceType == 2;
  const bool ridged = s.turbulenceType == 3;
  const uint32_t seed = static_cast<uint32_t>(s.turbulenceSeed);
  const auto field = [&](float x, float y) { return Octaves(ridged, x, y, w, seed); };

  // Central differences over 2 * 0.01.
  const float e = 0.01f;
  const float alongU = field(u + e, v) - field(u - e, v);
  const float alongV = field(u, v + e) - field(u, v - e);
  const float dx = (gradientFlow ? alongU : alongV) * 50.0f;
  const float dy = (gradientFlow ? alongV : -alongU) * 50.0f;
  const float dz = Octaves(ridged, u, v, w, seed + 7919u);
  return {dx * s.turbulenceAmount * 500.0f, dy * s.turbulenceAmount * 500.0f,
          dz * s.turbulenceZDepth * 500.0f};
}

}  // namespace vantle::reference
