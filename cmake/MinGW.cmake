# Shared by both Windows toolchain files: the posix-threads compilers of MinGW-w64, everything linked statically,
# so that a binary needs no library beyond Windows itself.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${dlvProcessor})
set(CMAKE_C_COMPILER ${dlvProcessor}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${dlvProcessor}-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER ${dlvProcessor}-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${dlvProcessor}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(dlvLinkFlags "-static -Wl,--nxcompat,--dynamicbase")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${dlvLinkFlags}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${dlvLinkFlags}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${dlvLinkFlags}")

# Test programs run under Wine; the wrapper keeps a prefix of its own.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../tests/support/wine-run")
