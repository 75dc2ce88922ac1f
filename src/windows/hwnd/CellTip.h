// The tip over a cell of a grid: the whole of a text that is clipped, in its own place, or an explanation
// below the cell.
#pragma once

#include "windows/com/PlainWindows.h"

#include <string>

#include "windows/hwnd/Window.h"

namespace dlv {

class CellTip : public Window {
public:
    using Window::Window;

    enum class Where { Over, Below };
    /// `area` is where the cell's text stands, in pixels of `grid`; `font` the one that it is shown in.
    void Show(HWND grid, const std::string& text, const RECT& area, Where where, HFONT font);
    void Hide();
    bool Shown() const { return shown_; }

private:
    void Make(HWND grid);

    std::wstring text_;
    HWND grid_ = nullptr;
    bool shown_ = false;
};

}  // namespace dlv
