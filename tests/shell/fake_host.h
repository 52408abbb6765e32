// A host in a few hundred lines: enough of it to drive the effect in the same process, to count everything
// that must balance, and to fail wherever a test wants it to.
#pragma once

#include "base/image_view.h"
#include "host_api/aegp_suites.h"
#include "host_api/arbitrary_data.h"
#include "host_api/call_records.h"
#include "host_api/commands.h"
#include "host_api/parameters.h"
#include "host_api/pf_suites.h"
#include "shell/parameter_ids.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vantle::test {

/// Whether the calling thread is inside a host callback; allocation tests look the other way there.
bool InsideHost();

/// How an acquisition of a suite goes wrong.
enum class SuiteFault { kNone, kMissing, kNullTable, kErrorWithTable, kErrorWithGarbage };

/// A world with padded rows and guard bytes around them.
class FakeWorld {
 public:
  static constexpr std::byte kGuard{0xA5};

  FakeWorld() = default;
  /// `padding` bytes after each row; with `bottomUp` rows run backwards in memory.
  FakeWorld(PixelDepth depth, int32_t width, int32_t height, int32_t padding = 12, bool bottomUp = false);
  FakeWorld(const FakeWorld&) = delete;
  FakeWorld& operator=(const FakeWorld&) = delete;
  FakeWorld(FakeWorld&&) = default;
  FakeWorld& operator=(FakeWorld&&) = default;

  /// Straight colour 0..1 into one pixel or all.
  void Set(int32_t x, int32_t y, float a, float r, float g, float b);
  void Fill(float a, float r, float g, float b);
  /// Code values of a pixel, as doubles whatever the depth: a, r, g, b.
  std::vector<double> Codes(int32_t x, int32_t y) const;
  /// The pixels of all rows, without padding.
  std::vector<std::byte> Pixels() const;
  /// Whether all bytes outside the rows still hold the guard value.
  bool GuardsIntact() const;

  PF_LayerDef def{};

 private:
  std::byte* At(int32_t x, int32_t y);
  const std::byte* At(int32_t x, int32_t y) const;

  PixelDepth depth_ = PixelDepth::k8;
  std::vector<std::byte> bytes_;
  std::vector<bool> inRow_;
};

/// One moment of the composition's camera.
struct FakeCamera {
  A_Matrix4 matrix{};
  double distance = 1000.0;
  short width = 0;
  short height = 0;
  double depthOfField = 0.0;
  double focusDistance = 0.0;
  double aperture = 0.0;
  double zoom = 0.0;
};

class FakeHost {
 public:
  FakeHost();
  ~FakeHost();
  FakeHost(const FakeHost&) = delete;
  FakeHost& operator=(const FakeHost&) = delete;

  PF_InData in{};
  PF_OutData out{};

  // What the effect declared.
  std::vector<PF_ParamDef> declared;
  std::vector<PF_CustomUIInfo> registeredUi;
  int failAddParamAt = 0;  ///< 1-based call that fails, 0 for none
  PF_Err addParamError = 777;
  PF_Err registerUiError = 0;

  // Values and layers handed over at render time; Params() fills `values` from what was declared.
  std::vector<PF_ParamDef> values;
  std::map<PF_ParamIndex, FakeWorld*> layers;
  PixelDepth depth = PixelDepth::k8;
  bool formatFails = false;
  FakeCamera* camera = nullptr;

  // Faults.
  std::map<std::string, SuiteFault> suiteFaults;
  std::set<std::string> failingCalls;  ///< functions of suites that return an error
  int failHandleAt = 0;                ///< 1-based allocation that fails
  int failLockAt = 0;                  ///< 1-based lock that fails
  int failCheckoutAt = 0;              ///< 1-based checkout that fails
  std::function<void()> onCheckout;

  // What was counted.
  std::vector<std::string> events;  ///< "out 2", "in 2", "acquire NAME", ...
  int addParamCalls = 0;
  int handleCalls = 0;
  int lockCalls = 0;
  int checkoutCalls = 0;
  int checkouts = 0;  ///< out minus in
  int streams = 0;
  int streamValues = 0;
  std::map<std::string, int> suites;  ///< acquired minus released
  AEGP_PluginID nextPluginId = 4711;

  /// Runs the parameter set-up and builds the array that a render gets.
  PF_ParamDef** Params();
  /// A handle with the given bytes.
  PF_Handle NewHandle(const void* bytes, size_t size);
  size_t HandleCount() const;
  int LockCount() const;
  /// Disposes the handles that belong to the host: declared defaults and values.
  void DisposeOwned();
  /// Empty when everything balances, else a line that names what does not.
  std::string Imbalance() const;

  void SetTime(int32_t current, int32_t step, uint32_t scale);
  PF_ParamDef& Value(ParamId id) { return values[static_cast<size_t>(id)]; }

  /// The host whose callbacks the current thread runs: the one made last, or the one in use.
  static FakeHost* Current();

  /// Makes a host the current one for a scope, where a test has several.
  class Use {
   public:
    explicit Use(FakeHost* host);
    ~Use();
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

   private:
    FakeHost* previous_;
  };

 private:
  FakeHost* previous_;
  PF_UtilCallbacks utils_{};
  SPBasicSuite basic_{};
  std::vector<PF_ParamDef*> pointers_;
  FakeWorld emptyInput_;
};

}  // namespace vantle::test
