// Streams: the values of a layer over time, by the layer's handle and the stream's number.
#include "host/engine/aegp_plugins.h"
#include "host/engine/call_context.h"
#include "host/engine/composition_access.h"
#include "host/engine/not_offered.h"
#include "host/engine/suites.h"

namespace vantle::host {
namespace {

std::string StreamName(A_long which) {
  return std::to_string(which);
}

/// Hands out a stream of `subject`, which must be there.
A_Err NewStream(CallContext& call, AEGP_PluginID id, const AegpObject* subject, AegpKind kind, A_long which,
                AEGP_StreamRefH* stream) {
  if (!IsPluginId(call, id)) {
    return A_Err_PARAMETER;
  }
  if (subject == nullptr || subject->disposed) {
    Complain(call, "asked a stream of something that is not this command's");
    return A_Err_PARAMETER;
  }
  AegpObject object;
  object.kind = kind;
  object.which = which;
  object.subject = subject;
  *stream = NewAegpHandle<AEGP_StreamRefH>(call.aegp, object);
  Take(*call.ledger, Item::kStream, StreamName(which));
  return A_Err_NONE;
}

A_Err GetNewLayerStream(AEGP_PluginID id, AEGP_LayerH layer, AEGP_LayerStream which,
                        AEGP_StreamRefH* stream) {
  const Entry entry = EnterHostCall("AEGP_GetNewLayerStream");
  if (entry.call == nullptr || entry.error != A_Err_NONE || stream == nullptr) {
    return entry.error != A_Err_NONE ? entry.error : A_Err_PARAMETER;
  }
  const AegpObject* subject = FindAegpObject(entry.call->aegp, layer);
  return NewStream(*entry.call, id, subject, AegpKind::kLayerStream, which, stream);
}

A_Err GetEffectParamCount(AEGP_EffectRefH effect, A_long* count) {
  const Entry entry = EnterHostCall("AEGP_GetEffectNumParamStreams");
  if (entry.call == nullptr || entry.error != A_Err_NONE || count == nullptr) {
    return entry.error != A_Err_NONE ? entry.error : A_Err_PARAMETER;
  }
  if (FindAegpObject(entry.call->aegp, effect) == nullptr) {
    return A_Err_PARAMETER;
  }
  *count = static_cast<A_long>(entry.call->effect->params.size());
  return A_Err_NONE;
}

A_Err GetNewEffectStream(AEGP_PluginID id, AEGP_EffectRefH effect, PF_ParamIndex index,
                         AEGP_StreamRefH* stream) {
  const Entry entry = EnterHostCall("AEGP_GetNewEffectStreamByIndex");
  if (entry.call == nullptr || entry.error != A_Err_NONE || stream == nullptr) {
    return entry.error != A_Err_NONE ? entry.error : A_Err_PARAMETER;
  }
  if (index < 0 || static_cast<std::size_t>(index) >= entry.call->effect->params.size()) {
    return A_Err_PARAMETER;
  }
  const AegpObject* subject = FindAegpObject(entry.call->aegp, effect);
  return NewStream(*entry.call, id, subject, AegpKind::kEffectStream, index, stream);
}

/// The stream behind a handle; notes a problem for one that is unknown or was given back.
AegpObject* FindStream(CallContext& call, AEGP_StreamRefH stream) {
  AegpObject* object = FindAegpObject(call.aegp, stream);
  const bool isStream = object != nullptr &&
                        (object->kind == AegpKind::kLayerStream || object->kind == AegpKind::kEffectStream);
  if (!isStream) {
    Complain(call, "used a stream that is not this command's");
    return nullptr;
  }
  if (object->disposed) {
    Complain(call, "used stream " + StreamName(object->which) + " after giving it back");
    return nullptr;
  }
  return object;
}

A_Err DisposeStream(AEGP_StreamRefH stream) {
  const Entry entry = EnterHostCall("AEGP_DisposeStream");
  if (entry.call == nullptr) {
    return A_Err_GENERIC;
  }
  AegpObject* object = FindStream(*entry.call, stream);
  if (object == nullptr) {
    return A_Err_PARAMETER;
  }
  object->disposed = true;
  Give(*entry.call->ledger, Item::kStream, StreamName(object->which));
  return entry.error;
}

/// Value of a camera's one-dimensional stream; false when a camera has no such stream.
bool CameraValue(const FrameCamera& camera, A_long which, double& value) {
  switch (which) {
    case AEGP_LayerStream_DEPTH_OF_FIELD:
      value = camera.depthOfField ? 1.0 : 0.0;
      return true;
    case AEGP_LayerStream_FOCUS_DISTANCE:
      value = camera.focusDistance;
      return true;
    case AEGP_LayerStream_APERTURE:
      value = camera.aperture;
      return true;
    case AEGP_LayerStream_ZOOM:
      value = camera.zoom;
      return true;
    default:
      return false;
  }
}

/// Id of the layer that a layer parameter chose, or 0.
A_long ChosenLayer(const FrameRequest& request, A_long index) {
  if (request.composition == nullptr) {
    return request.sourceDurations.count(index) != 0 ? index : 0;
  }
  const auto chosen = request.composition->chosenLayers.find(index);
  return chosen == request.composition->chosenLayers.end() ? 0 : chosen->second;
}

/// Value of an effect's own parameter at the frame's time. A layer is known by the index of the parameter
/// that chose it; 0 is none.
bool ParamStreamValue(const FrameScope& frame, A_long index, AEGP_StreamVal2& value) {
  const PF_ParamDef& def = frame.params[static_cast<std::size_t>(index)];
  switch (def.param_type) {
    case PF_Param_LAYER:
      value.layer_id = ChosenLayer(*frame.request, index);
      return true;
    case PF_Param_FLOAT_SLIDER:
      value.one_d = def.u.fs_d.value;
      return true;
    case PF_Param_ANGLE:
      value.one_d = def.u.ad.value / 65536.0;
      return true;
    case PF_Param_POPUP:
      value.one_d = def.u.pd.value;
      return true;
    case PF_Param_CHECKBOX:
      value.one_d = def.u.bd.value;
      return true;
    default:
      return false;
  }
}

bool StreamValue(CallContext& call, const AegpObject& stream, const A_Time& time, bool withExpression,
                 AEGP_StreamVal2& value) {
  if (call.frame == nullptr) {
    return false;
  }
  if (stream.kind == AegpKind::kEffectStream) {
    return ParamStreamValue(*call.frame, stream.which, value);
  }
  if (stream.subject->kind == AegpKind::kCompLayer) {
    return LayerStreamValue(call, stream, time, withExpression, value);
  }
  const bool ofCamera = stream.subject->kind == AegpKind::kCameraLayer;
  return ofCamera && call.frame->request->camera.has_value() &&
         CameraValue(*call.frame->request->camera, stream.which, value.one_d);
}

A_Err GetNewStreamValue(AEGP_PluginID id, AEGP_StreamRefH stream, AEGP_LTimeMode, const A_Time* time,
                        A_Boolean preExpression, AEGP_StreamValue2* value) {
  const Entry entry = EnterHostCall("AEGP_GetNewStreamValue");
  if (entry.call == nullptr || entry.error != A_Err_NONE || time == nullptr || value == nullptr) {
    return entry.error != A_Err_NONE ? entry.error : A_Err_PARAMETER;
  }
  const AegpObject* object = FindStream(*entry.call, stream);
  if (object == nullptr || !IsPluginId(*entry.call, id)) {
    return A_Err_PARAMETER;
  }
  AEGP_StreamVal2 answer{};
  if (!StreamValue(*entry.call, *object, *time, preExpression == 0, answer)) {
    Complain(*entry.call,
             "asked the value of stream " + StreamName(object->which) + ", which this host does not offer");
    return A_Err_GENERIC;
  }
  value->streamH = stream;
  value->val = answer;
  Take(*entry.call->ledger, Item::kStreamValue, StreamName(object->which));
  return A_Err_NONE;
}

A_Err DisposeStreamValue(AEGP_StreamValue2* value) {
  const Entry entry = EnterHostCall("AEGP_DisposeStreamValue");
  if (entry.call == nullptr || value == nullptr) {
    return A_Err_PARAMETER;
  }
  const AegpObject* object = FindStream(*entry.call, value->streamH);
  if (object == nullptr) {
    return A_Err_PARAMETER;
  }
  Give(*entry.call->ledger, Item::kStreamValue, StreamName(object->which));
  value->streamH = nullptr;
  return entry.error;
}

/// What functions that change a stream begin with: the stream, or null with the error to return.
AegpObject* EnterChange(const char* function, AEGP_PluginID id, AEGP_StreamRefH stream, CallContext*& call,
                        A_Err& error) {
  const Entry entry = EnterHostCall(function);
  call = entry.call;
  error = entry.error != A_Err_NONE ? entry.error : A_Err{A_Err_PARAMETER};
  if (entry.call == nullptr || entry.error != A_Err_NONE) {
    return nullptr;
  }
  AegpObject* object = FindStream(*entry.call, stream);
  return object != nullptr && IsPluginId(*call, id) && MayChange(*call, function) ? object : nullptr;
}

std::string PlaceOf(const CallContext& call, const AegpObject& stream) {
  const composition::Layer* layer = stream.subject == nullptr ? nullptr : LayerOf(call, *stream.subject);
  return layer != nullptr
             ? "\"" + LayerStreamTitle(*layer, stream.which) + "\" of layer \"" + layer->name + "\""
             : "\"" + call.effect->params[static_cast<std::size_t>(stream.which)].name + "\"";
}

A_Err SetStreamValue(AEGP_PluginID id, AEGP_StreamRefH stream, AEGP_StreamValue2* value) {
  CallContext* call = nullptr;
  A_Err error = A_Err_NONE;
  const AegpObject* object = EnterChange("AEGP_SetStreamValue", id, stream, call, error);
  if (object == nullptr || value == nullptr) {
    return error;
  }
  if (value->streamH != stream || !SetLayerStreamValue(*call, *object, value->val)) {
    Complain(*call, "set a value that " + PlaceOf(*call, *object) + " does not take");
    return A_Err_PARAMETER;
  }
  NoteChange(*call, "value of " + PlaceOf(*call, *object));
  return A_Err_NONE;
}

A_Err SetExpression(AEGP_PluginID id, AEGP_StreamRefH stream, const A_UTF16Char* text) {
  CallContext* call = nullptr;
  A_Err error = A_Err_NONE;
  const AegpObject* object = EnterChange("AEGP_SetExpression", id, stream, call, error);
  composition::Expression* expression = object == nullptr ? nullptr : ExpressionOf(*call, *object);
  if (expression == nullptr || text == nullptr) {
    return error;
  }
  expression->text = TextOf(text);
  NoteChange(*call, "expression of " + PlaceOf(*call, *object));
  return A_Err_NONE;
}

A_Err SetExpressionState(AEGP_PluginID id, AEGP_StreamRefH stream, A_Boolean on) {
  CallContext* call = nullptr;
  A_Err error = A_Err_NONE;
  const AegpObject* object = EnterChange("AEGP_SetExpressionState", id, stream, call, error);
  composition::Expression* expression = object == nullptr ? nullptr : ExpressionOf(*call, *object);
  if (expression == nullptr) {
    return error;
  }
  expression->on = on != 0;
  NoteChange(*call,
             std::string("expression ") + (on != 0 ? "on" : "off") + " for " + PlaceOf(*call, *object));
  return A_Err_NONE;
}

A_Err GetExpressionState(AEGP_PluginID id, AEGP_StreamRefH stream, A_Boolean* on) {
  const Entry entry = EnterHostCall("AEGP_GetExpressionState");
  if (entry.call == nullptr || entry.error != A_Err_NONE || on == nullptr) {
    return entry.error != A_Err_NONE ? entry.error : A_Err_PARAMETER;
  }
  const AegpObject* object = FindStream(*entry.call, stream);
  if (object == nullptr || !IsPluginId(*entry.call, id)) {
    return A_Err_PARAMETER;
  }
  const composition::Expression* expression = ExpressionOf(*entry.call, *object);
  *on = expression != nullptr && expression->on ? 1 : 0;
  return A_Err_NONE;
}

struct StreamTable {
  static constexpr const char* kName = kAEGP_StreamSuite6Name;
};

AEGP_StreamSuite6 StreamFunctions() {
  auto functions = MakeUnofferedTable<StreamTable, AEGP_StreamSuite6>();
  functions.AEGP_GetNewLayerStream = GetNewLayerStream;
  functions.AEGP_GetEffectNumParamStreams = GetEffectParamCount;
  functions.AEGP_GetNewEffectStreamByIndex = GetNewEffectStream;
  functions.AEGP_DisposeStream = DisposeStream;
  functions.AEGP_GetNewStreamValue = GetNewStreamValue;
  functions.AEGP_DisposeStreamValue = DisposeStreamValue;
  functions.AEGP_SetStreamValue = SetStreamValue;
  functions.AEGP_GetExpressionState = GetExpressionState;
  functions.AEGP_SetExpressionState = SetExpressionState;
  functions.AEGP_SetExpression = SetExpression;
  return functions;
}

}  // namespace

void AddStreamSuites(std::vector<SuiteEntry>& suites) {
  static const AEGP_StreamSuite6 functions = StreamFunctions();
  suites.push_back({kAEGP_StreamSuite6Name, kAEGP_StreamSuite6Version, &functions, false});
}

}  // namespace vantle::host
