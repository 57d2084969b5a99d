# Finds TinyXML: the target TinyXML::TinyXML, and TinyXML_VERSION from its header. Installed beside the
# package's own files, since a static veltoprotocol needs it again.

find_package(PkgConfig QUIET)
if(PkgConfig_FOUND)
  pkg_check_modules(PC_TinyXML QUIET tinyxml)
endif()

find_path(TinyXML_INCLUDE_DIR tinyxml.h HINTS ${PC_TinyXML_INCLUDE_DIRS})
find_library(TinyXML_LIBRARY tinyxml HINTS ${PC_TinyXML_LIBRARY_DIRS})
mark_as_advanced(TinyXML_INCLUDE_DIR TinyXML_LIBRARY)

if(TinyXML_INCLUDE_DIR)
  file(STRINGS "${TinyXML_INCLUDE_DIR}/tinyxml.h" TinyXML_numbers
    REGEX "^const int TIXML_(MAJOR|MINOR|PATCH)_VERSION = [0-9]+;")
  string(REGEX REPLACE "[^0-9;]" "" TinyXML_numbers "${TinyXML_numbers}")
  string(REGEX MATCHALL "[0-9]+" TinyXML_numbers "${TinyXML_numbers}")
  list(JOIN TinyXML_numbers "." TinyXML_VERSION)
  unset(TinyXML_numbers)
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(TinyXML
  REQUIRED_VARS TinyXML_LIBRARY TinyXML_INCLUDE_DIR
  VERSION_VAR TinyXML_VERSION)

if(TinyXML_FOUND AND NOT TARGET TinyXML::TinyXML)
  add_library(TinyXML::TinyXML UNKNOWN IMPORTED GLOBAL) # also for who has veltoprotocol as a subdirectory
  set_target_properties(TinyXML::TinyXML PROPERTIES
    IMPORTED_LOCATION "${TinyXML_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${TinyXML_INCLUDE_DIR}")
endif()
