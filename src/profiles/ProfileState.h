// What the control holds of profiles: the set that the host returned, the current one, the names that
// the host listed, and what was asked for last.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/Dictionary.h"
#include "webdata/QZWebProfiles.h"

namespace dlv {

struct ProfileState {
    QZWebProfiles set;
    /// Nothing before the first profile answer.
    std::shared_ptr<QZWebProfile> current;
    Dictionary names{KeyCompare::IgnoreCase};
    /// Whether the first profile answer has been applied.
    bool loaded = false;
    /// Whether the current profile's settings have been applied to the view.
    bool settingsLoaded = false;
    /// What the user asked for last; nothing before.
    std::optional<std::string> requestedName;
    std::optional<std::string> pendingSaveAsName;
};

}  // namespace dlv
