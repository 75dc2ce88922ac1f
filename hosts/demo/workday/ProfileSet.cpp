#include "hosts/demo/workday/ProfileSet.h"

#include <utility>

#include "webdata/QZWebProfile.h"
#include "webdata/XmlWriter.h"

namespace dlv::demo {

ProfileSet ProfileSet::Parse(std::string_view text) {
    XmlReader reader(text);
    ProfileSet set;
    StartDocument(reader, kProfilesElement);
    set.attributes_ = KeepAttributes(reader, {});
    while (NextChild(reader)) {
        const bool isProfile = reader.Name() == kProfileElement;
        Entry entry{std::nullopt, KeepElement(reader, text)};
        if (isProfile) {
            QZWebProfile profile;
            profile.LoadText(entry.element);
            if (!profile.Name().empty()) entry.name = profile.Name();
        }
        set.Append(std::move(entry));
    }
    EndDocument(reader);
    return set;
}

std::string ProfileSet::Text() const {
    XmlWriter writer;
    writer.StartElement(kProfilesElement);
    for (const auto& [name, value] : attributes_) writer.Attribute(name, value);
    for (const Entry& entry : entries_) writer.Kept(entry.element);
    writer.EndElement();
    return writer.Take();
}

std::vector<std::string> ProfileSet::Names() const {
    std::vector<std::string> names;
    for (const Entry& entry : entries_)
        if (entry.name) names.push_back(*entry.name);
    return names;
}

const std::string* ProfileSet::Find(const std::string& name) const {
    const auto found = places_.find(name);
    return found == places_.end() ? nullptr : &entries_[found->second].element;
}

void ProfileSet::Put(const std::string& name, std::string element) {
    if (const auto found = places_.find(name); found != places_.end())
        entries_[found->second].element = std::move(element);
    else
        Append({name, std::move(element)});
}

void ProfileSet::PutAll(const ProfileSet& other) {
    for (const Entry& entry : other.entries_)
        if (entry.name) Put(*entry.name, entry.element);
}

void ProfileSet::Remove(const std::string& name) {
    places_.clear();
    for (Entry& entry : std::exchange(entries_, {}))
        if (entry.name != name) Append(std::move(entry));
}

void ProfileSet::Append(Entry entry) {
    if (entry.name) places_.try_emplace(*entry.name, entries_.size());
    entries_.push_back(std::move(entry));
}

}  // namespace dlv::demo
