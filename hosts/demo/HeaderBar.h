// The band at the top of a window of the host's: a title, a note behind it, and the window's commands as
// buttons. A pressed button reaches the parent as WM_COMMAND.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "hosts/demo/HostLook.h"

namespace dlv::demo {

class HeaderBar {
public:
    struct Item {
        int command;
        std::wstring text;
    };

    /// Makes the bar without a size: SetLook and Place follow.
    bool Create(HWND parent, const std::wstring& title, const std::vector<Item>& items);
    HWND Handle() const { return window_; }

    /// The fonts outlive the bar.
    void SetLook(const HostFonts& fonts, int dpi);
    void SetTitle(const std::wstring& title);
    void SetNote(const std::wstring& note);
    void SetItemText(int command, const std::wstring& text);
    void Place(int width);
    /// In pixels.
    int Height() const;
    /// Where a menu that belongs to a command drops down, on the screen.
    POINT MenuPoint(int command) const;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void Paint(HDC dc) const;
    void PaintButton(const DRAWITEMSTRUCT& item) const;
    int Scaled(int pixels) const;
    int TextWidth(const std::wstring& text, HFONT font) const;

    HWND window_ = nullptr;
    std::vector<HWND> buttons_;
    std::wstring title_;
    std::wstring note_;
    const HostFonts* fonts_ = nullptr;
    int dpi_ = USER_DEFAULT_SCREEN_DPI;
    int width_ = 0;
    int buttonsLeft_ = 0;
};

}  // namespace dlv::demo
