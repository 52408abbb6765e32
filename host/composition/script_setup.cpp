#include "host/composition/script_setup.h"

#include <algorithm>
#include <cstdio>
#include <exception>

namespace vantle::composition {
namespace {

// What stays of the language's own objects. The rest is either dangerous (constructors reach the compiler),
// not reproducible (clock, random numbers) or without a bound (a list may claim four thousand million
// elements, a search in long texts is quadratic).
constexpr const char* kStrip = R"((function (all) {
  var names = Object.getOwnPropertyNames, has = Object.prototype.hasOwnProperty;
  function keep(object, list) {
    var wanted = {}, own = names(object), away = [], i;
    for (i = 0; i < list.length; ++i) wanted['_' + list[i]] = 1;
    for (i = 0; i < own.length; ++i) if (!has.call(wanted, '_' + own[i])) away[away.length] = own[i];
    for (i = 0; i < away.length; ++i) delete object[away[i]];
  }
  keep(Array.prototype, ['push', 'pop', 'length']);
  keep(Number.prototype, ['toFixed', 'toPrecision', 'toExponential', 'toString', 'valueOf']);
  keep(Boolean.prototype, ['toString', 'valueOf']);
  keep(Error.prototype, ['name', 'message', 'toString', 'lineNumber']);
  keep(String.prototype, ['length', 'charAt', 'charCodeAt', 'substring', 'slice', 'toLowerCase', 'toUpperCase',
                          'toString', 'valueOf']);
  delete Math.random;
  var errors = [EvalError, RangeError, ReferenceError, SyntaxError, TypeError, URIError], i;
  for (i = 0; i < errors.length; ++i) delete errors[i].prototype.constructor;
  keep(Object.prototype, ['hasOwnProperty', 'toString', 'valueOf']);
  var functions = Function.prototype;
  keep(all, ['NaN', 'Infinity', 'undefined', 'Math', 'isNaN', 'isFinite', 'parseInt', 'parseFloat']);
  keep(functions, ['length', 'name']);
})(this))";

constexpr const char* kLayerId = DUK_HIDDEN_SYMBOL("layer");

Evaluation& EvaluationOf(duk_context* engine) {
  duk_push_heap_stash(engine);
  duk_get_prop_string(engine, -1, "evaluation");
  auto* evaluation = static_cast<Evaluation*>(duk_get_pointer(engine, -1));
  duk_pop_2(engine);
  return *evaluation;
}

// A layer that is not 3D has two coordinates.
int DimensionsOf(const Layer& layer, Stream stream) {
  const int dimensions = FactsOf(stream).dimensions;
  return dimensions == 3 && !layer.threeD && stream != kOrientation ? 2 : dimensions;
}

void PushNumbers(duk_context* engine, const Numbers& numbers, int dimensions) {
  if (dimensions == 1) return duk_push_number(engine, numbers[0]);
  duk_push_array(engine);
  for (int i = 0; i < dimensions; ++i) {
    duk_push_number(engine, numbers[static_cast<size_t>(i)]);
    duk_put_prop_index(engine, -2, static_cast<duk_uarridx_t>(i));
  }
}

// The answer to a script that asks for a stream, in plain bytes: the engine leaves by longjmp, past whatever
// would have to be destroyed.
struct StreamAnswer {
  Numbers numbers{};
  int dimensions = 0;
  char problem[200] = "";
};

StreamAnswer AskStream(Evaluation& evaluation, int32_t id, Stream stream, int calls) {
  StreamAnswer answer;
  evaluation.waiting += calls;
  try {
    const Layer* layer = FindLayer(*evaluation.composition, id);
    std::string way;
    if (layer == nullptr) {
      std::snprintf(answer.problem, sizeof answer.problem, "the layer is gone");
    } else if (ClosesRing(evaluation, *layer, stream, &way)) {
      std::snprintf(answer.problem, sizeof answer.problem,
                    "the expressions refer to each other in a ring: %.140s", way.c_str());
    } else {
      answer.dimensions = DimensionsOf(*layer, stream);
      answer.numbers = StreamValue(evaluation, *layer, stream);
    }
  } catch (const std::exception& failure) {
    std::snprintf(answer.problem, sizeof answer.problem, "%.150s", failure.what());
  }
  evaluation.waiting -= calls;
  return answer;
}

// Calls of functions that have not returned yet, as far as anybody asks.
int CountCalls(duk_context* engine) {
  int calls = 0;
  for (bool more = true; more && calls <= kMostWaiting;) {
    duk_inspect_callstack_entry(engine, -1 - calls);
    more = duk_is_object(engine, -1) != 0;
    duk_pop(engine);
    if (more) ++calls;
  }
  return calls;
}

duk_ret_t GetStream(duk_context* engine) {
  duk_push_this(engine);
  duk_get_prop_string(engine, -1, kLayerId);
  const auto id = static_cast<int32_t>(duk_get_int(engine, -1));
  const auto stream = static_cast<Stream>(duk_get_current_magic(engine));
  const StreamAnswer answer = AskStream(EvaluationOf(engine), id, stream, CountCalls(engine));
  if (answer.problem[0] != '\0') duk_error_raw(engine, DUK_ERR_ERROR, nullptr, 0, "%s", answer.problem);
  PushNumbers(engine, answer.numbers, answer.dimensions);
  return 1;
}

void AddGetter(duk_context* engine, const char* name, Stream stream) {
  duk_push_string(engine, name);
  duk_push_c_function(engine, GetStream, 0);
  duk_set_magic(engine, -1, stream);
  duk_def_prop(engine, -3, DUK_DEFPROP_HAVE_GETTER | DUK_DEFPROP_SET_ENUMERABLE);
}

void AddId(duk_context* engine, int32_t id) {
  duk_push_int(engine, id);
  duk_put_prop_string(engine, -2, kLayerId);
}

// The transform with everything that the layer's kind has.
void PushTransform(duk_context* engine, const Layer& layer) {
  duk_push_object(engine);
  AddId(engine, layer.id);
  const bool camera = layer.kind == LayerKind::kCamera;
  for (int i = 0; i < kStreamCount; ++i) {
    const auto stream = static_cast<Stream>(i);
    if (!FactsOf(stream).ofCameras) AddGetter(engine, FactsOf(stream).name, stream);
  }
  AddGetter(engine, "rotation", kRotationZ);
  if (camera) AddGetter(engine, "pointOfInterest", kAnchorPoint);
}

void PushCameraOptions(duk_context* engine, const Layer& layer) {
  duk_push_object(engine);
  AddId(engine, layer.id);
  for (const Stream stream : {kZoom, kDepthOfField, kFocusDistance, kAperture})
    AddGetter(engine, FactsOf(stream).name, stream);
}

void PushLayer(duk_context* engine, const Layer& layer) {
  duk_push_object(engine);
  duk_push_lstring(engine, layer.name.data(), layer.name.size());
  duk_put_prop_string(engine, -2, "name");
  PushTransform(engine, layer);
  duk_put_prop_string(engine, -2, "transform");
  if (layer.kind == LayerKind::kCamera) {
    PushCameraOptions(engine, layer);
    duk_put_prop_string(engine, -2, "cameraOption");
  }
}

// By name, or by its place in the stack of layers, the topmost being 1.
const Layer* FindAsked(duk_context* engine, const Composition& composition) {
  if (duk_is_number(engine, 0)) {
    const double place = duk_get_number(engine, 0);
    const bool there = place >= 1.0 && place <= static_cast<double>(composition.layers.size());
    return there ? &composition.layers[static_cast<size_t>(place) - 1] : nullptr;
  }
  duk_size_t length = 0;
  const char* name = duk_require_lstring(engine, 0, &length);
  for (const Layer& layer : composition.layers)
    if (layer.name.size() == length && std::equal(name, name + length, layer.name.begin())) return &layer;
  return nullptr;
}

duk_ret_t GetLayer(duk_context* engine) {
  const Layer* layer = FindAsked(engine, *EvaluationOf(engine).composition);
  if (layer == nullptr)
    duk_error_raw(engine, DUK_ERR_ERROR, nullptr, 0, "there is no layer \"%s\"",
                  duk_safe_to_string(engine, 0));
  PushLayer(engine, *layer);
  return 1;
}

void PutNumber(duk_context* engine, const char* name, double number) {
  duk_push_number(engine, number);
  duk_put_prop_string(engine, -2, name);
}

void PushComposition(duk_context* engine, const Composition& composition) {
  duk_push_object(engine);
  PutNumber(engine, "width", composition.width);
  PutNumber(engine, "height", composition.height);
  PutNumber(engine, "duration", composition.duration);
  PutNumber(engine, "frameDuration", composition.frameDuration);
  PutNumber(engine, "numLayers", static_cast<double>(composition.layers.size()));
  duk_push_c_function(engine, GetLayer, 1);
  duk_put_prop_string(engine, -2, "layer");
}

}  // namespace

void StripGlobals(duk_context* engine) {
  duk_eval_string_noresult(engine, kStrip);
}

void OfferComposition(duk_context* engine, Evaluation& evaluation, const Numbers& own, int dimensions) {
  duk_push_heap_stash(engine);
  duk_push_pointer(engine, &evaluation);
  duk_put_prop_string(engine, -2, "evaluation");
  duk_pop(engine);
  PushComposition(engine, *evaluation.composition);
  duk_put_global_string(engine, "thisComp");
  duk_push_number(engine, evaluation.seconds);
  duk_put_global_string(engine, "time");
  PushNumbers(engine, own, dimensions);
  duk_put_global_string(engine, "value");
}

}  // namespace vantle::composition
