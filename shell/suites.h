// Suites, held for one scope.
#pragma once

#include "host_api/call_records.h"
#include "host_api/commands.h"
#include "host_api/pf_suites.h"

namespace vantle {

/// A suite acquired through the basic suite and released at the end of the scope. It counts as missing when
/// the host has no basic suite, when the acquisition fails, whatever it leaves in the pointer, and when it
/// succeeds without a table.
template <class Suite>
class ScopedSuite {
 public:
  ScopedSuite(const PF_InData* in_data, const char* name, A_long version)
      : basic_(in_data != nullptr ? in_data->pica_basicP : nullptr), name_(name), version_(version) {
    if (basic_ == nullptr || basic_->AcquireSuite == nullptr) return;
    const void* table = nullptr;
    if (basic_->AcquireSuite(name_, version_, &table) == 0) suite_ = static_cast<const Suite*>(table);
  }
  ~ScopedSuite() {
    if (suite_ != nullptr && basic_->ReleaseSuite != nullptr) basic_->ReleaseSuite(name_, version_);
  }
  ScopedSuite(const ScopedSuite&) = delete;
  ScopedSuite& operator=(const ScopedSuite&) = delete;

  explicit operator bool() const { return suite_ != nullptr; }
  const Suite* get() const { return suite_; }
  const Suite* operator->() const { return suite_; }

 private:
  const SPBasicSuite* basic_;
  const char* name_;
  A_long version_;
  const Suite* suite_ = nullptr;
};

/// Whether the host is Premiere Pro, which has no general plug-in services.
inline bool IsPremierePro(const PF_InData* in_data) {
  return in_data != nullptr && in_data->appl_id == kApplPremierePro;
}

}  // namespace vantle
