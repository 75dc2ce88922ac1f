#include "widgets/TypeAhead.h"

#include <gtest/gtest.h>

#include "base/Text.h"

namespace dlv {
namespace {

/// 2 North, 3 - Nero, 4 - Ähre, 5 South, 6 - Sao, 7 - Só um, 8 nord
struct Sample {
    OutlineGrid grid{"grid"};
    Sample() {
        grid.SetColumns(2);
        grid.SetRows(9);
        grid.SetFixedRows(2);
        const char* const texts[] = {"North", "Nero", "Ähre", "South", "Sao", "Só um", "nord"};
        for (int i = 0; i < 7; ++i) grid.SetText(2 + i, 0, texts[i]);
        for (const int node : {2, 5, 8}) grid.MakeNode(node, 1);
        for (const int row : {3, 4, 6, 7}) grid.SetLevel(row, 2);
    }
};

struct Typing {
    const char* name;
    int from;
    std::vector<int> closed;
    std::string text;  // "." is a pause
    std::vector<int> rows;
};

TEST(TypedText, LeadsToTheRowsThatBeginSo) {
    constexpr int kNone = OutlineGrid::kNoRow;
    const Typing cases[] = {
        {"the next one, not the current", 2, {}, "n", {3}},
        {"goes on from where it led to", 0, {}, "nord", {2, 2, 2, 8}},
        {"the same letter cycles", 2, {}, "nnnn", {3, 8, 2, 3}},
        {"a text that exists is more than the same letter", 8, {}, "s", {5}},
        {"around the end", 8, {}, "sa", {5, 6}},
        {"case does not matter", 0, {}, "NE", {2, 3}},
        {"nor in other letters", 0, {}, "äH", {4, 4}},
        {"blanks belong to it once begun", 0, {}, "só u", {5, 7, 7, 7}},
        {"rows under closed nodes do not match", 2, {2}, "nn", {8, 2}},
        {"no such row: the text before stands", 0, {}, "nox", {2, 2, kNone}},
        {"and can go on", 0, {}, "noxrd", {2, 2, kNone, 2, 8}},
        {"after a pause it begins anew", 0, {}, "n.e.n", {2, kNone, 3}},
    };
    for (const Typing& typing : cases) {
        Sample sample;
        for (const int node : typing.closed) sample.grid.SetCollapsed(node, true);
        sample.grid.SetCurrentCell(typing.from, 0);
        TypeAhead typed;
        std::int64_t now = 5'000;
        std::vector<int> rows;
        for (std::size_t i = 0; i < typing.text.size();) {
            const char32_t character = NextCharacter(typing.text, i);
            now += character == '.' ? TypeAhead::kPause : 1;
            if (character == '.') continue;
            rows.push_back(typed.Type(sample.grid, character, now));
            if (rows.back() != kNone) sample.grid.SetCurrentCell(rows.back(), 1);
        }
        EXPECT_EQ(rows, typing.rows) << typing.name;
    }
}

TEST(TypedText, FindsNothingWhereNothingIs) {
    OutlineGrid grid("grid");
    TypeAhead typed;
    EXPECT_EQ(typed.Type(grid, 'a', 0), OutlineGrid::kNoRow);
    EXPECT_FALSE(typed.Running(0));
}

}  // namespace
}  // namespace dlv
