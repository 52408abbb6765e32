// What each shape, transfer mode and depth costs by the pixel that it touches.
#include "bench/measure/measurements.h"
#include "bench/measure/scenes.h"
#include "render/rasteriser.h"
#include "tests/reference/shape_coverage.h"
#include "tests/reference/sprite.h"

#include <algorithm>
#include <memory>
#include <string>

namespace vantle::measure {
namespace {

constexpr int32_t kWidth = 960, kHeight = 540;

/// What is drawn at once: so many that clearing the picture hardly counts.
struct Amount {
  float size;
  size_t count;
};
constexpr Amount kAmounts[] = {{10.0f, 2500}, {40.0f, 250}};

constexpr const char* kModes[] = {"Normal",  "Add",        "Screen",     "Multiply",
                                  "Overlay", "Soft Light", "Hard Light", "Color Burn"};

bool IsTouched(const Stamps& stamps, const reference::Stamp& stamp, float x, float y) {
  if (stamp.shape != SHAPE_LAYER) return reference::CoverageAt(stamp, stamp.shape, x, y) > 0.001f;
  return reference::SpriteAt(reference::SpriteStampOf(stamp.particle, stamps.frame.sprites[0]), x, y).a >
         0.001f;
}

/// Pixels of the picture that the particle covers.
double PixelsTouched(const Stamps& stamps, const reference::Particle& particle) {
  const FrameSettings& s = stamps.frame.settings;
  const reference::Stamp stamp =
      reference::StampOf(particle.projected, particle.curvePoints, s.shape, s.roundCap);
  const reference::Region region =
      s.shape == SHAPE_LAYER
          ? reference::SpriteRegion(reference::SpriteStampOf(particle.projected, stamps.frame.sprites[0]))
          : reference::RegionOf(stamp);
  const int x0 = std::max(0, static_cast<int>(region.left)), y0 = std::max(0, static_cast<int>(region.top));
  const int x1 = std::min(kWidth - 1, static_cast<int>(region.right));
  const int y1 = std::min(kHeight - 1, static_cast<int>(region.bottom));
  double touched = 0.0;
  for (int y = y0; y <= y1; ++y)
    for (int x = x0; x <= x1; ++x)
      touched += IsTouched(stamps, stamp, static_cast<float>(x), static_cast<float>(y)) ? 1.0 : 0.0;
  return touched;
}

/// Of all particles, worked out from a sample.
double PixelsTouched(const Stamps& stamps) {
  const size_t sample = std::min<size_t>(stamps.plain.size(), 200);
  double touched = 0.0;
  for (size_t i = 0; i < sample; ++i) touched += PixelsTouched(stamps, stamps.plain[i]);
  return touched * static_cast<double>(stamps.plain.size()) / static_cast<double>(sample);
}

/// Shape, size and depth; drawn in every mode. The time of clearing the picture is kept apart and taken off
/// at the end, least from least: one slow clearing must not make a cell look cheap.
struct Cell {
  const ShapeVariant* variant;
  const Amount* amount;
  PixelDepth depth;
  Stamps stamps;
  double touched = 0.0;
  std::vector<double> clearing;
  std::vector<double> drawing[8];
};

int BitsOf(PixelDepth depth) {
  return depth == PixelDepth::k8 ? 8 : depth == PixelDepth::k16 ? 16 : 32;
}

double TimeToDraw(const Cell& cell, size_t count, const FrameSettings& settings,
                  reference::Picture* picture) {
  return TimeOf([&] {
    RenderParticlesCpu(MutableOf(*picture), cell.stamps.list.particles.data(), count,
                       cell.stamps.list.curvePoints, settings, cell.stamps.frame.sprites.data(), 1);
  });
}

void Measure(Cell* cell, reference::Picture* picture) {
  FrameSettings settings = cell->stamps.frame.settings;
  cell->clearing.push_back(TimeToDraw(*cell, 0, settings, picture));
  for (int32_t mode = 1; mode <= 8; ++mode) {
    settings.transferMode = mode;
    cell->drawing[mode - 1].push_back(TimeToDraw(*cell, cell->stamps.list.count, settings, picture));
  }
}

std::vector<std::unique_ptr<Cell>> MakeCells() {
  std::vector<std::unique_ptr<Cell>> cells;
  for (PixelDepth depth : {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32}) {
    for (const ShapeVariant& variant : ShapeVariants()) {
      for (const Amount& amount : kAmounts) {
        auto cell = std::make_unique<Cell>();
        cell->variant = &variant;
        cell->amount = &amount;
        cell->depth = depth;
        MakeStamps(variant, amount.count, amount.size, depth, kWidth, kHeight, &cell->stamps);
        cell->touched = PixelsTouched(cell->stamps);
        cells.push_back(std::move(cell));
      }
    }
  }
  return cells;
}

Record RecordOf(const Cell& cell, size_t mode) {
  const double drawing = Least(cell.drawing[mode]);
  const double nanoseconds = std::max(0.02 * drawing, drawing - Least(cell.clearing));
  const double particles = static_cast<double>(cell.amount->count);
  Record record;
  record.Add("shape", cell.variant->name).Add("mode", kModes[mode]).Add("bits", BitsOf(cell.depth));
  record.Add("size", static_cast<double>(cell.amount->size));
  record.Add("ns_per_pixel", nanoseconds / std::max(cell.touched, 1.0));
  record.Add("ns_per_particle", nanoseconds / particles);
  return record.Add("pixels_per_particle", cell.touched / particles);
}

}  // namespace

Report MeasureShapes(const Effort& effort) {
  Tell("shapes: making the particles");
  const std::vector<std::unique_ptr<Cell>> cells = MakeCells();
  SetRoad(BestInstructionLevel(), 1);
  reference::Picture picture[3] = {
      reference::MakePicture({.width = kWidth, .height = kHeight, .depth = PixelDepth::k8}),
      reference::MakePicture({.width = kWidth, .height = kHeight, .depth = PixelDepth::k16}),
      reference::MakePicture({.width = kWidth, .height = kHeight, .depth = PixelDepth::k32})};
  const double start = Now();
  double lastRound = 0.0;
  for (int round = 0; round < effort.leastRounds || Now() - start + lastRound < effort.seconds; ++round) {
    Tell("shapes: round " + std::to_string(round + 1));
    const double began = Now();
    for (const auto& cell : cells) Measure(cell.get(), &picture[BitsOf(cell->depth) / 16]);
    lastRound = Now() - began;
  }
  Report report{"shapes", {}};
  for (const auto& cell : cells)
    for (size_t mode = 0; mode < 8; ++mode) report.records.push_back(RecordOf(*cell, mode));
  return report;
}

}  // namespace vantle::measure
