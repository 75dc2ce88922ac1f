set(dlvProcessor x86_64)
include("${CMAKE_CURRENT_LIST_DIR}/MinGW.cmake")
