#include "views/ViewerForm.h"

namespace dlv {

namespace {

constexpr Bounds InPixels(double left, double top, double width, double height) {
    return {Pixels(left), Pixels(top), Pixels(width), Pixels(height)};
}

// The size at design time. Lines that follow one another share a top; what depends on the control's size is
// placed anew by its layout.
constexpr double kDesignWidth = 1000;
constexpr double kDesignHeight = 640;
constexpr double kLine = 17;

}  // namespace

ViewerForm::ViewerForm() : Form("DLViewer") {
    SetSize(Pixels(kDesignWidth), Pixels(kDesignHeight));
    Place(fraDLV, InPixels(0, 0, kDesignWidth, kDesignHeight - 25));
    Place(tbMain, InPixels(6, 3, 150, 32), fraDLV);
    const auto item = [](const char* key, Toolbar::Style style) {
        return Toolbar::Item{key, style, {}, true};
    };
    tbMain.SetItems({item("SaveGrid", Toolbar::Style::Button), item("PrintGrid", Toolbar::Style::Button),
                     item("", Toolbar::Style::Separator), item("Profiles", Toolbar::Style::DropDown),
                     item("", Toolbar::Style::Separator), item("Help", Toolbar::Style::Button)});
    double left = 562;
    for (Label* label : {&lblLastTime, &lblLastRefreshTime, &lblNextTime, &lblNextRefreshTime}) {
        const bool heading = label == &lblLastTime || label == &lblNextTime;
        Place(*label, InPixels(left, 11, heading ? 130 : 80, kLine), fraDLV);
        if (heading) label->SetTextAlignment(Alignment::Right);
        label->SetVisible(false);
        left += heading ? 136 : 82;
    }
    PlaceSelection();
    PlacePanel();
    PlaceGrids();
    Place(fraStatus, InPixels(0, kDesignHeight - 25, kDesignWidth, 25));
    Place(lblProfile, InPixels(10, 5, 96, kLine), fraStatus);
    Place(lblCurrentProfile, InPixels(106, 5, 128, kLine), fraStatus);
    Place(lblStatus, InPixels(240, 5, 520, kLine), fraStatus);
    lblStatus.SetTextAlignment(Alignment::Centre);
    lblStatus.SetAnnounced(true);
    for (Label* label : {&lblProfile, &lblCurrentProfile, &lblStatus}) label->SetVisible(false);
}

void ViewerForm::PlaceSelection() {
    Place(fraSelection, InPixels(6, 38, kDesignWidth - 12, 122), fraDLV);
    fraSelection.SetEdge(true);
    Place(lblBUName, InPixels(10, 18, 400, kLine), fraSelection);
    Place(lvBU, InPixels(10, 36, 400, 78), fraSelection);
    Place(optBU[0], InPixels(442, 40, 206, 20), fraSelection);
    Place(optBU[1], InPixels(442, 66, 206, 20), fraSelection);
    Place(cmdView, InPixels(658, 48, 108, 30), fraSelection);
}

void ViewerForm::PlacePanel() {
    double left = 12;
    for (FigureLabel* label :
         {&lblTechCount, &lblHrsWorked, &lblHrsRemaining, &lblWODone, &lblWOOpen, &lblPtsDone, &lblPtsOpen}) {
        Place(label->heading, InPixels(left, 168, 78, 2 * kLine), fraDLV);
        Place(label->figure, InPixels(left, 203, 78, kLine), fraDLV);
        label->figure.SetBold(true);
        left += 84;
    }
    lblTechCount.heading.SetClickable(true);
    lblTechCount.figure.SetClickable(true);

    Place(lblProdPerTech, InPixels(614, 168, 168, kLine), fraDLV);
    lblProdPerTech.SetBold(true);
    Place(lblToday, InPixels(786, 168, 64, kLine), fraDLV);
    Place(lblReqProd, InPixels(884, 168, 88, kLine), fraDLV);
    Place(lblWOsPerHr, InPixels(614, 186, 128, kLine), fraDLV);
    Place(lblWOsPerHrToday, InPixels(746, 186, 104, kLine), fraDLV);
    Place(lblWOsPerHrReq, InPixels(855, 186, 117, kLine), fraDLV);
    Place(lblPtsPerHr, InPixels(614, 203, 128, kLine), fraDLV);
    Place(lblPtsPerHrToday, InPixels(746, 203, 104, kLine), fraDLV);
    Place(lblPtsPerHrReq, InPixels(855, 203, 117, kLine), fraDLV);
    for (Label* label :
         {&lblToday, &lblReqProd, &lblWOsPerHrToday, &lblWOsPerHrReq, &lblPtsPerHrToday, &lblPtsPerHrReq})
        label->SetTextAlignment(Alignment::Right);
    for (Label* figure : {&lblWOsPerHrToday, &lblWOsPerHrReq, &lblPtsPerHrToday, &lblPtsPerHrReq})
        figure->SetBold(true);
}

void ViewerForm::PlaceGrids() {
    Place(Tabs, InPixels(6, 228, kDesignWidth - 12, 383), fraDLV);
    Tabs.SetTabs({{}, {}});
    const Bounds inside = Tabs.ClientArea();
    for (Frame& frame : fraBU) Place(frame, inside, fraDLV);
    fraBU[1].SetVisible(false);
    Place(vsFlex[0], {0, 0, inside.width, inside.height}, fraBU[0]);
    Place(lblDisplayBy, InPixels(8, 7, 88, kLine), fraBU[1]);
    Place(optDisplay[0], InPixels(100, 5, 150, 20), fraBU[1]);
    Place(optDisplay[1], InPixels(254, 5, 150, 20), fraBU[1]);
    for (OutlineGrid* grid : {&vsFlex[1], &vsFlex[2]})
        Place(*grid, {0, Pixels(30), inside.width, inside.height - Pixels(30)}, fraBU[1]);
    vsFlex[2].SetVisible(false);
}

int ViewerForm::CurrentGrid() const {
    if (Tabs.SelectedTab() == 1) return 0;
    return optDisplay.Selected() == 0 ? 1 : 2;
}

}  // namespace dlv
