// The hierarchy view: every unit under its parent unit as an outline tree, in one grid for work orders
// and one for points. The rows of chosen units show sums over the unit and everything below it; the
// others are empty and grey.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "model/cDLVController.h"
#include "ui/CaptionCatalogue.h"
#include "views/CollapsedNodes.h"
#include "views/ViewerForm.h"
#include "widgets/OutlineTree.h"

namespace dlv {

class HierarchyView {
public:
    HierarchyView(ViewerForm& form, cDLVController& controller, const CaptionCatalogue& captions,
                  CollapsedNodes& collapsed, const Trap& trap)
        : form_(form), controller_(controller), captions_(captions), collapsed_(collapsed), trap_(trap) {}

    /// Lays out the empty grid of that index, 1 or 2.
    void InitBUHierarchyGrid(int index);

    /// Rebuilds the tree in both grids and fills in the figures of the chosen units. Errors rise.
    void Fill(const BusinessUnits& model, const Dictionary& chosen);

    /// Fills in the figures anew when other units are chosen than for the last figures; the tree and
    /// its collapsed nodes stay.
    void UpdateFigures(const BusinessUnits& model, const Dictionary& chosen);

    /// Whether the unit of the row was among those that the last figures were for, and how many units of the
    /// model its figures sum.
    bool Chosen(int row) const { return UnitsOf(row) != kNotChosen; }
    std::int64_t SummedUnits(int row) const { return std::max<std::int64_t>(0, UnitsOf(row)); }

    /// Whether a fill has reached its end.
    bool Filled() const { return filled_; }

private:
    struct Unit;

    std::vector<Unit> Units() const;
    std::vector<OutlineTree::Place> BuildTree(const std::vector<Unit>& units,
                                              const BusinessUnits& model) const;
    void ShowTree(OutlineGrid& grid, const std::vector<OutlineTree::Place>& places,
                  const std::vector<Unit>& units) const;
    void FillFigures(const BusinessUnits& model, const Dictionary& chosen);
    void FillRow(int row, const UnitFigures& figures);

    static constexpr std::int64_t kNotChosen = -1;
    std::int64_t UnitsOf(int row) const {
        const std::size_t place = static_cast<std::size_t>(row);
        return place < unitsOfRows_.size() ? unitsOfRows_[place] : kNotChosen;
    }

    ViewerForm& form_;
    cDLVController& controller_;
    const CaptionCatalogue& captions_;
    CollapsedNodes& collapsed_;
    const Trap& trap_;
    std::string lastChosen_;
    std::vector<std::int64_t> unitsOfRows_;  // by row; `kNotChosen` for a unit that was not
    bool filled_ = false;
};

}  // namespace dlv
