// Values of a composition at one moment, expressions applied.
#pragma once

#include "host/composition/composition.h"

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace vantle::composition {

/// What went wrong with expressions, each expression once however many frames it fails on. Safe to use from
/// several threads.
struct ExpressionReports {
  std::mutex mutex;
  std::set<std::string> known;
  std::vector<std::string> lines;
};

/// Hands out the lines since the last time; they are not handed out again.
std::vector<std::string> DrainReports(ExpressionReports& reports);

/// What all expressions of one question may use together.
struct Budget {
  long steps = 0;  ///< turns of loops and calls of functions
  std::int64_t deadline = 0;
};

/// No expression is begun while more calls than this wait: each may keep the engine's own stack occupied.
inline constexpr int kMostWaiting = 200;

/// One moment of a composition. Values are remembered, so that each expression runs once. Belongs to one
/// thread; the composition must stay as it is meanwhile.
struct Evaluation {
  const Composition* composition = nullptr;
  double seconds = 0.0;
  ExpressionReports* reports = nullptr;  ///< may be null

  /// Layer id (0 for the effect) and stream or parameter index.
  using Place = std::pair<int32_t, int>;
  struct Running {
    Place place;
    std::string title;
    bool inRing = false;
  };
  std::vector<Running> running;
  std::map<Place, Numbers> known;
  Budget budget;
  int waiting = 0;  ///< calls of functions, over all running expressions, that wait for another one's value
};

/// The value of a layer's stream with its expression applied, if that is switched on. An expression that
/// fails is reported, and the stream's own value stands.
Numbers StreamValue(Evaluation& evaluation, const Layer& layer, Stream stream);

/// The value of an effect's parameter; `title` is its name, `own` its value without the expression.
double EffectValue(Evaluation& evaluation, int parameter, const std::string& title, double own);

/// Whether expressions refer to the stream at this very moment; asking for it again would never end. The
/// expressions of the ring all fail then. `way` names them.
bool ClosesRing(Evaluation& evaluation, const Layer& layer, Stream stream, std::string* way);

}  // namespace vantle::composition
