#include "base/Dictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "base/Text.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/Random.h"

namespace dlv {

namespace {

/// A dictionary as plain as can be: every look-up walks the entries.
struct PlainDictionary {
    bool ignoreCase;
    std::vector<Dictionary::Entry> entries;

    auto Find(const std::string& key) {
        return std::ranges::find_if(entries, [&](const Dictionary::Entry& entry) {
            return ignoreCase ? EqualFolded(entry.key, key) : entry.key == key;
        });
    }
    bool Add(const std::string& key, const std::string& item) {
        if (Find(key) != entries.end()) return false;
        entries.push_back({key, item});
        return true;
    }
    void Remove(const std::string& key) {
        if (const auto found = Find(key); found != entries.end()) entries.erase(found);
    }
};

// Few letters and lengths around eight bytes, so that keys share beginnings and differ in letter case.
std::string RandomKey(test::Random& random) {
    constexpr char kLetters[] = {'a', 'A', 'b', '\0'};
    std::string key(random.OneIn(3) ? 6 + random.Below(12) : random.Below(4), 'a');
    if (!key.empty()) key.back() = kLetters[random.Below(4)];
    if (key.size() > 1) key[random.Below(static_cast<std::uint32_t>(key.size()))] = kLetters[random.Below(4)];
    return key;
}

class Dictionaries : public testing::TestWithParam<KeyCompare> {};

TEST_P(Dictionaries, HoldWhatAPlainListHolds) {
    test::Random random(1);
    Dictionary dictionary(GetParam());
    PlainDictionary plain{GetParam() == KeyCompare::IgnoreCase, {}};
    for (int i = 0; i < 30000; ++i) {
        const std::string key = RandomKey(random);
        const std::string item = std::to_string(i);
        const std::uint32_t action = random.Below(1000);
        if (action == 0) {
            dictionary.RemoveAll();
            plain.entries.clear();
        } else if (action < 20) {
            const std::vector<std::string> keys = {key, RandomKey(random), RandomKey(random)};
            dictionary.RemoveEach(keys);
            for (const std::string& each : keys) plain.Remove(each);
        } else if (action < 500) {
            EXPECT_EQ(dictionary.AddNew(key, item), plain.Add(key, item));
        } else {
            EXPECT_EQ(test::ErrorOf([&] { dictionary.Add(key, item); }),
                      plain.Add(key, item) ? 0 : kErrorDuplicateKey);
        }
        const std::string asked = RandomKey(random);
        const auto found = plain.Find(asked);
        const bool there = found != plain.entries.end();
        ASSERT_EQ(dictionary.Exists(asked), there) << asked;
        ASSERT_EQ(dictionary.Item(asked), there ? found->item : "") << asked;
        ASSERT_EQ(dictionary.Place(asked),
                  there ? static_cast<std::uint32_t>(found - plain.entries.begin()) : TextTable::kNone);
        ASSERT_TRUE(std::ranges::equal(dictionary, plain.entries, [](const auto& left, const auto& right) {
            return left.key == right.key && left.item == right.item;
        }));
    }
}

INSTANTIATE_TEST_SUITE_P(Compare, Dictionaries, testing::Values(KeyCompare::Exact, KeyCompare::IgnoreCase),
                         [](const auto& compare) {
                             return compare.param == KeyCompare::Exact ? "Exact" : "IgnoreCase";
                         });

TEST(PairTable, HoldsWhatAMapHolds) {
    test::Random random(2);
    PairTable table;
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> map;
    for (std::uint32_t i = 0; i < 20000; ++i) {
        if (random.OneIn(5000)) {
            table.Clear();
            map.clear();
        }
        const std::pair<std::uint32_t, std::uint32_t> key{random.Below(60), UINT32_MAX - random.Below(60)};
        const auto found = map.find(key);
        ASSERT_EQ(table.Find(key.first, key.second), found == map.end() ? PairTable::kNone : found->second);
        ASSERT_EQ(table.Insert(key.first, key.second, i), map.try_emplace(key, i).first->second);
    }
}

TEST(Keys, JoinWithoutATrailingSeparator) {
    Dictionary set;
    EXPECT_EQ(JoinKeys(set, '|'), "");
    for (const char* id : {"12", "40", "7"}) set.Add(id);
    EXPECT_EQ(JoinKeys(set, '|'), "12|40|7");
}

}  // namespace

}  // namespace dlv
