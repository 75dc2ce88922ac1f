#include "control/Layout.h"

#include <algorithm>

namespace dlv {

namespace {

constexpr double kMargin = Pixels(6);
constexpr double kStatusHeight = Pixels(25);
constexpr double kLeastTabsHeight = Pixels(130);
constexpr double kLeastTimesWidth = Pixels(600);
constexpr double kLeastPanelWidth = Pixels(856);
constexpr int kFigures = 7;

void SetSpan(Control& control, double left, double right) {
    control.SetPlace({left, control.Top(), right - left, control.Height()});
}

void LayoutTimes(ViewerForm& form, double width) {
    double right = std::max(width, kLeastTimesWidth) - kMargin;
    for (Label* label :
         {&form.lblNextRefreshTime, &form.lblNextTime, &form.lblLastRefreshTime, &form.lblLastTime}) {
        SetSpan(*label, right - label->Width(), right);
        const bool heading = label == &form.lblNextTime || label == &form.lblLastTime;
        right -= label->Width() + Pixels(heading ? 2 : 6);
    }
}

/// Widths only, and the places of the seven figures: the left edges of the rest are fixed parts of the width.
void LayoutPanelWidths(ViewerForm& form, double width) {
    form.lblBUName.SetWidth(width * 0.43 - form.lblBUName.Left());
    form.lvBU.SetWidth(width * 0.43 - form.lvBU.Left());
    for (int i = 0; i < 2; ++i) form.optBU[i].SetWidth(width * (0.67 - 0.45) - Pixels(8));

    const double first = Pixels(12);
    const double step = (width * 0.61 - first) / kFigures;
    double left = first;
    for (FigureLabel* label : {&form.lblTechCount, &form.lblHrsWorked, &form.lblHrsRemaining, &form.lblWODone,
                               &form.lblWOOpen, &form.lblPtsDone, &form.lblPtsOpen}) {
        SetSpan(label->heading, left, left + step - Pixels(8));
        SetSpan(label->figure, left, left + step - Pixels(8));
        left += step;
    }

    form.lblProdPerTech.SetWidth(width * (0.8 - 0.625) - Pixels(2));
    for (Label* label : {&form.lblWOsPerHr, &form.lblPtsPerHr})
        label->SetWidth(width * (0.76 - 0.625) - Pixels(1));
    // Figures end where their headings end.
    const double todayEnd = width * 0.87 - Pixels(2);
    const double requiredEnd = width - Pixels(2);
    form.lblToday.SetWidth(todayEnd - width * 0.8);
    form.lblReqProd.SetWidth(requiredEnd - width * 0.9);
    for (Label* label : {&form.lblWOsPerHrToday, &form.lblPtsPerHrToday})
        label->SetWidth(todayEnd - width * 0.76);
    for (Label* label : {&form.lblWOsPerHrReq, &form.lblPtsPerHrReq})
        label->SetWidth(requiredEnd - width * 0.87);
}

void LayoutStatus(ViewerForm& form, double width, double panelWidth) {
    form.fraStatus.SetWidth(width);
    form.lblStatus.SetWidth(panelWidth * 0.52);
    SetSpan(form.lblCurrentProfile, form.lblCurrentProfile.Left(), panelWidth * 0.24 - Pixels(4));
}

}  // namespace

void LayoutFrames(ViewerForm& form, double width, double height) {
    const double tabsTop = form.Tabs.Top();
    const double statusTop = std::max(height - kStatusHeight, tabsTop + kLeastTabsHeight);
    form.SetSize(width, height);
    form.fraDLV.SetPlace({0, 0, width, statusTop});
    form.fraStatus.SetTop(statusTop);
    form.Tabs.SetPlace(
        {kMargin, tabsTop, std::max(0.0, width - 2 * kMargin), statusTop - tabsTop - Pixels(4)});

    const Bounds inside = form.Tabs.ClientArea();
    for (Frame& frame : form.fraBU) frame.SetPlace(inside);
    for (OutlineGrid& grid : form.vsFlex)
        grid.SetPlace({0, grid.Top(), inside.width, inside.height - grid.Top()});

    const double panelWidth = std::max(inside.width, kLeastPanelWidth);
    form.fraSelection.SetWidth(panelWidth + Pixels(6));
    LayoutTimes(form, width);
    LayoutPanelWidths(form, panelWidth);
    LayoutStatus(form, width, panelWidth);
}

}  // namespace dlv
