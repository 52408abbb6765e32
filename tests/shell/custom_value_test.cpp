// The host's callbacks about the gradient and the curves.
#include "shell/dispatch.h"
#include "tests/shell/fake_host.h"
#include "ui/custom_value_callbacks.h"
#include "ui/value_text.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace vantle::test {
namespace {

constexpr uint32_t kTags[] = {kOpacityCurveTag, kScaleCurveTag, kGradientTag, 0, 0xFFFFFFFF};

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

template <class Record>
std::vector<char> BytesOf(const Record& record) {
  const char* data = reinterpret_cast<const char*>(&record);
  return {data, data + sizeof(record)};
}

std::vector<char> DefaultBytes(uint32_t tag) {
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  if (tag == kGradientTag) return BytesOf(gradient);
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, tag == kScaleCurveTag ? 2.0f : 1.0f);
  return BytesOf(curve);
}

template <class Record>
PF_Handle HandleOf(FakeHost* host, const Record& record) {
  return host->NewHandle(&record, sizeof(record));
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

// Frees what a test made, so that the next one starts with none.
class CustomValues : public ::testing::Test {
 protected:
  PF_Handle Keep(PF_Handle handle) {
    if (handle != nullptr) kept_.push_back(handle);
    return handle;
  }
  ~CustomValues() override {
    for (const PF_Handle handle : kept_) host.in.utils->host_dispose_handle(handle);
    EXPECT_EQ(host.HandleCount(), 0u);
  }
  PF_Err New(uint32_t tag, PF_ArbitraryH* result) {
    PF_ArbParamsExtra extra{};
    extra.u.new_func_params = {TagToRefcon(tag), result};
    return Call(&host, PF_Arbitrary_NEW_FUNC, &extra);
  }
  PF_Err Copy(uint32_t tag, PF_ArbitraryH source, PF_ArbitraryH* result) {
    PF_ArbParamsExtra extra{};
    extra.u.copy_func_params = {TagToRefcon(tag), source, result};
    return Call(&host, PF_Arbitrary_COPY_FUNC, &extra);
  }
  PF_Err Interpolate(uint32_t tag, PF_ArbitraryH left, PF_ArbitraryH right, double f, PF_ArbitraryH* result) {
    PF_ArbParamsExtra extra{};
    extra.u.interp_func_params = {TagToRefcon(tag), left, right, f, result};
    return Call(&host, PF_Arbitrary_INTERP_FUNC, &extra);
  }
  PF_ArbCompareResult Compare(PF_ArbitraryH a, PF_ArbitraryH b) {
    PF_ArbCompareResult result = -77;
    PF_ArbParamsExtra extra{};
    extra.u.compare_func_params = {nullptr, a, b, &result};
    EXPECT_EQ(Call(&host, PF_Arbitrary_COMPARE_FUNC, &extra), PF_Err_NONE);
    return result;
  }
  PF_Err Unflatten(const void* bytes, A_u_long size, PF_ArbitraryH* result) {
    PF_ArbParamsExtra extra{};
    extra.u.unflatten_func_params = {nullptr, size, bytes, result};
    return Call(&host, PF_Arbitrary_UNFLATTEN_FUNC, &extra);
  }
  std::string Print(PF_ArbitraryH value, A_u_long size) {
    // Allocated to the byte, so that the address sanitizer sees an overrun.
    std::vector<char> buffer(size, '#');
    PF_ArbParamsExtra extra{};
    extra.u.print_func_params = {nullptr, 0, value, size, buffer.data()};
    EXPECT_EQ(Call(&host, PF_Arbitrary_PRINT_FUNC, &extra), PF_Err_NONE);
    EXPECT_NE(std::memchr(buffer.data(), 0, size), nullptr) << "not terminated";
    return buffer.data();
  }

  FakeHost host;

 private:
  std::vector<PF_Handle> kept_;
};

TEST_F(CustomValues, NewMakesTheDefaultOfItsKind) {
  for (const uint32_t tag : kTags) {
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(New(tag, &value), PF_Err_NONE);
    ASSERT_NE(Keep(value), nullptr);
    EXPECT_EQ(Bytes(value), DefaultBytes(tag));
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, WithoutMemoryNothingIsMadeAndItIsReported) {
  int token = 0;
  const auto before = reinterpret_cast<PF_ArbitraryH>(&token);
  for (const uint32_t tag : kTags) {
    for (const PF_FunctionSelector which :
         {PF_Arbitrary_NEW_FUNC, PF_Arbitrary_SCAN_FUNC, PF_Arbitrary_COPY_FUNC, PF_Arbitrary_INTERP_FUNC}) {
      PF_ArbitraryH value = before;
      PF_ArbParamsExtra extra{};
      switch (which) {
        case PF_Arbitrary_NEW_FUNC:
          extra.u.new_func_params = {TagToRefcon(tag), &value};
          break;
        case PF_Arbitrary_SCAN_FUNC:
          extra.u.scan_func_params = {TagToRefcon(tag), "1,2", 3, &value};
          break;
        case PF_Arbitrary_COPY_FUNC:
          extra.u.copy_func_params = {TagToRefcon(tag), nullptr, &value};
          break;
        default:
          extra.u.interp_func_params = {TagToRefcon(tag), nullptr, nullptr, 0.5, &value};
      }
      host.handleCalls = 0;
      host.failHandleAt = 1;
      EXPECT_EQ(Call(&host, which, &extra), PF_Err_OUT_OF_MEMORY);
      EXPECT_EQ(value, before);
      host.failHandleAt = 0;
      PF_UtilCallbacks* utils = host.in.utils;
      host.in.utils = nullptr;
      EXPECT_EQ(Call(&host, which, &extra), PF_Err_OUT_OF_MEMORY);
      host.in.utils = utils;
      EXPECT_EQ(DispatchCommand(PF_Cmd_ARBITRARY_CALLBACK, nullptr, nullptr, nullptr, nullptr, &extra),
                PF_Err_OUT_OF_MEMORY);
    }
  }
}

TEST_F(CustomValues, AValueThatCannotBeFilledIsNotHandedOut) {
  host.failLockAt = 1;
  PF_ArbitraryH value = nullptr;
  EXPECT_EQ(New(kGradientTag, &value), PF_Err_OUT_OF_MEMORY);
  EXPECT_EQ(value, nullptr);
  EXPECT_EQ(host.HandleCount(), 0u);
}

TEST_F(CustomValues, NoPlaceForTheResultIsNoError) {
  PF_ArbParamsExtra extra{};
  const char flat[300] = {};
  extra.u.new_func_params = {TagToRefcon(kGradientTag), nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_NEW_FUNC, &extra), PF_Err_NONE);
  extra.u.copy_func_params = {nullptr, nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_COPY_FUNC, &extra), PF_Err_NONE);
  extra.u.flat_size_func_params = {nullptr, nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_FLAT_SIZE_FUNC, &extra), PF_Err_NONE);
  extra.u.flatten_func_params = {nullptr, nullptr, 300, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_FLATTEN_FUNC, &extra), PF_Err_NONE);
  extra.u.unflatten_func_params = {nullptr, 300, flat, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_UNFLATTEN_FUNC, &extra), PF_Err_NONE);
  extra.u.interp_func_params = {nullptr, nullptr, nullptr, 0.5, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_INTERP_FUNC, &extra), PF_Err_NONE);
  extra.u.compare_func_params = {nullptr, nullptr, nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_COMPARE_FUNC, &extra), PF_Err_NONE);
  extra.u.print_size_func_params = {nullptr, nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_PRINT_SIZE_FUNC, &extra), PF_Err_NONE);
  extra.u.print_func_params = {nullptr, 0, nullptr, 128, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_PRINT_FUNC, &extra), PF_Err_NONE);
  extra.u.scan_func_params = {nullptr, nullptr, 0, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_SCAN_FUNC, &extra), PF_Err_NONE);
  extra.u.dispose_func_params = {nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_DISPOSE_FUNC, &extra), PF_Err_NONE);
  EXPECT_EQ(host.HandleCount(), 0u);
}

TEST_F(CustomValues, UnknownFunctionsDoNothing) {
  for (const PF_FunctionSelector which : {-1, 11, 12, 1000, INT32_MAX}) {
    PF_ArbParamsExtra extra{};
    std::memset(&extra.u, 0xEE, sizeof(extra.u));
    EXPECT_EQ(Call(&host, which, &extra), PF_Err_NONE);
  }
}

TEST_F(CustomValues, DisposeGivesTheHandleBack) {
  PF_ArbitraryH value = nullptr;
  ASSERT_EQ(New(kScaleCurveTag, &value), PF_Err_NONE);
  PF_ArbParamsExtra extra{};
  extra.u.dispose_func_params = {nullptr, value};
  EXPECT_EQ(Call(&host, PF_Arbitrary_DISPOSE_FUNC, &extra), PF_Err_NONE);
  EXPECT_EQ(host.HandleCount(), 0u);
}

TEST_F(CustomValues, CopyTakesEveryByte) {
  std::mt19937 random(1);
  const ColorGradient gradient = RandomGradient(&random);
  const LifeCurve curve = RandomCurve(&random);
  const PF_Handle first = Keep(HandleOf(&host, gradient));
  const PF_Handle second = Keep(HandleOf(&host, curve));
  PF_ArbitraryH copy = nullptr;
  EXPECT_EQ(Copy(kGradientTag, first, &copy), PF_Err_NONE);
  EXPECT_EQ(Bytes(Keep(copy)), BytesOf(gradient));
  EXPECT_NE(copy, first);
  for (const uint32_t tag : {kScaleCurveTag, kOpacityCurveTag}) {
    EXPECT_EQ(Copy(tag, second, &copy), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(copy)), BytesOf(curve));
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, CopyOfNothingOrOfTooLittleIsADefault) {
  const char bytes[267] = {};
  for (const uint32_t tag : kTags) {
    PF_ArbitraryH copy = nullptr;
    EXPECT_EQ(Copy(tag, nullptr, &copy), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(copy)), DefaultBytes(tag));
    for (const size_t size : {0u, 1u, 139u, 140u, 267u}) {
      if (tag == kGradientTag && size >= 140) continue;
      EXPECT_EQ(Copy(tag, Keep(host.NewHandle(bytes, size)), &copy), PF_Err_NONE);
      EXPECT_EQ(Bytes(Keep(copy)), DefaultBytes(tag));
    }
  }
}

TEST_F(CustomValues, CopyWithAFailingLockStaysADefault) {
  std::mt19937 random(2);
  const PF_Handle source = Keep(HandleOf(&host, RandomGradient(&random)));
  for (int n = 2; n <= 3; ++n) {  // the first lock fills the new value
    host.lockCalls = 0;
    host.failLockAt = n;
    PF_ArbitraryH copy = nullptr;
    EXPECT_EQ(Copy(kGradientTag, source, &copy), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(copy)), DefaultBytes(kGradientTag));
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST_F(CustomValues, FlatSizeFollowsTheHandle) {
  const char bytes[300] = {};
  const std::pair<size_t, A_u_long> cases[] = {{140, 140}, {268, 268}, {139, 268},
                                               {141, 268}, {0, 268},   {300, 268}};
  for (const auto& [size, expected] : cases) {
    A_u_long flat = 0;
    PF_ArbParamsExtra extra{};
    extra.u.flat_size_func_params = {nullptr, Keep(host.NewHandle(bytes, size)), &flat};
    EXPECT_EQ(Call(&host, PF_Arbitrary_FLAT_SIZE_FUNC, &extra), PF_Err_NONE);
    EXPECT_EQ(flat, expected);
  }
  A_u_long flat = 0;
  PF_ArbParamsExtra extra{};
  extra.u.flat_size_func_params = {TagToRefcon(kGradientTag), nullptr, &flat};
  EXPECT_EQ(Call(&host, PF_Arbitrary_FLAT_SIZE_FUNC, &extra), PF_Err_NONE);
  EXPECT_EQ(flat, 268u);
}

TEST_F(CustomValues, FlattenWritesTheRecordOrNothing) {
  std::mt19937 random(3);
  const ColorGradient gradient = RandomGradient(&random);
  const PF_Handle value = Keep(HandleOf(&host, gradient));
  for (const A_u_long size : {0u, 1u, 139u, 140u, 141u, 268u}) {
    std::vector<char> flat(size, '#');
    PF_ArbParamsExtra extra{};
    extra.u.flatten_func_params = {nullptr, value, size, flat.data()};
    EXPECT_EQ(Call(&host, PF_Arbitrary_FLATTEN_FUNC, &extra), PF_Err_NONE);
    std::vector<char> expected(size, '#');
    if (size >= 140) std::memcpy(expected.data(), &gradient, sizeof(gradient));
    EXPECT_EQ(flat, expected);
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, FlattenOfNoneOrOfTooLittleOrUnlockableWritesNothing) {
  const char bytes[200] = {};
  const PF_Handle odd = Keep(host.NewHandle(bytes, sizeof(bytes)));
  const PF_Handle good = Keep(host.NewHandle(bytes, 140));
  const std::vector<char> untouched(268, '#');
  const PF_Handle values[] = {nullptr, odd, good};
  for (const PF_Handle value : values) {
    host.lockCalls = 0;
    host.failLockAt = value == good ? 1 : 0;
    std::vector<char> flat = untouched;
    PF_ArbParamsExtra extra{};
    extra.u.flatten_func_params = {nullptr, value, 268, flat.data()};
    EXPECT_EQ(Call(&host, PF_Arbitrary_FLATTEN_FUNC, &extra), PF_Err_NONE);
    EXPECT_EQ(flat, untouched);
  }
}

TEST_F(CustomValues, UnflattenTellsTheKindsApartByLength) {
  std::vector<char> bytes(600);
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i);
  for (A_u_long size = 0; size <= 600; ++size) {
    const std::vector<char> flat(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(Unflatten(flat.data(), size, &value), PF_Err_NONE);
    const size_t expected = size == 140 ? 140 : size >= 268 ? 268 : 0;
    if (expected == 0) {
      EXPECT_EQ(value, nullptr) << size;
      continue;
    }
    ASSERT_NE(Keep(value), nullptr) << size;
    EXPECT_EQ(Bytes(value),
              std::vector<char>(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(expected)));
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, UnflattenWithoutMemoryOrBytesRestoresNothingSilently) {
  const char bytes[268] = {};
  PF_ArbitraryH value = nullptr;
  host.failHandleAt = 1;
  EXPECT_EQ(Unflatten(bytes, 268, &value), PF_Err_NONE);
  EXPECT_EQ(value, nullptr);
  host.failLockAt = 1;
  EXPECT_EQ(Unflatten(bytes, 268, &value), PF_Err_NONE);
  EXPECT_EQ(value, nullptr);
  EXPECT_EQ(Unflatten(nullptr, 268, &value), PF_Err_NONE);
  EXPECT_EQ(value, nullptr);
}

TEST_F(CustomValues, FlattenAndUnflattenRoundTripAnything) {
  std::mt19937 random(4);
  for (int round = 0; round < 50; ++round) {
    std::vector<char> bytes(round % 2 == 0 ? 140 : 268);
    for (char& byte : bytes) byte = static_cast<char>(random());
    const PF_Handle value = Keep(host.NewHandle(bytes.data(), bytes.size()));
    std::vector<char> flat(bytes.size());
    PF_ArbParamsExtra extra{};
    extra.u.flatten_func_params = {nullptr, value, static_cast<A_u_long>(flat.size()), flat.data()};
    EXPECT_EQ(Call(&host, PF_Arbitrary_FLATTEN_FUNC, &extra), PF_Err_NONE);
    PF_ArbitraryH back = nullptr;
    EXPECT_EQ(Unflatten(flat.data(), static_cast<A_u_long>(flat.size()), &back), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(back)), bytes);
    EXPECT_EQ(Compare(value, back), PF_ArbCompare_EQUAL);
  }
}

TEST_F(CustomValues, InterpolatingGradientsKeepsTheLeftShape) {
  std::mt19937 random(5);
  for (int round = 0; round < 100; ++round) {
    const ColorGradient left = RandomGradient(&random);
    const ColorGradient right = RandomGradient(&random);
    const double f = static_cast<double>(round) / 99.0;
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(Interpolate(kGradientTag, Keep(HandleOf(&host, left)), Keep(HandleOf(&host, right)), f, &value),
              PF_Err_NONE);
    ColorGradient result;
    std::memcpy(&result, Bytes(Keep(value)).data(), sizeof(result));
    ColorGradient expected = left;
    const float t = static_cast<float>(f);
    for (int i = 0; i < std::min(left.count, right.count); ++i) {
      const float* a = &left.stops[i].position;
      const float* b = &right.stops[i].position;
      float* to = &expected.stops[i].position;
      for (int field = 0; field < 4; ++field) to[field] = a[field] + (b[field] - a[field]) * t;
    }
    EXPECT_EQ(std::memcmp(&result, &expected, sizeof(result)), 0);
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, ThreeStopsTowardsFiveStayThree) {
  ColorGradient left;
  MakeDefaultGradient(&left);
  ColorGradient right = left;
  right.count = 5;
  PF_ArbitraryH value = nullptr;
  EXPECT_EQ(Interpolate(kGradientTag, Keep(HandleOf(&host, left)), Keep(HandleOf(&host, right)), 1.0, &value),
            PF_Err_NONE);
  EXPECT_EQ(Bytes(Keep(value)), BytesOf(left));
}

TEST_F(CustomValues, InterpolatingCurvesSamplesTheRightOne) {
  std::mt19937 random(6);
  for (int round = 0; round < 100; ++round) {
    const LifeCurve left = RandomCurve(&random);
    const LifeCurve right = RandomCurve(&random);
    const float t = static_cast<float>(round) / 99.0f;
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(
        Interpolate(kScaleCurveTag, Keep(HandleOf(&host, left)), Keep(HandleOf(&host, right)), t, &value),
        PF_Err_NONE);
    LifeCurve expected = left;
    for (int i = 0; i < left.count; ++i) {
      expected.y[i] = left.y[i] + (EvaluateLifeCurve(right, left.x[i]) - left.y[i]) * t;
    }
    EXPECT_EQ(Bytes(Keep(value)), BytesOf(expected));
  }
}

TEST_F(CustomValues, InterpolationWithAMissingPartIsADefault) {
  std::mt19937 random(7);
  const PF_Handle good = Keep(HandleOf(&host, RandomGradient(&random)));
  const PF_Handle tooSmall = Keep(host.NewHandle("abc", 3));
  const PF_Handle pairs[][2] = {{nullptr, good}, {good, nullptr}, {tooSmall, good}, {good, tooSmall}};
  PF_ArbitraryH value = nullptr;
  for (const auto& pair : pairs) {
    EXPECT_EQ(Interpolate(kGradientTag, pair[0], pair[1], 0.5, &value), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(value)), DefaultBytes(kGradientTag));
  }
  for (int n = 2; n <= 4; ++n) {
    host.lockCalls = 0;
    host.failLockAt = n;
    EXPECT_EQ(Interpolate(kGradientTag, good, good, 0.5, &value), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(value)), DefaultBytes(kGradientTag));
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST_F(CustomValues, CompareIsByteForByte) {
  std::mt19937 random(8);
  ColorGradient gradient = RandomGradient(&random);
  const PF_Handle a = Keep(HandleOf(&host, gradient));
  EXPECT_EQ(Compare(a, a), PF_ArbCompare_EQUAL);
  EXPECT_EQ(Compare(a, Keep(HandleOf(&host, gradient))), PF_ArbCompare_EQUAL);
  for (size_t i = 0; i < sizeof(gradient); ++i) {
    ColorGradient other = gradient;
    reinterpret_cast<char*>(&other)[i] ^= 1;
    EXPECT_EQ(Compare(a, Keep(HandleOf(&host, other))), PF_ArbCompare_NOT_EQUAL) << i;
  }
  gradient.selected += 1;
  EXPECT_EQ(Compare(a, Keep(HandleOf(&host, gradient))), PF_ArbCompare_NOT_EQUAL);
}

TEST_F(CustomValues, CompareOfUnequalKindsNoneOrUnlockableIsNotEqual) {
  const char zeros[268] = {};
  const PF_Handle small = Keep(host.NewHandle(zeros, 140));
  const PF_Handle large = Keep(host.NewHandle(zeros, 268));
  const PF_Handle tiny = Keep(host.NewHandle(zeros, 4));
  const PF_Handle handles[] = {nullptr, small, large, tiny};
  for (const PF_Handle a : handles) {
    for (const PF_Handle b : handles) {
      const bool equal = a == b && (a == small || a == large);
      EXPECT_EQ(Compare(a, b), equal ? PF_ArbCompare_EQUAL : PF_ArbCompare_NOT_EQUAL);
    }
  }
  for (int n = 1; n <= 2; ++n) {
    host.lockCalls = 0;
    host.failLockAt = n;
    EXPECT_EQ(Compare(small, small), PF_ArbCompare_NOT_EQUAL);
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST_F(CustomValues, ScanIgnoresItsText) {
  for (const uint32_t tag : kTags) {
    PF_ArbitraryH value = nullptr;
    PF_ArbParamsExtra extra{};
    extra.u.scan_func_params = {TagToRefcon(tag), "0%,12%", 6, &value};
    EXPECT_EQ(Call(&host, PF_Arbitrary_SCAN_FUNC, &extra), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(value)), DefaultBytes(tag));
  }
}

TEST_F(CustomValues, PrintSizeIsFixed) {
  A_u_long size = 0;
  PF_ArbParamsExtra extra{};
  extra.u.print_size_func_params = {nullptr, nullptr, &size};
  EXPECT_EQ(Call(&host, PF_Arbitrary_PRINT_SIZE_FUNC, &extra), PF_Err_NONE);
  EXPECT_EQ(size, 128u);
}

TEST_F(CustomValues, DefaultsPrintAsHostsShowThem) {
  PF_ArbitraryH value = nullptr;
  New(kGradientTag, &value);
  EXPECT_EQ(Print(Keep(value), 128), "0%,50%,100%");
  New(kScaleCurveTag, &value);
  EXPECT_EQ(Print(Keep(value), 128), "100,100");
  EXPECT_EQ(Print(nullptr, 128), "");
  EXPECT_EQ(Print(nullptr, 1), "");
  EXPECT_EQ(Print(Keep(host.NewHandle("x", 1)), 128), "");
}

TEST_F(CustomValues, PrintStopsNearTheEndOfTheBuffer) {
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  gradient.count = 8;
  for (GradientStop& stop : gradient.stops)
    stop.position = 1e10f;  // "999999995904%": 13 characters and a comma
  const PF_Handle value = Keep(HandleOf(&host, gradient));
  // Parts start at 0, 14, 28 ... and only below size - 16: the eighth would start at 97.
  EXPECT_EQ(Print(value, 128).size(), 8 * 13 + 7u);
  EXPECT_EQ(Print(value, 17).size(), 13u);
  EXPECT_EQ(Print(value, 16), "");
  EXPECT_EQ(Print(value, 1), "");
  const std::string longest = Print(value, 113);
  EXPECT_EQ(longest.size(), 7 * 13 + 6u) << "a part at position 97 = 113 - 16 is not begun";
  EXPECT_EQ(Print(value, 114).size(), 8 * 13 + 7u);
}

TEST_F(CustomValues, PrintNeverOverrunsItsBuffer) {
  const float infinity = std::numeric_limits<float>::infinity();
  const float hostile[] = {std::nanf(""), infinity, -infinity, 3.4e36f,  -3.4e36f, 1e20f,
                           -0.0f,         -0.001f,  1e-40f,    0.00499f, 123.456f, 3.4e38f};
  std::mt19937 random(9);
  for (int round = 0; round < 300; ++round) {
    ColorGradient gradient;
    LifeCurve curve;
    MakeDefaultGradient(&gradient);
    MakeDefaultLifeCurve(&curve, 1.0f);
    gradient.count = static_cast<int32_t>(random());
    curve.count = round % 3 == 0 ? INT32_MAX : static_cast<int32_t>(random() % 20);
    for (GradientStop& stop : gradient.stops) stop.position = hostile[random() % 12];
    for (float& y : curve.y) y = hostile[random() % 12];
    const PF_Handle first = Keep(HandleOf(&host, gradient));
    const PF_Handle second = Keep(HandleOf(&host, curve));
    for (const A_u_long size : {1u, 2u, 8u, 9u, 10u, 16u, 17u, 20u, 45u, 64u, 128u, 300u}) {
      EXPECT_LT(Print(first, size).size(), size);
      EXPECT_LT(Print(second, size).size(), size);
    }
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, HostileCountsStayInsideTheRecord) {
  for (const int32_t count : {-1, 0, 17, INT32_MAX, INT32_MIN}) {
    LifeCurve curve;
    MakeDefaultLifeCurve(&curve, 1.0f);
    curve.count = count;
    ColorGradient gradient;
    MakeDefaultGradient(&gradient);
    gradient.count = count;
    const PF_Handle a = Keep(HandleOf(&host, curve));
    const PF_Handle b = Keep(HandleOf(&host, gradient));
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(Interpolate(kOpacityCurveTag, a, a, 0.5, &value), PF_Err_NONE);
    LifeCurve blended;
    std::memcpy(&blended, Bytes(Keep(value)).data(), sizeof(blended));
    EXPECT_EQ(blended.count, count) << "what is stored is not rewritten";
    EXPECT_EQ(Interpolate(kGradientTag, b, b, 0.5, &value), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(value)), BytesOf(gradient));
    if (count <= 0) {
      EXPECT_EQ(Print(a, 128), "");
      EXPECT_EQ(Print(b, 128), "");
    }
  }
}

std::string Whole(float value) {
  char text[kWholeTextSize];
  const size_t length = FormatWhole(value, text);
  EXPECT_EQ(std::strlen(text), length);
  return text;
}

TEST(ValueText, RoundsHalvesToEven) {
  EXPECT_EQ(Whole(0.5f), "0");
  EXPECT_EQ(Whole(1.5f), "2");
  EXPECT_EQ(Whole(2.5f), "2");
  EXPECT_EQ(Whole(12.5f), "12");
  EXPECT_EQ(Whole(-0.5f), "-0");
  EXPECT_EQ(Whole(-1.5f), "-2");
  EXPECT_EQ(Whole(-0.0f), "-0");
  EXPECT_EQ(Whole(8388607.5f), "8388608");
  EXPECT_EQ(Whole(0.49999997f), "0");
}

TEST(ValueText, ValuesThatAreNoNumbers) {
  EXPECT_EQ(Whole(std::numeric_limits<float>::infinity()), "inf");
  EXPECT_EQ(Whole(-std::numeric_limits<float>::infinity()), "-inf");
  EXPECT_EQ(Whole(std::nanf("")), "nan");
  EXPECT_EQ(Whole(-std::nanf("")), "nan");
  EXPECT_EQ(Whole(std::numeric_limits<float>::max()), "340282346638528859811704183484516925440");
}

TEST(ValueText, AgreesWithTheCFunctionEverywhere) {
  std::mt19937 random(10);
  for (int i = 0; i < 300000; ++i) {
    const uint32_t bits = static_cast<uint32_t>(random());
    float value;
    std::memcpy(&value, &bits, sizeof(value));
    if (!(value == value)) continue;
    char expected[64];
    std::snprintf(expected, sizeof(expected), "%.0f", static_cast<double>(value));
    ASSERT_EQ(Whole(value), expected) << bits;
  }
}

}  // namespace
}  // namespace vantle::test
