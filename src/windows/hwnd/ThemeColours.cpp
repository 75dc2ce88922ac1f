#include "windows/hwnd/ThemeColours.h"

#include <uxtheme.h>
#include <vssym32.h>

#include "windows/gdi/Handles.h"
#include "windows/gdi/PaintBuffer.h"

namespace dlv {

namespace {

constexpr int kSample = 64;

class Theme {
public:
    explicit Theme(const wchar_t* name) : theme_(OpenThemeData(nullptr, name)) {}
    ~Theme() {
        if (theme_ != nullptr) CloseThemeData(theme_);
    }
    Theme(const Theme&) = delete;
    Theme& operator=(const Theme&) = delete;
    HTHEME Get() const { return theme_; }

private:
    HTHEME theme_;
};

}  // namespace

// The theme has no property for it: the page is painted and one pixel of it read.
COLORREF PageColour(const Palette& palette) {
    if (palette.highContrast || palette.face != GetSysColor(COLOR_BTNFACE) || !IsAppThemed())
        return palette.face;
    const Theme theme(L"TAB");
    if (theme.Get() == nullptr) return palette.face;
    const WindowDc screen(nullptr);
    const MemoryDc memory(screen.Get());
    const Bitmap bitmap(CreateCompatibleBitmap(screen.Get(), kSample, kSample));
    const SelectScope select(memory.Get(), bitmap.Get());
    const RECT area{0, 0, kSample, kSample};
    FillRect(memory.Get(), &area, GetSysColorBrush(COLOR_BTNFACE));
    if (FAILED(DrawThemeBackground(theme.Get(), memory.Get(), TABP_BODY, 0, &area, nullptr)))
        return palette.face;
    const COLORREF colour = GetPixel(memory.Get(), kSample / 2, kSample / 2);
    return colour == CLR_INVALID ? palette.face : colour;
}

}  // namespace dlv
