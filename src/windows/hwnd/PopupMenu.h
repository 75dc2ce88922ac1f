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
    /// The same for the keyboard: the menu hangs below a button on the screen, or above it where there is no
    /// room, and its first entry is marked.
    UINT ChooseBelow(HWND owner, const RECT& button) const;

    /// What an open menu's owner answers to WM_MENUCHAR: the only entry that begins with the character is
    /// chosen, of several the next one is marked.
    static LRESULT OnCharacter(HMENU menu, wchar_t character);

private:
    UINT Track(HWND owner, UINT flags, POINT place, TPMPARAMS* clear) const;

    HMENU menu_;
};

}  // namespace dlv
