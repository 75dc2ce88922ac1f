# The target nlohmann_json::nlohmann_json.
if(WIN32)
    # A library of headers alone, the same for every system: found where the building system has it.
    find_path(DLV_JSON nlohmann/json.hpp PATHS /usr/include REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/json")
    file(CREATE_LINK "${DLV_JSON}/nlohmann" "${PROJECT_BINARY_DIR}/json/nlohmann" SYMBOLIC)
    add_library(dlv_json INTERFACE)
    target_include_directories(dlv_json SYSTEM INTERFACE "${PROJECT_BINARY_DIR}/json")
    add_library(nlohmann_json::nlohmann_json ALIAS dlv_json)
else()
    find_package(nlohmann_json 3.11 REQUIRED)
endif()
