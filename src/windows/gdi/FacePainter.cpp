#include "windows/gdi/FacePainter.h"

#include "base/Text.h"
#include "windows/com/Strings.h"

namespace dlv {

namespace {

Weight WeightOf(const Label& label) { return label.Bold() ? Weight::Bold : Weight::Regular; }

bool Wraps(const Canvas& canvas, const RECT& area) {
    return area.bottom - area.top >= 2 * canvas.Faces().LineHeight();
}

/// What is drawn of a label that takes one line: more characters fit into none.
constexpr std::size_t kLongestLine = 500;

std::wstring ShownText(const Canvas& canvas, const Label& label, const RECT& area) {
    return Wide(Wraps(canvas, area) || label.Key() ? label.Caption()
                                                   : OneLine(label.Caption(), kLongestLine));
}

UINT LabelFormat(const Canvas& canvas, const Label& label, const RECT& area) {
    const UINT side = label.TextAlignment() == Alignment::Right    ? DT_RIGHT
                      : label.TextAlignment() == Alignment::Centre ? DT_CENTER
                                                                   : DT_LEFT;
    return side | (Wraps(canvas, area) ? DT_WORDBREAK : DT_SINGLELINE);
}

}  // namespace

std::vector<bool> ShownTools(const Toolbar& bar) {
    const std::vector<Toolbar::Item>& items = bar.Items();
    std::vector<bool> shown(items.size());
    constexpr std::size_t kNone = SIZE_MAX;
    std::size_t separator = kNone;
    bool before = false;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (!items[i].visible) continue;
        if (items[i].style == Toolbar::Style::Separator) {
            if (before && separator == kNone) separator = i;
            continue;
        }
        if (separator != kNone) shown[separator] = true;
        separator = kNone;
        shown[i] = before = true;
    }
    return shown;
}

int LabelStep(const Canvas& canvas, const Label& label) {
    const RECT area = canvas.Measure().ToRect(label.Place());
    return canvas.StepWithin(area, ShownText(canvas, label, area), WeightOf(label),
                             LabelFormat(canvas, label, area));
}

std::string WithAccessKey(const std::string& text, AccessKey key) {
    std::string marked;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (key == i) marked += '&';
        marked.append(text[i] == '&' ? 2 : 1, text[i]);
    }
    return marked;
}

void DrawLabel(const Canvas& canvas, const Label& label, const RECT& area, COLORREF ground, int leastStep,
               KeyCue cue) {
    const Palette& colours = canvas.Colours();
    canvas.Fill(area, ground);
    COLORREF ink = colours.faceText;
    if (label.ForeColour() && !colours.highContrast) ink = *label.ForeColour();
    if (!label.Enabled()) ink = colours.disabledText;
    canvas.TextWithin(area, ShownText(canvas, label, area), WeightOf(label), ink,
                      LabelFormat(canvas, label, area), Canvas::Upright::Top, leastStep,
                      cue == KeyCue::Shown && label.Key() ? Wide(WithAccessKey(label.Caption(), label.Key()))
                                                          : std::wstring());
}

bool LabelTextFits(const Canvas& canvas, const Label& label, const RECT& area) {
    const std::wstring text = ShownText(canvas, label, area);
    const SelectScope font(canvas.Dc(), canvas.Faces().Smaller(WeightOf(label), Fonts::kSmallest));
    RECT needed = area;
    DrawTextW(canvas.Dc(), text.c_str(), static_cast<int>(text.size()), &needed,
              LabelFormat(canvas, label, area) | DT_CALCRECT | DT_NOPREFIX);
    return needed.bottom <= area.bottom && needed.right - needed.left <= area.right - area.left;
}

void DrawFrameEdge(const Canvas& canvas, const Frame& frame, const RECT& area, COLORREF ground) {
    if (!frame.HasEdge()) return;
    const Palette& colours = canvas.Colours();
    const int line = canvas.Faces().LineHeight();
    RECT edge = area;
    edge.top += line / 2;
    canvas.Outline(edge, colours.edge, std::max(1, canvas.Scaled(1)));
    const std::wstring text = Wide(frame.Caption());
    if (text.empty()) return;
    const int gap = canvas.Scaled(3);
    RECT caption{area.left + canvas.Scaled(8), area.top, area.right - canvas.Scaled(8), area.top + line};
    caption.right = std::min(caption.right, caption.left + canvas.TextWidth(text, Weight::Regular) + 2 * gap);
    canvas.Fill(caption, ground);
    InflateRect(&caption, -gap, 0);
    canvas.Text(caption, text, Weight::Regular, frame.Enabled() ? colours.faceText : colours.disabledText,
                DT_SINGLELINE | DT_END_ELLIPSIS);
}

}  // namespace dlv
