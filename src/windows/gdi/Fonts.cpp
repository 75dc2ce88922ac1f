#include "windows/gdi/Fonts.h"

namespace dlv {

namespace {

Font MakeFont(const FontChoice& choice, Scale scale, Weight weight, int step) {
    LOGFONTW font{};
    const double share = 1 - 0.075 * step;
    font.lfHeight = -static_cast<LONG>(std::lround(choice.points * share * scale.Dpi() / 72));
    font.lfWeight = weight == Weight::Bold ? FW_BOLD : FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = CLEARTYPE_QUALITY;
    lstrcpynW(font.lfFaceName, choice.face.c_str(), LF_FACESIZE);
    return Font(CreateFontIndirectW(&font));
}

}  // namespace

FontChoice DefaultFont() {
    constexpr UINT kDpi = 96;
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, kDpi)) return {};
    return {metrics.lfMessageFont.lfFaceName, std::abs(metrics.lfMessageFont.lfHeight) * 72.0 / kDpi};
}

Fonts::Fonts(const FontChoice& choice, Scale scale) : choice_(choice), scale_(scale) {
    const MemoryDc dc;
    const SelectScope font(dc.Get(), Get(Weight::Bold));
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.Get(), &metrics);
    lineHeight_ = metrics.tmHeight;
}

HFONT Fonts::Smaller(Weight weight, int step) const {
    Font& font = fonts_[weight == Weight::Bold ? 1 : 0][static_cast<std::size_t>(step)];
    if (!font) font = MakeFont(choice_, scale_, weight, step);
    return font.Get();
}

int Fonts::TextWidth(std::wstring_view text, Weight weight) const {
    const MemoryDc dc;
    const SelectScope font(dc.Get(), Get(weight));
    SIZE size{};
    GetTextExtentPoint32W(dc.Get(), text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace dlv
