// A grid on paper: where pages break, what is repeated, and that everything lies where it should.
#include "views/GridPages.h"

#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace dlv {
namespace {

constexpr double kSheetWidth = 16838;
constexpr double kSheetHeight = 11906;
const GridPages::Words kWords{"Summary", "now", "Default", "%1 (continued)", "Page %1 of %2"};

/// A tree: a root, `groups` nodes below it, `rows` rows below each of those.
struct Tree {
    OutlineGrid grid{"grid"};
    Tree(int groups, int rows, double firstWidth = 150) {
        grid.SetColumns(4);
        grid.SetRows(3 + groups * (rows + 1));
        grid.SetFixedRows(2);
        grid.SetTreeColumn(1);
        const double widths[] = {0, firstWidth, 63, 63};
        for (int column = 0; column < 4; ++column) grid.SetColumnWidth(column, Pixels(widths[column]));
        for (const int column : {2, 3}) grid.SetText(0, column, "Orders");
        for (int column = 1; column < 4; ++column) grid.SetText(1, column, "H" + std::to_string(column));
        grid.SetHeaderRowHeight(1, 2);
        grid.SetHeaderColour(0, 2, 3, 0x123456);
        int row = 2;
        Add(row++, "Root", 0);
        for (int group = 0; group < groups; ++group) {
            Add(row++, "G" + std::to_string(group), 1);
            for (int i = 0; i < rows; ++i) Add(row++, "r" + std::to_string(i), 2);
        }
    }
    void Add(int row, const std::string& text, int level) {
        grid.MakeNode(row, level);
        grid.SetText(row, 1, text);
        grid.SetWhole(row, 2, row);
    }
    GridPages Pages(Paper paper = {.width = kSheetWidth, .height = kSheetHeight}) const {
        return GridPages(grid, paper, kWords);
    }
    /// The lines of a page between the header and the foot.
    static std::vector<std::string> Body(const PrintedPage& page) {
        std::vector<std::string> lines = Split(PageText(page), '\n');
        return {lines.begin() + 3, lines.end() - 2};
    }
};

TEST(GridPages, HoldEveryDisplayedRowOnceInOrder) {
    for (const auto& [groups, rows] : {std::pair{1, 0}, {1, 1}, {3, 40}, {40, 3}, {1, 500}, {7, 77}}) {
        Tree tree(groups, rows);
        if (groups > 2) tree.grid.SetCollapsed(3, true);
        const GridPages pages = tree.Pages();
        std::vector<std::string> figures;
        for (int number = 1; number <= pages.Count(); ++number)
            for (const std::string& line : Tree::Body(pages.Page(number)))
                if (const auto parts = Split(line, '\t'); parts.size() > 1) figures.push_back(parts[1]);
        std::vector<std::string> displayed;
        for (const int row : tree.grid.DisplayedRows())
            if (row >= 2) displayed.push_back(std::to_string(row));
        EXPECT_EQ(figures, displayed) << groups << " groups of " << rows;
    }
}

TEST(GridPages, RepeatTheHeaderAndTheNodesThatGoOn) {
    Tree tree(2, 60);
    const GridPages pages = tree.Pages();
    ASSERT_GE(pages.Count(), 3);
    for (int number = 1; number <= pages.Count(); ++number) {
        const std::string text = PageText(pages.Page(number));
        EXPECT_TRUE(text.starts_with("Summary\n\tOrders\nH1\tH2\tH3\n")) << text;
        const std::string foot =
            "now\tDefault\tPage " + std::to_string(number) + " of " + std::to_string(pages.Count()) + "\n";
        EXPECT_TRUE(text.ends_with(foot)) << text;
    }
    EXPECT_EQ(Tree::Body(pages.Page(1))[0], "Root\t2\t");
    EXPECT_EQ(Tree::Body(pages.Page(2))[0], "Root \u203A G0 (continued)");
    EXPECT_EQ(Tree::Body(pages.Page(pages.Count()))[0], "Root \u203A G1 (continued)");
    EXPECT_THROW(pages.Page(pages.Count() + 1), RunTimeError);
}

TEST(GridPages, EndNoPageWithANodeThatGoesOn) {
    for (int rows = 1; rows < 9; ++rows) {
        const Tree tree(60, rows);
        const GridPages pages = tree.Pages();
        for (int number = 1; number < pages.Count(); ++number) {
            const std::string last = Tree::Body(pages.Page(number)).back();
            EXPECT_FALSE(last.starts_with("G")) << last << ", groups of " << rows;
        }
    }
}

TEST(GridPages, NameTheNearestOfManyNodes) {
    Tree tree(1, 400);
    for (int row = 4; row < tree.grid.Rows(); ++row) tree.grid.SetLevel(row, row - 2);
    EXPECT_TRUE(Tree::Body(tree.Pages().Page(2))[0].starts_with("\u2026 \u203A r"));
}

TEST(GridPages, StayBetweenTheMarginsAndFillTheWidth) {
    const struct {
        const char* name;
        double columns;
        Paper paper;
        double left;
        double right;
    } rows[] = {
        {"wide columns on their side", 3000, {.width = kSheetWidth, .height = kSheetHeight}, 1200, 15638},
        {"wide columns upright", 3000, {.width = kSheetHeight, .height = kSheetWidth}, 1200, 10706},
        {"few columns grow by a quarter",
         150,
         {.width = kSheetWidth, .height = kSheetHeight},
         1200,
         1200 + 1.25 * Pixels(276)},
        {"a printer with broad edges",
         3000,
         {.width = kSheetWidth,
          .height = kSheetHeight,
          .left = 2000,
          .top = 900,
          .right = 100,
          .bottom = 900},
         2000,
         15638},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Tree tree(5, 30, row.columns);
        const GridPages pages = tree.Pages(row.paper);
        double left = row.paper.width;
        double right = 0;
        for (int number = 1; number <= pages.Count(); ++number) {
            const PrintedPage page = pages.Page(number);
            for (const PrintedPage::Area& area : page.areas) {
                left = std::min(left, area.place.left);
                right = std::max(right, area.place.left + area.place.width);
                EXPECT_GE(area.place.top, 1200 - 1e-6);
                EXPECT_LE(area.place.top + area.place.height, row.paper.height - 1200 + 1e-6);
            }
            for (const PrintedPage::Text& text : page.texts) {
                EXPECT_GE(text.place.top, row.paper.top);
                EXPECT_LE(text.place.top + text.place.height, row.paper.height - row.paper.bottom);
                EXPECT_GE(text.place.width, 0);
            }
        }
        EXPECT_NEAR(left, row.left, 1e-6);
        EXPECT_NEAR(right, row.right, 1e-6);
    }
}

TEST(GridPages, ShowColoursAndBoldAsOnTheScreen) {
    Tree tree(2, 1);
    tree.grid.SetRowBackColour(3, 0xE0E0E0);
    tree.grid.SetRowBold(3, true);
    tree.grid.SetRowBackColour(4, 0xD0D0D0, 2);
    const PrintedPage page = tree.Pages().Page(1);
    const auto has = [&](Colour colour) {
        return std::ranges::count(page.areas, colour, &PrintedPage::Area::colour);
    };
    EXPECT_EQ(has(0x123456), 1);
    EXPECT_EQ(has(0xE0E0E0), 1);
    const auto area = [&](Colour colour) {
        return *std::ranges::find(page.areas, colour, &PrintedPage::Area::colour);
    };
    EXPECT_GT(area(0xD0D0D0).place.left, area(0xE0E0E0).place.left);
    EXPECT_NEAR(area(0xD0D0D0).place.left + area(0xD0D0D0).place.width,
                area(0xE0E0E0).place.left + area(0xE0E0E0).place.width, 1e-6);
    const auto find = [&](const char* text) {
        return *std::ranges::find(page.texts, text, &PrintedPage::Text::text);
    };
    EXPECT_TRUE(find("G0").bold);
    EXPECT_FALSE(find("G1").bold);
    EXPECT_EQ(find("G1").alignment, Alignment::Left);
    EXPECT_EQ(find("Orders").alignment, Alignment::Centre);
    EXPECT_EQ(find("4").alignment, Alignment::Right);
}

}  // namespace
}  // namespace dlv
