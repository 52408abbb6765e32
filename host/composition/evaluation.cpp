#include "host/composition/evaluation.h"

#include "host/composition/script.h"

#include <algorithm>
#include <utility>

namespace vantle::composition {
namespace {

// Deeper than people nest them; each level takes a good part of the stack.
constexpr size_t kDeepest = 24;

std::string TitleOf(const Layer& layer, Stream stream) {
  const bool interest = layer.kind == LayerKind::kCamera && stream == kAnchorPoint;
  return "layer \"" + layer.name + "\", \"" + (interest ? "Point of Interest" : FactsOf(stream).title) + "\"";
}

void Report(Evaluation& evaluation, const std::string& title, int line, const std::string& message) {
  if (evaluation.reports == nullptr) return;
  const std::lock_guard<std::mutex> lock(evaluation.reports->mutex);
  if (!evaluation.reports->known.insert(title).second) return;
  evaluation.reports->lines.push_back("expression of " + title + ", line " + std::to_string(line) + ": " +
                                      message + "; its value without the expression is used");
}

std::string RingText(const Evaluation& evaluation, size_t first) {
  std::string text;
  for (size_t i = first; i < evaluation.running.size(); ++i) text += evaluation.running[i].title + " -> ";
  return text + evaluation.running[first].title;
}

// Runs one expression while it is known as running.
Numbers Run(Evaluation& evaluation, Evaluation::Place place, const std::string& title,
            const Expression& expression, const Numbers& own, int dimensions) {
  if (evaluation.running.size() >= kDeepest || evaluation.waiting > kMostWaiting) {
    Report(evaluation, title, 1, "expressions refer to each other too deeply");
    return own;
  }
  if (evaluation.running.empty()) evaluation.budget = FreshBudget();
  evaluation.running.push_back({place, title, false});
  const ScriptResult result = RunScript(evaluation, expression.text, own, dimensions);
  const bool inRing = evaluation.running.back().inRing;
  evaluation.running.pop_back();
  if (result.ok && !inRing) return result.value;
  const std::string ring = "the expressions refer to each other in a ring";
  Report(evaluation, title, result.ok ? 1 : result.line, result.ok ? ring : result.message);
  return own;
}

Numbers Remembered(Evaluation& evaluation, Evaluation::Place place, const std::string& title,
                   const Expression& expression, const Numbers& own, int dimensions) {
  const auto known = evaluation.known.find(place);
  if (known != evaluation.known.end()) return known->second;
  const Numbers value = Run(evaluation, place, title, expression, own, dimensions);
  evaluation.known.emplace(place, value);
  return value;
}

}  // namespace

std::vector<std::string> DrainReports(ExpressionReports& reports) {
  const std::lock_guard<std::mutex> lock(reports.mutex);
  return std::exchange(reports.lines, {});
}

Numbers StreamValue(Evaluation& evaluation, const Layer& layer, Stream stream) {
  const Property& property = layer.streams[static_cast<size_t>(stream)];
  const Numbers own = KeyedValue(property, evaluation.seconds);
  if (!property.expression.on) return own;
  return Remembered(evaluation, {layer.id, stream}, TitleOf(layer, stream), property.expression, own,
                    FactsOf(stream).dimensions);
}

double EffectValue(Evaluation& evaluation, int parameter, const std::string& title, double own) {
  const auto found = evaluation.composition->effectExpressions.find(parameter);
  if (found == evaluation.composition->effectExpressions.end() || !found->second.on) return own;
  const Layer* layer = FindLayer(*evaluation.composition, evaluation.composition->effectLayer);
  const std::string where = layer == nullptr ? "" : "layer \"" + layer->name + "\", ";
  return Remembered(evaluation, {0, parameter}, where + "\"" + title + "\"", found->second, {own, 0.0, 0.0},
                    1)[0];
}

bool ClosesRing(Evaluation& evaluation, const Layer& layer, Stream stream, std::string* way) {
  const Evaluation::Place place{layer.id, stream};
  for (size_t i = 0; i < evaluation.running.size(); ++i) {
    if (evaluation.running[i].place != place) continue;
    for (size_t k = i; k < evaluation.running.size(); ++k) evaluation.running[k].inRing = true;
    *way = RingText(evaluation, i);
    return true;
  }
  return false;
}

}  // namespace vantle::composition
