// The control's events, and what the record of one carries.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "DashlonViewer.h"

namespace dlv::container {

/// In the order of their ids, which begin with 1. The first one carries a text, the others a record.
inline constexpr const char* kEventNames[] = {"PostRequest",    "GetDetails",   "GetProfiles",
                                              "GetProfileList", "PutProfiles",  "AddProfiles",
                                              "RemoveProfiles", "SaveProfileAs"};

struct EventField {
    const char* name;
    std::wstring value;
};

/// The fields that are not empty, in the order of their ids.
std::vector<EventField> FilledFields(_DLVParams& record);

}  // namespace dlv::container
