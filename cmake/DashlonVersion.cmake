# The version stands in the file VERSION alone. From there it reaches C++ and resource scripts as "Version.h"
# (every target of ours finds it), and any template of a target through configure_file and these variables:
#   PROJECT_VERSION          2.1.0
#   DLV_VERSION_FOUR         2.1.0.0     (side-by-side manifests)
#   DLV_VERSION_COMMAS       2,1,0,0     (version resources)

set(DLV_VERSION_FOUR "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH}.0")
string(REPLACE "." "," DLV_VERSION_COMMAS "${DLV_VERSION_FOUR}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/Version.h.in" "${PROJECT_BINARY_DIR}/generated/Version.h" @ONLY)

add_library(dlv_version INTERFACE)
target_include_directories(dlv_version INTERFACE "${PROJECT_BINARY_DIR}/generated")
