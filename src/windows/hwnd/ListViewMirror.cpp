#include "windows/hwnd/ListViewMirror.h"

#include <algorithm>
#include <vector>

#include "base/Text.h"
#include "windows/com/Strings.h"
#include "windows/gdi/Canvas.h"

namespace dlv {

void ListViewMirror::Make(HWND parent) {
    Making making;
    making.style = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS |
                   LVS_NOCOLUMNHEADER;
    making.extendedStyle = WS_EX_CLIENTEDGE;
    making.parent = parent;
    MakeNative(WC_LISTVIEWW, making);
    const DWORD styles = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
    SendMessageW(Handle(), LVM_SETEXTENDEDLISTVIEWSTYLE, styles, static_cast<LPARAM>(styles));
    LVCOLUMNW column{};
    column.mask = LVCF_FMT;
    column.fmt = LVCFMT_LEFT;
    SendMessageW(Handle(), LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    version_ = list_.ItemsVersion() - 1;
}

void ListViewMirror::LookChanged() {
    Mirror::LookChanged();
    SendMessageW(Handle(), LVM_SETBKCOLOR, 0, static_cast<LPARAM>(Kept().palette.window));
    SendMessageW(Handle(), LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(Kept().palette.window));
    SendMessageW(Handle(), LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(Kept().palette.windowText));
}

void ListViewMirror::Apply() {
    if (version_ != list_.ItemsVersion()) {
        version_ = list_.ItemsVersion();
        SendMessageW(Handle(), LVM_SETITEMCOUNT, list_.Items().size(),
                     LVSICF_NOSCROLL | LVSICF_NOINVALIDATEALL);
        InvalidateRect(Handle(), nullptr, FALSE);
    }
    ApplyRowHeight();
    ApplyColumn();
    ApplySelection();
}

// How tall rows are can only be asked when there are some.
void ListViewMirror::ApplyRowHeight() {
    RECT row{};
    row.left = LVIR_BOUNDS;
    if (list_.Items().empty() || !Default(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row))) return;
    if (rowHeight_ == row.bottom - row.top) return;
    rowHeight_ = row.bottom - row.top;
    ApplyPlace(nullptr);
}

void ListViewMirror::ApplyColumn() {
    RECT client{};
    GetClientRect(Handle(), &client);
    const int wanted = std::min(Kept().scale.ToPixels(list_.ColumnWidth()), static_cast<int>(client.right));
    // Until the state says how wide the column is, it fills the list.
    const int width = wanted > 0 ? wanted : static_cast<int>(client.right);
    if (SendMessageW(Handle(), LVM_GETCOLUMNWIDTH, 0, 0) != width)
        SendMessageW(Handle(), LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(width, 0));
}

// The window is asked for its selected items alone: a list may be long.
std::vector<bool> ListViewMirror::SelectedInWindow() {
    std::vector<bool> selected(list_.Items().size());
    LRESULT item = -1;
    while ((item = Default(LVM_GETNEXTITEM, static_cast<WPARAM>(item), LVNI_SELECTED)) >= 0 &&
           static_cast<std::size_t>(item) < selected.size())
        selected[static_cast<std::size_t>(item)] = true;
    return selected;
}

void ListViewMirror::ApplySelection() {
    const std::vector<bool> shown = SelectedInWindow();
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const bool selected = list_.Items()[i].selected;
        if (shown[i] == selected) continue;
        LVITEMW item{};
        item.state = selected ? LVIS_SELECTED : 0u;
        item.stateMask = LVIS_SELECTED;
        Default(LVM_SETITEMSTATE, i, reinterpret_cast<LPARAM>(&item));
    }
}

void ListViewMirror::NoteSelection() {
    const std::vector<bool> shown = SelectedInWindow();
    for (std::size_t i = 0; i < shown.size(); ++i) list_.SetSelected(i, shown[i]);
}

void ListViewMirror::GiveText(NMLVDISPINFOW& info) {
    const std::size_t index = static_cast<std::size_t>(info.item.iItem);
    if ((info.item.mask & LVIF_TEXT) == 0) return;
    text_ = index < list_.Items().size() ? Wide(list_.Items()[index].text) : std::wstring();
    info.item.pszText = text_.data();
}

RECT ListViewMirror::PlaceInPixels() const {
    RECT place = Mirror::PlaceInPixels();
    RECT window{};
    RECT client{};
    GetWindowRect(Handle(), &window);
    GetClientRect(Handle(), &client);
    const LONG edge = std::max(0L, window.bottom - window.top - client.bottom);
    const LONG room = place.bottom - place.top - edge;
    if (rowHeight_ > 0 && room >= rowHeight_)
        place.bottom = place.top + edge + room / rowHeight_ * rowHeight_;
    return place;
}

// Items look as the cells of the grids do, the selected ones also without the focus.
LRESULT ListViewMirror::DrawItem(const NMLVCUSTOMDRAW& draw) {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const std::size_t index = draw.nmcd.dwItemSpec;
    if (index >= list_.Items().size()) return CDRF_DODEFAULT;
    const ListView::Item& item = list_.Items()[index];
    RECT row{};
    row.left = LVIR_BOUNDS;
    Default(LVM_GETITEMRECT, index, reinterpret_cast<LPARAM>(&row));
    RECT client{};
    GetClientRect(Handle(), &client);
    row.left = 0;
    row.right = client.right;

    const Canvas canvas(draw.nmcd.hdc, Kept());
    const Palette& colours = canvas.Colours();
    const bool focused = GetFocus() == Handle();
    const COLORREF ground = !item.selected ? colours.window : focused ? colours.selected : colours.resting;
    const COLORREF ink = !item.selected ? colours.windowText
                         : focused      ? colours.selectedText
                                        : colours.restingText;
    canvas.Fill(row, ground);
    RECT text = row;
    InflateRect(&text, -canvas.Scaled(4), 0);
    canvas.Text(text, Wide(item.text), Weight::Regular,
                IsWindowEnabled(Handle()) ? ink : colours.disabledText,
                DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    const bool cue = (SendMessageW(Handle(), WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) == 0;
    if (focused && cue && Default(LVM_GETNEXTITEM, index - 1, LVNI_FOCUSED) == static_cast<LRESULT>(index)) {
        SetTextColor(draw.nmcd.hdc, ink);
        SetBkColor(draw.nmcd.hdc, ground);
        DrawFocusRect(draw.nmcd.hdc, &row);
    }
    return CDRF_SKIPDEFAULT;
}

// Typing letters goes to the next item that begins with them.
int ListViewMirror::FindFrom(const NMLVFINDITEMW& find) const {
    if ((find.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || list_.Items().empty()) return -1;
    const std::string wanted = FoldCase(Narrow(std::wstring_view(find.lvfi.psz)));
    const std::size_t count = list_.Items().size();
    for (std::size_t step = 0; step < count; ++step) {
        const std::size_t index = (static_cast<std::size_t>(std::max(find.iStart, 0)) + step) % count;
        if (FoldCase(list_.Items()[index].text).starts_with(wanted)) return static_cast<int>(index);
    }
    return -1;
}

LRESULT ListViewMirror::OnNotify(NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOW: GiveText(reinterpret_cast<NMLVDISPINFOW&>(header)); return 0;
        case NM_CUSTOMDRAW: return DrawItem(reinterpret_cast<const NMLVCUSTOMDRAW&>(header));
        case LVN_ODFINDITEMW: return FindFrom(reinterpret_cast<const NMLVFINDITEMW&>(header));
        case LVN_ITEMCHANGED: {
            const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
            const bool selection = ((change.uOldState ^ change.uNewState) & LVIS_SELECTED) != 0;
            if (selection && !Owner().Applying()) NoteSelection();
            return 0;
        }
        case LVN_ODSTATECHANGED:
            if (!Owner().Applying()) NoteSelection();
            return 0;
        default: return 0;
    }
}

LRESULT ListViewMirror::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = Mirror::OnMessage(message, wParam, lParam);
    if (Handle() == nullptr) return result;
    if (message == WM_SIZE) ApplyColumn();
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) InvalidateRect(Handle(), nullptr, FALSE);
    return result;
}

}  // namespace dlv
