# Libraries that are headers, or one source file, alone. In a cross build they are taken from the build machine,
# each from a folder of its own: the folder in which they are installed also holds the machine's C library.

# vantle_find_headers(name file): sets name_headers to a folder that holds `file` and what lies beside it.
function(vantle_find_headers name file)
  find_path(${name}_found ${file} PATH_SUFFIXES ${name} REQUIRED NO_CMAKE_FIND_ROOT_PATH
            PATHS /usr/include /usr/local/include)
  set(${name}_headers ${${name}_found} PARENT_SCOPE)
endfunction()

if(CMAKE_CROSSCOMPILING AND NOT TARGET nlohmann_json::nlohmann_json)
  vantle_find_headers(nlohmann json.hpp)
  set(alone ${CMAKE_BINARY_DIR}/headers)
  file(MAKE_DIRECTORY ${alone})
  file(CREATE_LINK ${nlohmann_headers} ${alone}/nlohmann COPY_ON_ERROR SYMBOLIC)
  add_library(nlohmann_json INTERFACE)
  add_library(nlohmann_json::nlohmann_json ALIAS nlohmann_json)
  target_include_directories(nlohmann_json SYSTEM INTERFACE ${alone})
elseif(NOT TARGET nlohmann_json::nlohmann_json)
  find_package(nlohmann_json 3.10 REQUIRED)
endif()
