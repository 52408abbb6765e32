# Cross-compiles for 64-bit Windows with MinGW-w64, GCC with POSIX threads. Everything that is not the system's
# own is linked in, so that the library is one file.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

# Only what belongs to Windows may be found; the build machine gives programs, never libraries.
set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# GCC cannot align the stack to more than 16 bytes on Windows (its bug 54412), yet keeps wide vectors there
# as if they were aligned; the assembler turns those moves into ones that take any address.
set(alignment "-Wa,-muse-unaligned-vector-move")

# No paths and no times of the build machine in what is built: two builds give the same bytes.
set(source_root "${CMAKE_CURRENT_LIST_DIR}/..")
cmake_path(NORMAL_PATH source_root)
set(quiet_paths "-ffile-prefix-map=${source_root}= -ffile-prefix-map=${CMAKE_BINARY_DIR}/=build/")
set(CMAKE_C_FLAGS_INIT "${alignment} ${quiet_paths}")
set(CMAKE_CXX_FLAGS_INIT "${alignment} ${quiet_paths}")
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
  set(CMAKE_${kind}_LINKER_FLAGS_RELEASE_INIT "-s")
endforeach()

set(CMAKE_CROSSCOMPILING_EMULATOR ${source_root}/tools/wine.sh)
