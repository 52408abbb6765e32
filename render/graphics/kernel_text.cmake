# Makes the kernel's text: kernel.hlsl with the numbering of shapes and transfer modes and the formulas put in,
# all taken from the C++ headers, so that each exists once. The shader compiler is given no way to include, so
# the text is one.

# vantle_formulas(HEADER OUT_VARIABLE): what stands inside the header's namespace, as a shading language has
# it: no templates (Real is a float), no `inline`, records by value, `inout` for a reference to be written.
function(vantle_formulas header out)
  file(READ ${header} text)
  if(NOT text MATCHES "namespace vantle::kernel {\n(.*)}  // namespace vantle::kernel\n")
    message(FATAL_ERROR "${header}: no namespace vantle::kernel to take formulas from")
  endif()
  set(text "${CMAKE_MATCH_1}")
  string(REGEX REPLACE "static_assert[^\n]*\n" "" text "${text}")
  string(REGEX REPLACE "template <[^>\n]*>\n" "" text "${text}")
  string(REGEX REPLACE "(^|\n)inline " "\\1" text "${text}")
  string(REGEX REPLACE "const ([A-Z][A-Za-z]*)& " "\\1 " text "${text}")
  string(REGEX REPLACE "(Real|float)& " "inout \\1 " text "${text}")
  set(${out} "${text}" PARENT_SCOPE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
endfunction()

# vantle_shader_constants(HEADER OUT_VARIABLE): every SHAPE_ and BLEND_ of the header's enumerations.
function(vantle_shader_constants header out)
  file(READ ${header} text)
  string(REGEX MATCHALL "(SHAPE|BLEND)_[A-Z_]+ = [0-9]+" constants "${text}")
  set(lines "")
  foreach(constant IN LISTS constants)
    string(APPEND lines "static const int ${constant};\n")
  endforeach()
  set(${out} "${lines}" PARENT_SCOPE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
endfunction()

# vantle_kernel_text(OUT_HLSL OUT_LITERALS): writes the text, and the text as C++ string literals. One literal
# a part: compilers limit the length of one, not of their sum.
function(vantle_kernel_text hlsl literals)
  set(kernel ${CMAKE_CURRENT_SOURCE_DIR}/kernel.hlsl)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${kernel})
  file(READ ${kernel} text)
  if(NOT text MATCHES "^(.*)//@constants\n(.*)//@formulas\n(.*)$")
    message(FATAL_ERROR "${kernel}: the places for constants and formulas are missing")
  endif()
  set(head "${CMAKE_MATCH_1}")
  set(helpers "${CMAKE_MATCH_2}")
  set(main "${CMAKE_MATCH_3}")
  vantle_shader_constants(${CMAKE_SOURCE_DIR}/particles/frame_settings.h constants)
  vantle_formulas(${CMAKE_SOURCE_DIR}/render/coverage.h coverage)
  vantle_formulas(${CMAKE_SOURCE_DIR}/render/transfer.h transfer)
  vantle_formulas(${CMAKE_SOURCE_DIR}/render/accumulate.h accumulate)

  file(CONFIGURE OUTPUT ${hlsl} @ONLY NEWLINE_STYLE UNIX
    CONTENT "${head}${constants}${helpers}${coverage}${transfer}${accumulate}${main}")
  set(quoted "")
  foreach(part head constants helpers coverage transfer accumulate main)
    string(APPEND quoted "R\"hlsl(${${part}})hlsl\"\n")
  endforeach()
  file(CONFIGURE OUTPUT ${literals} @ONLY NEWLINE_STYLE UNIX CONTENT "${quoted}")
endfunction()
