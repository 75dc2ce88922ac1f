#include "widgets/GridText.h"

#include <algorithm>
#include <vector>

#include "widgets/GridReading.h"

namespace dlv {

namespace {

/// One row of the text: `textOf` gives what stands in each of the columns.
template <class TextOf>
void AppendRow(std::string& text, const std::vector<int>& columns, TextOf&& textOf) {
    for (const int column : columns) {
        AppendField(text, textOf(column), '\t');
        text += '\t';
    }
    text.pop_back();
    text += "\r\n";
}

}  // namespace

void AppendField(std::string& text, std::string_view field, char separator) {
    const std::size_t begin = text.size();
    text += field;
    QuoteField(text, begin, separator);
}

void QuoteField(std::string& text, std::size_t begin, char separator) {
    const auto special = [separator](char c) { return c == separator || c == '"' || c == '\r' || c == '\n'; };
    const auto first = text.begin() + static_cast<std::ptrdiff_t>(begin);
    if (std::none_of(first, text.end(), special)) return;
    std::string quoted = "\"";
    for (auto at = first; at != text.end(); ++at) {
        if (*at == '"') quoted += '"';
        quoted += *at;
    }
    text.replace(begin, std::string::npos, quoted += '"');
}

int LastOfCaption(const OutlineGrid& grid, int row, int column) {
    const std::string text = grid.CellText(row, column);
    int last = column;
    while (row == 0 && last + 1 < grid.Columns() && grid.CellText(row, last + 1) == text &&
           grid.HeaderColour(row, last + 1) == grid.HeaderColour(row, column))
        ++last;
    return last;
}

std::string ShownText(const OutlineGrid& grid, int row, int column) {
    std::string text = grid.CellText(row, column);
    if (column != grid.TreeColumn() || row < grid.FixedRows()) return text;
    for (int hidden = column - 1; text.empty() && hidden >= 0 && grid.ColumnWidth(hidden) == 0; --hidden)
        text = grid.CellText(row, hidden);
    return text;
}

std::string ColumnHeading(const OutlineGrid& grid, int column) {
    std::string heading;
    std::string last;
    for (int row = 0; row < std::min(grid.FixedRows(), grid.Rows()); ++row) {
        std::string caption = grid.CellText(row, column);
        if (caption.empty() || caption == last) continue;
        if (!heading.empty()) heading += ": ";
        heading += caption;
        last = std::move(caption);
    }
    return heading;
}

std::string CopyText(const OutlineGrid& grid, Headings headings) {
    const auto block = grid.Selection();
    if (!block) return {};
    std::vector<int> columns = ReadColumns(grid);
    std::erase_if(columns,
                  [&](int column) { return column < block->firstColumn || column > block->lastColumn; });
    if (columns.empty()) return {};
    std::string text;
    if (headings == Headings::With)
        AppendRow(text, columns, [&](int column) { return ColumnHeading(grid, column); });
    const std::vector<int>& rows = grid.DisplayedRows();
    for (auto row = std::ranges::lower_bound(rows, block->firstRow);
         row != rows.end() && *row <= block->lastRow; ++row)
        AppendRow(text, columns, [&](int column) { return ShownText(grid, *row, column); });
    return text;
}

}  // namespace dlv
