// The host's books: what an effect took and gave back, and what it did wrong.
#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace vantle::host {

/// Things that must come back.
enum class Item {
  kSuite,
  kLock,
  kCheckout,
  kWorld,
  kBlock,
  kStream,
  kStreamValue,
  kEffectRef,
  kMemory,
  kDrawing
};

struct ItemCount {
  long taken = 0;
  long given = 0;
};

struct NotedProblem {
  std::string line;
  long times = 1;
};

/// Safe to use from several threads.
struct Ledger {
  mutable std::mutex mutex;
  std::map<std::pair<Item, std::string>, ItemCount> counts;
  std::vector<NotedProblem> problems;
};

/// `what` tells items of one kind apart: a suite's name and version, a layer parameter's index.
void Take(Ledger& ledger, Item item, const std::string& what);
/// Giving back more than was taken is noted as a problem at once.
void Give(Ledger& ledger, Item item, const std::string& what);

/// Notes a line. The same line is kept once, with the number of times it came.
void NoteProblem(Ledger& ledger, const std::string& line);

/// Sums of one kind.
ItemCount Total(const Ledger& ledger, Item item);

/// Hands out everything noted, and forgets it.
std::vector<std::string> DrainProblems(Ledger& ledger);

/// A line for each thing that was taken and not given back; it counts as given afterwards, so that each is
/// reported once.
std::vector<std::string> SettleLedger(Ledger& ledger);

/// Adds counts (not problems) of a frame's ledger to the effect's.
void AddCounts(Ledger& to, const Ledger& from);

/// What a person calls the kind: "suite", "lock".
const char* ItemName(Item item);

}  // namespace vantle::host
