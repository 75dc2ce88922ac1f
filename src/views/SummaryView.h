// The summary view: one row for each job type and job class, summed over the chosen units, under a
// group row for each job type; a grand total on top with the classes summed over all types below it;
// and the figures of the productivity panel.
#pragma once

#include <memory>

#include "model/cDLVController.h"
#include "ui/CaptionCatalogue.h"
#include "views/CollapsedNodes.h"
#include "views/SummaryRows.h"
#include "views/ViewerForm.h"

namespace dlv {

class SummaryView {
public:
    SummaryView(ViewerForm& form, cDLVController& controller, const CaptionCatalogue& captions,
                CollapsedNodes& collapsed, const Trap& trap)
        : form_(form), controller_(controller), captions_(captions), collapsed_(collapsed), trap_(trap) {}

    /// Lays out the empty grid.
    void InitSingleBUGrid();

    /// Refills grid and panel from the model and the current choice. Errors rise to the caller.
    void ShowBUs(const BusinessUnits& model);

    /// The ids that the user chose when the summary was last filled.
    const Dictionary& CurrentSelection() const { return selection_; }
    /// The ids that were summed then: the chosen ones, or with all their descendants.
    const Dictionary& SummedUnits() const { return summed_; }
    /// How many of them the model held, and the first ids of those.
    std::size_t SummedCount() const { return summedCount_; }
    const std::vector<std::string>& FirstSummed() const { return firstSummed_; }
    /// The unit option in force then: 0 the chosen units themselves, 1 their aggregate.
    int LastMode() const { return lastMode_; }

    bool GridFilled() const { return gridFilled_; }
    void SetGridFilled() { gridFilled_ = true; }

private:
    void TakeSelection();
    void ResetSummary();
    /// The units to be summed, in order, those alone that the model holds.
    std::vector<const BusinessUnit*> Units(const BusinessUnits& model);
    void SumPanel(const UnitFigures& sum);
    void AddClassRows(const BusinessUnits& model, std::span<const BusinessUnit* const> units);
    void ShowEmptyTotal();
    void GroupByJobType();
    void AddTotals(const UnitFigures& sum);
    void AddClassTotals(const BusinessUnits& model, std::span<const BusinessUnit* const> units);
    void CleanUp();
    int GetMaxClassCnt(std::span<const BusinessUnit* const> units) const;
    void WriteRow(int row, const SummaryRow& summary, const std::string& typeText,
                  const std::string& classText);

    OutlineGrid& Grid() { return form_.vsFlex[0]; }

    ViewerForm& form_;
    cDLVController& controller_;
    const CaptionCatalogue& captions_;
    CollapsedNodes& collapsed_;
    const Trap& trap_;
    Dictionary selection_;
    Dictionary summed_;
    std::size_t summedCount_ = 0;
    std::vector<std::string> firstSummed_;
    int lastMode_ = 0;
    bool gridFilled_ = false;
};

}  // namespace dlv
