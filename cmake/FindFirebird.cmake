# Finds the Firebird client library and the headers of its C++ interface (version 3 or later).
find_path(Firebird_INCLUDE_DIR firebird/Interface.h)
find_library(Firebird_LIBRARY NAMES fbclient libfbclient.so.2)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Firebird REQUIRED_VARS Firebird_LIBRARY Firebird_INCLUDE_DIR)
if(Firebird_FOUND AND NOT TARGET Firebird::Client)
    add_library(Firebird::Client UNKNOWN IMPORTED)
    set_target_properties(Firebird::Client PROPERTIES
        IMPORTED_LOCATION ${Firebird_LIBRARY}
        INTERFACE_SYSTEM_INCLUDE_DIRECTORIES ${Firebird_INCLUDE_DIR})
endif()
