// How the host's own windows look: the fonts, made for the resolution of the screen that a window is on.
#pragma once

#include <windows.h>

namespace dlv::demo {

/// Dots per inch of the screen that the window is on.
int DpiOf(HWND window);

class HostFonts {
public:
    HostFonts() = default;
    explicit HostFonts(int dpi);
    ~HostFonts();
    HostFonts(HostFonts&& other) noexcept { Swap(other); }
    HostFonts& operator=(HostFonts&& other) noexcept {
        Swap(other);
        return *this;
    }

    HFONT Regular() const { return regular_; }
    HFONT Bold() const { return bold_; }

private:
    void Swap(HostFonts& other) noexcept;

    HFONT regular_ = nullptr;
    HFONT bold_ = nullptr;
};

}  // namespace dlv::demo
