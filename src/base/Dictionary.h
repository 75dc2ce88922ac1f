// A string-keyed dictionary that keeps its entries in the order in which they were added. Keys are
// compared exactly, or without regard to letter case; look-ups take constant time.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/TextTable.h"

namespace dlv {

enum class KeyCompare { Exact, IgnoreCase };

class Dictionary {
public:
    struct Entry {
        std::string key;
        std::string item;
    };

    explicit Dictionary(KeyCompare compare = KeyCompare::Exact) : compare_(compare) {}

    std::size_t Count() const { return entries_.size(); }
    bool Exists(std::string_view key) const { return Find(key) != nullptr; }
    /// The entry of a key, or nothing. Holds until the dictionary changes.
    const Entry* Find(std::string_view key) const;
    /// The place of a key in the order of adding; `TextTable::kNone` for a missing key.
    std::uint32_t Place(std::string_view key) const;
    const Entry& At(std::size_t place) const { return entries_[place]; }
    /// The item of a key; empty for a missing key.
    std::string_view Item(std::string_view key) const;

    /// Error 457 when the key is there already.
    void Add(std::string_view key, std::string_view item);
    /// For sets of ids and names: key and item are the same.
    void Add(std::string_view key) { Add(key, key); }
    /// False, and no change, when the key is there already.
    bool AddNew(std::string_view key, std::string_view item);
    bool AddNew(std::string_view key) { return AddNew(key, key); }
    /// Removes the entries of those keys; keys that are not there do not matter.
    void RemoveEach(const std::vector<std::string>& keys);
    void RemoveAll();

    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

private:
    KeyCompare compare_;
    std::vector<Entry> entries_;
    TextTable places_;
};

/// The keys of an id set, each followed by the separator, without the last one.
std::string JoinKeys(const Dictionary& set, char separator);

}  // namespace dlv
