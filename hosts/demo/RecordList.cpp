#include "hosts/demo/RecordList.h"

#include <uxtheme.h>

#include <algorithm>
#include <utility>

#include "windows/com/Strings.h"
#include "windows/gdi/Palette.h"

namespace dlv::demo {

namespace {

using Align = RecordTable::Align;
using Direction = RecordTable::Direction;

constexpr int kCellPadding = 8;
constexpr int kArrowRoom = 24;
constexpr int kAllLines = -1;

}  // namespace

void RecordList::Create(HWND parent) {
    window_ =
        CreateWindowExW(0, WC_LISTVIEWW, nullptr,
                        WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS,
                        0, 0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    ListView_SetExtendedListViewStyle(window_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    // Some themes paint a header in colours of their own: white below the system's white text.
    if (Palette::Current({}).highContrast) SetWindowTheme(ListView_GetHeader(window_), L" ", L" ");
}

void RecordList::SetLook(const HostFonts& fonts, int dpi) {
    fonts_ = &fonts;
    dpi_ = dpi;
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.Regular()), TRUE);
    for (std::size_t i = 0; i < table_.columns.size(); ++i)
        ListView_SetColumnWidth(window_, static_cast<int>(i), ColumnWidth(i));
}

void RecordList::SetTable(RecordTable table) {
    const int before = Header_GetItemCount(ListView_GetHeader(window_));
    SetState(kAllLines, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemCount(window_, 0);
    for (int i = before; i-- > 0;) ListView_DeleteColumn(window_, i);
    table_ = std::move(table);
    shown_ = table_.AllPlaces();
    sorted_ = 0;
    direction_ = Direction::Up;
    table_.Sort(shown_, sorted_, direction_);
    FillColumns();
    SetWindowTextW(window_, Wide(table_.title).c_str());
    ListView_SetItemCount(window_, static_cast<int>(shown_.size()));
    ShowDirection();
    if (!shown_.empty()) SetState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    InvalidateRect(window_, nullptr, TRUE);
}

void RecordList::FillColumns() {
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        std::wstring name = Wide(table_.columns[i].name);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.fmt = table_.columns[i].align == Align::Right ? LVCFMT_RIGHT : LVCFMT_LEFT;
        column.pszText = name.data();
        column.cx = ColumnWidth(i);
        SendMessageW(window_, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
}

int RecordList::ColumnWidth(std::size_t column) const {
    const HDC dc = GetDC(window_);
    const HGDIOBJ before = SelectObject(dc, fonts_->Regular());
    const auto widthOf = [dc](const std::string& text) {
        const std::wstring wide = Wide(text);
        SIZE size{};
        GetTextExtentPoint32W(dc, wide.c_str(), static_cast<int>(wide.size()), &size);
        return static_cast<int>(size.cx);
    };
    int width = widthOf(table_.columns[column].name) + Scaled(kArrowRoom);
    for (const auto& row : table_.rows) width = std::max(width, widthOf(row[column].text));
    SelectObject(dc, before);
    ReleaseDC(window_, dc);
    return width + 2 * Scaled(kCellPadding);
}

int RecordList::WantedWidth() const {
    int width = GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(dpi_)) + Scaled(kCellPadding);
    for (std::size_t i = 0; i < table_.columns.size(); ++i)
        width += ListView_GetColumnWidth(window_, static_cast<int>(i));
    return width;
}

LRESULT RecordList::OnNotify(NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOW: {
            LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(header).item;
            if ((item.mask & LVIF_TEXT) == 0 || static_cast<std::size_t>(item.iItem) >= shown_.size()) break;
            const auto& row = table_.rows[shown_[static_cast<std::size_t>(item.iItem)]];
            lstrcpynW(item.pszText, Wide(row[static_cast<std::size_t>(item.iSubItem)].text).c_str(),
                      item.cchTextMax);
            break;
        }
        case LVN_COLUMNCLICK:
            SortBy(static_cast<std::size_t>(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem));
            break;
        case LVN_ODFINDITEMW: {
            const auto& search = reinterpret_cast<const NMLVFINDITEMW&>(header);
            if ((search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0) return -1;
            const auto found = table_.Find(shown_, sorted_, Narrow(search.lvfi.psz),
                                           static_cast<std::size_t>(std::max(search.iStart, 0)));
            return found ? static_cast<LRESULT>(*found) : -1;
        }
        default: break;
    }
    return 0;
}

void RecordList::SortBy(std::size_t column) {
    const bool again = column == sorted_;
    direction_ = again && direction_ == Direction::Up ? Direction::Down : Direction::Up;
    sorted_ = column;
    std::vector<bool> selected(table_.rows.size());
    for (std::size_t line = 0; line < shown_.size(); ++line) selected[shown_[line]] = IsSelected(line);
    const int focusedLine = ListView_GetNextItem(window_, -1, LVNI_FOCUSED);
    const std::size_t focused =
        focusedLine < 0 ? selected.size() : shown_[static_cast<std::size_t>(focusedLine)];
    table_.Sort(shown_, column, direction_);

    SetState(kAllLines, 0, LVIS_SELECTED);
    for (std::size_t line = 0; line < shown_.size(); ++line) {
        const UINT state =
            (selected[shown_[line]] ? LVIS_SELECTED : 0U) | (shown_[line] == focused ? LVIS_FOCUSED : 0U);
        if (state != 0) SetState(static_cast<int>(line), state, state);
    }
    ShowDirection();
    InvalidateRect(window_, nullptr, FALSE);
}

void RecordList::ShowDirection() {
    const HWND header = ListView_GetHeader(window_);
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, i, reinterpret_cast<LPARAM>(&item));
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (i == sorted_) item.fmt |= direction_ == Direction::Up ? HDF_SORTUP : HDF_SORTDOWN;
        SendMessageW(header, HDM_SETITEMW, i, reinterpret_cast<LPARAM>(&item));
    }
}

void RecordList::SelectAll() { SetState(kAllLines, LVIS_SELECTED, LVIS_SELECTED); }

std::string RecordList::CopiedText() const {
    RecordTable::Places places;
    for (std::size_t line = 0; line < shown_.size(); ++line)
        if (IsSelected(line)) places.push_back(shown_[line]);
    return table_.TabSeparated(places.empty() ? shown_ : places);
}

bool RecordList::IsSelected(std::size_t line) const {
    return ListView_GetItemState(window_, static_cast<int>(line), LVIS_SELECTED) != 0;
}

void RecordList::SetState(int line, UINT state, UINT mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&item));
}

int RecordList::Scaled(int pixels) const { return MulDiv(pixels, dpi_, USER_DEFAULT_SCREEN_DPI); }

}  // namespace dlv::demo
