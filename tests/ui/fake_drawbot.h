// A host that records what the editors ask of it: suites, drawing, handles and the colour picker. Every
// object and every lock is counted, misuse is written down, and any call can be made to fail.
#pragma once

#include "host_api/call_records.h"
#include "host_api/commands.h"
#include "host_api/drawbot.h"
#include "host_api/events.h"
#include "host_api/pf_suites.h"

#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantle::test {

inline constexpr PF_Err kInjectedError = 4242;
inline constexpr int kParamCount = 88;

/// One answer of the colour picker. `meanwhile` runs while the dialog is open.
struct PickerAnswer {
  PF_Err error = PF_Err_NONE;
  float red = 0.0f;
  float green = 0.0f;
  float blue = 0.0f;
  std::function<void()> meanwhile = nullptr;
};

/// A memory handle with guard bytes on both sides of the record.
struct FakeHandle {
  void* firstField = nullptr;  // its address is the handle
  std::vector<uint8_t> memory;
  size_t size = 0;
  int locks = 0;
  int lockCount = 0;
  int locksBeforeNull = -1;  ///< after so many locks give null; -1 for never

  uint8_t* Bytes();
  bool GuardsIntact() const;
};

struct DrawnPoint {
  float x;
  float y;
};

/// Set up one at a time: suites are plain functions and find the current host through a global.
struct FakeHost {
  FakeHost();
  ~FakeHost();
  FakeHost(const FakeHost&) = delete;
  FakeHost& operator=(const FakeHost&) = delete;

  /// Makes a handle of `size` bytes that holds `record`.
  PF_Handle NewHandle(const void* record, size_t size, size_t recordSize);
  FakeHandle& HandleOf(PF_Handle handle);

  template <typename Record>
  void SetValue(int index, const Record& record) {
    Param(index).u.arb_d.value = NewHandle(&record, sizeof(record), sizeof(record));
  }

  template <typename Record>
  Record Value(int index) {
    Record record;
    std::memcpy(&record, HandleOf(Param(index).u.arb_d.value).Bytes(), sizeof(record));
    return record;
  }

  PF_ParamDef& Param(int index) { return params[static_cast<size_t>(index)]; }

  /// What is still held, locked, alive or was misused; empty when all is in balance.
  std::string Imbalance() const;

  void Fault(const std::string& text);

  PF_Err Send(PF_EventType type, int index);

  PF_InData inData = {};
  PF_OutData outData = {};
  PF_UtilCallbacks utils = {};
  SPBasicSuite basic = {};
  PF_EventExtra extra = {};
  std::vector<PF_ParamDef> params;
  std::vector<PF_ParamDef*> paramPointers;

  // What happened.
  std::vector<std::string> calls;
  std::vector<std::string> counted;  ///< those that can be made to fail
  std::vector<DrawnPoint> drawn;     ///< corners of every rectangle and path
  std::vector<std::string> messages;
  std::vector<std::string> faults;
  std::map<std::string, int> suitesHeld;
  std::map<const void*, std::string> objects;  ///< alive, by their names
  std::map<std::string, int> objectsMade;      ///< by kind
  std::vector<std::unique_ptr<FakeHandle>> handles;
  int countedCalls = 0;  ///< size of `counted`

  // What is to happen.
  int failCall = 0;          ///< the n-th counted call fails, from 1; 0 for none
  bool madeNothing = false;  ///< that call succeeds without an object instead
  std::string hiddenSuite;
  bool hiddenSuiteSucceeds = false;  ///< acquisition claims success and gives null
  bool nullReference = false;
  std::vector<PickerAnswer> pickerAnswers;
  std::vector<PF_PixelFloat> pickerSamples;
  std::vector<std::string> pickerTitles;
};

/// The host that is set up.
inline FakeHost* currentHost = nullptr;

/// Gives the host its suites and a context to draw in.
void SetSuites(FakeHost* host);

/// Shortest text that reads back as the same float.
std::string Text(float value);

}  // namespace vantle::test
