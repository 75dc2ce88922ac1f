// A list of records in columns, inside a window of the host's. The list asks for what it shows, so that a
// thousand records cost no more than the ones in sight. A click on a column's header sorts by it, a second
// one the other way round; what is selected stays selected.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "hosts/demo/HostLook.h"
#include "hosts/demo/workday/RecordTable.h"

namespace dlv::demo {

class RecordList {
public:
    void Create(HWND parent);
    HWND Handle() const { return window_; }

    /// The fonts outlive the list.
    void SetLook(const HostFonts& fonts, int dpi);
    /// In place of what was there: sorted by the first column, nothing selected.
    void SetTable(RecordTable table);
    const RecordTable& Table() const { return table_; }
    /// That all columns are to be seen, with a scroll bar beside them, in pixels.
    int WantedWidth() const;

    /// A WM_NOTIFY from the list, and its answer.
    LRESULT OnNotify(NMHDR& header);
    void SelectAll();
    /// The selected records, or all when none is, in the order in which they stand.
    std::string CopiedText() const;

private:
    void FillColumns();
    void SortBy(std::size_t column);
    void ShowDirection();
    int ColumnWidth(std::size_t column) const;
    bool IsSelected(std::size_t line) const;
    void SetState(int line, UINT state, UINT mask);
    int Scaled(int pixels) const;

    HWND window_ = nullptr;
    const HostFonts* fonts_ = nullptr;
    int dpi_ = USER_DEFAULT_SCREEN_DPI;
    RecordTable table_;
    /// The records as they stand.
    RecordTable::Places shown_;
    std::size_t sorted_ = 0;
    RecordTable::Direction direction_ = RecordTable::Direction::Up;
};

}  // namespace dlv::demo
