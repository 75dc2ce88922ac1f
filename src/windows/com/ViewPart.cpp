#include "windows/com/ViewPart.h"

#include "windows/gdi/ControlPainter.h"

namespace dlv {

STDMETHODIMP ViewPart::Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC, HDC dc, LPCRECTL bounds,
                            LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (index != -1) return DV_E_LINDEX;
    if (dc == nullptr || bounds == nullptr) return E_INVALIDARG;
    return host_.Method(IID_IViewObject2, [&] {
        const RECT place{bounds->left, bounds->top, bounds->right, bounds->bottom};
        DrawControl(dc, place, host_.Viewer().Controls(), activation_.CurrentZoom());
    });
}

STDMETHODIMP ViewPart::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colours) {
    if (colours == nullptr) return E_POINTER;
    *colours = nullptr;
    return Just(E_NOTIMPL);
}

STDMETHODIMP ViewPart::Freeze(DWORD, LONG, void*, DWORD*) { return Just(E_NOTIMPL); }

STDMETHODIMP ViewPart::Unfreeze(DWORD) { return Just(E_NOTIMPL); }

STDMETHODIMP ViewPart::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    return host_.Method(IID_IViewObject2, [&] {
        aspects_ = aspects;
        flags_ = flags;
        const ComPtr<IAdviseSink> before = std::exchange(sink_, ComPtr<IAdviseSink>(sink));
        if ((flags & ADVF_PRIMEFIRST) != 0) TellChange();
    });
}

STDMETHODIMP ViewPart::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    return host_.Method(IID_IViewObject2, [&] {
        if (aspects != nullptr) *aspects = aspects_;
        if (flags != nullptr) *flags = flags_;
        if (sink != nullptr) *sink = ComPtr<IAdviseSink>(sink_).Detach();
    });
}

STDMETHODIMP ViewPart::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
    if (size == nullptr) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    return host_.Method(IID_IViewObject2, [&] { *size = extent_.Himetric(); });
}

HRESULT ViewPart::Just(HRESULT result) {
    return host_.Method(IID_IViewObject2, [&] { return result; });
}

void ViewPart::TellChange() {
    const ComPtr<IAdviseSink> sink = sink_;
    if (!sink || (aspects_ & DVASPECT_CONTENT) == 0) return;
    if ((flags_ & ADVF_ONLYONCE) != 0) sink_.Reset();
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

}  // namespace dlv
