#include "windows/hwnd/ToolbarMirror.h"

#include <utility>

#include "windows/com/Strings.h"
#include "windows/gdi/FacePainter.h"

namespace dlv {

namespace {

constexpr int kFirstId = 100;
constexpr int kIconSize = 16;
constexpr int kButtonWidth = 28;
constexpr int kButtonHeight = 28;
constexpr int kArrowRoom = 15;

/// Arrow keys move inside the bar, and Enter presses a button of it, no default button of a dialog's.
LRESULT GetDialogCode(LPARAM message) {
    const auto* key = reinterpret_cast<const MSG*>(message);
    const bool enter = key != nullptr && key->message == WM_KEYDOWN && key->wParam == VK_RETURN;
    return DLGC_WANTARROWS | DLGC_WANTCHARS | (enter ? DLGC_WANTALLKEYS : 0);
}

}  // namespace

void ToolbarMirror::Make(HWND parent) {
    Making making;
    making.style = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS |
                   TBSTYLE_TRANSPARENT | CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN;
    making.parent = parent;
    MakeNative(TOOLBARCLASSNAMEW, making);
    SendMessageW(Handle(), TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(Handle(), TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DRAWDDARROWS);
}

void ToolbarMirror::LookChanged() {
    Mirror::LookChanged();
    const Scale scale = Kept().scale;
    SendMessageW(Handle(), TB_SETBITMAPSIZE, 0, MAKELPARAM(scale(kIconSize), scale(kIconSize)));
    SendMessageW(Handle(), TB_SETBUTTONSIZE, 0, MAKELPARAM(scale(kButtonWidth), scale(kButtonHeight)));
    while (SendMessageW(Handle(), TB_DELETEBUTTON, 0, 0)) {
    }
    shown_.clear();
}

void ToolbarMirror::AddButtons() {
    int id = kFirstId;
    for (const Toolbar::Item& item : bar_.Items()) {
        TBBUTTON button{};
        button.idCommand = id++;
        button.fsState = TBSTATE_ENABLED | TBSTATE_HIDDEN;
        button.fsStyle = item.style == Toolbar::Style::Separator  ? BTNS_SEP
                         : item.style == Toolbar::Style::DropDown ? BTNS_WHOLEDROPDOWN
                                                                  : BTNS_BUTTON;
        button.iBitmap = item.style == Toolbar::Style::Separator ? Kept().scale(8) : 0;
        button.iString = -1;
        SendMessageW(Handle(), TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    }
}

void ToolbarMirror::Apply() {
    std::vector<bool> wanted = ShownTools(bar_);
    if (shown_.size() != wanted.size()) {
        AddButtons();
        shown_.assign(wanted.size(), false);
    }
    for (std::size_t i = 0; i < wanted.size(); ++i)
        if (shown_[i] != wanted[i])
            SendMessageW(Handle(), TB_HIDEBUTTON, kFirstId + i, MAKELPARAM(!wanted[i], 0));
    shown_ = std::move(wanted);
}

const Toolbar::Item* ToolbarMirror::ItemOf(int id) const {
    const std::size_t index = static_cast<std::size_t>(id - kFirstId);
    return id >= kFirstId && index < bar_.Items().size() ? &bar_.Items()[index] : nullptr;
}

void ToolbarMirror::Choose(int id, By by) {
    const Toolbar::Item* item = ItemOf(id);
    if (item == nullptr || !item->visible) return;
    std::optional<RECT> place;
    if (by == By::Other) {
        place.emplace();
        SendMessageW(Handle(), TB_GETRECT, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&*place));
        MapWindowPoints(Handle(), HWND_DESKTOP, reinterpret_cast<POINT*>(&*place), 2);
    }
    Owner().Listener().ToolChosen(bar_, std::string(item->key), place);
}

bool ToolbarMirror::IsButton(int index) const {
    const auto at = static_cast<std::size_t>(index);
    return index >= 0 && at < shown_.size() && shown_[at] &&
           bar_.Items()[at].style != Toolbar::Style::Separator;
}

/// From `index` on in steps of `step`; `index` again when there is no other button.
int ToolbarMirror::Neighbour(int index, int step) const {
    const int count = static_cast<int>(shown_.size());
    for (int i = index + step; i >= 0 && i < count; i += step)
        if (IsButton(i)) return i;
    return index;
}

int ToolbarMirror::Marked() const { return IsButton(marked_) ? marked_ : Neighbour(-1, 1); }

void ToolbarMirror::Mark(int index) {
    marked_ = index;
    SendMessageW(Handle(), TB_SETHOTITEM, static_cast<WPARAM>(index), 0);
    InvalidateRect(Handle(), nullptr, FALSE);
    LONG child = 0;
    for (int i = 0; i <= index; ++i)
        if (IsButton(i)) ++child;
    if (child > 0) NotifyWinEvent(EVENT_OBJECT_FOCUS, Handle(), OBJID_CLIENT, child);
}

int ToolbarMirror::FocusedTool() const {
    const int marked = GetFocus() == Handle() ? Marked() : -1;
    return IsButton(marked) ? kFirstId + marked : 0;
}

// The system's bar has keys of its own on some versions only.
bool ToolbarMirror::OnKey(UINT message, WPARAM key) {
    const int marked = Marked();
    if (!IsButton(marked)) return false;
    const int id = kFirstId + marked;
    const bool opens = bar_.Items()[static_cast<std::size_t>(marked)].style == Toolbar::Style::DropDown;
    if (message == WM_SYSKEYDOWN && (key != VK_DOWN || !opens)) return false;
    if (message == WM_CHAR) {
        // Only now, since a character that is still to come would end a menu at once.
        if (key == VK_SPACE || key == VK_RETURN) Choose(id, By::Other);
        return true;
    }
    switch (key) {
        case VK_LEFT:
        case VK_UP: Mark(Neighbour(marked, -1)); return true;
        case VK_RIGHT: Mark(Neighbour(marked, 1)); return true;
        case VK_DOWN:
            if (opens)
                Choose(id, By::Other);
            else
                Mark(Neighbour(marked, 1));
            return true;
        case VK_HOME: Mark(Neighbour(-1, 1)); return true;
        case VK_END: Mark(Neighbour(static_cast<int>(shown_.size()), -1)); return true;
        case VK_SPACE:
        case VK_RETURN: return true;
        default: return false;
    }
}

std::vector<ToolbarScreen::Tool> ToolbarMirror::Tools() const {
    std::vector<Tool> tools;
    for (std::size_t i = 0; i < shown_.size() && i < bar_.Items().size(); ++i) {
        const Toolbar::Item& item = bar_.Items()[i];
        if (!shown_[i] || item.style == Toolbar::Style::Separator) continue;
        Tool tool;
        tool.id = kFirstId + static_cast<int>(i);
        tool.name = item.toolTip;
        if (item.style == Toolbar::Style::DropDown) tool.role = ROLE_SYSTEM_BUTTONMENU;
        SendMessageW(Handle(), TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&tool.area));
        tools.push_back(std::move(tool));
    }
    return tools;
}

LRESULT ToolbarMirror::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kAccessAction) {
        if (TakesInput(Handle())) Choose(static_cast<int>(wParam), By::Other);
        return 0;
    }
    if (message == WM_GETDLGCODE) return GetDialogCode(lParam);
    if ((message == WM_KEYDOWN || message == WM_SYSKEYDOWN || message == WM_CHAR) && OnKey(message, wParam))
        return 0;
    const LRESULT result = Mirror::OnMessage(message, wParam, lParam);
    if (Handle() == nullptr) return result;
    if (message == WM_SETFOCUS) Mark(Marked());
    // The bar itself keeps the button marked that the keyboard was on.
    if (message == WM_KILLFOCUS) Default(TB_SETHOTITEM, static_cast<WPARAM>(-1), 0);
    return result;
}

void ToolbarMirror::OnCommand(int, int id) { Choose(id, By::Mouse); }

LRESULT ToolbarMirror::OnNotify(NMHDR& header) {
    switch (header.code) {
        case NM_CUSTOMDRAW: return DrawButton(reinterpret_cast<const NMTBCUSTOMDRAW&>(header));
        case TBN_DROPDOWN:
            Choose(reinterpret_cast<const NMTOOLBARW&>(header).iItem, By::Mouse);
            return TBDDRET_DEFAULT;
        case TBN_GETINFOTIPW: {
            auto& tip = reinterpret_cast<NMTBGETINFOTIPW&>(header);
            const Toolbar::Item* item = ItemOf(tip.iItem);
            const std::wstring text = item == nullptr ? std::wstring() : Wide(item->toolTip);
            lstrcpynW(tip.pszText, text.c_str(), tip.cchTextMax);
            return 0;
        }
        default: return 0;
    }
}

LRESULT ToolbarMirror::DrawButton(const NMTBCUSTOMDRAW& draw) {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) return CDRF_NOTIFYPOSTPAINT;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPOSTPAINT) return CDRF_DODEFAULT;
    const Toolbar::Item* item = ItemOf(static_cast<int>(draw.nmcd.dwItemSpec));
    if (item == nullptr || item->style == Toolbar::Style::Separator) return CDRF_DODEFAULT;
    RECT area = draw.nmcd.rc;
    if (item->style == Toolbar::Style::DropDown) area.right -= Kept().scale(kArrowRoom) - Kept().scale(4);
    if (draw.nmcd.uItemState & CDIS_SELECTED) OffsetRect(&area, 1, 1);
    const bool enabled = (draw.nmcd.uItemState & CDIS_DISABLED) == 0;
    DrawToolIcon(Canvas(draw.nmcd.hdc, Kept()), item->key, area,
                 enabled ? IconState::Normal : IconState::Disabled);
    if (FocusedTool() == static_cast<int>(draw.nmcd.dwItemSpec)) {
        RECT focus = draw.nmcd.rc;
        InflateRect(&focus, -2, -2);
        SetTextColor(draw.nmcd.hdc, Kept().palette.faceText);
        SetBkColor(draw.nmcd.hdc, Kept().palette.face);
        DrawFocusRect(draw.nmcd.hdc, &focus);
    }
    return CDRF_DODEFAULT;
}

}  // namespace dlv
