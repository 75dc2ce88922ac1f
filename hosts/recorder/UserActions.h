// What a person must have done when the control raises an event outside every call of its host: saved,
// chosen, added or removed a profile. Follows the names that the control knows and what it was last seen to
// have collapsed, since steps name places in its menu and nodes that change.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "base/Dictionary.h"
#include "hosts/recorder/Json.h"

namespace dlv::recorder {

class UserActions {
public:
    /// An answer to a request for profiles is about to be given.
    void HostAnswers(const std::string& function, const std::string& resultXml);

    /// Every event is told of, also those inside calls, with its fields.
    void Raised(const std::string& event, const Json& fields);

    /// The steps of the person behind an event, the last of which raises it: a save is preceded by the view's
    /// settings as the event's document tells them. Empty when they cannot be told.
    std::vector<Json> StepsBehind(const std::string& event, const Json& fields);

private:
    void TakeFirstProfile(bool usable, const std::string& resultXml);
    void NoteCollapsed(const std::string& profilesXml);
    std::vector<Json> Settings(const std::string& profilesXml);
    std::vector<Json> ChoiceOf(const std::string& name) const;

    Dictionary names_{KeyCompare::IgnoreCase};
    bool loaded_ = false;
    std::string savedAs_;
    /// Of the three grids: as last saved, and what profiles have brought since.
    std::set<std::string> collapsed_[3];
};

}  // namespace dlv::recorder
