// The windows of pictures and of lines between the parts of a form.
#pragma once

#include "windows/hwnd/Mirror.h"

namespace dlv {

/// A window that paints itself and has no text.
class PaintedMirror : public Mirror {
public:
    using Mirror::Mirror;
    void Make(HWND parent) override;
    void Apply() override { InvalidateRect(Handle(), nullptr, FALSE); }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    /// Over the form's ground.
    virtual void Draw(const Canvas& canvas, const RECT& area) const = 0;
};

class ImageMirror : public PaintedMirror {
public:
    ImageMirror(FormWindows& form, Image& image) : PaintedMirror(form, image), image_(image) {}

private:
    void Draw(const Canvas& canvas, const RECT& area) const override;

    Image& image_;
};

class LineMirror : public PaintedMirror {
public:
    LineMirror(FormWindows& form, Line& line) : PaintedMirror(form, line), line_(line) {}

private:
    void Draw(const Canvas& canvas, const RECT& area) const override;

    Line& line_;
};

}  // namespace dlv
