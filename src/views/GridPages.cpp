#include "views/GridPages.h"

#include <algorithm>
#include <cmath>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "widgets/GridText.h"

namespace dlv {

namespace {

constexpr double kMargin = 1200;
/// Room in the upper and lower margin for the title and the foot.
constexpr double kMarginLine = 280;
constexpr double kMarginGap = 110;
constexpr double kMostZoom = 1.25;
constexpr double kTitleSize = 1.2;
constexpr std::size_t kMostNodesNamed = 3;
constexpr std::size_t kMostNodesMoved = 3;

constexpr double kPadding = Pixels(4);
constexpr double kIndent = Pixels(15);
constexpr double kBoxSize = Pixels(9);
constexpr double kTreeTextRoom = Pixels(60);
constexpr double kLine = Pixels(0.75);

constexpr Colour kGridLine = 0xC0C0C0;
constexpr Colour kHeaderLine = 0xA0A0A0;
constexpr Colour kTreeLine = 0x808080;
constexpr Colour kBlack = 0x000000;
constexpr Colour kWhite = 0xFFFFFF;

}  // namespace

/// A page as it grows; places are given as on the screen, from the corner that the margins leave.
class GridPages::Sheet {
public:
    Sheet(const Bounds& area, double zoom) : area_(area), zoom_(zoom) {}

    void Fill(const Bounds& place, Colour colour) { page_.areas.push_back({OnPaper(place), colour}); }
    void Write(const Bounds& place, std::string text, bool bold, Alignment alignment, bool wraps = false) {
        page_.texts.push_back({OnPaper(place), std::move(text), zoom_, bold, alignment, wraps});
    }
    /// A text in the margin, over the whole width, not enlarged with the grid.
    void WriteInMargin(double top, std::string text, double size, bool bold, Alignment alignment) {
        page_.texts.push_back(
            {{area_.left, top, area_.width, kMarginLine}, std::move(text), size, bold, alignment, false});
    }
    PrintedPage Take() { return std::move(page_); }

private:
    Bounds OnPaper(const Bounds& place) const {
        return {area_.left + place.left * zoom_, area_.top + place.top * zoom_, place.width * zoom_,
                place.height * zoom_};
    }

    Bounds area_;
    double zoom_;
    PrintedPage page_;
};

GridPages::GridPages(const OutlineGrid& grid, const Paper& paper, Words words)
    : grid_(grid), words_(std::move(words)) {
    for (int row = 0; row < std::min(grid.FixedRows(), grid.Rows()); ++row)
        headerHeight_ += grid.RowHeight(row);
    FitColumns(paper);
    BreakPages();
}

void GridPages::FitColumns(const Paper& paper) {
    constexpr double kOutside = kMarginGap + kMarginLine;
    const double left = std::max(kMargin, paper.left);
    const double top = std::max(kMargin, paper.top + kOutside);
    const double right = std::max(kMargin, paper.right);
    const double bottom = std::max(kMargin, paper.bottom + kOutside);
    area_ = {left, top, paper.width - left - right, paper.height - top - bottom};
    if (area_.width <= 0 || area_.height <= 0) RaisePrinter();
    edges_.push_back(0);
    for (int column = 0; column < grid_.Columns(); ++column)
        edges_.push_back(edges_.back() + grid_.ColumnWidth(column));
    if (edges_.back() > 0) zoom_ = std::min(kMostZoom, area_.width / edges_.back());
}

// One pass over the displayed rows: the nodes that a row stands under are those seen last on each lower
// level.
void GridPages::BreakPages() {
    const double room = (area_.height / zoom_ - headerHeight_) / grid_.DefaultRowHeight();
    const std::size_t rowsOfPage = static_cast<std::size_t>(std::max(2.0, std::floor(room + 1e-9)));
    const std::vector<int>& rows = grid_.DisplayedRows();
    std::vector<int> above;
    std::size_t end = 0;
    for (std::size_t i = static_cast<std::size_t>(grid_.FixedRows()); i < rows.size(); ++i) {
        while (!above.empty() && grid_.Level(above.back()) >= grid_.Level(rows[i])) above.pop_back();
        if (starts_.empty() || i == end) {
            const std::size_t named = std::min(above.size(), kMostNodesNamed);
            starts_.push_back(
                {i, {above.end() - static_cast<std::ptrdiff_t>(named), above.end()}, above.size() > named});
            end = i + rowsOfPage - (above.empty() ? 0 : 1);
            // A node goes with its first row.
            for (std::size_t moved = 0; moved < kMostNodesMoved && end < rows.size() && end > i + 1 &&
                                        grid_.Level(rows[end]) > grid_.Level(rows[end - 1]);
                 ++moved)
                --end;
        }
        if (grid_.IsNode(rows[i])) above.push_back(rows[i]);
    }
    if (starts_.empty()) starts_.push_back({rows.size(), {}, false});
}

std::size_t GridPages::EndOf(std::size_t page) const {
    return page + 1 < starts_.size() ? starts_[page + 1].index : grid_.DisplayedRows().size();
}

PrintedPage GridPages::Page(int number) const {
    if (number < 1 || number > Count()) RaiseSubscript();
    const std::size_t page = static_cast<std::size_t>(number) - 1;
    const Start& start = starts_[page];
    const std::size_t end = EndOf(page);
    if (end > grid_.DisplayedRows().size() || start.index > end) RaiseSubscript();
    Sheet sheet(area_, zoom_);
    sheet.WriteInMargin(area_.top - kMarginGap - kMarginLine, words_.title, kTitleSize, true,
                        Alignment::Left);
    const double body = AddContinued(sheet, start, AddHeader(sheet));
    AddRows(sheet, start.index, end, body);
    AddFoot(sheet, number);
    return sheet.Take();
}

double GridPages::AddHeader(Sheet& sheet) const {
    double top = 0;
    for (int row = 0; row < std::min(grid_.FixedRows(), grid_.Rows()); ++row) {
        const double height = grid_.RowHeight(row);
        for (int column = 0, last = 0; column < grid_.Columns(); column = last + 1) {
            last = LastOfCaption(grid_, row, column);
            const double left = edges_[static_cast<std::size_t>(column)];
            const double width = edges_[static_cast<std::size_t>(last) + 1] - left;
            if (width <= 0) continue;
            sheet.Fill({left, top, width, height}, grid_.HeaderColour(row, column).value_or(kWhite));
            sheet.Fill({left, top + height - kLine, width, kLine}, kHeaderLine);
            sheet.Fill({left + width - kLine, top, kLine, height}, kHeaderLine);
            sheet.Write({left + kLine, top, width - 3 * kLine, height - kLine}, grid_.CellText(row, column),
                        grid_.RowBold(row) || grid_.ColumnBold(column), Alignment::Centre, true);
        }
        top += height;
    }
    return top;
}

double GridPages::AddContinued(Sheet& sheet, const Start& start, double top) const {
    if (start.nodes.empty()) return top;
    std::string names;
    if (start.moreNodes) names = "\u2026";
    for (const int node : start.nodes) {
        if (!names.empty()) names += " \u203A ";
        names += ShownText(grid_, node, grid_.TreeColumn());
    }
    const double height = grid_.DefaultRowHeight();
    const double left = edges_[static_cast<std::size_t>(grid_.TreeColumn())] + kPadding;
    sheet.Fill({0, top + height - kLine, edges_.back(), kLine}, kGridLine);
    sheet.Write({left, top, edges_.back() - left - kPadding, height - kLine},
                WithValues(words_.continued, {names}), false, Alignment::Left);
    return top + height;
}

void GridPages::AddRows(Sheet& sheet, std::size_t first, std::size_t end, double top) const {
    const std::vector<int>& rows = grid_.DisplayedRows();
    const double height = grid_.DefaultRowHeight();
    const double bottom = top + height * static_cast<double>(end - first);
    for (std::size_t i = first; i < end; ++i) {
        const double place = top + height * static_cast<double>(i - first);
        if (const auto colour = grid_.RowBackColour(rows[i])) {
            const double left = edges_[static_cast<std::size_t>(grid_.FirstColouredColumn(rows[i]))];
            sheet.Fill({left, place, edges_.back() - left, height}, *colour);
        }
        sheet.Fill({0, place + height - kLine, edges_.back(), kLine}, kGridLine);
    }
    AddColumnLines(sheet, top, bottom);
    for (std::size_t i = first; i < end; ++i) {
        const double place = top + height * static_cast<double>(i - first);
        AddTree(sheet, rows[i], i + 1 < rows.size() ? Depth(rows[i + 1]) : 0, place);
        AddRow(sheet, rows[i], place);
    }
}

void GridPages::AddColumnLines(Sheet& sheet, double top, double bottom) const {
    for (std::size_t edge = 1; edge < edges_.size(); ++edge)
        if (edges_[edge] > edges_[edge - 1])
            sheet.Fill({edges_[edge] - kLine, top, kLine, bottom - top}, kGridLine);
}

void GridPages::AddRow(Sheet& sheet, int row, double top) const {
    for (int column = 0; column < grid_.Columns(); ++column) {
        const double left = edges_[static_cast<std::size_t>(column)];
        const double right = edges_[static_cast<std::size_t>(column) + 1];
        if (right <= left) continue;
        const bool tree = column == grid_.TreeColumn();
        const double begin = tree ? TreeLeft(Depth(row)) + kIndent / 2 + kPadding / 2 : left + kPadding;
        sheet.Write({begin, top, std::max(0.0, right - kPadding - begin), grid_.DefaultRowHeight() - kLine},
                    ShownText(grid_, row, column), grid_.RowBold(row) || grid_.ColumnBold(column),
                    column > grid_.TreeColumn() ? Alignment::Right : Alignment::Left);
    }
}

int GridPages::Depth(int row) const {
    const int depth = std::max(0, grid_.Level(row) - grid_.Level(grid_.FixedRows()));
    const double room = grid_.ColumnWidth(grid_.TreeColumn()) - kTreeTextRoom;
    return std::min(depth, std::max(1, static_cast<int>(room / kIndent)));
}

double GridPages::TreeLeft(int depth) const {
    return edges_[static_cast<std::size_t>(grid_.TreeColumn())] + kIndent / 2 + depth * kIndent;
}

// As on the screen: a bar below each open node down to the last of the rows under it, and a box with the sign
// of what pressing it would do.
void GridPages::AddTree(Sheet& sheet, int row, int nextDepth, double top) const {
    const int depth = Depth(row);
    const double height = grid_.DefaultRowHeight();
    const double middle = top + (height - kLine) / 2;
    for (int bar = 0; bar < depth; ++bar) {
        const bool ends = nextDepth <= bar;
        sheet.Fill({TreeLeft(bar), top, kLine, ends ? middle - top : height}, kTreeLine);
        if (ends) sheet.Fill({TreeLeft(bar), middle, Pixels(5), kLine}, kTreeLine);
    }
    if (!grid_.IsNode(row) || !grid_.HasChildren(row)) return;
    const double left = TreeLeft(depth) - (kBoxSize - kLine) / 2;
    const double boxTop = middle - (kBoxSize - kLine) / 2;
    const double inner = kBoxSize - 2 * kLine;
    if (!grid_.IsCollapsed(row))
        sheet.Fill({TreeLeft(depth), middle, kLine, top + height - middle}, kTreeLine);
    sheet.Fill({left, boxTop, kBoxSize, kBoxSize}, kTreeLine);
    sheet.Fill({left + kLine, boxTop + kLine, inner, inner}, kWhite);
    const double sign = kBoxSize - 5 * kLine;
    sheet.Fill({left + 2.5 * kLine, middle, sign, kLine}, kBlack);
    if (grid_.IsCollapsed(row)) sheet.Fill({TreeLeft(depth), boxTop + 2.5 * kLine, kLine, sign}, kBlack);
}

void GridPages::AddFoot(Sheet& sheet, int number) const {
    const double top = area_.top + area_.height + kMarginGap;
    sheet.WriteInMargin(top, words_.time, 1, false, Alignment::Left);
    sheet.WriteInMargin(top, words_.profile, 1, false, Alignment::Centre);
    sheet.WriteInMargin(top, WithValues(words_.page, {std::to_string(number), std::to_string(Count())}), 1,
                        false, Alignment::Right);
}

}  // namespace dlv
