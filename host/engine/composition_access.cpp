#include "host/engine/composition_access.h"

namespace vantle::host {
namespace {

using composition::Stream;

bool StreamOf(const composition::Layer& layer, A_long which, Stream& stream) {
  const bool camera = layer.kind == composition::LayerKind::kCamera;
  switch (which) {
    case AEGP_LayerStream_ANCHORPOINT:
      stream = composition::kAnchorPoint;
      return true;
    case AEGP_LayerStream_POSITION:
      stream = composition::kPosition;
      return true;
    case AEGP_LayerStream_SCALE:
      stream = composition::kScale;
      return !camera;
    case AEGP_LayerStream_ROTATE_Z:
      stream = composition::kRotationZ;
      return true;
    case AEGP_LayerStream_ROTATE_X:
      stream = composition::kRotationX;
      return layer.threeD;
    case AEGP_LayerStream_ROTATE_Y:
      stream = composition::kRotationY;
      return layer.threeD;
    case AEGP_LayerStream_ORIENTATION:
      stream = composition::kOrientation;
      return layer.threeD;
    case AEGP_LayerStream_OPACITY:
      stream = composition::kOpacity;
      return !camera;
    case AEGP_LayerStream_ZOOM:
      stream = composition::kZoom;
      return camera;
    case AEGP_LayerStream_DEPTH_OF_FIELD:
      stream = composition::kDepthOfField;
      return camera;
    case AEGP_LayerStream_FOCUS_DISTANCE:
      stream = composition::kFocusDistance;
      return camera;
    case AEGP_LayerStream_APERTURE:
      stream = composition::kAperture;
      return camera;
    default:
      return false;
  }
}

AEGP_StreamVal2 Packed(const composition::Numbers& numbers) {
  AEGP_StreamVal2 value{};
  value.three_d = {numbers[0], numbers[1], numbers[2]};
  return value;
}

/// The property behind a layer's stream, or null.
composition::Property* PropertyOf(const CallContext& call, const AegpObject& stream) {
  composition::Layer* layer = stream.subject == nullptr ? nullptr : LayerOf(call, *stream.subject);
  Stream which = composition::kPosition;
  if (layer == nullptr || stream.kind != AegpKind::kLayerStream || !StreamOf(*layer, stream.which, which)) {
    return nullptr;
  }
  return &layer->streams[static_cast<std::size_t>(which)];
}

void AppendUtf8(std::string& to, std::uint32_t code) {
  const auto put = [&](std::uint32_t byte) { to.push_back(static_cast<char>(byte)); };
  if (code < 0x80) {
    put(code);
    return;
  }
  if (code < 0x800) {
    put(0xC0 | (code >> 6));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
  }
  put(0x80 | (code & 0x3F));
}

}  // namespace

composition::Composition* CompositionOf(const CallContext& call) {
  return call.frame == nullptr ? nullptr : call.frame->request->composition.get();
}

composition::Layer* LayerOf(const CallContext& call, const AegpObject& object) {
  composition::Composition* composition = CompositionOf(call);
  if (composition == nullptr || object.kind != AegpKind::kCompLayer) {
    return nullptr;
  }
  return composition::FindLayer(*composition, object.which);
}

AEGP_LayerH NewLayerHandle(CallContext& call, A_long id) {
  const composition::Composition* composition = CompositionOf(call);
  if (composition == nullptr || composition::FindLayer(*composition, id) == nullptr) {
    return nullptr;
  }
  AegpObject object;
  object.kind = AegpKind::kCompLayer;
  object.which = id;
  return NewAegpHandle<AEGP_LayerH>(call.aegp, object);
}

composition::Evaluation& EvaluationAt(CallContext& call, const A_Time& time) {
  const double seconds = time.scale == 0 ? 0.0 : static_cast<double>(time.value) / time.scale;
  composition::Evaluation& evaluation = call.frame->evaluations[seconds];
  evaluation.composition = CompositionOf(call);
  evaluation.seconds = seconds;
  evaluation.reports = call.frame->request->reports.get();
  return evaluation;
}

bool LayerStreamValue(CallContext& call, const AegpObject& stream, const A_Time& time, bool withExpression,
                      AEGP_StreamVal2& value) {
  const composition::Property* property = PropertyOf(call, stream);
  if (property == nullptr) {
    return false;
  }
  const composition::Layer& layer = *LayerOf(call, *stream.subject);
  composition::Evaluation& evaluation = EvaluationAt(call, time);
  const auto which = static_cast<Stream>(property - layer.streams.data());
  value = Packed(withExpression ? composition::StreamValue(evaluation, layer, which)
                                : composition::KeyedValue(*property, evaluation.seconds));
  return true;
}

std::string LayerStreamTitle(const composition::Layer& layer, A_long which) {
  Stream stream = composition::kPosition;
  return StreamOf(layer, which, stream) ? composition::FactsOf(stream).title
                                        : "stream " + std::to_string(which);
}

bool SetLayerStreamValue(CallContext& call, const AegpObject& stream, const AEGP_StreamVal2& value) {
  composition::Property* property = PropertyOf(call, stream);
  if (property == nullptr || property->keys.size() != 1) {
    return false;
  }
  const composition::Layer& layer = *LayerOf(call, *stream.subject);
  const auto which = static_cast<Stream>(property - layer.streams.data());
  composition::Numbers& numbers = property->keys[0].value;
  numbers = {value.three_d.x, 0.0, 0.0};
  if (composition::FactsOf(which).dimensions == 3) {
    numbers = {value.three_d.x, value.three_d.y, value.three_d.z};
  }
  return true;
}

composition::Expression* ExpressionOf(CallContext& call, const AegpObject& stream) {
  if (stream.kind == AegpKind::kLayerStream) {
    composition::Property* property = PropertyOf(call, stream);
    return property == nullptr ? nullptr : &property->expression;
  }
  composition::Composition* composition = CompositionOf(call);
  const A_long type = call.effect->params[static_cast<std::size_t>(stream.which)].def.param_type;
  const bool isNumber = type == PF_Param_FLOAT_SLIDER || type == PF_Param_ANGLE || type == PF_Param_POPUP ||
                        type == PF_Param_CHECKBOX;
  return composition == nullptr || !isNumber ? nullptr : &composition->effectExpressions[stream.which];
}

bool MayChange(CallContext& call, const char* function) {
  if (CompositionOf(call) != nullptr && call.command != PF_Cmd_RENDER) {
    return true;
  }
  Complain(call, std::string(function) + (call.command == PF_Cmd_RENDER
                                              ? " changes the composition in a render"
                                              : " called where there is no composition to change"));
  return false;
}

void NoteChange(CallContext& call, const std::string& change) {
  CompositionOf(call)->changes.push_back(change);
  call.frame->evaluations.clear();
}

std::string TextOf(const A_UTF16Char* text) {
  std::string result;
  while (*text != 0) {
    std::uint32_t code = *text++;
    const bool high = code >= 0xD800 && code < 0xDC00;
    if (high && *text >= 0xDC00 && *text < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (std::uint32_t{*text++} - 0xDC00);
    } else if (code >= 0xD800 && code < 0xE000) {
      code = 0xFFFD;
    }
    AppendUtf8(result, code);
  }
  return result;
}

}  // namespace vantle::host
