// The profiles of a user as one document. Each is kept as the text that it came as: what this version of the
// host does not know, in a profile or between two, goes back as it was. No operation costs more than the size
// of what it is given or, for Remove, Names and Text, of the set.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "webdata/Documents.h"

namespace dlv::demo {

class ProfileSet {
public:
    /// Reads a <WebProfiles> document. Error 1003 when it is none.
    static ProfileSet Parse(std::string_view text);
    /// The set as such a document.
    std::string Text() const;

    /// In the order of the profiles; letter case makes another name.
    std::vector<std::string> Names() const;
    bool Has(const std::string& name) const { return places_.contains(name); }
    /// The <WebProfile> element of a profile; null when there is none of that name.
    const std::string* Find(const std::string& name) const;
    /// In place of the profile of that name, or behind all others.
    void Put(const std::string& name, std::string element);
    /// All of another set.
    void PutAll(const ProfileSet& other);
    void Remove(const std::string& name);

private:
    struct Entry {
        /// Nothing for an element that is no profile, or one without a name.
        std::optional<std::string> name;
        std::string element;
    };

    void Append(Entry entry);

    KeptAttributes attributes_;
    std::vector<Entry> entries_;
    /// Of the first profile of each name.
    std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace dlv::demo
