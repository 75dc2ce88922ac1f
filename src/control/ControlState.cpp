#include "control/ControlState.h"

#include "control/AboutBox.h"

#include "control/Layout.h"
#include "views/FitGridHeight.h"
#include "views/Panel.h"
#include "views/UnitList.h"

namespace dlv {

namespace {

constexpr Colour kRed = 0x0000FF;
constexpr Colour kBlue = 0xFF0000;

}  // namespace

DLViewer::State::State(Platform& usedPlatform, HostEvents& events)
    : platform(usedPlatform),
      outside(usedPlatform, events),
      trap([this](const RunTimeError& error, std::string_view location) { Report(error, location); }),
      mDLV(usedPlatform, trap, ControllerEvents()),
      collapsed(form, profiles.current, trap),
      summary(form, mDLV, captions, collapsed, trap),
      hierarchy(form, mDLV, captions, collapsed, trap),
      drillDown(form, mDLV),
      reasons(form, mDLV, captions, summary, hierarchy),
      gridExport(form, captions, usedPlatform, outside, modalOwner),
      envelope(outside,
               [this](const RunTimeError& error, std::string_view location) { Report(error, location); }),
      profileDocument(profiles, form, mDLV, collapsed, hierarchy, outside, trap),
      profileExchange(profiles, form, profileDocument, envelope, outside, trap, ProfileActions()),
      profileMenu(profiles, form, profileDocument, profileExchange, captions, modalOwner, outside, trap) {
    form.cmdView.SetEnabled(false);
}

cDLVController::Events DLViewer::State::ControllerEvents() {
    return {[this](CaptionKey key, bool error) { ShowStatus(key, error); }, [this] { HideStatus(); },
            [this](const std::shared_ptr<const BusinessUnits>& model) { FillSingleBUGrid(model); },
            [this](const std::shared_ptr<const BusinessUnits>& model) { FillBUHierarchyGrid(model); },
            [this] { RecoverFromFailedFill(); }};
}

ProfileExchange::Actions DLViewer::State::ProfileActions() {
    return {[this] { outside.PostRequest("ClientReady"); }, [this] { View(); },
            [this] {
                if (hierarchy.Filled()) mDLV.FillSingleBU();
            },
            [this] { profileMenu.ManageProfiles(); }};
}

void DLViewer::State::Report(const RunTimeError& error, std::string_view location) {
    ReportError(outside, error.Number(), error.Description(), std::string(location),
                initialized ? &captions : nullptr, &modalOwner);
}

void DLViewer::State::Layout() {
    LayoutFrames(form, platform.SurfaceWidth(), platform.SurfaceHeight());
    if (initialized && !firstLayoutDone) {
        form.lblStatus.SetCaption("");
        form.optDisplay.Select(0);
        ShowDisplay(form, 0);
        form.optBU.Select(0);
        summary.InitSingleBUGrid();
        hierarchy.InitBUHierarchyGrid(1);
        hierarchy.InitBUHierarchyGrid(2);
        firstLayoutDone = true;
    }
    LayoutPanel(form, form.fraBU[0].Width());
    for (OutlineGrid& grid : form.vsFlex) FitGridHeight(grid, form.fraBU[0].Height());
}

void DLViewer::State::ShowStatus(CaptionKey key, bool error) {
    form.lblStatus.SetCaption(captions.Caption(key));
    form.lblStatus.SetForeColour(error ? kRed : kBlue);
    form.lblStatus.SetVisible(true);
}

void DLViewer::State::HideStatus() {
    form.lblStatus.SetCaption("");
    form.lblStatus.SetForeColour(kBlue);
    form.lblStatus.SetVisible(false);
}

void DLViewer::State::EnableDataControls(bool enabled) {
    form.cmdView.SetEnabled(enabled);
    for (const std::size_t button : {1u, 2u, 4u}) form.tbMain.ShowButton(button, enabled);
}

void DLViewer::State::RecoverFromFailedFill() {
    mDLV.SingleBUGridBusy = mDLV.HierarchyGridBusy = false;
    for (OutlineGrid& grid : form.vsFlex) grid.SetRedraw(true);
    EnableDataControls(true);
}

void DLViewer::State::FillSingleBUGrid(const std::shared_ptr<const BusinessUnits>& model) {
    if (!profiles.settingsLoaded) profileDocument.LoadProfileSettings();
    mDLV.SingleBUGridBusy = true;
    const Outcome outcome = trap.Run("DLViewer.ShowBUs", [&] {
        summary.ShowBUs(*model);
        hierarchy.UpdateFigures(*model, summary.CurrentSelection());
    });
    if (outcome == Outcome::Done) {
        mDLV.SingleBUGridBusy = false;
        EnableDataControls(true);
    } else {
        RecoverFromFailedFill();
    }
    profiles.settingsLoaded = true;
    summary.SetGridFilled();
}

void DLViewer::State::FillBUHierarchyGrid(const std::shared_ptr<const BusinessUnits>& model) {
    const Outcome outcome = trap.Run("DLViewer.mDLV_FillBUHierarchyGrid", [&] {
        hierarchy.Fill(*model, summary.CurrentSelection());
        LoadBUListView(form, mDLV, sessionUnits);
        mDLV.HierarchyGridBusy = false;
        FillSingleBUGrid(model);
    });
    if (outcome == Outcome::Failed) RecoverFromFailedFill();
}

void DLViewer::State::View() {
    const bool changed = form.optBU.Selected() != summary.LastMode() ||
                         JoinKeys(mDLV.GetBUList(), '|') != JoinKeys(summary.CurrentSelection(), '|') ||
                         mDLV.GetBUList().Count() != summary.CurrentSelection().Count();
    if (changed) mDLV.FillSingleBU();
}

void DLViewer::State::ShowAbout() {
    trap.Run("DLViewer.tbMain_ButtonClick",
             [&] { ShowAboutBox(outside, platform, captions, mDLV.LanguageID, modalOwner); });
}

void DLViewer::State::SetSessionUnits(std::span<const std::string> ids) {
    sessionUnits.RemoveAll();
    for (const std::string& id : ids) sessionUnits.Add(id);
    profiles.loaded = false;
    profileExchange.GetProfileList();
}

void DLViewer::State::Release() {
    captions = CaptionCatalogue();
    mDLV.Release();
    sessionUnits.RemoveAll();
    profiles = ProfileState();
}

}  // namespace dlv
