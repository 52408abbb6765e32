// The callbacks that arrive with every command.
#include "host/engine/checkouts.h"
#include "host/engine/declaration.h"
#include "host/engine/not_offered.h"
#include "host/engine/suites.h"

#include <algorithm>
#include <cstddef>

namespace vantle::host {
namespace {

PF_Err Abort(PF_ProgPtr effectRef) {
  return EnterHostCall("abort", effectRef).error;
}

PF_Err Progress(PF_ProgPtr effectRef, A_long, A_long) {
  return EnterHostCall("progress", effectRef).error;
}

struct InteractTable {
  static constexpr const char* kName = "the interaction callbacks";
};
struct UtilTable {
  static constexpr const char* kName = "the utility callbacks";
};

PF_UtilCallbacks MakeUtilCallbacks() {
  auto utils = MakeUnofferedTable<UtilTable, PF_UtilCallbacks>();
  const PF_HandleSuite1 handles = HandleFunctions();
  utils.host_new_handle = handles.host_new_handle;
  utils.host_lock_handle = handles.host_lock_handle;
  utils.host_unlock_handle = handles.host_unlock_handle;
  utils.host_dispose_handle = handles.host_dispose_handle;
  utils.host_get_handle_size = handles.host_get_handle_size;
  utils.host_resize_handle = handles.host_resize_handle;
  const PF_ANSICallbacksSuite1 ansi = AnsiFunctions();
  static_assert(sizeof(PF_ANSICallbacksSuite1) == offsetof(PF_ANSICallbacks, ansi_procs));
  std::memcpy(&utils.ansi, &ansi, sizeof ansi);
  utils.ansi.ansi_procs[0] = 0;
  utils.reserved[0] = 0;
  return utils;
}

}  // namespace

PF_InteractCallbacks InteractCallbacks() {
  auto inter = MakeUnofferedTable<InteractTable, PF_InteractCallbacks>();
  inter.checkout_param = CheckoutParam;
  inter.checkin_param = CheckinParam;
  inter.add_param = AddParam;
  inter.abort = Abort;
  inter.progress = Progress;
  inter.register_ui = RegisterUi;
  std::fill(std::begin(inter.reserved_str), std::end(inter.reserved_str), nullptr);
  std::fill(std::begin(inter.reserved), std::end(inter.reserved), nullptr);
  return inter;
}

PF_UtilCallbacks* UtilCallbacks() {
  static PF_UtilCallbacks utils = MakeUtilCallbacks();
  return &utils;
}

}  // namespace vantle::host
