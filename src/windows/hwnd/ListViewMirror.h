// The native list view over a list's state: it holds no texts of its own and asks for those in sight.
#pragma once

#include "windows/com/PlainWindows.h"

#include <commctrl.h>

#include <vector>

#include "widgets/ListView.h"
#include "windows/hwnd/Mirror.h"

namespace dlv {

class ListViewMirror : public Mirror {
public:
    ListViewMirror(FormWindows& form, ListView& list) : Mirror(form, list), list_(list) {}
    void Make(HWND parent) override;
    void Apply() override;
    void ApplyName() override { ApplyText(Owner().NameOf(list_)); }
    void LookChanged() override;
    bool TakesFocus() const override { return true; }
    /// As tall as whole rows are.
    RECT PlaceInPixels() const override;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnNotify(NMHDR& header) override;

private:
    void ApplyColumn();
    void ApplySelection();
    void GiveText(NMLVDISPINFOW& info);
    LRESULT DrawItem(const NMLVCUSTOMDRAW& draw);
    void ApplyRowHeight();
    void NoteSelection();
    std::vector<bool> SelectedInWindow();
    int FindFrom(const NMLVFINDITEMW& find) const;

    ListView& list_;
    unsigned version_ = 0;
    LONG rowHeight_ = 0;
    std::wstring text_;
};

}  // namespace dlv
