// Outline and order of the grid: sorting, grouping, collapsing, and what is displayed.
#include <algorithm>
#include <numeric>

#include "base/RunTimeError.h"
#include "widgets/OutlineGrid.h"

namespace dlv {

void OutlineGrid::SortRows(int first, int last, std::span<const int> byColumns) {
    last = std::min(last, Rows() - 1);
    if (first >= last) return;
    struct Key {
        std::vector<std::string> texts;
        std::uint32_t slot;
    };
    std::vector<Key> keys;
    for (int row = first; row <= last; ++row) {
        Key key{{}, order_[Index(row)]};
        for (const int column : byColumns) key.texts.push_back(CellText(row, column));
        keys.push_back(std::move(key));
    }
    std::ranges::stable_sort(keys, {}, &Key::texts);
    for (std::size_t i = 0; i < keys.size(); ++i) order_[Index(first) + i] = keys[i].slot;
    Restructured();
}

void OutlineGrid::GroupRows(int column, int firstSum) {
    std::vector<std::uint32_t> rows(order_.begin(), order_.begin() + fixedRows_);
    const std::vector<std::uint32_t> before = order_;
    std::vector<std::int64_t> sums(Index(columns_));
    for (int first = fixedRows_; first < static_cast<int>(before.size());) {
        const std::string text = CellText(first, column);
        std::ranges::fill(sums, 0);
        int row = first;
        for (; row < static_cast<int>(before.size()) && CellText(row, column) == text; ++row) {
            for (int c = firstSum; c < columns_; ++c) sums[Index(c)] += Whole(row, c);
            State(row).level = 2;
        }
        rows.push_back(NewSlot());
        Row& group = states_.back();
        group.node = true;
        group.level = 1;
        texts_.push_back(text);
        Cell* cells = &cells_[rows.back() * Index(columns_)];
        cells[column].kind = Cell::Kind::Text;
        cells[column].text = texts_.size() - 1;
        for (int c = firstSum; c < columns_; ++c) {
            if (sums[Index(c)] == 0) continue;
            cells[c].kind = Cell::Kind::Whole;
            cells[c].whole = sums[Index(c)];
        }
        rows.insert(rows.end(), before.begin() + first, before.begin() + row);
        first = row;
    }
    order_ = std::move(rows);
    Restructured();
}

void OutlineGrid::MakeNode(int row, int level) {
    Row& state = State(row);
    state.node = true;
    state.level = level;
    displayedKnown_ = false;
    ++rowsVersion_;
    MarkChanged();
}

void OutlineGrid::SetLevel(int row, int level) {
    State(row).level = level;
    displayedKnown_ = false;
    ++rowsVersion_;
    MarkChanged();
}

void OutlineGrid::SetCollapsed(int row, bool collapsed) {
    Row& state = State(row);
    if (!state.node || state.collapsed == collapsed) return;
    state.collapsed = collapsed;
    displayedKnown_ = false;
    if (toggled_.size() < kMostToggled) toggled_.push_back(row);
    MarkChanged();
}

void OutlineGrid::ExpandAll() {
    for (int row = fixedRows_; row < Rows(); ++row) SetCollapsed(row, false);
}

bool OutlineGrid::HasChildren(int row) const { return row + 1 < Rows() && Level(row + 1) > Level(row); }

int OutlineGrid::ParentRow(int row) const {
    const int level = Level(row);
    while (--row >= fixedRows_)
        if (Level(row) < level) return row;
    return kNoRow;
}

const std::vector<int>& OutlineGrid::DisplayedRows() const {
    if (displayedKnown_) return displayed_;
    displayed_.clear();
    constexpr std::int32_t kNothingHidden = INT32_MAX;
    std::int32_t hiddenBelow = kNothingHidden;
    for (int row = 0; row < Rows(); ++row) {
        const Row& state = states_[order_[Index(row)]];
        if (row >= fixedRows_) {
            if (state.level > hiddenBelow) continue;
            hiddenBelow = state.node && state.collapsed ? state.level : kNothingHidden;
        }
        displayed_.push_back(row);
    }
    displayedKnown_ = true;
    return displayed_;
}

int OutlineGrid::DisplayedIndex(int row) const {
    const std::vector<int>& rows = DisplayedRows();
    const auto after = std::ranges::upper_bound(rows, row);
    return static_cast<int>(after - rows.begin()) - 1;
}

}  // namespace dlv
