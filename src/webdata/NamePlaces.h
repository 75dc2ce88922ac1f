// Where names stand in a list that only grows: a few are compared one by one, many are looked up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/TextTable.h"

namespace dlv {

class NamePlaces {
public:
    /// The first of the places 0 to `count` - 1 whose name, which `nameAt` tells, is this one; `count`
    /// when there is none.
    template <class NameAt>
    std::size_t Find(std::string_view name, std::size_t count, const NameAt& nameAt) const {
        if (count <= kFew) {
            std::size_t place = 0;
            while (place < count && nameAt(place) != name) ++place;
            return place;
        }
        for (; known_ < count; ++known_) places_.Insert(nameAt(known_), static_cast<std::uint32_t>(known_));
        const std::uint32_t place = places_.Find(name);
        return place == TextTable::kNone ? count : place;
    }

private:
    static constexpr std::size_t kFew = 16;

    mutable TextTable places_;
    mutable std::size_t known_ = 0;
};

}  // namespace dlv
