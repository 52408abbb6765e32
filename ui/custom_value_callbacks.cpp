#include "ui/custom_value_callbacks.h"

#include "ui/host_handles.h"
#include "ui/value_text.h"

#include <algorithm>
#include <cstring>

namespace vantle {
namespace {

constexpr A_u_long kPrintSize = 128;

// A stored block is a gradient when it has exactly a gradient's size, and a curve otherwise.
size_t SizeOfStored(const PF_InData* in_data, PF_Handle handle) {
  return HandleSize(in_data, handle) == sizeof(ColorGradient) ? sizeof(ColorGradient) : sizeof(LifeCurve);
}

// The block's address when it is there, locked, and at least `size` bytes long.
const void* Readable(const PF_InData* in_data, PF_Handle handle, const ScopedHandleLock& lock, size_t size) {
  return HandleSize(in_data, handle) >= size ? lock.data() : nullptr;
}

// Stores a new default. Without memory the place for the result is left alone.
PF_Err StoreDefault(const PF_InData* in_data, const void* refcon, PF_ArbitraryH* result) {
  if (result == nullptr) return PF_Err_NONE;
  const PF_Handle handle = NewDefaultValue(in_data, RefconToTag(refcon));
  if (handle == nullptr) return PF_Err_OUT_OF_MEMORY;
  *result = handle;
  return PF_Err_NONE;
}

PF_Err Copy(const PF_InData* in_data, const PF_ArbParamsExtra_copy& call) {
  const PF_Err error = StoreDefault(in_data, call.refconPV, call.dst_arbPH);
  if (error != PF_Err_NONE || call.dst_arbPH == nullptr) return error;
  const size_t size = CustomValueSize(RefconToTag(call.refconPV));
  const ScopedHandleLock source(in_data, call.src_arbH);
  const ScopedHandleLock target(in_data, *call.dst_arbPH);
  const void* bytes = Readable(in_data, call.src_arbH, source, size);
  if (bytes != nullptr && target.data() != nullptr) std::memcpy(target.data(), bytes, size);
  return PF_Err_NONE;
}

PF_Err FlatSize(const PF_InData* in_data, const PF_ArbParamsExtra_flat_size& call) {
  if (call.flat_data_sizePLu == nullptr) return PF_Err_NONE;
  *call.flat_data_sizePLu = static_cast<A_u_long>(SizeOfStored(in_data, call.arbH));
  return PF_Err_NONE;
}

// A buffer that is too small is left alone.
PF_Err Flatten(const PF_InData* in_data, const PF_ArbParamsExtra_flatten& call) {
  const size_t size = SizeOfStored(in_data, call.arbH);
  if (call.flat_dataPV == nullptr || call.buf_sizeLu < size) return PF_Err_NONE;
  const ScopedHandleLock value(in_data, call.arbH);
  const void* bytes = Readable(in_data, call.arbH, value, size);
  if (bytes != nullptr) std::memcpy(call.flat_dataPV, bytes, size);
  return PF_Err_NONE;
}

// A buffer that is too short restores nothing; neither that nor a lack of memory is reported.
PF_Err Unflatten(const PF_InData* in_data, const PF_ArbParamsExtra_unflatten& call) {
  const size_t size = call.buf_sizeLu == sizeof(ColorGradient) ? sizeof(ColorGradient) : sizeof(LifeCurve);
  if (call.flat_dataPV == nullptr || call.arbPH == nullptr || call.buf_sizeLu < size) return PF_Err_NONE;
  const PF_Handle handle = NewHandle(in_data, call.flat_dataPV, size);
  if (handle != nullptr) *call.arbPH = handle;
  return PF_Err_NONE;
}

float Blend(float from, float to, float f) {
  return from + (to - from) * f;
}

// Count, tag, selection and surplus stops stay the left value's.
ColorGradient BlendGradients(const ColorGradient& left, const ColorGradient& right, float f) {
  ColorGradient result = left;
  const int32_t count = std::min(UsableCount(left), UsableCount(right));
  for (int32_t i = 0; i < count; ++i) {
    const GradientStop& a = left.stops[i];
    const GradientStop& b = right.stops[i];
    result.stops[i] = {Blend(a.position, b.position, f), Blend(a.r, b.r, f), Blend(a.g, b.g, f),
                       Blend(a.b, b.b, f)};
  }
  return result;
}

// The right curve is sampled at the left one's positions, so curves of different counts blend too.
LifeCurve BlendCurves(const LifeCurve& left, const LifeCurve& right, float f) {
  LifeCurve result = left;
  const int32_t count = UsableCount(left);
  for (int32_t i = 0; i < count; ++i) {
    result.y[i] = Blend(left.y[i], EvaluateLifeCurve(right, left.x[i]), f);
  }
  return result;
}

template <class Record, class BlendRecords>
void BlendInto(void* target, const void* leftBytes, const void* rightBytes, float f, BlendRecords blend) {
  Record left;
  Record right;
  std::memcpy(&left, leftBytes, sizeof(Record));
  std::memcpy(&right, rightBytes, sizeof(Record));
  const Record result = blend(left, right, f);
  std::memcpy(target, &result, sizeof(Record));
}

PF_Err Interpolate(const PF_InData* in_data, const PF_ArbParamsExtra_interp& call) {
  const PF_Err error = StoreDefault(in_data, call.refconPV, call.interpPH);
  if (error != PF_Err_NONE || call.interpPH == nullptr) return error;
  const uint32_t tag = RefconToTag(call.refconPV);
  const size_t size = CustomValueSize(tag);
  const ScopedHandleLock left(in_data, call.left_arbH);
  const ScopedHandleLock right(in_data, call.right_arbH);
  const ScopedHandleLock result(in_data, *call.interpPH);
  const void* leftBytes = Readable(in_data, call.left_arbH, left, size);
  const void* rightBytes = Readable(in_data, call.right_arbH, right, size);
  if (leftBytes == nullptr || rightBytes == nullptr || result.data() == nullptr) return PF_Err_NONE;
  const float f = static_cast<float>(call.tF);
  if (tag == kGradientTag) {
    BlendInto<ColorGradient>(result.data(), leftBytes, rightBytes, f, BlendGradients);
  } else {
    BlendInto<LifeCurve>(result.data(), leftBytes, rightBytes, f, BlendCurves);
  }
  return PF_Err_NONE;
}

// Values have no order: they are equal, byte for byte, or not.
PF_Err Compare(const PF_InData* in_data, const PF_ArbParamsExtra_compare& call) {
  if (call.compareP == nullptr) return PF_Err_NONE;
  const size_t size = SizeOfStored(in_data, call.a_arbH);
  const ScopedHandleLock first(in_data, call.a_arbH);
  const ScopedHandleLock second(in_data, call.b_arbH);
  const void* a = Readable(in_data, call.a_arbH, first, size);
  const void* b = Readable(in_data, call.b_arbH, second, size);
  const bool equal = a != nullptr && b != nullptr &&
                     HandleSize(in_data, call.a_arbH) == HandleSize(in_data, call.b_arbH) &&
                     std::memcmp(a, b, size) == 0;
  *call.compareP = equal ? PF_ArbCompare_EQUAL : PF_ArbCompare_NOT_EQUAL;
  return PF_Err_NONE;
}

PF_Err PrintSize(const PF_ArbParamsExtra_print_size& call) {
  if (call.print_sizePLu != nullptr) *call.print_sizePLu = kPrintSize;
  return PF_Err_NONE;
}

PF_Err Print(const PF_InData* in_data, const PF_ArbParamsExtra_print& call) {
  if (call.print_bufferPC == nullptr || call.print_sizeLu == 0) return PF_Err_NONE;
  call.print_bufferPC[0] = '\0';
  const size_t size = SizeOfStored(in_data, call.arbH);
  const ScopedHandleLock value(in_data, call.arbH);
  const void* bytes = Readable(in_data, call.arbH, value, size);
  if (bytes == nullptr) return PF_Err_NONE;
  if (size == sizeof(ColorGradient)) {
    ColorGradient gradient;
    std::memcpy(&gradient, bytes, sizeof(gradient));
    PrintGradient(gradient, call.print_bufferPC, call.print_sizeLu);
  } else {
    LifeCurve curve;
    std::memcpy(&curve, bytes, sizeof(curve));
    PrintCurve(curve, call.print_bufferPC, call.print_sizeLu);
  }
  return PF_Err_NONE;
}

}  // namespace

PF_Handle NewDefaultValue(const PF_InData* in_data, uint32_t tag) {
  if (tag == kGradientTag) {
    ColorGradient gradient;
    MakeDefaultGradient(&gradient);
    return NewHandle(in_data, &gradient, sizeof(gradient));
  }
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, CurveMaximum(tag));
  return NewHandle(in_data, &curve, sizeof(curve));
}

PF_Err HandleCustomValue(const PF_InData* in_data, PF_ArbParamsExtra* extra) {
  if (extra == nullptr) return PF_Err_NONE;
  PF_ArbParamsExtra_u& call = extra->u;
  switch (extra->which_function) {
    case PF_Arbitrary_NEW_FUNC:
      return StoreDefault(in_data, call.new_func_params.refconPV, call.new_func_params.arbPH);
    case PF_Arbitrary_DISPOSE_FUNC:
      DisposeHandle(in_data, call.dispose_func_params.arbH);
      return PF_Err_NONE;
    case PF_Arbitrary_COPY_FUNC:
      return Copy(in_data, call.copy_func_params);
    case PF_Arbitrary_FLAT_SIZE_FUNC:
      return FlatSize(in_data, call.flat_size_func_params);
    case PF_Arbitrary_FLATTEN_FUNC:
      return Flatten(in_data, call.flatten_func_params);
    case PF_Arbitrary_UNFLATTEN_FUNC:
      return Unflatten(in_data, call.unflatten_func_params);
    case PF_Arbitrary_INTERP_FUNC:
      return Interpolate(in_data, call.interp_func_params);
    case PF_Arbitrary_COMPARE_FUNC:
      return Compare(in_data, call.compare_func_params);
    case PF_Arbitrary_PRINT_SIZE_FUNC:
      return PrintSize(call.print_size_func_params);
    case PF_Arbitrary_PRINT_FUNC:
      return Print(in_data, call.print_func_params);
    case PF_Arbitrary_SCAN_FUNC:
      return StoreDefault(in_data, call.scan_func_params.refconPV, call.scan_func_params.arbPH);
    default:
      return PF_Err_NONE;
  }
}

}  // namespace vantle
