// The request's composition as suite functions see it: layers by their handles, values at a time.
#pragma once

#include "host/composition/evaluation.h"
#include "host/engine/call_context.h"

#include <string>

namespace vantle::host {

/// The composition around the running command's effect, or null when its request carries none.
composition::Composition* CompositionOf(const CallContext& call);

/// The layer that a handle's object stands for; null for objects of other kinds and for layers that are gone.
composition::Layer* LayerOf(const CallContext& call, const AegpObject& object);

/// Handles of the composition's layer with that id; null when there is none.
AEGP_LayerH NewLayerHandle(CallContext& call, A_long id);

/// The composition at a time of its own. Kept for the running command, until it changes the composition.
composition::Evaluation& EvaluationAt(CallContext& call, const A_Time& time);

/// Value of a layer's stream; false for streams that such layers do not have.
bool LayerStreamValue(CallContext& call, const AegpObject& stream, const A_Time& time, bool withExpression,
                      AEGP_StreamVal2& value);

/// What people call the stream: "Position".
std::string LayerStreamTitle(const composition::Layer& layer, A_long which);

/// Stores a value; false when the stream has keyframes, so that no single value can be set, or is none.
bool SetLayerStreamValue(CallContext& call, const AegpObject& stream, const AEGP_StreamVal2& value);

/// The expression of a layer's or the effect's stream; null where there can be none.
composition::Expression* ExpressionOf(CallContext& call, const AegpObject& stream);

/// Whether the running command may change the composition; notes a problem if not. Renders may not: several
/// run at once.
bool MayChange(CallContext& call, const char* function);

/// Notes what was changed, and forgets values that may have changed with it.
void NoteChange(CallContext& call, const std::string& change);

/// UTF-16 up to its zero, as UTF-8. Halves of pairs that stand alone become U+FFFD.
std::string TextOf(const A_UTF16Char* text);

}  // namespace vantle::host
