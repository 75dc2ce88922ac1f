// The container's frame: the window before which dialogs stand, and the object that is active in it.
#pragma once

#include "hosts/container/UIWindow.h"

namespace dlv::container {

class Frame final : public UIWindow<IOleInPlaceFrame> {
public:
    /// `window` is a top-level window that outlives the use of the frame.
    explicit Frame(HWND window, std::shared_ptr<Recorder> recorder = {})
        : UIWindow(window, "IOleInPlaceFrame", std::move(recorder)) {}

    /// Whether a control has asked for the container to be modal.
    bool IsModal() const { return modal_ > 0; }

    STDMETHODIMP InsertMenus(HMENU shared, LPOLEMENUGROUPWIDTHS widths) override;
    STDMETHODIMP SetMenu(HMENU shared, HOLEMENU menu, HWND activeWindow) override;
    STDMETHODIMP RemoveMenus(HMENU shared) override;
    STDMETHODIMP SetStatusText(LPCOLESTR text) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message, WORD id) override;

private:
    int modal_ = 0;
};

}  // namespace dlv::container
