// The control's own form: every control on its surface, by the name that hosts' documentation and
// the catalogue of captions know it by. It holds state and design-time positions; what fills it are
// the views.
#pragma once

#include "widgets/Form.h"
#include "widgets/ListView.h"
#include "widgets/OutlineGrid.h"

namespace dlv {

/// A heading and the figure that belongs to it: elements 0 and 1 of a label array.
struct FigureLabel {
    explicit FigureLabel(const std::string& name) : heading(name + "(0)"), figure(name + "(1)") {}
    Label heading;
    Label figure;
};

/// An item of a pop-up menu; its caption is shown as it is.
struct MenuItem {
    std::string caption;
    bool checked = false;
    bool visible = false;
};

/// Pointer codes of the control's mouse pointer.
inline constexpr int kDefaultPointer = 0;
inline constexpr int kHourglassPointer = 11;

class ViewerForm : public Form {
public:
    ViewerForm();

    Frame fraDLV{"fraDLV"};
    Toolbar tbMain{"tbMain"};
    Label lblLastTime{"lblLastTime"};
    Label lblLastRefreshTime{"lblLastRefreshTime"};
    Label lblNextTime{"lblNextTime"};
    Label lblNextRefreshTime{"lblNextRefreshTime"};

    Frame fraSelection{"fraSelection"};
    Label lblBUName{"lblBUName"};
    ListView lvBU{"lvBU"};
    OptionGroup optBU{"optBU"};
    Button cmdView{"cmdView"};

    FigureLabel lblTechCount{"lblTechCount"};
    FigureLabel lblHrsWorked{"lblHrsWorked"};
    FigureLabel lblHrsRemaining{"lblHrsRemaining"};
    FigureLabel lblWODone{"lblWODone"};
    FigureLabel lblWOOpen{"lblWOOpen"};
    FigureLabel lblPtsDone{"lblPtsDone"};
    FigureLabel lblPtsOpen{"lblPtsOpen"};
    Label lblProdPerTech{"lblProdPerTech"};
    Label lblToday{"lblToday"};
    Label lblReqProd{"lblReqProd"};
    Label lblWOsPerHr{"lblWOsPerHr"};
    Label lblPtsPerHr{"lblPtsPerHr"};
    Label lblWOsPerHrToday{"lblWOsPerHrToday"};
    Label lblWOsPerHrReq{"lblWOsPerHrReq"};
    Label lblPtsPerHrToday{"lblPtsPerHrToday"};
    Label lblPtsPerHrReq{"lblPtsPerHrReq"};

    TabStrip Tabs{"Tabs"};
    Frame fraBU[2]{Frame{"fraBU(0)"}, Frame{"fraBU(1)"}};
    Label lblDisplayBy{"lblDisplayBy"};
    OptionGroup optDisplay{"optDisplay"};
    OutlineGrid vsFlex[3]{OutlineGrid{"vsFlex(0)"}, OutlineGrid{"vsFlex(1)"}, OutlineGrid{"vsFlex(2)"}};

    Frame fraStatus{"fraStatus"};
    Label lblStatus{"lblStatus"};
    Label lblProfile{"lblProfile"};
    Label lblCurrentProfile{"lblCurrentProfile"};

    /// The menu `mnuProfileSection`: one item for each profile, then the commands.
    std::vector<MenuItem> mnuProfile{MenuItem{}};
    MenuItem mnuUse;
    MenuItem mnuSaveProfile;
    MenuItem mnuSaveProfileAs;
    MenuItem mnuManage;

    /// The index of the grid that the user looks at: the summary on the first tab; on the second the
    /// hierarchy grid that the display option chooses.
    int CurrentGrid() const;

    int MousePointer() const { return mousePointer_; }
    void SetMousePointer(int pointer) { mousePointer_ = pointer; }

private:
    void PlaceSelection();
    void PlacePanel();
    void PlaceGrids();

    int mousePointer_ = kDefaultPointer;
};

}  // namespace dlv
