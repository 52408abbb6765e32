// The table of stages. Rounds go over all cells in turn, so that a slow moment of the machine hits all of
// them.
#include "bench/measure/measurements.h"
#include "bench/measure/works.h"

#include <algorithm>
#include <string>

namespace vantle::measure {
namespace {

/// A work on one road.
struct Cell {
  const Work* work;
  bool isPlain;
  InstructionLevel level;
  int threads;
  std::vector<double> nanoseconds;
};

/// A work's cells on one thread stand before those on two, so that no thread of the latter is still spinning.
std::vector<Cell> CellsOf(const std::vector<Work>& works) {
  std::vector<Cell> cells;
  for (const Work& work : works) {
    cells.push_back({&work, true, InstructionLevel::kSse2, 1, {}});
    for (int threads = 1; threads <= (work.isThreaded ? 2 : 1); ++threads)
      for (InstructionLevel level : Levels()) cells.push_back({&work, false, level, threads, {}});
  }
  return cells;
}

void Measure(Cell* cell) {
  SetRoad(cell->level, cell->threads);
  cell->nanoseconds.push_back(TimeOf(cell->isPlain ? cell->work->plain : cell->work->product));
}

Record RecordOf(const Cell& cell) {
  Record record;
  record.Add("stage", cell.work->name).Add("item", cell.work->item).Add("items", cell.work->items);
  record.Add("road", cell.isPlain ? "plain" : NameOf(cell.level)).Add("threads", cell.threads);
  record.Add("least_ns", Least(cell.nanoseconds)).Add("median_ns", Median(cell.nanoseconds));
  record.Add("rounds", static_cast<double>(cell.nanoseconds.size()));
  return record.Add("goal_avx512", cell.work->goalAvx512).Add("goal_avx2", cell.work->goalAvx2);
}

}  // namespace

Report MeasureTable(const Effort& effort) {
  Tell("table: making the frames");
  const std::vector<Work> works = MakeWorks();
  std::vector<Cell> cells = CellsOf(works);
  const double start = Now();
  double lastRound = 0.0;
  for (int round = 0; round < effort.leastRounds || Now() - start + lastRound < effort.seconds; ++round) {
    Tell("table: round " + std::to_string(round + 1));
    const double began = Now();
    for (Cell& cell : cells) Measure(&cell);
    lastRound = Now() - began;
  }
  Report report{"table", {}};
  for (const Cell& cell : cells) report.records.push_back(RecordOf(cell));
  return report;
}

}  // namespace vantle::measure
