#include "control/DLViewer.h"

#include "control/Captions.h"
#include "control/ControlState.h"
#include "views/Panel.h"

namespace dlv {

namespace {

constexpr int kEnterKey = 13;
constexpr int kLeftButton = 1;
constexpr std::size_t kLastButton = 6;
/// A host that answers inside each event without end must not use up the stack of its thread.
constexpr int kDeepestCall = 50;

/// An entry into the control. What a stopped control held is let go when the outermost one ends.
class Entrance {
public:
    explicit Entrance(DLViewer::State& state) : state_(state) { ++state_.depth; }
    ~Entrance() {
        if (--state_.depth == 0 && state_.outside.Closed()) state_.Release();
    }
    Entrance(const Entrance&) = delete;
    Entrance& operator=(const Entrance&) = delete;

private:
    DLViewer::State& state_;
};

template <class Body>
void Enter(DLViewer::State& state, Body&& body) {
    const Entrance entrance(state);
    RunUntilStopped(body);
}

/// A call that acts between Initialize and StopControl.
template <class Body>
void HostCall(DLViewer::State& state, std::string_view method, Body&& body) {
    if (state.outside.Closed()) RaiseCallOrder(method, "the control was stopped");
    if (!state.initialized) RaiseCallOrder(method, "the control is not initialized");
    if (state.depth >= kDeepestCall) RaiseCallOrder(method, "too many calls stand inside each other");
    Enter(state, body);
}

/// A user's action, which a stopped control passes over.
template <class Body>
void UserAction(DLViewer::State& state, Body&& body) {
    if (!state.outside.Closed()) Enter(state, body);
}

}  // namespace

DLViewer::DLViewer(Platform& platform, HostEvents& events)
    : state_(std::make_unique<State>(platform, events)) {}

DLViewer::~DLViewer() = default;

void DLViewer::ReceiveMessage(const HostObject& data, std::int32_t dataType, const std::string& tag) {
    HostCall(*state_, "ReceiveMessage", [&] { state_->mDLV.ReceiveMessage(data, dataType, tag); });
}

void DLViewer::Initialize(std::shared_ptr<CaptionSource> trans) {
    State& state = *state_;
    if (state.outside.Closed()) RaiseCallOrder("Initialize", "the control was stopped");
    if (state.initialized) RaiseCallOrder("Initialize", "the control is initialized already");
    Enter(state, [&] {
        state.form.SetMousePointer(kHourglassPointer);
        state.EnableDataControls(false);
        state.form.tbMain.ShowButton(kLastButton, false);
        state.initialized = true;
        state.captions.Attach(std::move(trans), state.platform.InterfaceLanguage());
        state.mDLV.Initialize(state.form);
        state.Layout();
        state.form.tbMain.ShowButton(kLastButton, true);
        state.trap.Run("DLViewer.ApplyCaptions", [&] { ApplyCaptions(state.form, state.captions); });
        state.trap.Run("DLViewer.Initialize", [&] { state.ShowStatus("msg-WaitingforDLVData", false); });
    });
}

void DLViewer::StopControl() {
    State& state = *state_;
    if (!state.initialized || state.outside.Closed()) return;
    const Entrance entrance(state);
    state.EnableDataControls(false);
    state.form.tbMain.ShowButton(kLastButton, false);
    state.outside.Close();
}

void DLViewer::ReceiveProfileResponse(const std::string& resultXml, const std::string& functionName) {
    HostCall(*state_, "ReceiveProfileResponse",
             [&] { state_->profileExchange.ReceiveProfileResponse(resultXml, functionName); });
}

void DLViewer::ResizeControls() {
    if (state_->outside.Closed()) RaiseCallOrder("ResizeControls", "the control was stopped");
    Enter(*state_, [&] { state_->Layout(); });
}

void DLViewer::SetSessionBUIDList(std::span<const std::string> ids) {
    HostCall(*state_, "SetSessionBUIDList", [&] { state_->SetSessionUnits(ids); });
}

void DLViewer::SetRegionalFormatInfo(const std::string& languageID) {
    if (state_->outside.Closed()) RaiseCallOrder("SetRegionalFormatInfo", "the control was stopped");
    state_->mDLV.LanguageID = languageID;
}

void DLViewer::cmdView_Click() {
    UserAction(*state_, [&] { state_->View(); });
}

void DLViewer::Tabs_Click() {
    UserAction(*state_, [&] { ShowSelectedTab(state_->form); });
}

void DLViewer::optDisplay_Click(int index) {
    UserAction(*state_, [&] { ShowDisplay(state_->form, index); });
}

void DLViewer::tbMain_ButtonClick(const std::string& key) {
    UserAction(*state_, [&] {
        if (key == "SaveGrid") {
            state_->gridExport.SaveGrid(state_->form.CurrentGrid());
        } else if (key == "PrintGrid") {
            state_->gridExport.PrintGrid(state_->form.CurrentGrid());
        } else if (key == "Profiles") {
            state_->profileMenu.ConfigureProfileMenu();
            state_->platform.ShowProfileMenu();
        } else if (key == "Help") {
            state_->ShowAbout();
        }
    });
}

void DLViewer::mnuProfile_Click(int index) {
    UserAction(*state_, [&] { state_->profileMenu.mnuProfile_Click(index); });
}

void DLViewer::mnuSaveProfile_Click() {
    UserAction(*state_, [&] { state_->profileMenu.mnuSaveProfile_Click(); });
}

void DLViewer::mnuSaveProfileAs_Click() {
    UserAction(*state_, [&] { state_->profileMenu.mnuSaveProfileAs_Click(); });
}

void DLViewer::mnuManage_Click() {
    UserAction(*state_, [&] { state_->profileMenu.mnuManage_Click(); });
}

void DLViewer::vsFlex_MouseDown(int, int button) {
    UserAction(*state_, [&] { state_->drillDown.NoteButton(button); });
}

void DLViewer::vsFlex_DblClick(int index, int mouseRow, int mouseColumn) {
    UserAction(*state_, [&] {
        state_->trap.Run("DLViewer.vsFlex_DblClick", [&] {
            const auto request =
                state_->drillDown.ForCell(index, mouseRow, mouseColumn, state_->summary.SummedUnits());
            if (request) state_->outside.Raise(HostEvent::GetDetails, *request);
        });
    });
}

void DLViewer::vsFlex_KeyDown(int index, int key, bool shift) {
    if (key != kEnterKey || shift) return;
    const OutlineGrid& grid = state_->form.vsFlex[index];
    vsFlex_MouseDown(index, kLeftButton);
    vsFlex_DblClick(index, grid.CurrentRow(), grid.CurrentColumn());
}

void DLViewer::lblTechCount_Click() {
    UserAction(*state_, [&] {
        state_->trap.Run("DLViewer.lblTechCount_Click", [&] {
            state_->outside.Raise(HostEvent::GetDetails,
                                  state_->drillDown.ForTechnicians(state_->summary.SummedUnits()));
        });
    });
}

void DLViewer::UserControl_Resize() {
    UserAction(*state_, [&] { state_->Layout(); });
}

ViewerForm& DLViewer::Controls() { return state_->form; }
bool DLViewer::Initialized() const { return state_->initialized; }
bool DLViewer::Stopped() const { return state_->outside.Closed(); }
int DLViewer::Depth() const { return state_->depth; }
std::string DLViewer::Caption(CaptionKey key) const { return state_->captions.Caption(key); }
std::string DLViewer::WhyThisFigure(int index, int row, int column) const {
    return state_->outside.Closed() ? std::string() : state_->reasons.For(index, row, column);
}

}  // namespace dlv
