#include "tests/shell/fake_host.h"

#include "base/pixels.h"
#include "shell/dispatch.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vantle::test {
namespace {

thread_local FakeHost* current = nullptr;
thread_local int hostDepth = 0;

struct HostScope {
  HostScope() {
    ++hostDepth;
    // A worker thread of a parallel region has no host: calling one from there is the effect's error.
    if (current == nullptr) std::abort();
  }
  ~HostScope() { --hostDepth; }
  HostScope(const HostScope&) = delete;
  HostScope& operator=(const HostScope&) = delete;
};

// Handles: the block's address comes first, as hosts have it.
struct Block {
  void* data;
  size_t size;
  int locks;
};
std::set<Block*>& Blocks() {
  static thread_local std::set<Block*> blocks;
  return blocks;
}
Block* ToBlock(PF_Handle handle) {
  return reinterpret_cast<Block*>(handle);
}

PF_Handle MakeBlock(size_t size) {
  Block* block = new Block{std::malloc(size > 0 ? size : 1), size, 0};
  std::memset(block->data, 0xCD, size);
  Blocks().insert(block);
  return reinterpret_cast<PF_Handle>(block);
}

PF_Handle HostNewHandle(A_u_longlong size) {
  const HostScope scope;
  if (++current->handleCalls == current->failHandleAt) return nullptr;
  return MakeBlock(static_cast<size_t>(size));
}
void* HostLockHandle(PF_Handle handle) {
  const HostScope scope;
  if (++current->lockCalls == current->failLockAt) return nullptr;
  if (Blocks().count(ToBlock(handle)) == 0) std::abort();
  ++ToBlock(handle)->locks;
  return ToBlock(handle)->data;
}
void HostUnlockHandle(PF_Handle handle) {
  const HostScope scope;
  if (Blocks().count(ToBlock(handle)) == 0 || --ToBlock(handle)->locks < 0) std::abort();
}
void HostDisposeHandle(PF_Handle handle) {
  const HostScope scope;
  Block* block = ToBlock(handle);
  if (Blocks().erase(block) == 0) std::abort();
  std::free(block->data);
  delete block;
}
A_u_longlong HostHandleSize(PF_Handle handle) {
  const HostScope scope;
  if (Blocks().count(ToBlock(handle)) == 0) std::abort();
  return ToBlock(handle)->size;
}

// Callbacks of the parameter interface.
PF_Err AddParam(PF_ProgPtr, PF_ParamIndex index, PF_ParamDefPtr def) {
  const HostScope scope;
  if (index != -1) std::abort();
  if (++current->addParamCalls == current->failAddParamAt) return current->addParamError;
  current->declared.push_back(*def);
  return PF_Err_NONE;
}
PF_Err RegisterUi(PF_ProgPtr, PF_CustomUIInfo* info) {
  const HostScope scope;
  current->registeredUi.push_back(*info);
  return current->registerUiError;
}
PF_Err CheckoutParam(PF_ProgPtr, PF_ParamIndex index, A_long time, A_long step, A_u_long scale,
                     PF_ParamDef* def) {
  const HostScope scope;
  FakeHost* host = current;
  // Sprites alone are asked for at times of their own.
  if (time != host->in.current_time && index != kParamCustomLayer) std::abort();
  if (step != host->in.time_step || scale != host->in.time_scale) std::abort();
  if (++host->checkoutCalls == host->failCheckoutAt) {
    // A host that fails may still have scribbled into the record.
    std::memset(def, 0x5A, sizeof(*def));
    return PF_Err_INVALID_INDEX;
  }
  host->events.push_back("out " + std::to_string(index));
  ++host->checkouts;
  if (host->onCheckout) host->onCheckout();
  def->uu.id = index;
  const auto layer = host->layers.find(index);
  if (layer != host->layers.end() && layer->second != nullptr) def->u.ld = layer->second->def;
  return PF_Err_NONE;
}
PF_Err CheckinParam(PF_ProgPtr, PF_ParamDef* def) {
  const HostScope scope;
  current->events.push_back("in " + std::to_string(def->uu.id));
  --current->checkouts;
  return PF_Err_NONE;
}

// Suites.
bool Fails(const char* call) {
  return current->failingCalls.count(call) != 0;
}

int Sprintf(A_char* to, const A_char* format, ...) {
  const HostScope scope;
  std::va_list arguments;
  va_start(arguments, format);
  // Through a pointer: the format is no literal, which compilers warn of by the function's name.
  int (*const print)(char*, size_t, const char*, std::va_list) = std::vsnprintf;
  const int length = print(to, 256, format, arguments);
  va_end(arguments);
  return length;
}

PF_Err GetPixelFormat(const PF_EffectWorld*, PF_PixelFormat* format) {
  const HostScope scope;
  if (current->formatFails) return PF_Err_BAD_CALLBACK_PARAM;
  *format = current->depth == PixelDepth::k8    ? PF_PixelFormat_ARGB32
            : current->depth == PixelDepth::k16 ? PF_PixelFormat_ARGB64
                                                : PF_PixelFormat_ARGB128;
  return PF_Err_NONE;
}

A_Err RegisterWithAegp(AEGP_GlobalRefcon refcon, const A_char* name, AEGP_PluginID* id) {
  const HostScope scope;
  if (refcon != nullptr || std::strcmp(name, "Vantle") != 0) std::abort();
  if (Fails("AEGP_RegisterWithAEGP")) {
    *id = 99;
    return A_Err_GENERIC;
  }
  *id = current->nextPluginId;
  return A_Err_NONE;
}

int cameraLayer = 0;
AEGP_LayerH CameraLayer() {
  return reinterpret_cast<AEGP_LayerH>(&cameraLayer);
}

// The layer starts three ticks into the composition; tests go to the ends of the type.
A_long ToCompTime(A_long time) {
  return time <= INT32_MAX - 3 ? time + 3 : INT32_MAX;
}

A_Err ConvertEffectToCompTime(PF_ProgPtr, A_long time, A_u_long scale, A_Time* result) {
  const HostScope scope;
  if (Fails("AEGP_ConvertEffectToCompTime")) return A_Err_GENERIC;
  *result = {ToCompTime(time), scale};
  return A_Err_NONE;
}
A_Err GetEffectCamera(PF_ProgPtr, const A_Time* time, AEGP_LayerH* layer) {
  const HostScope scope;
  if (Fails("AEGP_GetEffectCamera")) return A_Err_GENERIC;
  if (time->value != ToCompTime(current->in.current_time)) std::abort();
  *layer = current->camera != nullptr ? CameraLayer() : nullptr;
  return A_Err_NONE;
}
A_Err GetEffectCameraMatrix(PF_ProgPtr, const A_Time*, A_Matrix4* matrix, A_FpLong* distance, A_short* width,
                            A_short* height) {
  const HostScope scope;
  *matrix = current->camera->matrix;
  *distance = current->camera->distance;
  *width = current->camera->width;
  *height = current->camera->height;
  return Fails("AEGP_GetEffectCameraMatrix") ? A_Err_GENERIC : A_Err_NONE;
}

int streamTokens[32];
A_Err GetNewLayerStream(AEGP_PluginID id, AEGP_LayerH layer, AEGP_LayerStream which,
                        AEGP_StreamRefH* stream) {
  const HostScope scope;
  if (id != current->nextPluginId || layer != CameraLayer()) std::abort();
  current->events.push_back("stream " + std::to_string(which));
  if (Fails("AEGP_GetNewLayerStream")) return A_Err_GENERIC;
  ++current->streams;
  *stream = reinterpret_cast<AEGP_StreamRefH>(&streamTokens[which]);
  return A_Err_NONE;
}
A_Err DisposeStream(AEGP_StreamRefH) {
  const HostScope scope;
  --current->streams;
  return A_Err_NONE;
}
A_Err GetNewStreamValue(AEGP_PluginID, AEGP_StreamRefH stream, AEGP_LTimeMode mode, const A_Time* time,
                        A_Boolean preExpression, AEGP_StreamValue2* value) {
  const HostScope scope;
  if (mode != AEGP_LTimeMode_CompTime || preExpression != 0 ||
      time->value != ToCompTime(current->in.current_time)) {
    std::abort();
  }
  if (Fails("AEGP_GetNewStreamValue")) return A_Err_GENERIC;
  ++current->streamValues;
  const FakeCamera& camera = *current->camera;
  const auto which = reinterpret_cast<int*>(stream) - streamTokens;
  value->val.one_d = which == AEGP_LayerStream_DEPTH_OF_FIELD   ? camera.depthOfField
                     : which == AEGP_LayerStream_FOCUS_DISTANCE ? camera.focusDistance
                     : which == AEGP_LayerStream_APERTURE       ? camera.aperture
                     : which == AEGP_LayerStream_ZOOM           ? camera.zoom
                                                                : -1.0;
  return A_Err_NONE;
}
A_Err DisposeStreamValue(AEGP_StreamValue2*) {
  const HostScope scope;
  --current->streamValues;
  return A_Err_NONE;
}

struct Tables {
  PF_ANSICallbacksSuite1 ansi{};
  PF_WorldSuite2 world{};
  AEGP_UtilitySuite6 utility{};
  AEGP_PFInterfaceSuite1 interface {};
  AEGP_StreamSuite6 stream{};
  Tables() {
    ansi.sprintf = Sprintf;
    world.PF_GetPixelFormat = GetPixelFormat;
    utility.AEGP_RegisterWithAEGP = RegisterWithAegp;
    interface.AEGP_ConvertEffectToCompTime = ConvertEffectToCompTime;
    interface.AEGP_GetEffectCamera = GetEffectCamera;
    interface.AEGP_GetEffectCameraMatrix = GetEffectCameraMatrix;
    stream.AEGP_GetNewLayerStream = GetNewLayerStream;
    stream.AEGP_DisposeStream = DisposeStream;
    stream.AEGP_GetNewStreamValue = GetNewStreamValue;
    stream.AEGP_DisposeStreamValue = DisposeStreamValue;
  }
};
const Tables tables;

const void* FindTable(const char* name, int32 version) {
  const auto is = [&](const char* suite, A_long number) {
    return std::strcmp(name, suite) == 0 && version == number;
  };
  if (is("PF ANSI Suite", 1)) return &tables.ansi;
  if (is("PF World Suite", 2)) return &tables.world;
  const bool general = current->in.appl_id != kApplPremierePro;
  if (general && is("AEGP Utility Suite", 13)) return &tables.utility;
  if (general && is("AEGP PF Interface Suite", 1)) return &tables.interface;
  if (general && is("AEGP Stream Suite", 11)) return &tables.stream;
  return nullptr;
}

SPErr AcquireSuite(const char* name, int32 version, const void** suite) {
  const HostScope scope;
  constexpr SPErr kNoSuchSuite = 0x53214964;
  const void* table = FindTable(name, version);
  if (table == nullptr) return kNoSuchSuite;
  const auto fault = current->suiteFaults.find(name);
  switch (fault != current->suiteFaults.end() ? fault->second : SuiteFault::kNone) {
    case SuiteFault::kMissing:
      return kNoSuchSuite;
    case SuiteFault::kNullTable:
      *suite = nullptr;
      return 0;
    case SuiteFault::kErrorWithTable:
      *suite = table;
      return kNoSuchSuite;
    case SuiteFault::kErrorWithGarbage:
      *suite = reinterpret_cast<const void*>(uintptr_t{0x10});
      return kNoSuchSuite;
    case SuiteFault::kNone:
      break;
  }
  ++current->suites[name];
  *suite = table;
  return 0;
}
SPErr ReleaseSuite(const char* name, int32) {
  const HostScope scope;
  --current->suites[name];
  return 0;
}

template <class Format>
void Store(std::byte* at, const float (&argb)[4]) {
  StorePixel<Format>(at, {argb[0], argb[1], argb[2], argb[3]});
}

template <class Channel>
std::vector<double> ReadCodes(const std::byte* at) {
  Channel codes[4];
  std::memcpy(codes, at, sizeof(codes));
  return {static_cast<double>(codes[0]), static_cast<double>(codes[1]), static_cast<double>(codes[2]),
          static_cast<double>(codes[3])};
}

}  // namespace

bool InsideHost() {
  return hostDepth > 0;
}

FakeWorld::FakeWorld(PixelDepth depth, int32_t width, int32_t height, int32_t padding, bool bottomUp)
    : depth_(depth) {
  const size_t row = static_cast<size_t>(width) * PixelBytes(depth);
  const size_t stride = row + static_cast<size_t>(padding);
  constexpr size_t kMargin = 64;
  bytes_.assign(kMargin + stride * static_cast<size_t>(height) + kMargin, kGuard);
  inRow_.assign(bytes_.size(), false);
  for (size_t y = 0; y < static_cast<size_t>(height); ++y) {
    for (size_t x = 0; x < row; ++x) inRow_[kMargin + y * stride + x] = true;
  }
  const size_t first = bottomUp ? kMargin + stride * static_cast<size_t>(height - 1) : kMargin;
  def.data = reinterpret_cast<PF_PixelPtr>(bytes_.data() + first);
  def.rowbytes = bottomUp ? -static_cast<A_long>(stride) : static_cast<A_long>(stride);
  def.width = width;
  def.height = height;
  def.world_flags = depth == PixelDepth::k16 ? PF_WorldFlag_DEEP : 0;
}

std::byte* FakeWorld::At(int32_t x, int32_t y) {
  return reinterpret_cast<std::byte*>(def.data) + std::ptrdiff_t{def.rowbytes} * y +
         static_cast<std::ptrdiff_t>(PixelBytes(depth_)) * x;
}
const std::byte* FakeWorld::At(int32_t x, int32_t y) const {
  return reinterpret_cast<const std::byte*>(def.data) + std::ptrdiff_t{def.rowbytes} * y +
         static_cast<std::ptrdiff_t>(PixelBytes(depth_)) * x;
}

void FakeWorld::Set(int32_t x, int32_t y, float a, float r, float g, float b) {
  const float argb[4] = {a, r, g, b};
  if (depth_ == PixelDepth::k8) Store<Format8>(At(x, y), argb);
  if (depth_ == PixelDepth::k16) Store<Format16>(At(x, y), argb);
  if (depth_ == PixelDepth::k32) Store<Format32>(At(x, y), argb);
}

void FakeWorld::Fill(float a, float r, float g, float b) {
  for (int32_t y = 0; y < def.height; ++y) {
    for (int32_t x = 0; x < def.width; ++x) Set(x, y, a, r, g, b);
  }
}

std::vector<double> FakeWorld::Codes(int32_t x, int32_t y) const {
  if (depth_ == PixelDepth::k8) return ReadCodes<uint8_t>(At(x, y));
  return depth_ == PixelDepth::k16 ? ReadCodes<uint16_t>(At(x, y)) : ReadCodes<float>(At(x, y));
}

std::vector<std::byte> FakeWorld::Pixels() const {
  std::vector<std::byte> pixels;
  for (int32_t y = 0; y < def.height; ++y) pixels.insert(pixels.end(), At(0, y), At(def.width, y));
  return pixels;
}

bool FakeWorld::GuardsIntact() const {
  for (size_t i = 0; i < bytes_.size(); ++i) {
    if (!inRow_[i] && bytes_[i] != kGuard) return false;
  }
  return true;
}

FakeHost::FakeHost() : previous_(current) {
  current = this;
  utils_.host_new_handle = HostNewHandle;
  utils_.host_lock_handle = HostLockHandle;
  utils_.host_unlock_handle = HostUnlockHandle;
  utils_.host_dispose_handle = HostDisposeHandle;
  utils_.host_get_handle_size = HostHandleSize;
  basic_.AcquireSuite = AcquireSuite;
  basic_.ReleaseSuite = ReleaseSuite;
  in.inter.add_param = AddParam;
  in.inter.register_ui = RegisterUi;
  in.inter.checkout_param = CheckoutParam;
  in.inter.checkin_param = CheckinParam;
  in.utils = &utils_;
  in.pica_basicP = &basic_;
  in.effect_ref = reinterpret_cast<PF_ProgPtr>(this);
  in.appl_id = kApplAfterEffects;
  in.downsample_x = {1, 1};
  in.downsample_y = {1, 1};
  SetTime(0, 1, 25);
}

FakeHost::~FakeHost() {
  DisposeOwned();
  current = previous_;
}

FakeHost* FakeHost::Current() {
  return current;
}

FakeHost::Use::Use(FakeHost* host) : previous_(current) {
  current = host;
}
FakeHost::Use::~Use() {
  current = previous_;
}

void FakeHost::SetTime(int32_t time, int32_t step, uint32_t scale) {
  in.current_time = time;
  in.time_step = step;
  in.time_scale = scale;
}

PF_ParamDef** FakeHost::Params() {
  DispatchCommand(PF_Cmd_PARAMS_SETUP, &in, &out, nullptr, nullptr, nullptr);
  in.num_params = out.num_params;
  values.assign(1, PF_ParamDef{});
  values[0].u.ld = emptyInput_.def;
  for (const PF_ParamDef& def : declared) {
    values.push_back(def);
    if (def.param_type != PF_Param_ARBITRARY_DATA || def.u.arb_d.dephault == nullptr) continue;
    const Block* block = ToBlock(def.u.arb_d.dephault);
    values.back().u.arb_d.value = NewHandle(block->data, block->size);
  }
  pointers_.clear();
  for (PF_ParamDef& value : values) pointers_.push_back(&value);
  return pointers_.data();
}

PF_Handle FakeHost::NewHandle(const void* bytes, size_t size) {
  const PF_Handle handle = MakeBlock(size);
  std::memcpy(ToBlock(handle)->data, bytes, size);
  return handle;
}

size_t FakeHost::HandleCount() const {
  return Blocks().size();
}

int FakeHost::LockCount() const {
  int locks = 0;
  for (const Block* block : Blocks()) locks += block->locks;
  return locks;
}

void FakeHost::DisposeOwned() {
  for (std::vector<PF_ParamDef>* list : {&declared, &values}) {
    for (PF_ParamDef& def : *list) {
      if (def.param_type != PF_Param_ARBITRARY_DATA) continue;
      PF_ArbitraryH& handle = list == &declared ? def.u.arb_d.dephault : def.u.arb_d.value;
      if (handle != nullptr) HostDisposeHandle(handle);
      handle = nullptr;
    }
  }
}

std::string FakeHost::Imbalance() const {
  std::string lines;
  if (checkouts != 0) lines += "checkouts " + std::to_string(checkouts) + "\n";
  if (LockCount() != 0) lines += "locks " + std::to_string(LockCount()) + "\n";
  if (streams != 0) lines += "streams " + std::to_string(streams) + "\n";
  if (streamValues != 0) lines += "stream values " + std::to_string(streamValues) + "\n";
  for (const auto& [name, count] : suites) {
    if (count != 0) lines += name + " " + std::to_string(count) + "\n";
  }
  return lines;
}

}  // namespace vantle::test
