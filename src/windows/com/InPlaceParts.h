// The interfaces through which a container handles the active control: its window, its place, its keys.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oleidl.h>

#include "windows/com/Activation.h"
#include "windows/com/ComObject.h"

namespace dlv {

class InPlaceObjectPart final : public ComPart<Implements<IOleInPlaceObject, IOleWindow>> {
public:
    InPlaceObjectPart(IUnknown& whole, WindowHost& host, Activation& activation)
        : ComPart(whole), host_(host), activation_(activation) {}

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT place, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override;

private:
    WindowHost& host_;
    Activation& activation_;
};

class ActiveObjectPart final : public ComPart<Implements<IOleInPlaceActiveObject>> {
public:
    /// `activation` and `site` are made after this part, which refers to them only when it is called.
    ActiveObjectPart(IUnknown& whole, WindowHost& host, Activation& activation, ClientSite& site)
        : ComPart(whole), host_(host), activation_(activation), site_(site) {}

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL activate) override;
    STDMETHODIMP OnDocWindowActivate(BOOL activate) override;
    STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL frame) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;

    /// Whether the container was asked about this very message when it came by here, and did not want it.
    bool WasOffered(const MSG& message) const;

private:
    WindowHost& host_;
    Activation& activation_;
    ClientSite& site_;
    MSG offered_{};
};

}  // namespace dlv
