#include "hosts/demo/HostLook.h"

#include <utility>

namespace dlv::demo {

namespace {

constexpr int kFontPoints = 9;

}  // namespace

int DpiOf(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    return dpi == 0 ? USER_DEFAULT_SCREEN_DPI : static_cast<int>(dpi);
}

HostFonts::HostFonts(int dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    LOGFONTW& font = metrics.lfMessageFont;
    font.lfHeight = -MulDiv(kFontPoints, dpi, 72);
    font.lfQuality = CLEARTYPE_QUALITY;
    regular_ = CreateFontIndirectW(&font);
    font.lfWeight = FW_BOLD;
    bold_ = CreateFontIndirectW(&font);
}

HostFonts::~HostFonts() {
    DeleteObject(regular_);
    DeleteObject(bold_);
}

void HostFonts::Swap(HostFonts& other) noexcept {
    std::swap(regular_, other.regular_);
    std::swap(bold_, other.bold_);
}

}  // namespace dlv::demo
