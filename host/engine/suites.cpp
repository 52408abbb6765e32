#include "host/engine/suites.h"

#include "host/engine/call_context.h"
#include "host/engine/not_offered.h"

#include <cstring>
#include <memory>
#include <new>

namespace vantle::host {
namespace {

std::vector<SuiteEntry> CollectSuites() {
  std::vector<SuiteEntry> suites;
  AddAnsiSuites(suites);
  AddHandleSuites(suites);
  AddWorldSuites(suites);
  AddUtilitySuites(suites);
  AddPfInterfaceSuites(suites);
  AddStreamSuites(suites);
  AddDrawingSuites(suites);
  AddLayerSuites(suites);
  AddItemSuites(suites);
  AddCompSuites(suites);
  AddEffectSuites(suites);
  return suites;
}

std::string Label(const char* name, int32 version) {
  return std::string("\"") + name + "\" " + std::to_string(version);
}

const HiddenSuite* FindHidden(const HostFaults& faults, const std::string& name, int32 version) {
  for (const HiddenSuite& hidden : faults.hiddenSuites) {
    if (hidden.name == name && (hidden.version == 0 || hidden.version == version)) {
      return &hidden;
    }
  }
  return nullptr;
}

SPErr Refuse(HiddenManner manner, const void** suite) {
  if (manner != HiddenManner::kErrorPointerUntouched) {
    *suite = nullptr;
  }
  return manner == HiddenManner::kSuccessAndNull ? SPErr{PF_Err_NONE} : SPErr{A_Err_MISSING_SUITE};
}

SPErr AcquireSuite(const char* name, int32 version, const void** suite) {
  const Entry entry = EnterHostCall("AcquireSuite");
  if (entry.call == nullptr || name == nullptr || suite == nullptr) {
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  if (entry.error != PF_Err_NONE) {
    *suite = nullptr;
    return entry.error;
  }
  if (const HiddenSuite* hidden = FindHidden(entry.call->faults->faults, name, version)) {
    return Refuse(hidden->manner, suite);
  }
  const SuiteEntry* found = FindSuite(name, version);
  const bool premiere = entry.call->effect->options.applId == kApplPremierePro;
  if (found == nullptr || (premiere && !found->inPremiere)) {
    return Refuse(HiddenManner::kErrorAndNull, suite);
  }
  Take(*entry.call->ledger, Item::kSuite, Label(name, version));
  *suite = found->functions;
  return PF_Err_NONE;
}

SPErr ReleaseSuite(const char* name, int32 version) {
  const Entry entry = EnterHostCall("ReleaseSuite");
  if (entry.call == nullptr || name == nullptr) {
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  Give(*entry.call->ledger, Item::kSuite, Label(name, version));
  return entry.error;
}

SPBoolean IsEqual(const char* token1, const char* token2) {
  return token1 != nullptr && token2 != nullptr && std::strcmp(token1, token2) == 0 ? 1 : 0;
}

/// A new block entered into the effect's books, or null.
void* NewBlock(CallContext& call, std::size_t size) {
  std::unique_ptr<std::uint8_t[]> storage(new (std::nothrow) std::uint8_t[size + 1]);
  void* block = storage.get();
  if (block != nullptr) {
    const std::lock_guard<std::mutex> guard(call.effect->blocks.mutex);
    call.effect->blocks.live.emplace(block, std::move(storage));
    Take(*call.ledger, Item::kBlock, "");
  }
  return block;
}

/// Takes a block out of the books; false for one that is not there.
bool EraseBlock(CallContext& call, const void* block) {
  const std::lock_guard<std::mutex> guard(call.effect->blocks.mutex);
  if (call.effect->blocks.live.erase(block) == 0) {
    Complain(call, "freed a block of memory that it does not hold");
    return false;
  }
  Give(*call.ledger, Item::kBlock, "");
  return true;
}

SPErr AllocateBlock(size_t size, void** block) {
  const Entry entry = EnterHostCall("AllocateBlock");
  if (entry.call == nullptr || block == nullptr) {
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  const bool allowed = MayAllocate(*entry.call) && entry.error == PF_Err_NONE;
  *block = allowed ? NewBlock(*entry.call, size) : nullptr;
  return *block == nullptr ? PF_Err_OUT_OF_MEMORY : PF_Err_NONE;
}

SPErr FreeBlock(void* block) {
  const Entry entry = EnterHostCall("FreeBlock");
  if (entry.call == nullptr) {
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  if (block != nullptr && !EraseBlock(*entry.call, block)) {
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  return entry.error;
}

SPErr ReallocateNotOffered(void*, size_t, void**) {
  return ReportNotOffered("SP Basic Suite", 5);
}

SPErr Undefined() {
  return ReportNotOffered("SP Basic Suite", 6);
}

}  // namespace

A_Err ReportNotOffered(const char* table, std::size_t slot) {
  const Entry entry = EnterHostCall("(not offered)");
  if (entry.call != nullptr) {
    Complain(*entry.call,
             "slot " + std::to_string(slot) + " of " + table + " was called, which this host does not offer");
  }
  return A_Err_GENERIC;
}

const std::vector<SuiteEntry>& AllSuites() {
  static const std::vector<SuiteEntry> suites = CollectSuites();
  return suites;
}

const SuiteEntry* FindSuite(const std::string& name, A_long version) {
  for (const SuiteEntry& suite : AllSuites()) {
    if (suite.name == name && suite.version == version) {
      return &suite;
    }
  }
  return nullptr;
}

SPBasicSuite* BasicSuite() {
  static SPBasicSuite basic{AcquireSuite, ReleaseSuite,         IsEqual,  AllocateBlock,
                            FreeBlock,    ReallocateNotOffered, Undefined};
  return &basic;
}

}  // namespace vantle::host
