// Time, and figures as JSON.
#pragma once

#include "base/instruction_level.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vantle::measure {

/// How long a measurement may take, and how few rounds will do.
struct Effort {
  double seconds = 60.0;
  int leastRounds = 3;
};

/// Seconds since the program started.
double Now();

/// On a machine that is busy with other things: work on one thread is timed by the processor time it takes.
void UseProcessorTime();

/// Nanoseconds that the work takes. Short work is repeated for some milliseconds, and the least counts.
double TimeOf(const std::function<void()>& work);

/// Sets the level and the loop threads of what is timed next; waits until threads of the last loop are at
/// rest, which spin for a while.
void SetRoad(InstructionLevel level, int threads);

double Least(const std::vector<double>& values);
double Median(std::vector<double> values);

/// One JSON object: Add its fields, then hand it to a Report.
struct Record {
  std::string text;
  Record& Add(const char* name, const std::string& value);
  Record& Add(const char* name, double value);
};

/// What a measurement prints: the machine, and a list of records.
struct Report {
  std::string kind;
  std::vector<Record> records;
};
void Print(const Report& report);

/// A line of progress on standard error.
void Tell(const std::string& text);

const char* NameOf(InstructionLevel level);

/// The levels that this processor has, from the least.
std::vector<InstructionLevel> Levels();

}  // namespace vantle::measure
