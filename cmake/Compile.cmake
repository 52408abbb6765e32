# One interface target, linked by everything we write: warnings, and the floating-point rules on which
# identical pictures rest. No fast-math, no contraction: a fused multiply-add rounds once where two
# operations round twice, and pictures would differ between processors.
add_library(vantle_compile INTERFACE)
target_include_directories(vantle_compile INTERFACE ${CMAKE_SOURCE_DIR})
if(MSVC)
  # Precise arithmetic of this compiler contracts nothing. Not tried yet; see docs/install.md.
  target_compile_options(vantle_compile INTERFACE /W4 /permissive- /utf-8 /EHsc /fp:precise /Zc:__cplusplus)
  target_compile_definitions(vantle_compile INTERFACE NOMINMAX _CRT_SECURE_NO_WARNINGS)
else()
  target_compile_options(vantle_compile INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wcast-qual
    -Wformat=2 -Wundef -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
    -ffp-contract=off -fno-math-errno -fno-trapping-math)
endif()

# GCC 12 takes "text" + std::string for an overlapping copy (its bug 105651, mended in 13).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(vantle_compile INTERFACE -Wno-restrict)
endif()

if(VANTLE_SANITIZE)
  target_compile_options(vantle_compile INTERFACE
    -fsanitize=${VANTLE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(vantle_compile INTERFACE -fsanitize=${VANTLE_SANITIZE})
endif()

# The thread sanitizer does not understand the OpenMP runtime's own synchronisation, so its build runs the
# same loops on std::thread.
add_library(vantle_parallel INTERFACE)
if(VANTLE_STD_THREADS)
  target_compile_definitions(vantle_parallel INTERFACE VANTLE_STD_THREADS)
  find_package(Threads REQUIRED)
  target_link_libraries(vantle_parallel INTERFACE Threads::Threads)
elseif(MINGW)
  # CMake's own module would link the runtime's DLL; the compiler's switch takes the static one.
  target_compile_options(vantle_parallel INTERFACE -fopenmp)
  target_link_options(vantle_parallel INTERFACE -fopenmp)
else()
  find_package(OpenMP REQUIRED)
  target_link_libraries(vantle_parallel INTERFACE OpenMP::OpenMP_CXX)
endif()
