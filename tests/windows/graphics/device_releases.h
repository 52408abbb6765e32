// Looks over the shoulder of the system's Direct3D: what devices answer when they are released.
#pragma once

namespace vantle::test {

/// Begins to watch, which lasts until the program ends. False when there is no device to learn from.
bool WatchDeviceReleases();

/// Since the last call: how many devices were let go of altogether, and what the latest release of any
/// returned, the number of references left on it. Objects of a device hold references on it, and release
/// them.
struct DeviceReleases {
  int ended = 0;
  unsigned long latest = 0;
};
DeviceReleases TakeDeviceReleases();

}  // namespace vantle::test
