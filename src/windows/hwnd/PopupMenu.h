// A menu that pops up and says which of its entries was chosen.
#pragma once

#include "windows/com/PlainWindows.h"

#include <string>

namespace dlv {

class PopupMenu {
public:
    PopupMenu();
    ~PopupMenu();
    PopupMenu(const PopupMenu&) = delete;
    PopupMenu& operator=(const PopupMenu&) = delete;

    /// "&" in a text stands before its access key. `command` is not 0.
    void Add(const std::string& text, UINT command, UINT flags = 0);
    /// The inner menu belongs to this one from now on.
    void AddMenu(const std::string& text, PopupMenu& inner);
    void AddLine();
    bool Empty() const;

    /// Shows the menu at a place on the screen until the person chooses: the command, or 0 for none. `owner`
    /// is the control's outer window, which ends the menu when the control ends.
    UINT Choose(HWND owner, POINT place) const;

private:
    HMENU menu_;
};

}  // namespace dlv
