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

void ToolbarMirror::Choose(int id) {
    const Toolbar::Item* item = ItemOf(id);
    if (item != nullptr && item->visible) Owner().Listener().ToolChosen(bar_, std::string(item->key));
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
        if (TakesInput(Handle())) Choose(static_cast<int>(wParam));
        return 0;
    }
    const LRESULT result = Mirror::OnMessage(message, wParam, lParam);
    // The bar itself keeps the button marked that the keyboard was on.
    if (message == WM_KILLFOCUS && Handle() != nullptr) Default(TB_SETHOTITEM, static_cast<WPARAM>(-1), 0);
    return result;
}

void ToolbarMirror::OnCommand(int, int id) { Choose(id); }

LRESULT ToolbarMirror::OnNotify(NMHDR& header) {
    switch (header.code) {
        case NM_CUSTOMDRAW: return DrawButton(reinterpret_cast<const NMTBCUSTOMDRAW&>(header));
        case TBN_DROPDOWN: Choose(reinterpret_cast<const NMTOOLBARW&>(header).iItem); return TBDDRET_DEFAULT;
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
    return CDRF_DODEFAULT;
}

}  // namespace dlv
