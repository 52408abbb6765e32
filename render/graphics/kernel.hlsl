// The compute shader: one thread a pixel, which walks the particles of its tile in painter's order. The numbers
// of shapes and transfer modes and the formulas are put in at configure time, from the C++ headers; see
// kernel_text.cmake.

// The formulas take their numbers as `Real`, which is a group of pixels elsewhere.
#define Real float
#define Decider float
#define Source float

//@constants

// Frame-wide values; graphics/render_params.h declares the same record.
cbuffer RenderParamsCB : register(b0) {
  int g_width;
  int g_height;
  int g_numParticles;
  int g_partShape;
  int g_blendMode;
  int g_roundCap;
  int g_tilesX;
  int g_tilesY;
  int g_tileSize;
  int g_useTiles;
};

// Both values are computed; the one not taken may be anything.
float select(bool condition, float a, float b) {
  return condition ? a : b;
}
bool both(bool a, bool b) {
  return a && b;
}
bool either(bool a, bool b) {
  return a || b;
}

//@formulas

StructuredBuffer<Particle> particles : register(t0);
StructuredBuffer<int> tileOffsets : register(t1);
StructuredBuffer<int> tileIndices : register(t2);
RWStructuredBuffer<float4> outputBuffer : register(u0);

[numthreads(16, 16, 1)]
void CSMain(uint3 id : SV_DispatchThreadID) {
  const int x = (int)id.x;
  const int y = (int)id.y;
  if (x >= g_width || y >= g_height) return;

  // Which particles: those of the tile, or all.
  int first = 0;
  int end = g_numParticles;
  if (g_useTiles != 0) {
    const uint edge = (uint)g_tileSize;  // unsigned numbers divide faster
    const uint tile = (id.y / edge) * (uint)g_tilesX + id.x / edge;
    first = tileOffsets[tile];
    end = tileOffsets[tile + 1];
  }

  // Lay them over transparent black, first particle lowest.
  float r = 0.0f;
  float g = 0.0f;
  float b = 0.0f;
  float a = 0.0f;
  for (int i = first; i < end; ++i) {
    int index = i;
    if (g_useTiles != 0) index = tileIndices[i];
    accumParticle((float)x, (float)y, particles[index], g_partShape, g_blendMode, g_roundCap != 0, r, g, b, a);
  }

  // Deliver in the host's channel order.
  outputBuffer[y * g_width + x] = float4(a, r, g, b);
}
