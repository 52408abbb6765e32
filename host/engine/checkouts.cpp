#include "host/engine/checkouts.h"

#include <algorithm>
#include <exception>

namespace vantle::host {
namespace {

std::string ParamName(int index) {
  return "parameter " + std::to_string(index);
}

/// Lets a test re-enter the effect, but not again from the frames that it renders there.
void RunHook(const HostFaults& faults) {
  static thread_local bool inside = false;
  if (inside || !faults.insideCheckout) {
    return;
  }
  inside = true;
  faults.insideCheckout();
  inside = false;
}

void ComplainAboutPlace(CallContext& call, int index, bool layer) {
  if (call.command == PF_Cmd_UPDATE_PARAMS_UI) {
    Complain(call, ParamName(index) + " checked out while the panel is updated");
  } else if (call.command == PF_Cmd_EVENT && layer) {
    Complain(call, "layer " + ParamName(index) + " checked out in an event");
  }
}

/// Asks the request's provider; one that throws counts as failed.
LayerFrame AskProvider(CallContext& call, int index, A_long time, A_long step, A_u_long scale) {
  try {
    return call.frame->layers(index, time, step, scale);
  } catch (const std::exception& failure) {
    Complain(call, "layer of " + ParamName(index) + " not available: " + failure.what());
  }
  return {PF_Err_INTERNAL_STRUCT_DAMAGED, nullptr};
}

std::shared_ptr<const World> WithRows(const EffectInstance& effect, std::shared_ptr<const World> world) {
  if (world != nullptr && effect.options.rows.has_value() && *effect.options.rows != world->layout) {
    return std::make_shared<const World>(CopyWorld(*world, *effect.options.rows));
  }
  return world;
}

/// Enters the checkout into the frame's books and describes its layer.
void Enter(CallContext& call, int index, A_long time, std::shared_ptr<const World> world,
           PF_ParamDef& record) {
  FrameScope& frame = *call.frame;
  Checkout checkout;
  checkout.serial = static_cast<A_long>(frame.checkouts.size()) + 1;
  checkout.param = index;
  checkout.time = time;
  record.unused = checkout.serial;
  if (record.param_type == PF_Param_LAYER) {
    record.u.ld = world != nullptr ? DescribeReadOnlyWorld(*world) : PF_LayerDef{};
  }
  if (world != nullptr) {
    frame.worlds.push_back({record.u.ld.data, world->depth});
    checkout.sum = call.effect->options.checkReadOnly ? HashPixels(*world) : 0;
  }
  checkout.world = std::move(world);
  frame.checkouts.push_back(std::move(checkout));
  Take(*call.ledger, Item::kCheckout, ParamName(index));
}

void CheckUntouched(CallContext& call, const Checkout& checkout) {
  if (checkout.world == nullptr) {
    return;
  }
  for (const std::string& line : FindDamage(*checkout.world)) {
    Complain(call, "layer of " + ParamName(checkout.param) + ": " + line);
  }
  if (call.effect->options.checkReadOnly && HashPixels(*checkout.world) != checkout.sum) {
    Complain(call, "the pixels of the layer of " + ParamName(checkout.param) + " were written to");
  }
}

/// One description of a world less; the same layer may be checked out several times.
void ForgetWorld(FrameScope& frame, const World& world) {
  const void* data = WorldRow(world, 0);
  const auto known = std::find_if(frame.worlds.begin(), frame.worlds.end(),
                                  [&](const KnownWorld& entry) { return entry.data == data; });
  if (known != frame.worlds.end()) {
    frame.worlds.erase(known);
  }
}

}  // namespace

PF_Err CheckoutParam(PF_ProgPtr effectRef, PF_ParamIndex index, A_long time, A_long step, A_u_long scale,
                     PF_ParamDef* param) {
  const Entry entry = EnterHostCall("checkout_param", effectRef);
  if (entry.call == nullptr || entry.error != PF_Err_NONE) {
    return entry.error;
  }
  CallContext& call = *entry.call;
  if (call.frame == nullptr || param == nullptr) {
    Complain(call, ParamName(index) + " checked out outside a frame, or into nothing");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  if (index < 0 || static_cast<std::size_t>(index) >= call.frame->params.size()) {
    Complain(call, ParamName(index) + " checked out, which does not exist");
    return PF_Err_INVALID_INDEX;
  }
  PF_ParamDef record = call.frame->params[static_cast<std::size_t>(index)];
  const bool layer = record.param_type == PF_Param_LAYER;
  ComplainAboutPlace(call, index, layer);
  RunHook(call.faults->faults);
  LayerFrame answer;
  if (layer) {
    answer = AskProvider(call, index, time, step, scale);
  }
  if (answer.error == PF_Err_NONE) {
    Enter(call, index, time, WithRows(*call.effect, std::move(answer.world)), record);
    *param = record;
  }
  return answer.error;
}

PF_Err CheckinParam(PF_ProgPtr effectRef, PF_ParamDef* param) {
  const Entry entry = EnterHostCall("checkin_param", effectRef);
  if (entry.call == nullptr || entry.call->frame == nullptr || param == nullptr) {
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  CallContext& call = *entry.call;
  auto& checkouts = call.frame->checkouts;
  if (param->unused < 1 || static_cast<std::size_t>(param->unused) > checkouts.size()) {
    Complain(call, "checked in a record that was not checked out");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  Checkout& checkout = checkouts[static_cast<std::size_t>(param->unused) - 1];
  if (!checkout.open) {
    Complain(call, ParamName(checkout.param) + " checked in twice");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  CheckUntouched(call, checkout);
  if (checkout.world != nullptr) {
    ForgetWorld(*call.frame, *checkout.world);
    param->u.ld = PF_LayerDef{};
  }
  checkout.open = false;
  checkout.world.reset();
  Give(*call.ledger, Item::kCheckout, ParamName(checkout.param));
  return entry.error;
}

}  // namespace vantle::host
