// The engine of the outline grid against a plain one, on random sequences of operations.
#include "widgets/OutlineGrid.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/Number.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/Random.h"

namespace dlv {

namespace {

constexpr int kColumns = 4;
constexpr int kFixedRows = 2;
constexpr int kFirstSum = 2;

/// A grid of texts in a vector of rows: every question is answered by looking at all of them.
class PlainGrid {
public:
    struct Row {
        std::string data;
        std::vector<std::string> cells = std::vector<std::string>(kColumns);
        int level = 0;
        bool node = false;
        bool collapsed = false;
    };

    int Count() const { return static_cast<int>(rows.size()); }
    Row& At(int row) { return rows[static_cast<std::size_t>(row)]; }

    int Find(const std::string& data) {
        for (int row = 0; row < Count(); ++row)
            if (!data.empty() && At(row).data == data) return row;
        return OutlineGrid::kNoRow;
    }

    int Parent(int row) {
        for (int above = row - 1; above >= kFixedRows; --above)
            if (At(above).level < At(row).level) return above;
        return OutlineGrid::kNoRow;
    }

    /// The topmost collapsed node that has the row below it; the row itself when none has.
    int ShownAs(int row) {
        for (int node = kFixedRows; node < row; ++node) {
            if (!At(node).node || !At(node).collapsed) continue;
            bool below = true;
            for (int between = node + 1; between <= row; ++between)
                below &= At(between).level > At(node).level;
            if (below) return node;
        }
        return row;
    }

    void Sort(int first, int last, const std::vector<int>& columns) {
        std::stable_sort(rows.begin() + first, rows.begin() + std::min(last + 1, Count()),
                         [&](const Row& a, const Row& b) {
                             for (const int column : columns) {
                                 const auto c = static_cast<std::size_t>(column);
                                 if (a.cells[c] != b.cells[c]) return a.cells[c] < b.cells[c];
                             }
                             return false;
                         });
    }

    void Group() {
        for (int first = kFixedRows; first < Count();) {
            Row group;
            group.node = true;
            group.level = 1;
            group.cells[1] = At(first).cells[1];
            int end = first;
            for (; end < Count() && At(end).cells[1] == group.cells[1]; ++end) At(end).level = 2;
            for (std::size_t column = kFirstSum; column < kColumns; ++column) {
                long sum = 0;
                for (int row = first; row < end; ++row)
                    sum += std::strtol(At(row).cells[column].c_str(), nullptr, 10);
                if (sum != 0) group.cells[column] = std::to_string(sum);
            }
            rows.insert(rows.begin() + first, group);
            first = end + 1;
        }
    }

    std::vector<Row> rows;
};

class Game {
public:
    explicit Game(unsigned seed) : random_(seed) {
        grid_.SetColumns(kColumns);
        Resize(kFixedRows);
        grid_.SetFixedRows(kFixedRows);
    }

    void Move();
    void Check();

private:
    int Pick(int count) { return static_cast<int>(random_.Below(static_cast<std::uint32_t>(count))); }
    int AnyRow() { return kFixedRows + Pick(plain_.Count() - kFixedRows); }
    std::string AnyText() {
        static const char* const kTexts[] = {"", "a", "B", "b", "é", "7", "-3", "7 apples"};
        return kTexts[Pick(8)];
    }
    std::string AnyData() { return Pick(4) ? "key " + std::to_string(Pick(12)) : ""; }

    void Resize(int rows) {
        grid_.SetRows(rows);
        plain_.rows.resize(static_cast<std::size_t>(rows));
    }
    void Insert();
    void Remove();
    void Write();
    void ChangeOutline();

    test::Random random_;
    OutlineGrid grid_{"grid"};
    PlainGrid plain_;
};

void Game::Insert() {
    const int position = kFixedRows + Pick(plain_.Count() - kFixedRows + 1);
    const int count = Pick(3);
    grid_.InsertRows(position, count);
    plain_.rows.insert(plain_.rows.begin() + position, static_cast<std::size_t>(count), PlainGrid::Row{});
}

void Game::Remove() {
    std::vector<bool> marks(plain_.rows.size());
    std::vector<PlainGrid::Row> kept;
    for (int row = 0; row < plain_.Count(); ++row) {
        const bool marked = row >= kFixedRows && Pick(5) == 0;
        marks[static_cast<std::size_t>(row)] = marked;
        if (!marked) kept.push_back(plain_.At(row));
    }
    grid_.RemoveRows(marks);
    plain_.rows = kept;
}

void Game::Write() {
    const int row = AnyRow();
    const int column = Pick(kColumns);
    std::string& cell = plain_.At(row).cells[static_cast<std::size_t>(column)];
    switch (Pick(5)) {
        case 0: grid_.SetText(row, column, cell = AnyText()); break;
        case 1:
            grid_.SetWhole(row, column, Pick(9) - 4);
            cell = grid_.CellText(row, column);
            break;
        case 2:
            grid_.SetSingle(row, column, 2.5f);
            cell = "2.5";
            break;
        case 3:
            grid_.ClearCell(row, column);
            cell.clear();
            break;
        case 4: grid_.SetRowData(row, plain_.At(row).data = AnyData()); break;
    }
}

void Game::ChangeOutline() {
    const int row = AnyRow();
    PlainGrid::Row& plain = plain_.At(row);
    switch (Pick(3)) {
        case 0:
            grid_.MakeNode(row, plain.level = Pick(4));
            plain.node = true;
            break;
        case 1: grid_.SetLevel(row, plain.level = Pick(4)); break;
        case 2:
            grid_.SetCollapsed(row, true);
            plain.collapsed = plain.collapsed || plain.node;
            break;
    }
}

void Game::Move() {
    const bool hasRows = plain_.Count() > kFixedRows;
    switch (Pick(hasRows ? 30 : 4)) {
        case 0: Resize(kFixedRows + Pick(25)); break;
        case 1: Resize(plain_.Count() + Pick(3)); break;
        case 2: Insert(); break;
        case 3: grid_.Reserve(plain_.Count() + Pick(40)); break;
        case 4: Remove(); break;
        case 5: {
            const std::vector<int> columns = Pick(2) ? std::vector{1, 2} : std::vector{2};
            const int first = AnyRow();
            const int last = first + Pick(10);
            grid_.SortRows(first, last, columns);
            plain_.Sort(first, last, columns);
            break;
        }
        case 6:
            grid_.GroupRows(1, kFirstSum);
            plain_.Group();
            break;
        case 7: {
            const int row = AnyRow();
            grid_.SetCurrentCell(row, 1);
            break;
        }
        case 8:
            grid_.ExpandAll();
            for (PlainGrid::Row& row : plain_.rows) row.collapsed = false;
            break;
        case 9:
        case 10:
        case 11:
        case 12:
        case 13:
        case 14: ChangeOutline(); break;
        default: Write(); break;
    }
}

void Game::Check() {
    ASSERT_EQ(grid_.Rows(), plain_.Count());
    std::vector<int> displayed;
    for (int row = 0; row < plain_.Count(); ++row) {
        const PlainGrid::Row& plain = plain_.At(row);
        for (int column = 0; column < kColumns; ++column) {
            ASSERT_EQ(grid_.CellText(row, column), plain.cells[static_cast<std::size_t>(column)])
                << row << ',' << column;
            ASSERT_EQ(grid_.IsEmpty(row, column), plain.cells[static_cast<std::size_t>(column)].empty());
        }
        ASSERT_EQ(grid_.RowData(row), plain.data);
        ASSERT_EQ(grid_.IsNode(row), plain.node) << row;
        ASSERT_EQ(grid_.IsCollapsed(row), plain.collapsed) << row;
        if (row >= kFixedRows) {
            ASSERT_EQ(grid_.Level(row), plain.level) << row;
            ASSERT_EQ(grid_.ParentRow(row), plain_.Parent(row)) << row;
            ASSERT_EQ(grid_.HasChildren(row),
                      row + 1 < plain_.Count() && plain_.At(row + 1).level > plain.level)
                << row;
        }
        if (plain_.ShownAs(row) == row) displayed.push_back(row);
    }
    ASSERT_EQ(grid_.DisplayedRows(), displayed);
    for (int row = 0; row < plain_.Count(); ++row)
        ASSERT_EQ(displayed[static_cast<std::size_t>(grid_.DisplayedIndex(row))], plain_.ShownAs(row)) << row;
    for (int key = 0; key < 12; ++key) {
        const std::string data = "key " + std::to_string(key);
        ASSERT_EQ(grid_.FindRow(data), plain_.Find(data)) << data;
    }
    ASSERT_EQ(grid_.FindRow(""), OutlineGrid::kNoRow);
    ASSERT_LT(grid_.CurrentRow(), std::max(1, grid_.Rows()));
}

TEST(OutlineGrid, DoesWhatAPlainGridDoes) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Game game(seed);
        for (int move = 0; move < 250; ++move) {
            game.Move();
            game.Check();
            if (testing::Test::HasFatalFailure()) FAIL() << "seed " << seed << ", move " << move;
        }
    }
}

TEST(OutlineGrid, RaisesSubscriptErrorsOutsideItsCells) {
    OutlineGrid grid("grid");
    EXPECT_EQ(test::ErrorOf([&] { grid.SetColumnWidth(0, 1); }), kErrorSubscript) << "no columns yet";
    grid.SetColumns(2);
    grid.SetRows(2);
    for (const auto& [row, column] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 2}}) {
        EXPECT_EQ(test::ErrorOf([&] { grid.CellText(row, column); }), kErrorSubscript)
            << row << ',' << column;
        EXPECT_EQ(test::ErrorOf([&] { grid.SetText(row, column, "x"); }), kErrorSubscript)
            << row << ',' << column;
    }
    for (const int row : {-1, 2})
        EXPECT_EQ(test::ErrorOf([&] { grid.RowData(row); }), kErrorSubscript) << row;
    for (const int row : {-1, 3})
        EXPECT_EQ(test::ErrorOf([&] { grid.InsertRows(row, 1); }), kErrorSubscript) << row;
    for (const int column : {-1, 2})
        EXPECT_EQ(test::ErrorOf([&] { grid.ColumnBold(column); }), kErrorSubscript) << column;
}

}  // namespace

}  // namespace dlv
