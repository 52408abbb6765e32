// What tests share with the stand-ins for the system's two graphics libraries: switches for what goes wrong,
// and books on what was done. Each library exports the address of its record and a function that starts it
// afresh.
#pragma once

#include <cstdint>

namespace vantle::standin {

/// Results are the system's codes: negative ones are failures, 0 is success.
using Result = std::int32_t;

inline constexpr Result kUnsupported = static_cast<Result>(0x887A0004);
inline constexpr Result kDeviceRemoved = static_cast<Result>(0x887A0005);
inline constexpr Result kOutOfMemory = static_cast<Result>(0x8007000E);
inline constexpr Result kFail = static_cast<Result>(0x80004005);

/// What the last dispatch was given.
struct SeenDispatch {
  std::uint32_t groups[3];
  std::int32_t params[12];
  std::uint32_t particles, offsets, indices, pixels;  ///< elements that the views show
  std::int32_t firstIndex;                            ///< the first entry of the list of indices
};

/// The stand-in for d3d11.dll: a device whose one shader is the kernel's formulas as C++.
struct Graphics {
  // What goes wrong. Codes are answered by every such call until they are set back.
  Result createDevice = 0;
  bool withholdDevice = false;   ///< D3D11CreateDevice succeeds and gives nothing
  bool withholdContext = false;  ///< it gives a device and no context
  int failDevice = 0;            ///< this many devices further on, one is unsupported: 1 is the next; 0 never
  Result createShader = 0;
  int failCreation = 0;  ///< this many buffers and views further on, one is not made: 1 is the next; 0 never
  Result map = 0;
  std::uint32_t rowPitch = 0;  ///< told by Map in place of the buffer's size
  bool removed = false;  ///< the device is lost: whatever can fail does, and the device stays so for good

  /// Called inside Map, on the rendering thread.
  void (*insideMap)(void* context) = nullptr;
  void* insideMapContext = nullptr;

  // What was done.
  int devices = 0;  ///< successful creations, the probe's included
  int shaders = 0;
  int creations = 0;  ///< of buffers and views, the failed one included
  int dispatches = 0;
  int maps = 0;
  int unmaps = 0;
  int live = 0;                                  ///< objects with a reference on them
  std::uint32_t lastDeviceRelease = 0xFFFFFFFF;  ///< what the last Release of a device returned
  SeenDispatch seen{};

  // What no use of Direct3D may do: wrong arguments, released objects, two threads at once.
  int faults = 0;
  char firstFault[160] = {};
};

/// The stand-in for d3dcompiler_47.dll.
struct Compiler {
  // What goes wrong.
  Result result = 0;
  bool givesMessages = false;
  char messages[2048] = {};
  bool withholdBytecode = false;  ///< it succeeds and gives nothing

  // What was done.
  int compilations = 0;
  int live = 0;  ///< blobs with a reference on them
  const void* text = nullptr;
  std::uint64_t textBytes = 0;
  char sourceName[64] = {};
  char entry[64] = {};
  char target[16] = {};
  bool givenMacros = false;
  bool givenIncludes = false;
  std::uint32_t compileFlags = 0;
  std::uint32_t effectFlags = 0;
};

/// What the compiler's stand-in makes of any text, and what the device's takes for a shader.
inline constexpr char kBytecode[] = "stand-in bytecode";

/// Names of the exported functions, and what they are.
inline constexpr const char* kGraphicsName = "StandInGraphics";
inline constexpr const char* kGraphicsResetName = "ResetStandInGraphics";
inline constexpr const char* kCompilerName = "StandInCompiler";
inline constexpr const char* kCompilerResetName = "ResetStandInCompiler";
using GraphicsAddress = Graphics* (*)();
using CompilerAddress = Compiler* (*)();
using ResetStandIn = void (*)();

}  // namespace vantle::standin
