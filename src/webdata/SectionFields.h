// The fields of a profile section: their names, and the list as it was given.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "webdata/NamePlaces.h"

namespace dlv {

class SectionFields {
public:
    /// `list` are names joined by ",".
    explicit SectionFields(std::string list);

    const std::string& List() const { return list_; }
    const std::vector<std::string>& Names() const { return names_; }
    bool Has(std::string_view name) const;
    /// Puts a name at the end of the list unless it is there.
    void Add(std::string_view name);

private:
    std::string list_;
    std::vector<std::string> names_;
    NamePlaces places_;
};

}  // namespace dlv
