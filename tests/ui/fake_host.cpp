#include "tests/ui/fake_drawbot.h"
#include "ui/editor_events.h"

#include <charconv>
#include <cstdarg>
#include <cstring>

namespace vantle::test {
namespace {

constexpr size_t kGuardBytes = 64;
constexpr uint8_t kGuard = 0xA5;

void* LockHandle(PF_Handle handle) {
  FakeHandle& fake = currentHost->HandleOf(handle);
  if (fake.locksBeforeNull >= 0 && fake.lockCount >= fake.locksBeforeNull) return nullptr;
  ++fake.lockCount;
  ++fake.locks;
  return fake.Bytes();
}

void UnlockHandle(PF_Handle handle) {
  if (--currentHost->HandleOf(handle).locks < 0) currentHost->Fault("unlocked what is not locked");
}

A_u_longlong HandleSize(PF_Handle handle) {
  return currentHost->HandleOf(handle).size;
}

// All that is printed here is one text as it stands.
int Sprintf(A_char* out, const A_char* format, ...) {
  if (std::strcmp(format, "%s") != 0) currentHost->Fault("printed with another format");
  va_list arguments;
  va_start(arguments, format);
  const char* const text = va_arg(arguments, const char*);
  va_end(arguments);
  std::strcpy(out, text);
  currentHost->messages.emplace_back(text);
  return static_cast<int>(std::strlen(text));
}

}  // namespace

uint8_t* FakeHandle::Bytes() {
  return memory.data() + kGuardBytes;
}

bool FakeHandle::GuardsIntact() const {
  for (size_t i = 0; i < kGuardBytes; ++i) {
    if (memory[i] != kGuard || memory[kGuardBytes + size + i] != kGuard) return false;
  }
  return true;
}

FakeHost::FakeHost() : params(kParamCount) {
  currentHost = this;
  SetSuites(this);
  utils.host_lock_handle = LockHandle;
  utils.host_unlock_handle = UnlockHandle;
  utils.host_get_handle_size = HandleSize;
  utils.ansi.sprintf = Sprintf;
  inData.utils = &utils;
  inData.pica_basicP = &basic;
  inData.num_params = kParamCount;
  for (PF_ParamDef& param : params) paramPointers.push_back(&param);
  for (const int index : {kScaleOverLifeControl, kColorGradientControl, kOpacityOverLifeControl}) {
    Param(index).uu.id = index;
  }
}

FakeHost::~FakeHost() {
  currentHost = nullptr;
  for (const auto& [object, name] : objects) delete static_cast<const char*>(object);
}

PF_Handle FakeHost::NewHandle(const void* record, size_t size, size_t recordSize) {
  auto handle = std::make_unique<FakeHandle>();
  handle->size = size;
  handle->memory.assign(size + 2 * kGuardBytes, kGuard);
  std::memcpy(handle->Bytes(), record, recordSize < size ? recordSize : size);
  handles.push_back(std::move(handle));
  return &handles.back()->firstField;
}

FakeHandle& FakeHost::HandleOf(PF_Handle handle) {
  for (const auto& candidate : handles) {
    if (&candidate->firstField == handle) return *candidate;
  }
  Fault("not a handle");
  return *handles.front();
}

void FakeHost::Fault(const std::string& text) {
  faults.push_back(text);
}

std::string FakeHost::Imbalance() const {
  std::string text;
  for (const auto& [name, count] : suitesHeld) {
    if (count != 0) text += name + " held " + std::to_string(count) + "; ";
  }
  for (const auto& [object, name] : objects) text += name + " alive; ";
  for (const auto& handle : handles) {
    if (handle->locks != 0) text += "handle locked; ";
    if (!handle->GuardsIntact()) text += "bytes beside a record written; ";
  }
  for (const std::string& fault : faults) text += fault + "; ";
  return text;
}

PF_Err FakeHost::Send(PF_EventType type, int index) {
  extra.e_type = type;
  extra.effect_win.index = index;
  extra.effect_win.area = PF_EA_CONTROL;
  extra.evt_out_flags = PF_EO_NONE;
  return HandleEvent(&inData, &outData, paramPointers.data(), nullptr, &extra);
}

std::string Text(float value) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
  return std::string(buffer, result.ptr);
}

}  // namespace vantle::test
