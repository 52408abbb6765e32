#include "host/engine/ledger.h"

#include <algorithm>

namespace vantle::host {
namespace {

void NoteLocked(Ledger& ledger, const std::string& line) {
  auto known = std::find_if(ledger.problems.begin(), ledger.problems.end(),
                            [&](const NotedProblem& problem) { return problem.line == line; });
  if (known != ledger.problems.end()) {
    ++known->times;
  } else {
    ledger.problems.push_back({line, 1});
  }
}

std::string Name(Item item, const std::string& what) {
  return std::string(ItemName(item)) + (what.empty() ? "" : " " + what);
}

}  // namespace

const char* ItemName(Item item) {
  switch (item) {
    case Item::kSuite:
      return "suite";
    case Item::kLock:
      return "lock of a";
    case Item::kCheckout:
      return "checkout of";
    case Item::kWorld:
      return "world";
    case Item::kBlock:
      return "block of memory";
    case Item::kStream:
      return "stream";
    case Item::kStreamValue:
      return "stream value";
    case Item::kEffectRef:
      return "effect reference";
    case Item::kMemory:
      return "memory handle";
    case Item::kDrawing:
      return "drawing object";
  }
  return "thing";
}

void Take(Ledger& ledger, Item item, const std::string& what) {
  const std::lock_guard<std::mutex> guard(ledger.mutex);
  ++ledger.counts[{item, what}].taken;
}

void Give(Ledger& ledger, Item item, const std::string& what) {
  const std::lock_guard<std::mutex> guard(ledger.mutex);
  ItemCount& count = ledger.counts[{item, what}];
  if (count.given >= count.taken) {
    NoteLocked(ledger, Name(item, what) + " given back without having been taken");
  } else {
    ++count.given;
  }
}

void NoteProblem(Ledger& ledger, const std::string& line) {
  const std::lock_guard<std::mutex> guard(ledger.mutex);
  NoteLocked(ledger, line);
}

ItemCount Total(const Ledger& ledger, Item item) {
  const std::lock_guard<std::mutex> guard(ledger.mutex);
  ItemCount sum;
  for (const auto& [key, count] : ledger.counts) {
    if (key.first == item) {
      sum.taken += count.taken;
      sum.given += count.given;
    }
  }
  return sum;
}

std::vector<std::string> DrainProblems(Ledger& ledger) {
  const std::lock_guard<std::mutex> guard(ledger.mutex);
  std::vector<std::string> lines;
  for (const NotedProblem& problem : ledger.problems) {
    lines.push_back(problem.times == 1 ? problem.line
                                       : problem.line + " (" + std::to_string(problem.times) + " times)");
  }
  ledger.problems.clear();
  return lines;
}

std::vector<std::string> SettleLedger(Ledger& ledger) {
  const std::lock_guard<std::mutex> guard(ledger.mutex);
  std::vector<std::string> lines;
  for (auto& [key, count] : ledger.counts) {
    if (count.taken != count.given) {
      lines.push_back(Name(key.first, key.second) + " taken " + std::to_string(count.taken) +
                      " times, given back " + std::to_string(count.given));
      count.given = count.taken;
    }
  }
  return lines;
}

void AddCounts(Ledger& to, const Ledger& from) {
  const std::scoped_lock guard(to.mutex, from.mutex);
  for (const auto& [key, count] : from.counts) {
    ItemCount& sum = to.counts[key];
    sum.taken += count.taken;
    sum.given += count.given;
  }
}

}  // namespace vantle::host
