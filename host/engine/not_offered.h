// Filling of function tables: hosts leave no slot empty, so neither do we. A slot that this host does not
// serve says so when it is called.
#pragma once

#include "host/engine/call_context.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <utility>

namespace vantle::host {

/// Notes that slot `slot` of the table was called.
A_Err ReportNotOffered(const char* table, std::size_t slot);

/// One function per slot, so that the report can name it. `Table` supplies kName.
template <typename Table, std::size_t kSlot>
A_Err NotOfferedSlot() {
  return ReportNotOffered(Table::kName, kSlot);
}

template <typename Table, std::size_t... kSlots>
std::array<A_Err (*)(), sizeof...(kSlots)> NotOfferedSlots(std::index_sequence<kSlots...>) {
  return {&NotOfferedSlot<Table, kSlots>...};
}

/// A table whose every slot reports. `Table` names it: struct { static constexpr const char* kName; }.
template <typename Table, typename Functions>
Functions MakeUnofferedTable() {
  static_assert(sizeof(Functions) % sizeof(void*) == 0);
  const auto slots = NotOfferedSlots<Table>(std::make_index_sequence<sizeof(Functions) / sizeof(void*)>());
  Functions functions{};
  std::memcpy(&functions, slots.data(), sizeof functions);
  return functions;
}

}  // namespace vantle::host
