# Newmat, the matrix library. Defines the target Newmat::Newmat.

find_path(Newmat_INCLUDE_DIR newmat.h PATH_SUFFIXES newmat)
find_library(Newmat_LIBRARY newmat)
mark_as_advanced(Newmat_INCLUDE_DIR Newmat_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Newmat REQUIRED_VARS Newmat_LIBRARY Newmat_INCLUDE_DIR)

if(Newmat_FOUND AND NOT TARGET Newmat::Newmat)
  add_library(Newmat::Newmat UNKNOWN IMPORTED)
  # An imported target's directories count as system includes, so its headers raise no warnings.
  set_target_properties(Newmat::Newmat PROPERTIES
    IMPORTED_LOCATION "${Newmat_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Newmat_INCLUDE_DIR}")
endif()
