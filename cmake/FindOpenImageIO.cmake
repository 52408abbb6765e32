# Debian's own configuration of OpenImageIO refuses to load unless the tools and the headers of OpenCV are
# installed as well. The two libraries and their headers are all we need, so they are found directly.
find_path(OpenImageIO_INCLUDE_DIR OpenImageIO/imageio.h)
find_library(OpenImageIO_LIBRARY OpenImageIO)
find_library(OpenImageIO_UTIL_LIBRARY OpenImageIO_Util)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenImageIO
  REQUIRED_VARS OpenImageIO_LIBRARY OpenImageIO_UTIL_LIBRARY OpenImageIO_INCLUDE_DIR)

if(OpenImageIO_FOUND AND NOT TARGET OpenImageIO::OpenImageIO)
  add_library(OpenImageIO::OpenImageIO_Util UNKNOWN IMPORTED)
  set_target_properties(OpenImageIO::OpenImageIO_Util PROPERTIES
    IMPORTED_LOCATION "${OpenImageIO_UTIL_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${OpenImageIO_INCLUDE_DIR}")
  add_library(OpenImageIO::OpenImageIO UNKNOWN IMPORTED)
  set_target_properties(OpenImageIO::OpenImageIO PROPERTIES
    IMPORTED_LOCATION "${OpenImageIO_LIBRARY}"
    INTERFACE_LINK_LIBRARIES OpenImageIO::OpenImageIO_Util)
endif()
