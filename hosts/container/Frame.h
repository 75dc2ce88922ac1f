// The container's frame: the window before which dialogs stand, and the object that is active in it.
#pragma once

#include "hosts/container/Unknown.h"

namespace dlv::container {

class Frame final : public Unknown<IOleInPlaceFrame> {
public:
    /// `window` is a top-level window that outlives the use of the frame.
    explicit Frame(HWND window) : window_(window) {}

    HWND Window() const { return window_; }
    IOleInPlaceActiveObject* ActiveObject() const { return active_.Get(); }
    /// Whether a control has asked for the container to be modal.
    bool IsModal() const { return modal_ > 0; }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP GetBorder(LPRECT border) override;
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    STDMETHODIMP InsertMenus(HMENU shared, LPOLEMENUGROUPWIDTHS widths) override;
    STDMETHODIMP SetMenu(HMENU shared, HOLEMENU menu, HWND activeWindow) override;
    STDMETHODIMP RemoveMenus(HMENU shared) override;
    STDMETHODIMP SetStatusText(LPCOLESTR text) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message, WORD id) override;

private:
    void* Find(REFIID iid) override;

    const HWND window_;
    ComPtr<IOleInPlaceActiveObject> active_;
    int modal_ = 0;
};

}  // namespace dlv::container
