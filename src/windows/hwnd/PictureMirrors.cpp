#include "windows/hwnd/PictureMirrors.h"

#include "windows/gdi/PaintBuffer.h"
#include "windows/gdi/Pictures.h"

namespace dlv {

void PaintedMirror::Make(HWND parent) {
    Making making;
    making.style = WS_CHILD | WS_CLIPSIBLINGS;
    making.parent = parent;
    MakeOwn(kFrameClass, making);
}

LRESULT PaintedMirror::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ERASEBKGND) return 1;
    if (message != WM_PAINT) return Mirror::OnMessage(message, wParam, lParam);
    const PaintScope paint(Handle());
    RECT area{};
    GetClientRect(Handle(), &area);
    if (IsRectEmpty(&area)) return 0;
    const PaintBuffer buffer(paint.Dc(), area);
    const Canvas canvas(buffer.Dc(), Kept());
    canvas.Fill(area, Owner().Ground(Shown()));
    Draw(canvas, area);
    buffer.Show();
    return 0;
}

void ImageMirror::Draw(const Canvas& canvas, const RECT& area) const {
    DrawPicture(canvas, image_.Picture(), area);
}

void LineMirror::Draw(const Canvas& canvas, const RECT& area) const {
    canvas.Fill(area, line_.Shade() == Line::Tone::Dark ? canvas.Colours().edge : canvas.Colours().window);
}

}  // namespace dlv
