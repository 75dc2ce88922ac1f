#include "windows/hwnd/PlainMirrors.h"

#include <commctrl.h>

#include "base/Text.h"
#include "windows/com/Strings.h"
#include "windows/gdi/FacePainter.h"
#include "windows/gdi/PaintBuffer.h"

namespace dlv {

namespace {

constexpr DWORD kChild = WS_CHILD | WS_CLIPSIBLINGS;
/// As many characters as an edit field can be given.
constexpr WPARAM kNoLimit = 0x7FFFFFFE;
/// What a list and a tip show of a text, in characters.
constexpr std::size_t kLongestLine = 1000;
constexpr std::size_t kLongestTip = 4000;

RECT ClientArea(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

}  // namespace

void FrameMirror::Make(HWND parent) {
    Making making;
    making.style = kChild | WS_CLIPCHILDREN;
    making.extendedStyle = WS_EX_CONTROLPARENT;
    making.parent = parent;
    MakeOwn(kFrameClass, making);
}

void FrameMirror::Apply() { ApplyText(frame_.Caption()); }

LRESULT FrameMirror::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const HDC dc = reinterpret_cast<HDC>(wParam);
    LRESULT result = 0;
    switch (message) {
        case WM_ERASEBKGND: {
            const RECT area = ClientArea(Handle());
            FillRect(dc, &area, Owner().GroundBrush(frame_));
            return 1;
        }
        case WM_PRINTCLIENT:
        case WM_PAINT: {
            const RECT area = ClientArea(Handle());
            const COLORREF ground = Owner().Ground(frame_);
            if (message == WM_PRINTCLIENT) {
                FillRect(dc, &area, Owner().GroundBrush(frame_));
                DrawFrameEdge(Canvas(dc, Kept()), frame_, area, ground);
            } else {
                const PaintScope paint(Handle());
                DrawFrameEdge(Canvas(paint.Dc(), Kept()), frame_, area, ground);
            }
            return 0;
        }
        case WM_SIZE:
            if (frame_.HasEdge()) InvalidateRect(Handle(), nullptr, TRUE);
            break;
        case WM_SETTEXT:
            if (frame_.HasEdge()) InvalidateRect(Handle(), nullptr, TRUE);
            break;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            SetBkColor(dc, Owner().Ground(frame_));
            SetTextColor(dc, Kept().palette.faceText);
            return reinterpret_cast<LRESULT>(Owner().GroundBrush(frame_));
        case WM_COMMAND:
        case WM_NOTIFY:
            if (Reflect(message, wParam, lParam, result)) return result;
            break;
        default: break;
    }
    return Mirror::OnMessage(message, wParam, lParam);
}

void LabelMirror::Make(HWND parent) {
    Making making;
    making.style = kChild | SS_LEFT | SS_NOPREFIX | SS_NOTIFY;
    making.parent = parent;
    MakeNative(WC_STATICW, making);
}

void LabelMirror::Apply() {
    ApplyText(label_.Caption());
    InvalidateRect(Handle(), nullptr, FALSE);
    for (const Label* other : Owner().GroupOf(label_))
        if (const Mirror* mirror = Owner().Find(*other); mirror != nullptr && mirror->Handle() != nullptr)
            InvalidateRect(mirror->Handle(), nullptr, FALSE);
    TellText();
}

ComPtr<AccessibleObject> LabelMirror::Accessible() {
    return MakeObject<AccessibleText>(Anchor(), static_cast<const TextScreen&>(*this));
}

LONG LabelMirror::TextRole() const {
    if (label_.Announced()) return ROLE_SYSTEM_ALERT;
    return label_.Clickable() ? ROLE_SYSTEM_LINK : ROLE_SYSTEM_STATICTEXT;
}

std::string LabelMirror::ClickText() const {
    if (!label_.Clickable()) return {};
    return label_.ToolTip().empty() ? label_.Caption() : label_.ToolTip();
}

// A text that is not to be seen is none; one that comes back is told again.
void LabelMirror::TellText() {
    const std::string shown = label_.Visible() ? label_.Caption() : std::string();
    if (shown == told_) return;
    told_ = shown;
    if (!IsWindowVisible(Handle())) return;
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
    if (label_.Announced() && !shown.empty())
        NotifyWinEvent(EVENT_SYSTEM_ALERT, Handle(), OBJID_CLIENT, CHILDID_SELF);
}

std::string LabelMirror::ToolTip() const {
    if (!label_.ToolTip().empty()) return label_.ToolTip();
    const WindowDc dc(Handle());
    const bool fits = LabelTextFits(Canvas(dc.Get(), Kept()), label_, ClientArea(Handle()));
    return fits ? std::string() : OneLine(label_.Caption(), kLongestTip);
}

void LabelMirror::Paint() {
    const PaintScope paint(Handle());
    const RECT area = ClientArea(Handle());
    if (IsRectEmpty(&area)) return;
    const PaintBuffer buffer(paint.Dc(), area);
    const Canvas canvas(buffer.Dc(), Kept());
    const bool hidden = (SendMessageW(Handle(), WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL) != 0;
    DrawLabel(canvas, label_, area, Owner().Ground(label_), GroupStep(canvas, Owner().GroupOf(label_)),
              hidden ? KeyCue::Hidden : KeyCue::Shown);
    buffer.Show();
}

LRESULT LabelMirror::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT: Paint(); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_SETTEXT:
            // The system's label would paint at once, and not with our colours.
            return DefWindowProcW(Handle(), message, wParam, lParam);
        case WM_SIZE:
        case WM_UPDATEUISTATE: InvalidateRect(Handle(), nullptr, FALSE); break;
        case kAccessAction:
            if (label_.Clickable() && TakesInput(Handle())) Owner().Listener().Clicked(label_);
            return 0;
        case WM_SETCURSOR:
            if (!label_.Clickable() || Host().Viewer().Controls().MousePointer() != kDefaultPointer) break;
            SetCursor(LoadCursorW(nullptr, IDC_HAND));
            return TRUE;
        default: break;
    }
    return Mirror::OnMessage(message, wParam, lParam);
}

void LabelMirror::OnCommand(int code, int) {
    if ((code == STN_CLICKED || code == STN_DBLCLK) && label_.Clickable()) Owner().Listener().Clicked(label_);
}

void ButtonMirror::Make(HWND parent) {
    Making making;
    making.style =
        kChild | WS_TABSTOP | static_cast<DWORD>(button_.IsDefault() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
    making.parent = parent;
    making.id = button_.IsCancel() ? IDCANCEL : button_.IsDefault() ? IDOK : Owner().NextId();
    MakeNative(WC_BUTTONW, making);
}

void ButtonMirror::Apply() { ApplyText(WithAccessKey(button_.Caption(), button_.Key())); }

void ButtonMirror::OnCommand(int code, int) {
    if (code == BN_CLICKED && button_.Enabled()) Owner().Listener().Clicked(button_);
}

void OptionMirror::Make(HWND parent) {
    Making making;
    making.style = kChild | BS_RADIOBUTTON;
    making.parent = parent;
    MakeNative(WC_BUTTONW, making);
    // The focus alone chooses nothing.
    SendMessageW(Handle(), BM_SETDONTCLICK, TRUE, 0);
}

void OptionMirror::Apply() {
    ApplyText(WithAccessKey(option_.Caption(), option_.Key()));
    const WPARAM wanted = option_.Value() ? BST_CHECKED : BST_UNCHECKED;
    if (static_cast<WPARAM>(SendMessageW(Handle(), BM_GETCHECK, 0, 0)) != wanted)
        SendMessageW(Handle(), BM_SETCHECK, wanted, 0);
}

void OptionMirror::OnCommand(int code, int) {
    if (code == BN_CLICKED) Owner().Listener().Clicked(option_);
}

void TextBoxMirror::Make(HWND parent) {
    Making making;
    making.style = kChild | WS_TABSTOP | ES_AUTOHSCROLL;
    making.extendedStyle = WS_EX_CLIENTEDGE;
    making.parent = parent;
    MakeNative(WC_EDITW, making);
    // Without this an edit field takes 30,000 characters.
    SendMessageW(Handle(), EM_SETLIMITTEXT, kNoLimit, 0);
}

// While a person types, the window's text counts; it is written only where the state asks for another one.
void TextBoxMirror::Apply() {
    ApplyText(box_.Text());
    if (!box_.TakeSelecting()) return;
    const std::size_t start = box_.SelectionStart();
    SendMessageW(Handle(), EM_SETSEL, start, static_cast<LPARAM>(start + box_.SelectionLength()));
}

void TextBoxMirror::ReadText() {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(Handle())), L'\0');
    GetWindowTextW(Handle(), text.data(), static_cast<int>(text.size()) + 1);
    box_.SetText(Narrow(text));
}

void TextBoxMirror::OnCommand(int code, int) {
    if (code == EN_CHANGE && !Owner().Applying()) ReadText();
}

void ListBoxMirror::Make(HWND parent) {
    Making making;
    making.style = kChild | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    making.extendedStyle = WS_EX_CLIENTEDGE;
    making.parent = parent;
    MakeNative(WC_LISTBOXW, making);
}

void ListBoxMirror::Apply() {
    if (shown_ != box_.Items()) {
        ShowItems();
        shown_ = box_.Items();
    }
    if (SendMessageW(Handle(), LB_GETCURSEL, 0, 0) != box_.ListIndex())
        SendMessageW(Handle(), LB_SETCURSEL, static_cast<WPARAM>(box_.ListIndex()), 0);
}

void ListBoxMirror::ShowItems() {
    SendMessageW(Handle(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(Handle(), LB_RESETCONTENT, 0, 0);
    int widest = 0;
    for (const std::string& item : box_.Items()) {
        const std::wstring line = Wide(OneLine(item, kLongestLine));
        SendMessageW(Handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
        widest = std::max(widest, Kept().fonts.TextWidth(line, Weight::Regular));
    }
    SendMessageW(Handle(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest + Kept().scale(8)), 0);
    SendMessageW(Handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(Handle(), nullptr, TRUE);
}

/// Where the last click was: on a line, not below them all.
bool ListBoxMirror::ClickedOnLine() const {
    const DWORD place = GetMessagePos();
    POINT point{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    ScreenToClient(Handle(), &point);
    const LRESULT hit = SendMessageW(Handle(), LB_ITEMFROMPOINT, 0, MAKELPARAM(point.x, point.y));
    return HIWORD(hit) == 0;
}

void ListBoxMirror::OnCommand(int code, int) {
    if (code == LBN_SELCHANGE)
        box_.SetListIndex(static_cast<int>(SendMessageW(Handle(), LB_GETCURSEL, 0, 0)));
    if (code == LBN_DBLCLK && ClickedOnLine()) Owner().Listener().LineChosen(box_);
}

}  // namespace dlv
