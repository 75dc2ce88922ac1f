#include "player/windows/WindowsPlayer.h"

#include <commctrl.h>

#include <algorithm>

#include "base/Text.h"
#include "player/VisibleTranscript.h"

namespace dlv::player {

namespace {

/// High enough for every row of a session.
constexpr RECT kPlace{0, 0, 1200, 2300};
constexpr UINT kEvery = 5;  // milliseconds

HWND MakeWindow() {
    return CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, kPlace.right,
                           kPlace.bottom, nullptr, nullptr, nullptr, nullptr);
}

/// How many columns from the tree column on are to be seen before `column`.
int CellOf(const OutlineGrid& grid, int column) {
    int cell = 0;
    for (int before = grid.TreeColumn(); before < column; ++before)
        if (grid.ColumnWidth(before) > 0) ++cell;
    return cell;
}

}  // namespace

WindowsPlayer* WindowsPlayer::current_ = nullptr;

WindowsPlayer::WindowsPlayer(Proxy proxy)
    : proxy_(std::move(proxy)),
      library_(container::BesideProgram(L"DashlonViewer.manifest")),
      window_(MakeWindow()),
      hand_([this](MSG& message) { return container_ && container_->TranslateKey(message); }),
      dialogs_(hand_, [this](const std::string& name, Json entry) { Happened(name, std::move(entry)); }),
      places_(std::nullopt, Told::Visible) {
    current_ = this;
    timer_ = SetTimer(nullptr, 0, kEvery, Tick);
}

WindowsPlayer::~WindowsPlayer() {
    KillTimer(nullptr, timer_);
    if (sink_) sink_->Disconnect();
    container_.reset();
    DestroyWindow(window_);
    current_ = nullptr;
}

Json WindowsPlayer::Play(const Json& step) {
    inline_ = step.value("inline", Json::array());
    dialogs_.Begin(step);
    const std::string op = step["op"];
    if (op == "create") {
        Create();
    } else if (const auto reason = places_.WhyStepIsLeftOut(step)) {
        return {{"leftOut", *reason}};
    } else {
        Make(step);
    }
    places_.Play(step);
    hand_.Settle();
    Json now = {{"stopped", true}};
    if (!stopped_) {
        now = Shown().State();
        now["menu"] = menu_.Profiles();
    }
    return {{"log", std::exchange(log_, Json::array())},
            {"changed", TakeChanges(state_, std::move(now))},
            {"visible", true}};
}

void WindowsPlayer::Create() {
    if (sink_) sink_->Disconnect();
    container_ = std::make_unique<container::Container>(window_, window_, kPlace);
    sink_ = container::Make<container::EventSink>();
    ListenTo(*sink_.Get(), [this](const std::string& name, Json entry) { Happened(name, std::move(entry)); });
    const container::ComPtr<IUnknown> control = library_.Create(L"DashlonViewer.DLViewer");
    if (control && proxy_)
        viewer_ = proxy_(*control.Get());
    else if (control)
        control.As(&viewer_);
    if (!control || !viewer_ || FAILED(sink_->Connect(viewer_.Get(), __uuidof(__DLViewer))) ||
        FAILED(container_->Insert(control.Get())) || FAILED(container_->ActivateUI()))
        throw SessionError("the control cannot be shown");
    SetForegroundWindow(window_);
    menu_.Forget();
    initialized_ = false;
    stopped_ = false;
    state_ = Json::object();
}

void WindowsPlayer::Make(const Json& step) {
    const std::string op = step["op"];
    if (!IsHostCall(op)) {
        if (!stopped_) MakeUserAction(step);
        return;
    }
    const bool done = MakeHostCall(library_, *viewer_.Get(), step);
    if (!done) log_.push_back({{"comError", op}});
    // A stop before the control is ready changes nothing.
    if (op == "stopControl" && done && initialized_) stopped_ = true;
    if (op == "initialize" && done) initialized_ = true;
}

void WindowsPlayer::Happened(const std::string& name, Json entry) {
    log_.push_back(std::move(entry));
    const auto ready =
        std::find_if(inline_.begin(), inline_.end(), [&](const Json& e) { return e[0] == name; });
    if (ready == inline_.end()) return;
    const Json step = (*ready)[1];
    inline_.erase(ready);
    Make(step);
}

// While a menu or a dialog is open, it answers the messages, and this is where work goes on.
void CALLBACK WindowsPlayer::Tick(HWND, UINT, UINT_PTR, DWORD) {
    if (current_ == nullptr) return;
    current_->menu_.Tick();
    current_->dialogs_.Tick();
}

void WindowsPlayer::MakeUserAction(const Json& step) {
    const std::string op = step["op"];
    const int index = step.value("index", 0);
    if (op == "select") return SelectUnits(step["ids"]);
    if (op == "optBU") return hand_.Click(Shown().Option(index));
    if (op == "tab") return ChooseTab(index);
    if (op == "view") return hand_.Click(Shown().ViewButton());
    if (IsMenuStep(op)) {
        menu_.Begin(step, places_.Viewer().Controls());
        return hand_.Click(Shown().MenuButtonPoint());
    }
    if (op == "about") return hand_.Click(Shown().AboutButtonPoint());
    if (op == "techCount") return hand_.Click(Shown().TechnicianCount());
    const int before = Shown().Tab();
    if (op == "optDisplay") {
        ChooseTab(1);
        hand_.Click(Shown().Option(2 + index));
        return ChooseTab(before);
    }
    UseGrid(step);
    ChooseTab(before);
}

void WindowsPlayer::ChooseTab(int tab) {
    const Screen screen = Shown();
    if (screen.Tab() != tab) hand_.Click(screen.TabPoint(tab));
}

// Home selects the first unit alone; from there the focus goes down without selecting.
void WindowsPlayer::SelectUnits(const Json& ids) {
    const ListView& units = places_.Viewer().Controls().lvBU;
    if (units.Items().empty()) return;
    const HWND list = Shown().UnitList();
    RECT place{};
    GetWindowRect(list, &place);
    hand_.Click({place.left + 20, place.top + 8});
    hand_.Press(VK_HOME);
    for (std::size_t i = 0; i < units.Items().size(); ++i) {
        if (i > 0) hand_.Press(VK_DOWN, {VK_CONTROL});
        const std::string id(SkipCharacters(units.Items()[i].key, 1));
        const bool wanted = std::find(ids.begin(), ids.end(), Json(id)) != ids.end();
        if (wanted != (i == 0)) hand_.Press(VK_SPACE, {VK_CONTROL});
    }
}

// By keys alone: a click could open a node. Leftwards through the figures, since Right in the tree opens
// nodes.
void WindowsPlayer::ChooseCell(int row, int cell, int cells) {
    hand_.Click(Shown().HeadingPoint());
    hand_.Press(VK_HOME, {VK_CONTROL});
    hand_.Press(VK_DOWN, {}, row);
    hand_.Press(VK_HOME);
    if (cell == 0) return;
    hand_.Press(VK_END);
    hand_.Press(VK_LEFT, {}, cells - 1 - cell);
}

void WindowsPlayer::UseGrid(const Json& step) {
    const int index = step["grid"];
    ViewerForm& form = places_.Viewer().Controls();
    const OutlineGrid& grid = form.vsFlex[index];
    ChooseTab(index == 0 ? 0 : 1);
    const int display = form.optDisplay.Selected();
    if (index > 0 && index - 1 != display) hand_.Click(Shown().Option(1 + index));
    const std::string op = step["op"];
    const int row = grid.DisplayedIndex(RowOfStep(step, grid)) - grid.FixedRows();
    const int cell = step.contains("col") ? CellOf(grid, step["col"]) : 0;
    ChooseCell(row, cell, CellOf(grid, grid.Columns()));
    if (op == "collapse") hand_.Press(VK_SUBTRACT);
    if (op == "expand") hand_.Press(VK_ADD);
    if (op == "enter" && step.value("shift", false)) hand_.Press(VK_RETURN, {VK_SHIFT});
    if (op == "enter" && !step.value("shift", false)) hand_.Press(VK_RETURN);
    if (op == "dblclick") hand_.Click(Shown().CellPoint(row, cell), 2);
    if (index > 0 && index - 1 != display) hand_.Click(Shown().Option(2 + display));
}

std::string PlayOnScreen(const Json& steps, WindowsPlayer::Proxy proxy) {
    WindowsPlayer player(std::move(proxy));
    return WholeTranscript(steps, [&](const Json& step) { return player.Play(step); });
}

}  // namespace dlv::player
