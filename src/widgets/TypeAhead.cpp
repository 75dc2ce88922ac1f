#include "widgets/TypeAhead.h"

#include "base/LowerCase.h"
#include "base/Text.h"
#include "widgets/GridText.h"

namespace dlv {

namespace {

bool BeginsWith(const std::string& text, const std::string& folded) {
    std::size_t position = 0;
    for (std::size_t i = 0; i < folded.size();) {
        if (position == text.size()) return false;
        if (LowerCase(NextCharacter(text, position)) != NextCharacter(folded, i)) return false;
    }
    return true;
}

/// The first displayed row that begins so, looked for from the place `first` among them on and around the
/// end.
int FindFrom(const OutlineGrid& grid, int first, const std::string& folded) {
    const std::vector<int>& rows = grid.DisplayedRows();
    const int begin = grid.FixedRows();
    const int count = static_cast<int>(rows.size()) - begin;
    for (int i = 0; i < count; ++i) {
        const int row = rows[static_cast<std::size_t>(begin + (first - begin + i) % count)];
        if (BeginsWith(ShownText(grid, row, grid.TreeColumn()), folded)) return row;
    }
    return OutlineGrid::kNoRow;
}

bool IsOneLetter(const std::string& text, const std::string& letter) {
    for (std::size_t i = 0; i < text.size(); i += letter.size())
        if (text.compare(i, letter.size(), letter) != 0) return false;
    return true;
}

}  // namespace

int TypeAhead::Type(const OutlineGrid& grid, char32_t character, std::int64_t now) {
    if (!Running(now)) text_.clear();
    last_ = now;
    if (grid.Rows() <= grid.FixedRows()) return OutlineGrid::kNoRow;
    std::string letter;
    AppendCharacter(letter, LowerCase(character));
    const bool inHeader = grid.CurrentRow() < grid.FixedRows() || grid.CurrentRow() >= grid.Rows();
    const int here = inHeader ? grid.FixedRows() : grid.DisplayedIndex(grid.CurrentRow());
    const int behind = inHeader ? here : here + 1;
    // A text that goes on keeps the row that it has led to; one that begins looks for the next.
    int row = FindFrom(grid, text_.empty() ? behind : here, text_ + letter);
    if (row != OutlineGrid::kNoRow) {
        text_ += letter;
    } else if (!text_.empty() && IsOneLetter(text_, letter)) {
        row = FindFrom(grid, behind, letter);
    }
    return row;
}

}  // namespace dlv
