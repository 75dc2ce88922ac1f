# The kinds of targets that the project is made of. Every target of ours gets the same language level,
# warnings as errors and include roots; third-party code gets none of the warnings.
#
#   dlv_add_layer(base SOURCES A.cpp ... [LINK webdata ...])       static library dlv_base of src/base
#   dlv_add_library(NAME SOURCES ... [LINK ...])                   static library outside src/
#   dlv_add_program(NAME SOURCES ... [LINK ...])                   executable
#   dlv_add_tests(NAME SOURCES ... [LINK ...] [ARGS ...])          GoogleTest executable, registered with ctest
#
# Names after LINK are either layers (base) or full target names (GTest::gmock).

option(DLV_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(DLV_TESTS "Build the test programs" ON)
set(DLV_GOOGLETEST /usr/src/googletest CACHE PATH "Folder of the GoogleTest sources")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(DLV_CCACHE ccache)
mark_as_advanced(DLV_CCACHE)
if(DLV_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${DLV_CCACHE}")
endif()

add_library(dlv_flags INTERFACE)
target_compile_options(dlv_flags INTERFACE
    -Wall -Wextra -Wconversion -Wshadow -Werror
    # GCC 12 reports the inside of std::string's operator+ when it optimises.
    -Wno-restrict)
target_include_directories(dlv_flags INTERFACE "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}")
target_link_libraries(dlv_flags INTERFACE dlv_version)
if(WIN32)
    target_compile_definitions(dlv_flags INTERFACE UNICODE _UNICODE STRICT NOMINMAX _WIN32_WINNT=0x0A00)
endif()

if(DLV_SANITIZE)
    # For the whole tree, GoogleTest included: container checks need both sides built alike.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
    add_link_options(-fsanitize=address,undefined)
endif()

# The headers that most sources begin with are compiled once for all targets of a kind. Of which kind a folder's
# targets are stands in DLV_HEADERS: dlv_headers, or dlv_windows_headers where <windows.h> may be included.
function(dlv_add_headers target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;LINK")
    set(source "${PROJECT_BINARY_DIR}/headers/${target}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "")
    add_library(${target} OBJECT "${source}")
    target_link_libraries(${target} PRIVATE dlv_flags ${arg_LINK})
    target_precompile_headers(${target} PRIVATE ${arg_HEADERS}
        <algorithm> <array> <functional> <map> <memory> <optional> <span> <string> <string_view> <vector>)
endfunction()

# Before everything else: a type of the control must not get another name where the system's headers come first.
set(DLV_WINDOWS_HEADERS "${PROJECT_SOURCE_DIR}/src/windows/com/PlainWindows.h"
    <ole2.h> <ocidl.h> <olectl.h> <commctrl.h> <wrl/client.h>)
set(DLV_HEADERS dlv_headers)
dlv_add_headers(dlv_headers)
if(WIN32)
    dlv_add_headers(dlv_windows_headers HEADERS ${DLV_WINDOWS_HEADERS})
endif()

# Turns layer names into target names and leaves other targets as they are.
function(dlv_link target)
    foreach(name IN LISTS ARGN)
        if(TARGET dlv_${name} OR IS_DIRECTORY "${PROJECT_SOURCE_DIR}/src/${name}")
            target_link_libraries(${target} PUBLIC dlv_${name})
        else()
            target_link_libraries(${target} PUBLIC ${name})
        endif()
    endforeach()
endfunction()

function(dlv_add_library target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_library(${target} STATIC ${arg_SOURCES})
    target_link_libraries(${target} PUBLIC dlv_flags)
    target_precompile_headers(${target} REUSE_FROM ${DLV_HEADERS})
    dlv_link(${target} ${arg_LINK})
endfunction()

function(dlv_add_layer layer)
    dlv_add_library(dlv_${layer} ${ARGN})
endfunction()

function(dlv_add_program target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE dlv_flags)
    target_precompile_headers(${target} REUSE_FROM ${DLV_HEADERS})
    dlv_link(${target} ${arg_LINK})
endfunction()

# The tests of one executable run in one process: natively as it is, Windows programs through the emulator of
# the toolchain file. Each writes its results to results/NAME.xml, where ./dev counts them.
function(dlv_add_tests target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;ARGS")
    add_executable(${target} ${arg_SOURCES})
    # The main comes first, so that a gtest_main among the libraries stays unused.
    target_link_libraries(${target} PRIVATE dlv_test_main dlv_flags GTest::gtest)
    dlv_link(${target} ${arg_LINK})
    target_compile_definitions(${target} PRIVATE DLV_TESTS_DIR="${PROJECT_SOURCE_DIR}/tests")
    target_precompile_headers(${target} REUSE_FROM dlv_test_headers)
    target_compile_options(${target} PRIVATE ${DLV_TEST_OPTIONS})
    # A row of a table names only the fields that matter to it.
    target_compile_options(${target} PRIVATE -Wno-missing-field-initializers)
    file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/results")
    add_test(NAME ${target} COMMAND ${target} --gtest_brief=1 --gtest_output=xml:${target}.xml ${arg_ARGS}
        WORKING_DIRECTORY "${PROJECT_BINARY_DIR}/results")
    set_tests_properties(${target} PROPERTIES TIMEOUT 600 ENVIRONMENT
        "ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()
