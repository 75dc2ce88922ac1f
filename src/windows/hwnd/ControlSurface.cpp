#include "windows/hwnd/ControlSurface.h"

#include <utility>

#include "windows/hwnd/CommonControls.h"
#include "windows/hwnd/Mirror.h"
#include "windows/hwnd/PopupMenu.h"
#include "windows/hwnd/ProfileMenuWindow.h"

namespace dlv {

namespace {

bool IsArrow(WPARAM key) { return key >= VK_LEFT && key <= VK_DOWN; }

/// Whether the window with the focus asks for a key that a container may take for its own.
bool WantsKey(const MSG& message) {
    const LRESULT code =
        SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    if ((code & DLGC_WANTALLKEYS) != 0) return true;
    return IsArrow(message.wParam) && (code & DLGC_WANTARROWS) != 0;
}

}  // namespace

ControlSurface::ControlSurface(WindowHost& host, const Appearance& appearance)
    : Window(host), windows_(host, host.Viewer().Controls(), *this), appearance_(appearance) {}

ControlSurface::~ControlSurface() { Destroy(); }

void ControlSurface::Create(HWND parent, const RECT& place) {
    Making making;
    making.style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    making.extendedStyle = WS_EX_CONTROLPARENT;
    making.parent = parent;
    making.place = place;
    MakeOwn(kControlClass, making);
    dpi_ = static_cast<int>(GetDpiForWindow(Handle()));
    zoom_ = WantedZoom();
    for (const Frame& page : Form().fraBU) windows_.SetPage(page);
    windows_.SetGroups(HeadingGroups(Form()));
    windows_.SetFirstFocus(Form().lvBU);
    const ControlsScope controls;
    windows_.Make(Handle(), zoom_.appearance, zoom_.scale);
    OnSize();
}

void ControlSurface::Flush() {
    if (Handle() == nullptr || windows_.Parent() == nullptr) return;
    const ControlsScope controls;
    windows_.Flush();
    ApplyPointer();
}

// Windows asks for the pointer when the mouse moves; a mouse that rests is to show the change as well.
void ControlSurface::ApplyPointer() {
    if (pointer_ == Form().MousePointer()) return;
    pointer_ = Form().MousePointer();
    POINT mouse{};
    const HWND below = GetCursorPos(&mouse) ? WindowFromPoint(mouse) : nullptr;
    if (below == nullptr || (below != Handle() && !IsChild(Handle(), below))) return;
    SetCursor(LoadCursorW(nullptr, pointer_ == kHourglassPointer ? IDC_WAIT : IDC_ARROW));
}

Bounds ControlSurface::SizeInTwips() const {
    RECT area{};
    if (Handle() != nullptr) GetClientRect(Handle(), &area);
    return {0, 0, zoom_.scale.ToTwips(area.right), zoom_.scale.ToTwips(area.bottom)};
}

void ControlSurface::OnSize() {
    RECT area{};
    GetClientRect(Handle(), &area);
    if (area.right == size_.cx && area.bottom == size_.cy) return;
    size_ = {area.right, area.bottom};
    if (WantedZoom() != zoom_) ApplyZoom();
    Host().Viewer().UserControl_Resize();
}

Zoom ControlSurface::WantedZoom() const {
    RECT area{};
    GetClientRect(Handle(), &area);
    return ZoomFor(appearance_, dpi_, {area.right, area.bottom}, kLeastControlSize);
}

void ControlSurface::SetDpi(int dpi) {
    if (dpi == dpi_ || dpi <= 0) return;
    dpi_ = dpi;
    ApplyZoom();
    Host().Viewer().UserControl_Resize();
}

void ControlSurface::SetAppearance(const Appearance& appearance) {
    if (appearance == appearance_) return;
    appearance_ = appearance;
    SystemChanged();
}

void ControlSurface::SystemChanged() {
    if (Handle() == nullptr || windows_.Parent() == nullptr) return;
    const int before = zoom_.scale.Dpi();
    ApplyZoom();
    if (zoom_.scale.Dpi() != before) Host().Viewer().UserControl_Resize();
}

void ControlSurface::ApplyZoom() {
    const ControlsScope controls;
    zoom_ = WantedZoom();
    windows_.SetLook(zoom_.appearance, zoom_.scale);
    RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void ControlSurface::TakeFocus(FocusFrom from) {
    if (from == FocusFrom::Anywhere
            ? windows_.TakeLastFocus()
            : windows_.TakeFocus(from == FocusFrom::Before ? Direction::Forward : Direction::Backward))
        return;
    SetFocus(Handle());
}

bool ControlSurface::TranslateKey(const MSG& message) {
    const HWND own = Handle();
    if (own == nullptr || !IsWindowEnabled(own)) return false;
    if (message.hwnd != own && !IsChild(own, message.hwnd)) return false;
    if (message.message == WM_SYSCHAR) return windows_.PressAccessKey(AccessLetter(message.wParam));
    if (message.message != WM_KEYDOWN) return false;
    if (message.wParam == VK_TAB) {
        if (GetKeyState(VK_CONTROL) < 0 || GetKeyState(VK_MENU) < 0) return false;
        const bool back = GetKeyState(VK_SHIFT) < 0;
        if (!windows_.MoveFocus(back ? Direction::Backward : Direction::Forward)) return false;
        SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
        return true;
    }
    if (windows_.MoveInGroup(static_cast<int>(message.wParam))) return true;
    if (message.wParam == VK_RETURN && windows_.PressFocusedButton()) return true;
    if (!WantsKey(message)) return false;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

LRESULT ControlSurface::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    switch (message) {
        case WM_ERASEBKGND:
        case WM_PRINTCLIENT: {
            RECT area{};
            GetClientRect(Handle(), &area);
            FillRect(reinterpret_cast<HDC>(wParam), &area,
                     windows_.Parent() == nullptr ? GetSysColorBrush(COLOR_BTNFACE)
                                                  : windows_.GroundBrush(Form().fraDLV));
            return 1;
        }
        case WM_SIZE:
            if (windows_.Parent() != nullptr) OnSize();
            return 0;
        case WM_SETFOCUS:
            windows_.TakeLastFocus();
            if (GetFocus() == Handle() && !IsChild(Handle(), reinterpret_cast<HWND>(wParam))) FocusEntered();
            return 0;
        case WM_KILLFOCUS:
            if (!IsChild(Handle(), reinterpret_cast<HWND>(wParam))) FocusLeft();
            return 0;
        case WM_MOUSEACTIVATE:
            if (const HWND focus = GetFocus(); focus != Handle() && !IsChild(Handle(), focus))
                windows_.TakeLastFocus();
            break;
        case WM_SETCURSOR:
            if (Form().MousePointer() != kHourglassPointer || LOWORD(lParam) != HTCLIENT) break;
            SetCursor(LoadCursorW(nullptr, IDC_WAIT));
            return TRUE;
        case WM_COMMAND:
        case WM_NOTIFY:
            if (Reflect(message, wParam, lParam, result)) return result;
            break;
        case WM_MENUCHAR: return PopupMenu::OnCharacter(reinterpret_cast<HMENU>(lParam), LOWORD(wParam));
        case WM_ENTERIDLE:
            // A menu is open and nothing happens: the moment to see that the control has ended meanwhile.
            if (wParam == MSGF_MENU && Host().Ending()) EndMenu();
            return 0;
        case WM_DPICHANGED_AFTERPARENT: SetDpi(static_cast<int>(GetDpiForWindow(Handle()))); return 0;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE: SystemChanged(); break;
        case WM_DESTROY: windows_.EndToolTips(); break;
        case WM_NCDESTROY: Host().WindowDestroyed(); break;
        default: break;
    }
    return Default(message, wParam, lParam);
}

int ControlSurface::IndexOf(const OutlineGrid& grid) const {
    for (int i = 0; i < 3; ++i)
        if (&Form().vsFlex[i] == &grid) return i;
    return -1;
}

void ControlSurface::Clicked(Control& control) {
    ViewerForm& form = Form();
    DLViewer& viewer = Host().Viewer();
    if (&control == &form.cmdView) return viewer.cmdView_Click();
    if (&control == &form.lblTechCount.heading || &control == &form.lblTechCount.figure)
        return viewer.lblTechCount_Click();
    for (int i = 0; i < 2; ++i) {
        if (&control == &form.optBU[i]) form.optBU.Select(i);
        if (&control != &form.optDisplay[i]) continue;
        form.optDisplay.Select(i);
        viewer.optDisplay_Click(i);
    }
}

void ControlSurface::TabChosen(TabStrip&) { Host().Viewer().Tabs_Click(); }

void ControlSurface::ToolChosen(Toolbar&, const std::string& key, const std::optional<RECT>& place) {
    menuBelow_ = place;
    Host().Viewer().tbMain_ButtonClick(key);
}

void ControlSurface::ShowProfileMenu() {
    const std::optional<RECT> button = std::exchange(menuBelow_, std::nullopt);
    if (Handle() != nullptr) dlv::ShowProfileMenu(Host().Viewer(), Handle(), button);
}

void ControlSurface::GridPressed(OutlineGrid& grid, int button) {
    Host().Viewer().vsFlex_MouseDown(IndexOf(grid), button);
}

void ControlSurface::GridDoubleClicked(OutlineGrid& grid, int row, int column) {
    Host().Viewer().vsFlex_DblClick(IndexOf(grid), row, column);
}

void ControlSurface::GridKeyPressed(OutlineGrid& grid, int key, bool shift) {
    Host().Viewer().vsFlex_KeyDown(IndexOf(grid), key, shift);
}

std::string ControlSurface::GridExplanation(OutlineGrid& grid, int row, int column) {
    return Host().Viewer().WhyThisFigure(IndexOf(grid), row, column);
}

}  // namespace dlv
