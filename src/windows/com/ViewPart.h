// The control's picture for containers that draw it themselves: on a screen, into a metafile, for a preview.
// It needs no window.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oleidl.h>

#include "windows/com/Activation.h"
#include "windows/com/ComObject.h"

namespace dlv {

class ViewPart final : public ComPart<Implements<IViewObject2, IViewObject>> {
public:
    ViewPart(IUnknown& whole, WindowHost& host, Extent& extent, const Ambience& ambience,
             Activation& activation)
        : ComPart(whole), host_(host), extent_(extent), ambience_(ambience), activation_(activation) {}

    STDMETHODIMP Draw(DWORD aspect, LONG index, void* details, DVTARGETDEVICE* target, HDC information,
                      HDC dc, LPCRECTL bounds, LPCRECTL windowBounds,
                      BOOL(STDMETHODCALLTYPE* proceed)(ULONG_PTR), ULONG_PTR context) override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* details, DVTARGETDEVICE* target, HDC information,
                             LOGPALETTE** colours) override;
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* details, DWORD* freeze) override;
    STDMETHODIMP Unfreeze(DWORD freeze) override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* target, LPSIZEL size) override;

    /// Tells the container's sink that the picture is another.
    void TellChange();
    /// Lets the container's sink go.
    void DropAdvise() { const ComPtr<IAdviseSink> dropped = std::move(sink_); }

private:
    /// For what needs no more than an answer.
    HRESULT Just(HRESULT result);

    WindowHost& host_;
    Extent& extent_;
    const Ambience& ambience_;
    Activation& activation_;
    ComPtr<IAdviseSink> sink_;
    DWORD aspects_ = 0;
    DWORD flags_ = 0;
};

}  // namespace dlv
