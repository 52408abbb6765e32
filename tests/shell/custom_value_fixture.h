// A host that calls the effect back about the gradient and the curves.
#pragma once

#include "tests/shell/fake_host.h"
#include "ui/custom_value_callbacks.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace vantle::test {

/// The tags of the three controls, and two that belong to none.
inline constexpr uint32_t kTags[] = {kOpacityCurveTag, kScaleCurveTag, kGradientTag, 0, 0xFFFFFFFF};

/// Sends one callback as the host's command.
PF_Err Call(FakeHost* host, PF_FunctionSelector which, PF_ArbParamsExtra* extra);

std::vector<char> Bytes(PF_Handle handle);
std::vector<char> DefaultBytes(uint32_t tag);

template <class Record>
std::vector<char> BytesOf(const Record& record) {
  const char* data = reinterpret_cast<const char*>(&record);
  return {data, data + sizeof(record)};
}

template <class Record>
PF_Handle HandleOf(FakeHost* host, const Record& record) {
  return host->NewHandle(&record, sizeof(record));
}

/// Two to sixteen points, sorted.
LifeCurve RandomCurve(std::mt19937* random);
/// Two to eight stops, unsorted.
ColorGradient RandomGradient(std::mt19937* random);

/// Defaults with a count that need not fit.
LifeCurve CurveOfCount(int32_t count);
ColorGradient GradientOfCount(int32_t count);

/// Frees what a test made, so that the next one starts with none.
class CustomValues : public ::testing::Test {
 protected:
  ~CustomValues() override;

  PF_Handle Keep(PF_Handle handle) {
    if (handle != nullptr) kept_.push_back(handle);
    return handle;
  }
  PF_Err New(uint32_t tag, PF_ArbitraryH* result);
  PF_Err Copy(uint32_t tag, PF_ArbitraryH source, PF_ArbitraryH* result);
  PF_Err Interpolate(uint32_t tag, PF_ArbitraryH left, PF_ArbitraryH right, double f, PF_ArbitraryH* result);
  PF_ArbCompareResult Compare(PF_ArbitraryH a, PF_ArbitraryH b);
  PF_Err Unflatten(const void* bytes, A_u_long size, PF_ArbitraryH* result);
  std::string Print(PF_ArbitraryH value, A_u_long size);

  FakeHost host;

 private:
  std::vector<PF_Handle> kept_;
};

}  // namespace vantle::test
