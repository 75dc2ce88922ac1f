// All that the control owns, and how it hangs together: the form, the controller, the views, the
// profiles, the ways out, and the one trap whose report is the error dialog.
#pragma once

#include <memory>

#include "control/DLViewer.h"
#include "model/cDLVController.h"
#include "profiles/ProfileDocument.h"
#include "profiles/ProfileExchange.h"
#include "profiles/ProfileMenu.h"
#include "profiles/ResultEnvelope.h"
#include "ui/frmError.h"
#include "views/DrillDown.h"
#include "views/FigureReasons.h"
#include "views/GridExport.h"
#include "views/HierarchyView.h"
#include "views/SummaryView.h"

namespace dlv {

struct DLViewer::State {
    State(Platform& usedPlatform, HostEvents& events);

    void Layout();
    void ShowStatus(CaptionKey key, bool error);
    void HideStatus();
    void EnableDataControls(bool enabled);
    /// Whatever failed, the control is left usable: not busy, drawn again, buttons enabled.
    void RecoverFromFailedFill();

    void FillSingleBUGrid(const std::shared_ptr<const BusinessUnits>& model);
    void FillBUHierarchyGrid(const std::shared_ptr<const BusinessUnits>& model);
    void View();
    void ShowAbout();
    void SetSessionUnits(std::span<const std::string> ids);
    /// Lets everything go that the control holds, once it was stopped and no call is under way.
    void Release();

    Platform& platform;
    Outside outside;
    ViewerForm form;
    CaptionCatalogue captions;
    ModalOwner modalOwner{form.fraDLV};
    Trap trap;
    cDLVController mDLV;
    Dictionary sessionUnits;
    ProfileState profiles;
    CollapsedNodes collapsed;
    SummaryView summary;
    HierarchyView hierarchy;
    DrillDown drillDown;
    FigureReasons reasons;
    GridExport gridExport;
    ResultEnvelope envelope;
    ProfileDocument profileDocument;
    ProfileExchange profileExchange;
    ProfileMenu profileMenu;

    bool initialized = false;
    bool firstLayoutDone = false;
    int depth = 0;

private:
    void Report(const RunTimeError& error, std::string_view location);
    cDLVController::Events ControllerEvents();
    ProfileExchange::Actions ProfileActions();
};

}  // namespace dlv
