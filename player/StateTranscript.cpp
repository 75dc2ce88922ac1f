#include <cmath>

#include "base/Text.h"
#include "control/ControlState.h"
#include "player/Transcript.h"

namespace dlv::player {

namespace {

constexpr Colour kRed = 0x0000FF;

Json StatusTranscript(const Label& status) {
    // Until the first message the label has no colour and nothing was said of its being seen.
    const bool used = status.ForeColour().has_value();
    return {{"key", status.Caption()},
            {"colour", used ? Json(*status.ForeColour() == kRed ? "red" : "blue") : Json()},
            {"visible", used ? Json(status.Visible()) : Json()}};
}

Json PanelTranscript(const ViewerForm& form) {
    return {{"lblTechCount", form.lblTechCount.figure.Caption()},
            {"lblHrsWorked", form.lblHrsWorked.figure.Caption()},
            {"lblHrsRemaining", form.lblHrsRemaining.figure.Caption()},
            {"lblWODone", form.lblWODone.figure.Caption()},
            {"lblWOOpen", form.lblWOOpen.figure.Caption()},
            {"lblPtsDone", form.lblPtsDone.figure.Caption()},
            {"lblPtsOpen", form.lblPtsOpen.figure.Caption()},
            {"lblWOsPerHrToday", form.lblWOsPerHrToday.Caption()},
            {"lblWOsPerHrReq", form.lblWOsPerHrReq.Caption()},
            {"lblPtsPerHrToday", form.lblPtsPerHrToday.Caption()},
            {"lblPtsPerHrReq", form.lblPtsPerHrReq.Caption()}};
}

Json UnitsTranscript(const ListView& list) {
    Json units = Json::array();
    for (const ListView::Item& item : list.Items())
        units.push_back({std::string(SkipCharacters(item.key, 1)), item.text, item.selected});
    return units;
}

Json Number(double value) {
    constexpr double kWholeLimit = 9007199254740992.0;
    if (value == std::floor(value) && std::fabs(value) < kWholeLimit) return static_cast<std::int64_t>(value);
    return value;
}

Json RefreshTranscript(const cDLVController::Refresh& refresh, const ViewerForm& form) {
    return {{"format", refresh.format ? Json(*refresh.format) : Json()},
            {"interval", refresh.interval ? Number(*refresh.interval) : Json()},
            {"last", refresh.last ? Json(ClockText(*refresh.last)) : Json()},
            {"next", refresh.next ? Json(ClockText(*refresh.next)) : Json()},
            {"visible", form.lblLastTime.Visible()}};
}

}  // namespace

Json MenuTranscript(const ViewerForm& form) {
    Json items = Json::array();
    for (const MenuItem& item : form.mnuProfile)
        if (item.visible) items.push_back({item.caption, item.checked});
    return items.empty() ? Json() : items;
}

Json StateTranscript(DLViewer& viewer) {
    if (viewer.Stopped()) return {{"viewEnabled", false}, {"stopped", true}};
    const ViewerForm& form = viewer.Controls();
    const DLViewer::State& state = viewer.Inner();
    const bool filled = state.summary.GridFilled();
    Json names = Json::array();
    for (const auto& entry : state.profiles.names) names.push_back(entry.key);
    return {{"status", StatusTranscript(form.lblStatus)},
            {"panel", filled ? PanelTranscript(form) : Json()},
            {"units", UnitsTranscript(form.lvBU)},
            {"grid0", filled ? GridTranscript(form.vsFlex[0], 0) : Json()},
            {"grid1", GridTranscript(form.vsFlex[1], 1)},
            {"grid2", GridTranscript(form.vsFlex[2], 2)},
            {"mode", form.optBU.Selected()},
            {"display", form.optDisplay.Selected()},
            {"currentGrid", form.CurrentGrid()},
            {"viewEnabled", form.cmdView.Enabled()},
            {"pointer", form.MousePointer()},
            {"profile", form.lblCurrentProfile.Visible() ? Json(form.lblCurrentProfile.Caption()) : Json()},
            {"names", std::move(names)},
            {"menu", MenuTranscript(form)},
            {"refresh", RefreshTranscript(state.mDLV.LastRefresh(), form)},
            {"stopped", false}};
}

}  // namespace dlv::player
