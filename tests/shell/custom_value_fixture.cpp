#include "tests/shell/custom_value_fixture.h"

#include "shell/dispatch.h"

#include <cstring>

namespace vantle::test {

PF_Err Call(FakeHost* host, PF_FunctionSelector which, PF_ArbParamsExtra* extra) {
  extra->which_function = which;
  return DispatchCommand(PF_Cmd_ARBITRARY_CALLBACK, &host->in, &host->out, nullptr, nullptr, extra);
}

std::vector<char> Bytes(PF_Handle handle) {
  const PF_UtilCallbacks* host = FakeHost::Current()->in.utils;
  const size_t size = host->host_get_handle_size(handle);
  const char* data = static_cast<const char*>(*handle);
  return {data, data + size};
}

std::vector<char> DefaultBytes(uint32_t tag) {
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  if (tag == kGradientTag) return BytesOf(gradient);
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, tag == kScaleCurveTag ? 2.0f : 1.0f);
  return BytesOf(curve);
}

LifeCurve RandomCurve(std::mt19937* random) {
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, 2.0f);
  curve.count = 2 + static_cast<int32_t>((*random)() % 15);
  for (int i = 0; i < kMaxCurvePoints; ++i) {
    curve.x[i] = static_cast<float>(i) / static_cast<float>(curve.count - 1);
    curve.y[i] = 2.0f * unit(*random);
    curve.extra1[i] = unit(*random);
  }
  return curve;
}

ColorGradient RandomGradient(std::mt19937* random) {
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  gradient.count = 2 + static_cast<int32_t>((*random)() % 7);
  for (GradientStop& stop : gradient.stops)
    stop = {unit(*random), unit(*random), unit(*random), unit(*random)};
  gradient.selected = static_cast<int32_t>((*random)() % 8);
  return gradient;
}

LifeCurve CurveOfCount(int32_t count) {
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, 1.0f);
  curve.count = count;
  return curve;
}

ColorGradient GradientOfCount(int32_t count) {
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  gradient.count = count;
  return gradient;
}

CustomValues::~CustomValues() {
  for (const PF_Handle handle : kept_) host.in.utils->host_dispose_handle(handle);
  EXPECT_EQ(host.HandleCount(), 0u);
}

PF_Err CustomValues::New(uint32_t tag, PF_ArbitraryH* result) {
  PF_ArbParamsExtra extra{};
  extra.u.new_func_params = {TagToRefcon(tag), result};
  return Call(&host, PF_Arbitrary_NEW_FUNC, &extra);
}

PF_Err CustomValues::Copy(uint32_t tag, PF_ArbitraryH source, PF_ArbitraryH* result) {
  PF_ArbParamsExtra extra{};
  extra.u.copy_func_params = {TagToRefcon(tag), source, result};
  return Call(&host, PF_Arbitrary_COPY_FUNC, &extra);
}

PF_Err CustomValues::Interpolate(uint32_t tag, PF_ArbitraryH left, PF_ArbitraryH right, double f,
                                 PF_ArbitraryH* result) {
  PF_ArbParamsExtra extra{};
  extra.u.interp_func_params = {TagToRefcon(tag), left, right, f, result};
  return Call(&host, PF_Arbitrary_INTERP_FUNC, &extra);
}

PF_ArbCompareResult CustomValues::Compare(PF_ArbitraryH a, PF_ArbitraryH b) {
  PF_ArbCompareResult result = -77;
  PF_ArbParamsExtra extra{};
  extra.u.compare_func_params = {nullptr, a, b, &result};
  EXPECT_EQ(Call(&host, PF_Arbitrary_COMPARE_FUNC, &extra), PF_Err_NONE);
  return result;
}

PF_Err CustomValues::Unflatten(const void* bytes, A_u_long size, PF_ArbitraryH* result) {
  PF_ArbParamsExtra extra{};
  extra.u.unflatten_func_params = {nullptr, size, bytes, result};
  return Call(&host, PF_Arbitrary_UNFLATTEN_FUNC, &extra);
}

std::string CustomValues::Print(PF_ArbitraryH value, A_u_long size) {
  // Allocated to the byte, so that the address sanitizer sees an overrun.
  std::vector<char> buffer(size, '#');
  PF_ArbParamsExtra extra{};
  extra.u.print_func_params = {nullptr, 0, value, size, buffer.data()};
  EXPECT_EQ(Call(&host, PF_Arbitrary_PRINT_FUNC, &extra), PF_Err_NONE);
  EXPECT_NE(std::memchr(buffer.data(), 0, size), nullptr) << "not terminated";
  return buffer.data();
}

}  // namespace vantle::test
