// A picture in memory that takes the drawing of one painting and is shown at once when it is finished.
#pragma once

#include "windows/com/PlainWindows.h"

#include "windows/gdi/Handles.h"

namespace dlv {

class PaintBuffer {
public:
    /// Draws for `area` of `target`, in the same coordinates.
    PaintBuffer(HDC target, const RECT& area)
        : target_(target),
          area_(area),
          memory_(target),
          bitmap_(CreateCompatibleBitmap(target, area.right - area.left, area.bottom - area.top)),
          select_(memory_.Get(), bitmap_.Get()) {
        SetViewportOrgEx(memory_.Get(), -area.left, -area.top, nullptr);
    }

    HDC Dc() const { return memory_.Get(); }
    void Show() const {
        BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top,
               memory_.Get(), area_.left, area_.top, SRCCOPY);
    }

private:
    HDC target_;
    RECT area_;
    MemoryDc memory_;
    Bitmap bitmap_;
    SelectScope select_;
};

/// BeginPaint and EndPaint.
class PaintScope {
public:
    explicit PaintScope(HWND window) : window_(window) { BeginPaint(window, &paint_); }
    ~PaintScope() { EndPaint(window_, &paint_); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
    HDC Dc() const { return paint_.hdc; }
    const RECT& Area() const { return paint_.rcPaint; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
};

/// GetDC and ReleaseDC.
class WindowDc {
public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~WindowDc() { ReleaseDC(window_, dc_); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    HDC Get() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

}  // namespace dlv
