#include "tests/reference/compare.h"

#include "tests/reference/product.h"

#include <bit>
#include <cmath>
#include <sstream>

namespace vantle::reference {
namespace {

struct Field {
  const char* name;
  float ProjectedParticle::*value;
};

constexpr Field kFields[] = {
    {"sx", &ProjectedParticle::sx},       {"sy", &ProjectedParticle::sy},
    {"size", &ProjectedParticle::size},   {"lineWidth", &ProjectedParticle::lineWidth},
    {"r", &ProjectedParticle::r},         {"g", &ProjectedParticle::g},
    {"b", &ProjectedParticle::b},         {"alpha", &ProjectedParticle::alpha},
    {"rotX", &ProjectedParticle::rotX},   {"rotY", &ProjectedParticle::rotY},
    {"rotZ", &ProjectedParticle::rotZ},   {"cocRadius", &ProjectedParticle::cocRadius},
    {"depth", &ProjectedParticle::depth}, {"random", &ProjectedParticle::random},
};

bool SameBits(float a, float b) {
  return std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b) || (std::isnan(a) && std::isnan(b));
}

std::string Values(float expected, float actual) {
  std::ostringstream text;
  text.precision(9);
  text << expected << " expected, " << actual << " found";
  return text.str();
}

std::string FirstDifference(const std::vector<Vec2>& expected, const ParticleList& list, uint32_t slot) {
  const size_t count = list.curvePoints.counts[slot];
  if (count != expected.size()) {
    return std::to_string(expected.size()) + " curve points expected, " + std::to_string(count) + " found";
  }
  const Vec2* points = list.curvePoints.points.data() + size_t{slot} * kMaxTrailPoints;
  for (size_t i = 0; i < count; ++i) {
    const std::string which = "curve point " + std::to_string(i);
    if (!SameBits(expected[i].x, points[i].x)) return which + " x: " + Values(expected[i].x, points[i].x);
    if (!SameBits(expected[i].y, points[i].y)) return which + " y: " + Values(expected[i].y, points[i].y);
  }
  return "";
}

std::string FirstDifference(const Particle& expected, const ParticleList& list, size_t i) {
  const ProjectedParticle& actual = list.particles[i];
  for (const Field& field : kFields) {
    const float e = expected.projected.*field.value;
    const float a = actual.*field.value;
    if (!SameBits(e, a)) return std::string(field.name) + ": " + Values(e, a);
  }
  if (expected.projected.spriteFrame != actual.spriteFrame) return "spriteFrame";
  if (expected.curvePoints.empty()) return "";
  return FirstDifference(expected.curvePoints, list, actual.curvePoints);
}

// The length of the shortest list whose pictures differ: its last particle is the culprit.
size_t ShortestDifference(const FrameInput& frame, const std::vector<Particle>& particles,
                          const ParticleList& list, const Layout& layout, InstructionLevel level) {
  size_t equal = 0;
  size_t different = particles.size();
  while (different - equal > 1) {
    const size_t middle = (equal + different) / 2;
    Picture expected = MakePicture(layout);
    Picture actual = MakePicture(layout);
    const std::vector<Particle> first(particles.begin(), particles.begin() + static_cast<ptrdiff_t>(middle));
    Rasterise(frame, first, MutableOf(expected));
    RasteriseWithProduct(frame, list, middle, actual, level);
    (FirstDifference(expected, actual).empty() ? equal : different) = middle;
  }
  return different;
}

std::string Describe(const ProjectedParticle& p) {
  std::ostringstream text;
  text.precision(9);
  for (const Field& field : kFields) text << " " << field.name << " " << p.*field.value;
  return text.str();
}

std::string WritePictures(const std::string& name, const Picture& expected, const Picture& actual) {
  WritePpm(name + "_reference.ppm", expected, nullptr);
  WritePpm(name + "_product.ppm", actual, nullptr);
  WritePpm(name + "_difference.ppm", expected, &actual);
  return name + "_{reference,product,difference}.ppm";
}

std::string CompareRaster(const std::string& name, const Scene& scene, const std::vector<Particle>& particles,
                          const ParticleList& list, InstructionLevel level) {
  const FrameInput& frame = scene.frame;
  Picture expected = MakePicture(scene.output);
  Picture actual = MakePicture(scene.output);
  Rasterise(frame, particles, MutableOf(expected));
  RasteriseWithProduct(frame, list, list.count, actual, level);
  const std::string difference = FirstDifference(expected, actual);
  if (difference.empty()) return "";

  std::ostringstream text;
  const size_t culprit = ShortestDifference(frame, particles, list, scene.output, level);
  text << name << ": " << difference << "\n  shape " << frame.settings.shape << ", mode "
       << frame.settings.transferMode << ", " << scene.output.width << " x " << scene.output.height
       << ", depth " << static_cast<int>(scene.output.depth) << ", round cap " << frame.settings.roundCap
       << ", instruction level " << static_cast<int>(level);
  if (culprit > 0) {
    text << "\n  first with particle " << culprit - 1 << " of " << particles.size() << ":"
         << Describe(particles[culprit - 1].projected);
  }
  text << "\n  " << WritePictures(name, expected, actual);
  return text.str();
}

// Sprite frames are handed out between the two stages, some of them none or out of range.
void HandOutSprites(std::vector<Particle>& particles, ParticleList& list) {
  for (size_t i = 0; i < list.count; ++i) {
    const int32_t sprite = particles[i].index % 5 - 1;
    particles[i].projected.spriteFrame = sprite;
    list.particles[i].spriteFrame = sprite;
  }
}

}  // namespace

std::string FirstDifference(const std::vector<Particle>& expected, const ParticleList& actual) {
  for (size_t i = 0; i < expected.size() && i < actual.count; ++i) {
    const std::string difference = FirstDifference(expected[i], actual, i);
    if (difference.empty()) continue;
    return "particle " + std::to_string(i) + " of " + std::to_string(expected.size()) + " (index " +
           std::to_string(expected[i].index) + "): " + difference;
  }
  if (expected.size() == actual.count) return "";
  return std::to_string(expected.size()) + " particles expected, " + std::to_string(actual.count) + " found";
}

std::string Compare(uint64_t seed, Nature nature, Stage stage, InstructionLevel level) {
  SetInstructionLevel(level);
  const Scene scene = RandomScene(seed, nature);
  const std::string name =
      std::string(nature == Nature::kTame ? "tame" : "hostile") + "_seed_" + std::to_string(seed);
  if (stage == Stage::kRaster) {
    const std::vector<Particle> particles = RandomParticles(seed, scene);
    return CompareRaster(name, scene, particles, ListOf(particles), level);
  }

  std::vector<Particle> particles = Simulate(scene.frame);
  ParticleList list = SimulateWithProduct(scene.frame);
  const std::string difference = FirstDifference(particles, list);
  if (!difference.empty()) return name + ": " + difference;
  if (stage == Stage::kParticles) return "";
  HandOutSprites(particles, list);
  return CompareRaster(name, scene, particles, list, level);
}

}  // namespace vantle::reference
