#include "base/TextTable.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace dlv {

namespace {

constexpr std::size_t kFirstSize = 64;
constexpr std::uint64_t kMix = 0x9E3779B97F4A7C15u;

std::uint64_t Start(std::string_view text) {
    std::uint64_t start = 0;
    if (!text.empty()) std::memcpy(&start, text.data(), std::min<std::size_t>(text.size(), 8));
    return start;
}

std::uint64_t Mix(std::uint64_t value) {
    value *= kMix;
    value ^= value >> 29;
    value *= kMix;
    return value ^ (value >> 32);
}

std::uint64_t HashOf(std::uint64_t start, std::string_view text) {
    std::uint64_t hash = Mix(start ^ (std::uint64_t{text.size()} << 56));
    for (std::size_t at = 8; at < text.size(); at += 8) hash = Mix(hash ^ Start(text.substr(at)));
    return hash;
}

}  // namespace

bool TextTable::Equals(const Slot& slot, std::uint64_t start, std::string_view text) const {
    return slot.start == start && slot.length == text.size() &&
           (text.size() <= 8 ||
            std::memcmp(tails_.data() + slot.tail, text.data() + 8, text.size() - 8) == 0);
}

// The slot of the text, or the free one where it would go.
std::size_t TextTable::Place(std::uint64_t start, std::string_view text) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = static_cast<std::size_t>(HashOf(start, text)) & mask;
    while (slots_[place].value != kNone && !Equals(slots_[place], start, text)) place = (place + 1) & mask;
    return place;
}

std::uint32_t TextTable::Find(std::string_view text) const {
    return slots_.empty() ? kNone : slots_[Place(Start(text), text)].value;
}

std::uint32_t TextTable::Insert(std::string_view text, std::uint32_t value) {
    if ((count_ + 1) * 2 > slots_.size()) Grow();
    const std::uint64_t start = Start(text);
    Slot& slot = slots_[Place(start, text)];
    if (slot.value != kNone) return slot.value;
    slot = {start, static_cast<std::uint32_t>(text.size()), value, tails_.size()};
    if (text.size() > 8) tails_.insert(tails_.end(), text.begin() + 8, text.end());
    ++count_;
    return value;
}

void TextTable::Grow() {
    std::vector<Slot> old(std::max(kFirstSize, slots_.size() * 2));
    old.swap(slots_);
    std::string text;
    for (const Slot& slot : old) {
        if (slot.value == kNone) continue;
        text.resize(std::min<std::size_t>(slot.length, 8));
        std::memcpy(text.data(), &slot.start, text.size());
        if (slot.length > 8) text.append(tails_.data() + slot.tail, slot.length - 8);
        slots_[Place(slot.start, text)] = slot;
    }
}

void TextTable::Clear() {
    std::ranges::fill(slots_, Slot{});
    tails_.clear();
    count_ = 0;
}

std::size_t PairTable::Place(std::uint64_t key) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = static_cast<std::size_t>(Mix(key)) & mask;
    while (slots_[place].value != kNone && slots_[place].key != key) place = (place + 1) & mask;
    return place;
}

std::uint32_t PairTable::Find(std::uint32_t first, std::uint32_t second) const {
    if (slots_.empty()) return kNone;
    return slots_[Place((std::uint64_t{first} << 32) | second)].value;
}

std::uint32_t PairTable::Insert(std::uint32_t first, std::uint32_t second, std::uint32_t value) {
    if ((count_ + 1) * 2 > slots_.size()) Grow();
    const std::uint64_t key = (std::uint64_t{first} << 32) | second;
    Slot& slot = slots_[Place(key)];
    if (slot.value != kNone) return slot.value;
    slot = {key, value};
    ++count_;
    return value;
}

void PairTable::Grow() {
    std::vector<Slot> old(std::max(kFirstSize, slots_.size() * 2));
    old.swap(slots_);
    for (const Slot& slot : old)
        if (slot.value != kNone) slots_[Place(slot.key)] = slot;
}

void PairTable::Clear() {
    std::ranges::fill(slots_, Slot{});
    count_ = 0;
}

}  // namespace dlv
