// Takes what only its owner may read out of the steps and events of a session: ids, codes, descriptions,
// profile names, the values in profiles and tags. Names of tables, columns, properties and sections stay, and
// so do figures, times and settings, so that the session plays alike.
#pragma once

#include <functional>
#include <string>

#include "hosts/recorder/Json.h"
#include "hosts/recorder/TextMask.h"

namespace dlv::recorder {

/// A document, or what should be one, with each text in it that may be private replaced.
std::string WithTexts(const std::string& document,
                      const std::function<std::string(const std::string&)>& replace);

class SessionMask {
public:
    /// A step, or the entry of an event: {"event", "fields"}.
    Json Masked(Json entry);

private:
    TextMask texts_;
};

}  // namespace dlv::recorder
