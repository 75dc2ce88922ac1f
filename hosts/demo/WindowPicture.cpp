#include "hosts/demo/WindowPicture.h"

#include <objidl.h>

#include <algorithm>
#include <memory>

namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

namespace dlv::demo {

namespace {

class GdiPlus {
public:
    GdiPlus() {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token_, &input, nullptr);
    }
    ~GdiPlus() { Gdiplus::GdiplusShutdown(token_); }
    GdiPlus(const GdiPlus&) = delete;
    GdiPlus& operator=(const GdiPlus&) = delete;

private:
    ULONG_PTR token_ = 0;
};

constexpr CLSID kPng = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

HBITMAP CopyOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    const int width = place.right - place.left, height = place.bottom - place.top;
    const HDC source = GetWindowDC(window);
    const HDC target = CreateCompatibleDC(source);
    const HBITMAP copy = CreateCompatibleBitmap(source, width, height);
    const HGDIOBJ before = SelectObject(target, copy);
    BitBlt(target, 0, 0, width, height, source, 0, 0, SRCCOPY);
    SelectObject(target, before);
    DeleteDC(target);
    ReleaseDC(window, source);
    return copy;
}

}  // namespace

bool SavePicture(HWND window, const std::wstring& path) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_FRAME | RDW_UPDATENOW);
    const HBITMAP copy = CopyOf(window);
    const GdiPlus library;
    const std::unique_ptr<Gdiplus::Bitmap> picture(Gdiplus::Bitmap::FromHBITMAP(copy, nullptr));
    const bool saved = picture && picture->Save(path.c_str(), &kPng, nullptr) == Gdiplus::Ok;
    DeleteObject(copy);
    return saved;
}

}  // namespace dlv::demo
