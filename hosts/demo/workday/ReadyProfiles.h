// The profiles that a user of the demo has before saving any: the regions with what is below them, every unit
// by itself, and one region by points with the rest of the tree closed.
#pragma once

#include <string>
#include <string_view>

#include "hosts/demo/workday/ProfileSet.h"

namespace dlv::demo {

/// The first one, and the one that the control asks for at its start.
inline constexpr std::string_view kDefaultProfile = "Default";
inline constexpr std::string_view kAllUnitsProfile = "All Units";
inline constexpr std::string_view kRegionProfile = "River Valley";

ProfileSet ReadyProfiles();

/// The document of a profile like "Default" under another name.
std::string NewProfile(std::string_view name);

}  // namespace dlv::demo
