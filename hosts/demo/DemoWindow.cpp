#include "hosts/demo/DemoWindow.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "base/Text.h"
#include "hosts/demo/workday/DayMessages.h"
#include "hosts/demo/workday/DayRecords.h"
#include "hosts/recorder/RecordingControl.h"
#include "windows/com/Strings.h"

namespace dlv::demo {

namespace {

constexpr wchar_t kClass[] = L"DashlonDemoHost";
constexpr wchar_t kTitle[] = L"Operations Desk";

constexpr int kLogHeight = 96;

/// When the host comes to work, and how much of the day goes by between figures.
constexpr int kFirstMinute = 120;
constexpr int kFirstMinuteOfPictures = 260;
constexpr int kMinutesPerRefresh = 10;
/// Nobody watches while pictures are taken.
constexpr UINT kPictureRefreshMilliseconds = 500;

constexpr UINT kAnswerRequests = WM_APP + 1;
constexpr UINT kFirstFigures = WM_APP + 2;
constexpr UINT_PTR kTimer = 1;
constexpr UINT_PTR kAnswerTimer = 2;
constexpr UINT kSlowAnswerMilliseconds = 3000;

enum Command { kPause = 100, kRefresh, kServer, kNewDay, kLanguage, kRequests, kFirstLanguage };

ACCEL kKeys[] = {{FVIRTKEY, VK_F5, kRefresh}, {FVIRTKEY, VK_F6, kPause},    {FVIRTKEY, VK_F7, kServer},
                 {FVIRTKEY, VK_F8, kNewDay},  {FVIRTKEY, VK_F9, kLanguage}, {FVIRTKEY, VK_F12, kRequests}};

const wchar_t* const kLanguageNames[kLanguages] = {L"English", L"Portugu\u00EAs", L"Espa\u00F1ol"};

}  // namespace

DemoWindow::DemoWindow(const Options& options, std::unique_ptr<ControlHolder> holder,
                       std::shared_ptr<container::Recorder> calls,
                       std::shared_ptr<recorder::SessionRecorder> session)
    : options_(options),
      holder_(std::move(holder)),
      profiles_(PathOf(options.profilesFolder)),
      session_(profiles_, *this, std::move(calls)),
      recorder_(std::move(session)),
      seed_(options.seed),
      language_(options.language) {
    StartDay();
    day_->Advance(options.mode == Options::Mode::Pictures ? kFirstMinuteOfPictures : kFirstMinute);
}

DemoWindow::~DemoWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
    DestroyAcceleratorTable(keys_);
}

bool DemoWindow::Create() {
    WNDCLASSW definition{};
    definition.lpfnWndProc = Procedure;
    definition.hInstance = GetModuleHandleW(nullptr);
    definition.hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512));
    definition.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    definition.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    definition.lpszClassName = kClass;
    RegisterClassW(&definition);
    // A picture shows what is in the window, without the frame that the system puts around it.
    const DWORD style = options_.mode == Options::Mode::Pictures ? WS_POPUP : WS_OVERLAPPEDWINDOW;
    CreateWindowExW(0, kClass, kTitle, style | WS_CLIPCHILDREN, CW_USEDEFAULT, 0, 100, 100, nullptr, nullptr,
                    definition.hInstance, this);
    if (window_ == nullptr || !header_.Create(window_, Wide(kCompanyName),
                                              {{kPause, L"Pause"},
                                               {kRefresh, L"Refresh"},
                                               {kServer, L"Stop server"},
                                               {kNewDay, L"New day"},
                                               {kLanguage, L"Language"},
                                               {kRequests, L"Requests"}}))
        return false;
    log_ = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", nullptr,
                           WS_CHILD | WS_VSCROLL | WS_TABSTOP | LBS_NOINTEGRALHEIGHT | LBS_NOSEL, 0, 0, 0, 0,
                           window_, nullptr, definition.hInstance, nullptr);
    keys_ = CreateAcceleratorTableW(kKeys, static_cast<int>(std::size(kKeys)));
    MakeLook();
    UpdateHeader();
    SetWindowPos(window_, nullptr, 0, 0, Scaled(options_.width), Scaled(options_.height),
                 SWP_NOZORDER | (options_.mode == Options::Mode::Pictures ? 0 : SWP_NOMOVE));
    ShowWindow(window_, SW_SHOW);
    TellOfProfiles();
    return true;
}

bool DemoWindow::StartControl(Language language, const std::string& profile) {
    StopControl();
    language_ = language;
    const HRESULT opened = holder_->Open(window_, ControlPlace());
    if (FAILED(opened)) {
        Complain("The control cannot be made: " + std::to_string(opened));
        return false;
    }
    container::ComPtr<IUnknown> control = holder_->Control();
    if (recorder_) {
        container::ComPtr<_DLViewer> recording =
            container::Make<recorder::RecordingControl>(*control.Get(), recorder_);
        control = recording;
    }
    if (!session_.Start(*control.Get(), language, profile)) return false;
    // In a picture the focus is nowhere.
    if (options_.mode != Options::Mode::Pictures) holder_->Focus();
    const UINT milliseconds = options_.mode == Options::Mode::Pictures
                                  ? kPictureRefreshMilliseconds
                                  : static_cast<UINT>(options_.refreshSeconds) * 1000;
    SetTimer(window_, kTimer, milliseconds, nullptr);
    return true;
}

void DemoWindow::StopControl() {
    KillTimer(window_, kTimer);
    session_.Stop();
    holder_->Close();
}

void DemoWindow::RunMessages() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (IsUsedUp(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool DemoWindow::IsUsedUp(MSG& message) {
    if (details_.Owns(message.hwnd)) return details_.Translate(message);
    if (TranslateAcceleratorW(window_, keys_, &message) != 0) return true;
    if (IsChild(header_.Handle(), message.hwnd)) return IsDialogMessageW(header_.Handle(), &message) != FALSE;
    return holder_->Translate(message);
}

LRESULT CALLBACK DemoWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        const auto* made = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        static_cast<DemoWindow*>(made->lpCreateParams)->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made->lpCreateParams));
    }
    auto* const self = reinterpret_cast<DemoWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self == nullptr ? DefWindowProcW(window, message, wParam, lParam)
                           : self->OnMessage(message, wParam, lParam);
}

LRESULT DemoWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (lParam == 0) OnCommand(LOWORD(wParam));
            return 0;
        case WM_TIMER:
            if (wParam == kAnswerTimer) {
                KillTimer(window_, kAnswerTimer);
                PostMessageW(window_, kAnswerRequests, 0, 0);
            } else {
                OnTimer();
            }
            return 0;
        case kAnswerRequests:
            session_.AnswerRequests();
            TellOfProfiles();
            return 0;
        case kFirstFigures:
            if (server_ == Server::Stopped) session_.Send(ServerStoppedMessage());
            SendFigures();
            return 0;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) LayOut();
            return 0;
        case WM_SETFOCUS: holder_->Focus(); return 0;
        case WM_DPICHANGED: {
            const RECT& place = *reinterpret_cast<const RECT*>(lParam);
            MakeLook();
            SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
                         place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
            return 0;
        }
        case WM_DESTROY: StopControl(); return 0;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
            window_ = nullptr;
            PostQuitMessage(0);
            return 0;
        default: return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void DemoWindow::OnCommand(int command) {
    switch (command) {
        case kPause: SetServer(server_ == Server::Paused ? Server::Running : Server::Paused); break;
        case kRefresh: SendFigures(); break;
        case kServer: SetServer(server_ == Server::Stopped ? Server::Running : Server::Stopped); break;
        case kNewDay:
            ++seed_;
            StartDay();
            SendFigures();
            break;
        case kLanguage: ChooseLanguage(); break;
        case kRequests: ShowLog(!logShown_); break;
        default: break;
    }
}

void DemoWindow::OnTimer() {
    if (server_ != Server::Running || !session_.Ready()) return;
    if (day_->Over()) {
        ++seed_;
        StartDay();
    } else {
        day_->Advance(kMinutesPerRefresh);
    }
    SendFigures();
}

void DemoWindow::AnswersWait() {
    switch (options_.answers) {
        case Options::Answers::Inside: session_.AnswerRequests(); [[fallthrough]];
        case Options::Answers::Later: PostMessageW(window_, kAnswerRequests, 0, 0); break;
        case Options::Answers::Slow: SetTimer(window_, kAnswerTimer, kSlowAnswerMilliseconds, nullptr); break;
        case Options::Answers::Never: break;
    }
}

void DemoWindow::TellOfProfiles() {
    const std::string notice = profiles_.TakeNotice();
    if (notice.empty()) return;
    std::fprintf(stderr, "demo: %s\n", notice.c_str());
    // Where nobody watches, nothing may wait for an answer.
    if (options_.mode == Options::Mode::Interactive)
        MessageBoxW(window_, Wide(notice).c_str(), kTitle, MB_OK | MB_ICONWARNING);
}

void DemoWindow::ClientReady() { PostMessageW(window_, kFirstFigures, 0, 0); }

void DemoWindow::DetailsAsked(const DLVParams& params) {
    std::string line = params.Info == "USER" ? "GetDetails: technicians" : "GetDetails: work orders";
    if (!params.JobStatus.empty()) line += ", status " + params.JobStatus;
    if (!params.JobType.empty()) line += ", job type " + params.JobType;
    if (!params.JobClass.empty()) line += ", job class " + params.JobClass;
    const auto units = Split(params.BUID, '|');
    Tell(line + (units.size() == 1 ? ", unit " : ", " + std::to_string(units.size()) + " units ") +
         params.BUID);
    if (sentDay_) details_.Show(window_, RecordsBehind(*sentDay_, params));
}

void DemoWindow::Tell(const std::string& line) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    wchar_t time[16];
    swprintf(time, std::size(time), L"%02d:%02d:%02d  ", now.wHour, now.wMinute, now.wSecond);
    const LRESULT at =
        SendMessageW(log_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>((time + Wide(line)).c_str()));
    SendMessageW(log_, LB_SETTOPINDEX, static_cast<WPARAM>(at), 0);
}

void DemoWindow::Complain(const std::string& line) {
    Tell(line);
    ShowLog(true);
    std::fprintf(stderr, "demo: %s\n", line.c_str());
}

void DemoWindow::MakeLook() {
    const int dpi = DpiOf(window_);
    const HostFonts before = std::exchange(fonts_, HostFonts(dpi));
    header_.SetLook(fonts_, dpi);
    SendMessageW(log_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Regular()), TRUE);
}

void DemoWindow::UpdateHeader() {
    std::string note = "Working day " + ClockText(day_->Minute()) + " of " + ClockText(WorkingDay::kMinutes);
    if (server_ == Server::Paused) note += ", paused";
    if (server_ == Server::Stopped) note += ", server stopped";
    header_.SetNote(Wide(note));
    header_.SetItemText(kPause, server_ == Server::Paused ? L"Go on" : L"Pause");
    header_.SetItemText(kServer, server_ == Server::Stopped ? L"Start server" : L"Stop server");
}

void DemoWindow::ChooseLanguage() {
    const HMENU menu = CreatePopupMenu();
    for (std::size_t i = 0; i < kLanguages; ++i) {
        const UINT checked = static_cast<std::size_t>(language_) == i ? MF_CHECKED : MF_UNCHECKED;
        AppendMenuW(menu, MF_STRING | checked, kFirstLanguage + i, kLanguageNames[i]);
    }
    const POINT at = header_.MenuPoint(kLanguage);
    const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0, window_, nullptr);
    DestroyMenu(menu);
    if (chosen >= kFirstLanguage)
        StartControl(static_cast<Language>(chosen - kFirstLanguage), options_.profile);
}

void DemoWindow::SetServer(Server server) {
    server_ = server;
    UpdateHeader();
    if (server == Server::Stopped && session_.Ready()) session_.Send(ServerStoppedMessage());
    if (server == Server::Running) SendFigures();
}

void DemoWindow::StartDay() { day_ = std::make_unique<WorkingDay>(seed_); }

void DemoWindow::SendFigures() {
    if (!session_.Ready() || server_ == Server::Stopped) return;
    if (session_.Send(FiguresMessage(*day_, language_, options_.refreshSeconds / 60.0))) sentDay_ = *day_;
    UpdateHeader();
    // What is called may put another in its place.
    if (const auto notify = afterFigures) notify();
}

void DemoWindow::ShowLog(bool shown) {
    logShown_ = shown;
    ShowWindow(log_, shown ? SW_SHOWNA : SW_HIDE);
    LayOut();
}

int DemoWindow::Scaled(int pixels) const { return MulDiv(pixels, DpiOf(window_), USER_DEFAULT_SCREEN_DPI); }

RECT DemoWindow::ControlPlace() const {
    RECT place;
    GetClientRect(window_, &place);
    place.top += header_.Height();
    if (logShown_) place.bottom -= Scaled(kLogHeight);
    place.bottom = std::max(place.bottom, place.top);
    return place;
}

void DemoWindow::LayOut() {
    const RECT place = ControlPlace();
    MoveWindow(log_, 0, place.bottom, place.right, Scaled(kLogHeight), TRUE);
    header_.Place(place.right);
    holder_->Move(place);
    session_.Resize();
}

}  // namespace dlv::demo
