#include "base/Dictionary.h"

#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace dlv {

std::uint32_t Dictionary::Place(std::string_view key) const {
    return compare_ == KeyCompare::Exact ? places_.Find(key) : places_.Find(FoldCase(key));
}

const Dictionary::Entry* Dictionary::Find(std::string_view key) const {
    const std::uint32_t place = Place(key);
    return place == TextTable::kNone ? nullptr : &entries_[place];
}

std::string_view Dictionary::Item(std::string_view key) const {
    const Entry* entry = Find(key);
    return entry ? std::string_view(entry->item) : std::string_view();
}

bool Dictionary::AddNew(std::string_view key, std::string_view item) {
    const auto place = static_cast<std::uint32_t>(entries_.size());
    const std::uint32_t taken =
        compare_ == KeyCompare::Exact ? places_.Insert(key, place) : places_.Insert(FoldCase(key), place);
    if (taken != place) return false;
    entries_.push_back({std::string(key), std::string(item)});
    return true;
}

void Dictionary::Add(std::string_view key, std::string_view item) {
    if (!AddNew(key, item)) RaiseDuplicateKey();
}

void Dictionary::RemoveEach(const std::vector<std::string>& keys) {
    std::vector<bool> removed(entries_.size());
    bool any = false;
    for (const std::string& key : keys)
        if (const std::uint32_t place = Place(key); place != TextTable::kNone) any = removed[place] = true;
    if (!any) return;
    const std::vector<Entry> entries = std::exchange(entries_, {});
    places_.Clear();
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (!removed[i]) AddNew(entries[i].key, entries[i].item);
}

void Dictionary::RemoveAll() {
    entries_.clear();
    places_.Clear();
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
