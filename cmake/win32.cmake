set(dlvProcessor i686)
include("${CMAKE_CURRENT_LIST_DIR}/MinGW.cmake")
# The x87 unit would keep more digits than a double has and round figures differently from 64 bit.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
