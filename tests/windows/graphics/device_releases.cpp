#include "tests/windows/graphics/device_releases.h"

// Interfaces as records with a table of functions, instead of as classes.
#define CINTERFACE
#include "render/graphics/headers_d3d11.h"

#include <mutex>

namespace vantle::test {

namespace {

using Release = ULONG(STDMETHODCALLTYPE*)(ID3D11Device*);

struct Watch {
  std::mutex mutex;
  Release release = nullptr;
  DeviceReleases seen;
};

Watch& TheWatch() {
  static Watch watch;
  return watch;
}

ULONG STDMETHODCALLTYPE WatchedRelease(ID3D11Device* device) {
  const ULONG left = TheWatch().release(device);
  const std::lock_guard lock(TheWatch().mutex);
  if (left == 0) ++TheWatch().seen.ended;
  TheWatch().seen.latest = left;
  return left;
}

ID3D11Device* NewDevice() {
  const HMODULE library = LoadLibraryExW(L"d3d11.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (library == nullptr) return nullptr;
  const auto create = reinterpret_cast<PFN_D3D11_CREATE_DEVICE>(
      reinterpret_cast<void*>(GetProcAddress(library, "D3D11CreateDevice")));
  ID3D11Device* device = nullptr;
  if (create == nullptr || create(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, 0, nullptr, 0,
                                  D3D11_SDK_VERSION, &device, nullptr, nullptr) < 0)
    return nullptr;
  return device;
}

}  // namespace

bool WatchDeviceReleases() {
  ID3D11Device* const device = NewDevice();
  if (device == nullptr) return false;
  // All devices share one table of functions; the entry is exchanged for ours.
  const Release* const entry = &device->lpVtbl->Release;
  DWORD protection = 0;
  void* const place = const_cast<Release*>(entry);
  const bool writable = VirtualProtect(place, sizeof(Release), PAGE_READWRITE, &protection) != 0;
  if (writable) {
    TheWatch().release = *entry;
    *static_cast<Release*>(place) = &WatchedRelease;
    VirtualProtect(place, sizeof(Release), protection, &protection);
  }
  device->lpVtbl->Release(device);
  return writable;
}

DeviceReleases TakeDeviceReleases() {
  const std::lock_guard lock(TheWatch().mutex);
  const DeviceReleases seen = TheWatch().seen;
  TheWatch().seen = {};
  return seen;
}

}  // namespace vantle::test
