// The fonts of one surface: regular and bold in the size that its resolution asks for.
#pragma once

#include "windows/com/PlainWindows.h"

#include <string>

#include "windows/gdi/Handles.h"
#include "windows/gdi/Scale.h"

namespace dlv {

enum class Weight { Regular, Bold };

struct FontChoice {
    std::wstring face;
    double points = 9;
    bool operator==(const FontChoice&) const = default;
};

/// The system's own dialog font: Segoe UI where there is one.
FontChoice DefaultFont();

class Fonts {
public:
    Fonts(const FontChoice& choice, Scale scale);

    HFONT Get(Weight weight) const { return weight == Weight::Bold ? bold_.Get() : regular_.Get(); }
    HFONT Regular() const { return regular_.Get(); }
    HFONT Bold() const { return bold_.Get(); }
    /// From the top of a line of text to that of the next, in pixels.
    int LineHeight() const { return lineHeight_; }
    /// Width of one line of text in pixels.
    int TextWidth(std::wstring_view text, Weight weight) const;

private:
    Font regular_;
    Font bold_;
    int lineHeight_ = 0;
};

}  // namespace dlv
