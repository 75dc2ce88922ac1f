// The model of business units against the rules of loading and totalling, followed step by step.
#include "model/BusinessUnits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "base/Number.h"
#include "base/Text.h"
#include "model/ModelLoading.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/Random.h"
#include "webdata/QZWebTable.h"

namespace dlv {

namespace {

constexpr const char* kGeneralColumns[] = {"BUID", "BUDesc", "TechCount", "HoursWorked", "HoursRemaining"};
constexpr const char* kDetailColumns[] = {
    "BUID",        "JobType",     "JobClass",     "WOOpen",      "WOWarning", "WOJeopardy",
    "WOLate",      "WOCompleted", "WOCanceled",   "WONotDone",   "PtsOpen",   "PtsWarning",
    "PtsJeopardy", "PtsLate",     "PtsCompleted", "PtsCanceled", "PtsNotDone"};

using Rows = std::vector<std::vector<std::string>>;

template <std::size_t count>
QZWebTable TableOf(const char* const (&columns)[count], const Rows& rows) {
    QZWebTable table;
    std::vector<std::string> values;
    for (const auto& row : rows) values.insert(values.end(), row.begin(), row.end());
    table.Fill(std::vector<std::string>(std::begin(columns), std::end(columns)), values);
    return table;
}

/// The model as nested lists, each look-up a walk, each step in its order.
struct PlainModel {
    struct Class {
        std::string code;
        Counters counters{};
    };
    struct Type {
        std::string code;
        std::vector<Class> classes;
    };
    struct Unit {
        std::string id;
        std::int32_t hoursWorked, hoursRemaining, index;
        std::vector<Type> types;
        std::vector<Class> totals;
        Counters grandTotals{};
        std::array<float, 4> rates{};
    };
    std::vector<Unit> units;

    template <class Member>
    static Member* Find(std::vector<Member>& members, const std::string& code) {
        for (Member& member : members)
            if (EqualFolded(Key(member), code)) return &member;
        return nullptr;
    }
    static const std::string& Key(const Unit& unit) { return unit.id; }
    static const std::string& Key(const Type& type) { return type.code; }
    static const std::string& Key(const Class& jobClass) { return jobClass.code; }

    void Load(const Rows& general, const Rows& details) {
        std::int32_t index = 0;
        for (const auto& row : general) {
            ++index;
            if (!Find(units, row[0]))
                units.push_back({row[0], ToLong(row[3]), ToLong(row[4]), index, {}, {}});
        }
        for (const auto& row : details) {
            Unit* unit = Find(units, row[0]);
            if (!unit) continue;
            if (!Find(unit->types, row[1])) unit->types.push_back({row[1], {}});
            Type& type = *Find(unit->types, row[1]);
            if (Find(type.classes, row[2])) continue;
            Class added{row[2]};
            for (std::size_t s = 0; s < kCounterCount; ++s) added.counters[s] = ToLong(row[3 + s]);
            type.classes.push_back(added);
        }
    }

    static void CalcTotal(Unit& unit) {
        for (const Type& type : unit.types)
            for (const Class& jobClass : type.classes)
                if (!Find(unit.totals, jobClass.code)) unit.totals.push_back({jobClass.code});
        if (unit.totals.empty()) return;
        std::map<std::string, std::size_t> positions;
        for (std::size_t i = 0; i < unit.totals.size(); ++i) positions[unit.totals[i].code] = i;
        std::vector<Counters> sums(unit.totals.size(), Counters{});
        for (const Type& type : unit.types)
            for (std::size_t s = 0; s < kCounterCount; ++s)
                for (const Class& jobClass : type.classes) {
                    if (!positions.contains(jobClass.code)) RaiseSubscript();
                    std::int32_t& sum = sums[positions[jobClass.code]][s];
                    sum = AddChecked(sum, jobClass.counters[s]);
                    unit.grandTotals[s] = AddChecked(unit.grandTotals[s], jobClass.counters[s]);
                }
        for (std::size_t i = 0; i < unit.totals.size(); ++i) unit.totals[i].counters = sums[i];
        unit.rates = {
            Rate(unit.grandTotals[4], unit.hoursWorked), Rate(unit.grandTotals[0], unit.hoursRemaining),
            Rate(unit.grandTotals[11], unit.hoursWorked), Rate(unit.grandTotals[7], unit.hoursRemaining)};
    }
};

/// Random rows: few ids, many types and classes, spellings that differ in case, now and then a huge number.
struct RandomRows {
    explicit RandomRows(std::uint32_t seed) : random(seed) {
        const std::uint32_t kind = random.Below(4);
        for (std::uint32_t i = random.Below(8); i > 0; --i)
            general.push_back(
                {Id(), "", "1", std::to_string(random.Below(9)), std::to_string(random.Below(9))});
        for (std::uint32_t i = random.Below(kind == 0 ? 600 : 60); i > 0; --i) {
            std::vector<std::string> row = {Id(), Code("t", 12, kind == 1),
                                            Code("c", kind == 0 ? 150 : 6, kind == 2)};
            for (int s = 0; s < kCounterCount; ++s) {
                const bool huge = kind == 3 && random.OneIn(30);
                row.push_back(std::to_string(huge ? 1'500'000'000 : static_cast<int>(random.Below(40)) - 5));
            }
            details.push_back(row);
        }
    }

    std::string Id() {
        static const char* const kIds[] = {"u1", "U1", "é", "É", "u2", "u3", ""};
        return kIds[random.Below(7)];
    }
    std::string Code(const char* letter, std::uint32_t count, bool anyCase) {
        std::string code = letter + std::to_string(random.Below(count));
        if (anyCase && random.OneIn(4)) code[0] = static_cast<char>(code[0] - 32);
        return random.OneIn(20) ? "" : code;
    }

    test::Random random;
    Rows general;
    Rows details;
};

std::string Texts(const Counters& counters) {
    std::string text;
    for (const std::int32_t counter : counters) text += ' ' + std::to_string(counter);
    return text;
}

TEST(BusinessUnits, LoadAndTotalAsTheStepsSay) {
    BusinessUnits model;  // one for all: what a refresh leaves behind must not show in the next
    int failures = 0;
    for (std::uint32_t seed = 1; seed <= 400; ++seed) {
        const RandomRows rows(seed);
        PlainModel plain;
        plain.Load(rows.general, rows.details);
        model.Clear();
        LoadUnits(TableOf(kGeneralColumns, rows.general), model);
        LoadDetails(TableOf(kDetailColumns, rows.details), model);
        model.BringIntoOrder();
        ASSERT_EQ(model.Count(), plain.units.size());
        for (std::size_t number = 0; number < plain.units.size(); ++number) {
            PlainModel::Unit& expected = plain.units[number];
            std::int32_t error = 0;
            const Trap trap([&](const RunTimeError& raised, std::string_view location) {
                error = raised.Number();
                EXPECT_EQ(location, "BusinessUnit.CalcTotal");
            });
            model.CalcTotal(number, trap);
            EXPECT_EQ(error, test::ErrorOf([&] { PlainModel::CalcTotal(expected); })) << "seed " << seed;
            failures += error != 0;
            const BusinessUnit& unit = *(model.begin() + static_cast<std::ptrdiff_t>(number));
            EXPECT_EQ(unit.BUID, expected.id);
            EXPECT_EQ(model.Item(FoldCase(expected.id)), &unit);
            EXPECT_EQ(model.BUItem(expected.index), &unit);
            std::string classes, expectedClasses;
            model.ForEachClass(unit, [&](const JobType& type, const JobClass& jobClass) {
                classes += model.JobTypeText(type.code) + '|' + model.JobClassText(jobClass.code) +
                           Texts(jobClass.counters);
            });
            for (const auto& type : expected.types)
                for (const auto& jobClass : type.classes)
                    expectedClasses += type.code + '|' + jobClass.code + Texts(jobClass.counters);
            for (const JobClass& total : model.TotalClasses(unit))
                classes += model.JobClassText(total.code) + Texts(total.counters);
            for (const auto& total : expected.totals) expectedClasses += total.code + Texts(total.counters);
            EXPECT_EQ(classes, expectedClasses) << "seed " << seed;
            EXPECT_EQ(Texts(unit.GrandTotals), Texts(expected.grandTotals)) << "seed " << seed;
            EXPECT_EQ((std::array{unit.WOsPerHour, unit.WOsPerHrReq, unit.PtsPerHour, unit.PtsPerHrReq}),
                      expected.rates);
        }
        EXPECT_EQ(model.BUItem(0), nullptr);
        EXPECT_EQ(model.Item("nobody"), nullptr);
    }
    EXPECT_GT(failures, 50) << "totals that fail were among them";
}

TEST(Counters, HaveFourteenPlaces) {
    const BusinessUnit unit;
    EXPECT_EQ(unit.GetGrandTotal(0), 0);
    EXPECT_EQ(unit.GetGrandTotal(13), 0);
    const JobClass jobClass{};
    for (const int index : {-1, 14}) {
        EXPECT_EQ(test::ErrorOf([&] { unit.GetGrandTotal(index); }), kErrorSubscript);
        EXPECT_EQ(test::ErrorOf([&] { jobClass.GetJobDetails(index); }), kErrorSubscript);
    }
}

TEST(BusinessUnits, RefuseAnIdTwice) {
    BusinessUnits model;
    BusinessUnit unit;
    unit.BUID = "A";
    model.Add(unit);
    unit.BUID = "a";
    EXPECT_EQ(test::ErrorOf([&] { model.Add(unit); }), kErrorDuplicateKey);
    EXPECT_EQ(model.Count(), 1u);
}

TEST(LookUp, KeepsWhatCameBeforeARepeatedKey) {
    Dictionary lookup;
    lookup.Add("old");
    const QZWebTable table = TableOf({"K", "V"}, {{"a", "1"}, {"A", "2"}, {"a", "3"}, {"b", "4"}});
    EXPECT_EQ(test::ErrorOf([&] { LoadLookup(table, "K", "V", lookup); }), kErrorDuplicateKey);
    EXPECT_EQ(JoinKeys(lookup, ','), "a,A");
    EXPECT_EQ(lookup.Item("A"), "2");
}

}  // namespace

}  // namespace dlv
