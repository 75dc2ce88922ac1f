// A grid on paper: its columns fitted to the width of the page, as many displayed rows on each page as fit,
// and on each page the header rows, the nodes that its first row stands under, and a foot. Colours and bold
// text are those of the screen.
#pragma once

#include <string>
#include <vector>

#include "widgets/OutlineGrid.h"
#include "widgets/Output.h"

namespace dlv {

class GridPages {
public:
    /// What stands on a page besides the grid.
    struct Words {
        std::string title;
        std::string time;
        std::string profile;
        /// With "%1" for the nodes that go on.
        std::string continued;
        /// With "%1" for the page's number and "%2" for how many there are.
        std::string page;
    };

    /// The grid must outlive the pages. Margins are 1200 twips, and more where the printer needs more.
    GridPages(const OutlineGrid& grid, const Paper& paper, Words words);

    /// At least 1.
    int Count() const { return static_cast<int>(starts_.size()); }
    /// From 1 to Count. Error 9 when the grid has lost rows since.
    PrintedPage Page(int number) const;

private:
    class Sheet;

    /// Where a page begins among the displayed rows, and the nearest nodes that the row there stands under.
    struct Start {
        std::size_t index;
        std::vector<int> nodes;
        bool moreNodes;
    };

    void FitColumns(const Paper& paper);
    void BreakPages();
    std::size_t EndOf(std::size_t page) const;
    int Depth(int row) const;
    double TreeLeft(int depth) const;

    double AddHeader(Sheet& sheet) const;
    double AddContinued(Sheet& sheet, const Start& start, double top) const;
    void AddRows(Sheet& sheet, std::size_t first, std::size_t end, double top) const;
    void AddColumnLines(Sheet& sheet, double top, double bottom) const;
    void AddRow(Sheet& sheet, int row, double top) const;
    void AddTree(Sheet& sheet, int row, int nextDepth, double top) const;
    void AddFoot(Sheet& sheet, int number) const;

    const OutlineGrid& grid_;
    Words words_;
    /// What the margins leave of the paper.
    Bounds area_;
    /// How many times as large as on the screen.
    double zoom_ = 1;
    /// Left edges of the columns and the right one of the last, as on the screen.
    std::vector<double> edges_;
    double headerHeight_ = 0;
    std::vector<Start> starts_;
};

}  // namespace dlv
