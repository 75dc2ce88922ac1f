#include "base/Dictionary.h"

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace dlv {

const Dictionary::Entry* Dictionary::Find(std::string_view key) const {
    const auto place = compare_ == KeyCompare::Exact ? places_.find(key) : places_.find(FoldCase(key));
    return place == places_.end() ? nullptr : &entries_[place->second];
}

std::string_view Dictionary::Item(std::string_view key) const {
    const Entry* entry = Find(key);
    return entry ? std::string_view(entry->item) : std::string_view();
}

bool Dictionary::AddNew(std::string_view key, std::string_view item) {
    std::string place = compare_ == KeyCompare::Exact ? std::string(key) : FoldCase(key);
    if (!places_.try_emplace(std::move(place), entries_.size()).second) return false;
    entries_.push_back({std::string(key), std::string(item)});
    return true;
}

void Dictionary::Add(std::string_view key, std::string_view item) {
    if (!AddNew(key, item)) RaiseDuplicateKey();
}

bool Dictionary::Remove(std::string_view key) {
    const auto place = compare_ == KeyCompare::Exact ? places_.find(key) : places_.find(FoldCase(key));
    if (place == places_.end()) return false;
    const std::size_t removed = place->second;
    places_.erase(place);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(removed));
    for (auto& [name, index] : places_)
        if (index > removed) --index;
    return true;
}

void Dictionary::RemoveAll() {
    entries_.clear();
    places_.clear();
}

std::string JoinKeys(const Dictionary& set, char separator) {
    std::string text;
    for (const auto& entry : set) {
        text += entry.key;
        text += separator;
    }
    if (!text.empty()) text.pop_back();
    return text;
}

}  // namespace dlv
