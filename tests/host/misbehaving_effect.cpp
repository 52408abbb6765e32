// A small effect that renders grey, or breaks one rule of its host.
#include "tests/host/misbehaving_effect.h"

#include "base/compiler.h"
#include "host_api/aegp_suites.h"
#include "host_api/arbitrary_data.h"
#include "host_api/commands.h"
#include "host_api/entry_points.h"

#include <cstring>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

AEGP_PluginID pluginId = 0;

template <typename Functions>
const Functions* Acquire(PF_InData* in, const char* name, A_long version) {
  const void* suite = nullptr;
  return in->pica_basicP->AcquireSuite(name, version, &suite) == 0 ? static_cast<const Functions*>(suite)
                                                                   : nullptr;
}

void Release(PF_InData* in, const char* name, A_long version) {
  in->pica_basicP->ReleaseSuite(name, version);
}

const A_u_char* Text(const char* text) {
  return reinterpret_cast<const A_u_char*>(text);
}

PF_Err SetUp(PF_InData* in, PF_OutData* out) {
  out->my_version = PackVersion(1, 0, 0, PF_Stage_DEVELOP, 1);
  out->out_flags = PF_OutFlag_DEEP_COLOR_AWARE;
  out->out_flags2 = PF_OutFlag2_SUPPORTS_THREADED_RENDERING;
  if (const auto* utility =
          Acquire<AEGP_UtilitySuite6>(in, kAEGP_UtilitySuite6Name, kAEGP_UtilitySuite6Version)) {
    utility->AEGP_RegisterWithAEGP(nullptr, "Misbehaving", &pluginId);
    Release(in, kAEGP_UtilitySuite6Name, kAEGP_UtilitySuite6Version);
  }
  return PF_Err_NONE;
}

PF_ArbitraryH NewValue(PF_InData* in) {
  const PF_Handle handle = in->utils->host_new_handle(kCustomBytes);
  if (handle != nullptr) {
    if (void* data = in->utils->host_lock_handle(handle)) {
      std::memset(data, 7, kCustomBytes);
      in->utils->host_unlock_handle(handle);
    }
  }
  return handle;
}

PF_ParamDef MakeParam(A_long id, PF_ParamType type, const char* name) {
  PF_ParamDef def{};
  def.uu.id = id;
  def.param_type = type;
  std::strncpy(def.name, name, sizeof def.name - 1);
  return def;
}

PF_Err DeclareParams(PF_InData* in, PF_OutData* out) {
  std::string choices = "a";
  for (A_long i = 2; i < kMisdeedEnd; ++i) {
    choices += "|b";
  }
  PF_ParamDef misdeed = MakeParam(kMisdeedParam, PF_Param_POPUP, "Misdeed");
  misdeed.u.pd.num_choices = kMisdeedEnd - 1;
  misdeed.u.pd.dephault = 1;
  misdeed.u.pd.u.namesptr = choices.c_str();
  PF_ParamDef layer = MakeParam(kLayerParam, PF_Param_LAYER, "Layer");
  layer.u.ld.dephault = PF_LayerDefault_MYSELF;
  PF_ParamDef custom = MakeParam(kCustomParam, PF_Param_ARBITRARY_DATA, "Custom");
  custom.u.arb_d.id = kCustomParam;
  custom.u.arb_d.dephault = NewValue(in);
  PF_ParamDef number = MakeParam(kNumberParam, PF_Param_FLOAT_SLIDER, "Number");
  number.u.fs_d.valid_max = number.u.fs_d.slider_max = 255;
  number.u.fs_d.dephault = 128;
  for (PF_ParamDef* def : {&misdeed, &layer, &custom, &number}) {
    if (const PF_Err error = in->inter.add_param(in->effect_ref, -1, def)) {
      if (def == &misdeed || def == &layer || def == &custom) {
        in->utils->host_dispose_handle(custom.u.arb_d.dephault);
      }
      return error;
    }
  }
  out->num_params = 5;
  return PF_Err_NONE;
}

PF_Err Checkout(PF_InData* in, PF_ParamDef& layer) {
  layer = PF_ParamDef{};
  return in->inter.checkout_param(in->effect_ref, kLayerParam, in->current_time, in->time_step,
                                  in->time_scale, &layer);
}

std::uint8_t* Bytes(PF_LayerDef& world) {
  return reinterpret_cast<std::uint8_t*>(world.data);
}

void FillGrey(PF_LayerDef& output, double number) {
  const auto code = static_cast<std::uint8_t>(number);
  const std::size_t rowBytes = static_cast<std::size_t>(output.width) * 4;
  for (A_long y = 0; (output.world_flags & PF_WorldFlag_DEEP) == 0 && y < output.height; ++y) {
    std::memset(Bytes(output) + std::ptrdiff_t{output.rowbytes} * y, code, rowBytes);
  }
}

void MisuseSuites(A_long misdeed, PF_InData* in) {
  const char* name = kPF_ANSICallbacksSuite1Name;
  const auto* ansi = Acquire<PF_ANSICallbacksSuite1>(in, name, 1);
  if (ansi == nullptr || misdeed == kKeepSuite) {
    return;
  }
  Release(in, name, 1);
  Release(in, name, 1);
}

void MisuseHandles(A_long misdeed, PF_InData* in) {
  const PF_UtilCallbacks& utils = *in->utils;
  const PF_Handle handle = utils.host_new_handle(16);
  if (handle == nullptr || misdeed == kKeepHandle) {
    return;
  }
  if (misdeed == kKeepLock || misdeed == kDisposeLocked) {
    utils.host_lock_handle(handle);
  } else if (misdeed == kUnlockTwice) {
    utils.host_lock_handle(handle);
    utils.host_unlock_handle(handle);
    utils.host_unlock_handle(handle);
  } else if (misdeed == kWritePastHandle) {
    if (void* data = utils.host_lock_handle(handle)) {
      std::memset(data, 1, 17);
      utils.host_unlock_handle(handle);
    }
  }
  utils.host_dispose_handle(handle);
  if (misdeed == kDisposeTwice) {
    utils.host_dispose_handle(handle);
  } else if (misdeed == kUseDisposedHandle) {
    utils.host_lock_handle(handle);
  }
}

void MisuseCheckouts(A_long misdeed, PF_InData* in) {
  PF_ParamDef layer;
  if (misdeed == kCheckInNothing) {
    layer = PF_ParamDef{};
    in->inter.checkin_param(in->effect_ref, &layer);
    return;
  }
  if (Checkout(in, layer) != 0 || misdeed == kKeepCheckout) {
    return;
  }
  if (misdeed == kWriteLayer && layer.u.ld.data != nullptr) {
    Bytes(layer.u.ld)[0] ^= 1;
  }
  PF_ParamDef copy = layer;
  in->inter.checkin_param(in->effect_ref, misdeed == kCheckInCopy ? &copy : &layer);
  if (misdeed == kCheckInTwice) {
    in->inter.checkin_param(in->effect_ref, &copy);
  }
}

void MisuseWorlds(A_long misdeed, PF_ParamDef* params[], PF_LayerDef* output) {
  std::uint8_t* first = Bytes(*output);
  switch (misdeed) {
    case kWriteBeforeOutput:
      first[-1] = 0;
      break;
    case kWriteBehindOutput:
      first[std::ptrdiff_t{output->rowbytes} * (output->height - 1) + output->width * 4 + 40] = 0;
      break;
    case kWritePadding:
      first[output->width * 4] = 0;
      break;
    default:
      Bytes(params[0]->u.ld)[1] ^= 1;
      break;
  }
}

void MisuseStreams(A_long misdeed, PF_InData* in) {
  const auto* services = Acquire<AEGP_PFInterfaceSuite1>(in, kAEGP_PFInterfaceSuite1Name, 1);
  const auto* streams = Acquire<AEGP_StreamSuite6>(in, kAEGP_StreamSuite6Name, 11);
  if (services != nullptr && streams != nullptr) {
    const A_Time time{in->current_time, in->time_scale};
    AEGP_LayerH camera = nullptr;
    AEGP_StreamRefH stream = nullptr;
    AEGP_EffectRefH effect = nullptr;
    services->AEGP_GetEffectCamera(in->effect_ref, &time, &camera);
    const AEGP_PluginID id = misdeed == kWrongPluginId ? 30000 : pluginId;
    if (misdeed == kKeepEffectRef) {
      services->AEGP_GetNewEffectForEffect(id, in->effect_ref, &effect);
    } else if (streams->AEGP_GetNewLayerStream(id, camera, AEGP_LayerStream_ZOOM, &stream) == 0) {
      AEGP_StreamValue2 value{};
      if (misdeed == kKeepStreamValue) {
        streams->AEGP_GetNewStreamValue(id, stream, AEGP_LTimeMode_CompTime, &time, 0, &value);
      }
      if (misdeed != kKeepStream) {
        streams->AEGP_DisposeStream(stream);
      }
      if (misdeed == kUseDisposedStream) {
        streams->AEGP_GetNewStreamValue(id, stream, AEGP_LTimeMode_CompTime, &time, 0, &value);
      }
    }
  }
  Release(in, kAEGP_PFInterfaceSuite1Name, 1);
  Release(in, kAEGP_StreamSuite6Name, 11);
}

void MisuseWorldSuite(A_long misdeed, PF_InData* in) {
  if (const auto* worlds = Acquire<PF_WorldSuite2>(in, kPF_WorldSuite2Name, 2)) {
    PF_EffectWorld world{};
    std::uint8_t pixel[4] = {};
    PF_PixelFormat format = 0;
    if (misdeed == kKeepWorld) {
      worlds->PF_NewWorld(in->effect_ref, 2, 2, 1, PF_PixelFormat_ARGB32, &world);
    } else {
      world.data = reinterpret_cast<PF_PixelPtr>(pixel);
      worlds->PF_GetPixelFormat(&world, &format);
    }
    Release(in, kPF_WorldSuite2Name, 2);
  }
}

void CallEmptySlot(PF_InData* in) {
  if (const auto* streams = Acquire<AEGP_StreamSuite6>(in, kAEGP_StreamSuite6Name, 11)) {
    reinterpret_cast<A_Err (*)()>(streams->AEGP_GetUniqueStreamID)();
    Release(in, kAEGP_StreamSuite6Name, 11);
  }
}

PF_Err MisuseCommand(A_long misdeed, PF_InData* in, PF_OutData* out, PF_ParamDef* params[]) {
  PF_ParamDef def{};
  switch (misdeed) {
    case kThrowException:
      throw std::runtime_error("thrown on purpose");
    case kReturnError:
      std::strcpy(out->return_msg, "the reason");
      return PF_Err_BAD_CALLBACK_PARAM;
    case kEndlessMessage:
      std::memset(out->return_msg, 'x', sizeof out->return_msg);
      break;
    case kChangeSize:
      out->width += 1;
      break;
    case kCallEmptyCallback:
      reinterpret_cast<A_Err (*)()>(in->utils->iterate)();
      break;
    case kWrongEffectRef:
      in->inter.checkout_param(nullptr, kLayerParam, 0, 1, 1, &def);
      break;
    case kWriteParam:
      params[kNumberParam]->u.fs_d.value += 1;
      break;
    case kKeepParamLocked:
      in->utils->host_lock_handle(params[kCustomParam]->u.arb_d.value);
      break;
    case kDisposeParam:
      in->utils->host_dispose_handle(params[kCustomParam]->u.arb_d.value);
      break;
    case kAddParamInRender:
      in->inter.add_param(in->effect_ref, -1, &def);
      break;
    case kCallFromOtherThread:
      std::thread([&] { in->utils->host_new_handle(4); }).join();
      break;
    default:
      void* block = nullptr;
      in->pica_basicP->AllocateBlock(8, &block);
      break;
  }
  return PF_Err_NONE;
}

PF_Err Render(PF_InData* in, PF_OutData* out, PF_ParamDef* params[], PF_LayerDef* output) {
  const A_long misdeed = params[kMisdeedParam]->u.pd.value;
  FillGrey(*output, params[kNumberParam]->u.fs_d.value);
  if (misdeed == kKeepSuite || misdeed == kReleaseTwice) {
    MisuseSuites(misdeed, in);
  } else if (misdeed >= kKeepHandle && misdeed <= kWritePastHandle) {
    MisuseHandles(misdeed, in);
  } else if ((misdeed >= kKeepCheckout && misdeed <= kCheckInNothing) || misdeed == kWriteLayer) {
    MisuseCheckouts(misdeed, in);
  } else if (misdeed >= kWriteBeforeOutput && misdeed <= kWriteInput) {
    MisuseWorlds(misdeed, params, output);
  } else if (misdeed >= kKeepStream && misdeed <= kKeepEffectRef) {
    MisuseStreams(misdeed, in);
  } else if (misdeed == kKeepWorld || misdeed == kAskUnknownFormat) {
    MisuseWorldSuite(misdeed, in);
  } else if (misdeed == kCallEmptySlot) {
    CallEmptySlot(in);
  } else if (misdeed != kBehave) {
    return MisuseCommand(misdeed, in, out, params);
  } else {
    PF_ParamDef layer;
    if (Checkout(in, layer) == 0) {
      in->inter.checkin_param(in->effect_ref, &layer);
    }
  }
  return PF_Err_NONE;
}

/// Values are 24 bytes; interpolation takes the left one up to the middle.
PF_Err AnswerCallback(PF_InData* in, PF_ArbParamsExtra* extra) {
  PF_ArbParamsExtra_u& u = extra->u;
  const auto copy = [&](PF_ArbitraryH from, PF_ArbitraryH* to) {
    *to = NewValue(in);
    std::memcpy(**to, *from, kCustomBytes);
  };
  switch (extra->which_function) {
    case PF_Arbitrary_NEW_FUNC:
      *u.new_func_params.arbPH = NewValue(in);
      break;
    case PF_Arbitrary_DISPOSE_FUNC:
      in->utils->host_dispose_handle(u.dispose_func_params.arbH);
      break;
    case PF_Arbitrary_COPY_FUNC:
      copy(u.copy_func_params.src_arbH, u.copy_func_params.dst_arbPH);
      break;
    case PF_Arbitrary_FLAT_SIZE_FUNC:
      *u.flat_size_func_params.flat_data_sizePLu = kCustomBytes;
      break;
    case PF_Arbitrary_FLATTEN_FUNC:
      std::memcpy(u.flatten_func_params.flat_dataPV, *u.flatten_func_params.arbH, kCustomBytes);
      break;
    case PF_Arbitrary_UNFLATTEN_FUNC:
      if (u.unflatten_func_params.buf_sizeLu >= kCustomBytes) {
        *u.unflatten_func_params.arbPH = NewValue(in);
        std::memcpy(**u.unflatten_func_params.arbPH, u.unflatten_func_params.flat_dataPV, kCustomBytes);
      }
      break;
    case PF_Arbitrary_INTERP_FUNC:
      copy(u.interp_func_params.tF <= 0.5 ? u.interp_func_params.left_arbH : u.interp_func_params.right_arbH,
           u.interp_func_params.interpPH);
      break;
    case PF_Arbitrary_COMPARE_FUNC:
      *u.compare_func_params.compareP =
          std::memcmp(*u.compare_func_params.a_arbH, *u.compare_func_params.b_arbH, kCustomBytes) == 0
              ? PF_ArbCompare_EQUAL
              : PF_ArbCompare_NOT_EQUAL;
      break;
    case PF_Arbitrary_PRINT_SIZE_FUNC:
      *u.print_size_func_params.print_sizePLu = 4;
      break;
    case PF_Arbitrary_PRINT_FUNC:
      std::memcpy(u.print_func_params.print_bufferPC, "text", 4);
      break;
    default:
      // A text is "read" by keeping a lock, so that this detector fires as well.
      *u.scan_func_params.arbPH = NewValue(in);
      in->utils->host_lock_handle(*u.scan_func_params.arbPH);
      break;
  }
  return PF_Err_NONE;
}

}  // namespace

extern "C" VANTLE_EXPORT PF_Err PluginDataEntryFunction(PF_PluginDataPtr token, PF_PluginDataCB callback,
                                                        SPBasicSuite*, const char*, const char*) {
  return callback(token, Text("Misbehaving"), Text("Test_Misbehaving"), Text("Test"), Text("EffectMain"),
                  kPluginKindEffect, 13, 28, 8);
}

extern "C" VANTLE_EXPORT PF_Err EffectMain(PF_Cmd command, PF_InData* in, PF_OutData* out,
                                           PF_ParamDef* params[], PF_LayerDef* output, void* extra) {
  switch (command) {
    case PF_Cmd_GLOBAL_SETUP:
      return SetUp(in, out);
    case PF_Cmd_PARAMS_SETUP:
      return DeclareParams(in, out);
    case PF_Cmd_RENDER:
      return Render(in, out, params, output);
    case PF_Cmd_ARBITRARY_CALLBACK:
      return AnswerCallback(in, static_cast<PF_ArbParamsExtra*>(extra));
    default:
      return PF_Err_NONE;
  }
}
