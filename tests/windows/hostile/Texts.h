// Texts that no host should send and some will: empty, huge, broken, with zeros inside, out of any range, and
// documents that are right, cut off, damaged or built to do harm.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/Random.h"

namespace dlv::hostile {

using test::Random;

struct Text {
    std::string name;
    std::function<BSTR(Random&)> make;
};

const std::vector<Text>& Texts();

/// One of a list by chance; whatever is so large that it takes long comes seldom.
template <class Item>
const Item& AnyOf(const std::vector<Item>& items, Random& random) {
    const Item& found = items[random.Below(static_cast<std::uint32_t>(items.size()))];
    if constexpr (requires { found.name; }) {
        if (std::string_view(found.name).starts_with("1 MiB") && !random.OneIn(10))
            return AnyOf(items, random);
    }
    return found;
}

/// A message with three units and figures that differ with `figure`.
std::wstring GoodMessage(int figure);
/// The answers with which a start-up succeeds.
inline constexpr wchar_t kGoodProfileList[] = L"<WebData><ProfileIDs></ProfileIDs></WebData>";
inline constexpr wchar_t kGoodProfiles[] = L"<WebData></WebData>";

}  // namespace dlv::hostile
