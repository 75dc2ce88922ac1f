#include "hosts/demo/DemoWindow.h"

#include <algorithm>
#include <utility>

#include "hosts/demo/workday/DayMessages.h"
#include "windows/com/Strings.h"

namespace dlv::demo {

namespace {

constexpr wchar_t kClass[] = L"DashlonDemoHost";
constexpr wchar_t kTitle[] = L"Operations Desk";

constexpr int kHeaderHeight = 34;
constexpr int kLogHeight = 96;
constexpr int kMargin = 10;
constexpr COLORREF kHeaderColour = RGB(35, 61, 92);
constexpr COLORREF kHeaderText = RGB(255, 255, 255);
constexpr COLORREF kHeaderNote = RGB(190, 208, 228);

/// When the host comes to work, and how much of the day goes by between figures.
constexpr int kFirstMinute = 120;
constexpr int kMinutesPerRefresh = 10;

constexpr UINT kAnswerRequests = WM_APP + 1;
constexpr UINT kFirstFigures = WM_APP + 2;
constexpr UINT_PTR kTimer = 1;

enum Command {
    kPause = 100,
    kRefresh,
    kServerStopped,
    kNewDay,
    kExit,
    kLog,
    kEnglish,
    kPortuguese,
    kSpanish
};

int DpiOf(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    return dpi == 0 ? USER_DEFAULT_SCREEN_DPI : static_cast<int>(dpi);
}

std::string ClockText(int minutes) {
    const std::string rest = std::to_string(minutes % 60);
    return std::to_string(minutes / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

}  // namespace

DemoWindow::DemoWindow(const Options& options, std::unique_ptr<ControlHolder> holder)
    : options_(options),
      holder_(std::move(holder)),
      session_(profiles_, *this),
      seed_(options.seed),
      language_(options.language) {
    StartDay();
    day_->Advance(kFirstMinute);
}

DemoWindow::~DemoWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
    DeleteObject(font_);
    DeleteObject(boldFont_);
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
    CreateWindowExW(0, kClass, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, 0, 100, 100,
                    nullptr, nullptr, definition.hInstance, this);
    if (window_ == nullptr) return false;
    SetWindowPos(window_, nullptr, 0, 0, Scaled(options_.width), Scaled(options_.height),
                 SWP_NOZORDER | (options_.mode == Options::Mode::Pictures ? 0 : SWP_NOMOVE));
    log_ = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", nullptr,
                           WS_CHILD | WS_VSCROLL | WS_TABSTOP | LBS_NOINTEGRALHEIGHT | LBS_NOSEL, 0, 0, 0, 0,
                           window_, nullptr, definition.hInstance, nullptr);
    MakeMenu();
    MakeFonts();
    ShowWindow(window_, SW_SHOW);
    return true;
}

bool DemoWindow::StartControl(Language language, const std::string& profile) {
    StopControl();
    language_ = language;
    UpdateMenu();
    const HRESULT opened = holder_->Open(window_, ControlPlace());
    if (FAILED(opened)) Tell("The control cannot be made: " + std::to_string(opened));
    failed_ = FAILED(opened) || !session_.Start(*holder_->Control(), language, profile);
    if (failed_) ShowLog(true);
    holder_->Focus();
    SetTimer(window_, kTimer, static_cast<UINT>(options_.refreshSeconds) * 1000, nullptr);
    return !failed_;
}

void DemoWindow::StopControl() {
    KillTimer(window_, kTimer);
    session_.Stop();
    holder_->Close();
}

void DemoWindow::RunMessages() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (holder_->Translate(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
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
        case WM_TIMER: OnTimer(); return 0;
        case kAnswerRequests: session_.AnswerRequests(); return 0;
        case kFirstFigures: SendFigures(); return 0;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) LayOut();
            return 0;
        case WM_SETFOCUS: holder_->Focus(); return 0;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            PaintHeader(BeginPaint(window_, &paint));
            EndPaint(window_, &paint);
            return 0;
        }
        case WM_DPICHANGED: {
            const RECT& place = *reinterpret_cast<const RECT*>(lParam);
            MakeFonts();
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
        case kPause: SetServer(server_ == Server::Running ? Server::Paused : Server::Running); break;
        case kRefresh: SendFigures(); break;
        case kServerStopped: SetServer(server_ == Server::Stopped ? Server::Running : Server::Stopped); break;
        case kNewDay:
            ++seed_;
            StartDay();
            SendFigures();
            break;
        case kExit: DestroyWindow(window_); break;
        case kLog: ShowLog(!logShown_); break;
        case kEnglish: StartControl(Language::English, options_.profile); break;
        case kPortuguese: StartControl(Language::Portuguese, options_.profile); break;
        case kSpanish: StartControl(Language::Spanish, options_.profile); break;
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

void DemoWindow::AnswersWait() { PostMessageW(window_, kAnswerRequests, 0, 0); }
void DemoWindow::ClientReady() { PostMessageW(window_, kFirstFigures, 0, 0); }

void DemoWindow::DetailsAsked(const DLVParams& params) {
    std::string line = "GetDetails: ";
    line += params.Info == "USER" ? "technicians" : "work orders";
    if (!params.JobStatus.empty()) line += ", status " + params.JobStatus;
    if (!params.JobType.empty()) line += ", job type " + params.JobType;
    if (!params.JobClass.empty()) line += ", job class " + params.JobClass;
    Tell(line + ", units " + params.BUID);
    ShowLog(true);
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

void DemoWindow::MakeMenu() {
    const auto add = [](HMENU menu, int command, const wchar_t* text) {
        AppendMenuW(menu, command == 0 ? MF_SEPARATOR : MF_STRING, static_cast<UINT_PTR>(command), text);
    };
    const HMENU bar = CreateMenu(), data = CreatePopupMenu(), view = CreatePopupMenu();
    add(data, kPause, L"&Pause the day");
    add(data, kRefresh, L"&Refresh now");
    add(data, kServerStopped, L"&Server stopped");
    add(data, kNewDay, L"&New day");
    add(data, 0, nullptr);
    add(data, kExit, L"E&xit");
    add(view, kEnglish, L"&English");
    add(view, kPortuguese, L"&Portuguese");
    add(view, kSpanish, L"&Spanish");
    add(view, 0, nullptr);
    add(view, kLog, L"&Requests of the control");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(data), L"&Data");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(view), L"&View");
    SetMenu(window_, bar);
    UpdateMenu();
}

void DemoWindow::UpdateMenu() {
    const HMENU menu = GetMenu(window_);
    const auto check = [&](int command, bool on) {
        CheckMenuItem(menu, static_cast<UINT>(command), on ? MF_CHECKED : MF_UNCHECKED);
    };
    check(kPause, server_ == Server::Paused);
    check(kServerStopped, server_ == Server::Stopped);
    check(kLog, logShown_);
    CheckMenuRadioItem(menu, kEnglish, kSpanish, static_cast<UINT>(kEnglish) + static_cast<UINT>(language_),
                       MF_BYCOMMAND);
}

void DemoWindow::MakeFonts() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    const auto dpi = static_cast<UINT>(DpiOf(window_));
    SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi);
    DeleteObject(std::exchange(font_, CreateFontIndirectW(&metrics.lfMessageFont)));
    metrics.lfMessageFont.lfWeight = FW_BOLD;
    DeleteObject(std::exchange(boldFont_, CreateFontIndirectW(&metrics.lfMessageFont)));
    SendMessageW(log_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
}

void DemoWindow::SetServer(Server server) {
    server_ = server;
    UpdateMenu();
    if (server == Server::Stopped && session_.Ready()) session_.Send(ServerStoppedMessage());
    if (server == Server::Running) SendFigures();
    InvalidateRect(window_, nullptr, FALSE);
}

void DemoWindow::StartDay() { day_ = std::make_unique<WorkingDay>(seed_); }

void DemoWindow::SendFigures() {
    if (!session_.Ready() || server_ == Server::Stopped) return;
    session_.Send(FiguresMessage(*day_, language_, options_.refreshSeconds / 60.0));
    InvalidateRect(window_, nullptr, FALSE);
    if (afterFigures) afterFigures();
}

void DemoWindow::ShowLog(bool shown) {
    logShown_ = shown;
    ShowWindow(log_, shown ? SW_SHOWNA : SW_HIDE);
    UpdateMenu();
    LayOut();
}

int DemoWindow::Scaled(int pixels) const { return MulDiv(pixels, DpiOf(window_), USER_DEFAULT_SCREEN_DPI); }

RECT DemoWindow::ControlPlace() const {
    RECT place;
    GetClientRect(window_, &place);
    place.top += Scaled(kHeaderHeight);
    if (logShown_) place.bottom -= Scaled(kLogHeight);
    place.bottom = std::max(place.bottom, place.top);
    return place;
}

void DemoWindow::LayOut() {
    const RECT place = ControlPlace();
    MoveWindow(log_, 0, place.bottom, place.right, Scaled(kLogHeight), TRUE);
    holder_->Move(place);
    session_.Resize();
    InvalidateRect(window_, nullptr, FALSE);
}

std::wstring DemoWindow::DayText() const {
    std::string text = "Working day " + ClockText(day_->Minute()) + " of " + ClockText(WorkingDay::kMinutes);
    switch (server_) {
        case Server::Running:
            text += ", figures every " + std::to_string(options_.refreshSeconds) + " s";
            break;
        case Server::Paused: text += ", paused"; break;
        case Server::Stopped: text += ", server stopped"; break;
    }
    return Wide(text);
}

void DemoWindow::PaintHeader(HDC dc) const {
    RECT band;
    GetClientRect(window_, &band);
    band.bottom = Scaled(kHeaderHeight);
    SetDCBrushColor(dc, kHeaderColour);
    FillRect(dc, &band, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    SetBkMode(dc, TRANSPARENT);
    InflateRect(&band, -Scaled(kMargin), 0);
    const HGDIOBJ before = SelectObject(dc, boldFont_);
    SetTextColor(dc, kHeaderText);
    DrawTextW(dc, Wide(kCompanyName).c_str(), -1, &band, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    SelectObject(dc, font_);
    SetTextColor(dc, kHeaderNote);
    DrawTextW(dc, DayText().c_str(), -1, &band, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
    SelectObject(dc, before);
}

}  // namespace dlv::demo
