#include "windows/com/OleControlPart.h"

#include <olectl.h>

namespace dlv {

STDMETHODIMP OleControlPart::GetControlInfo(CONTROLINFO* info) {
    if (info == nullptr) return E_POINTER;
    // No mnemonics of its own; Enter drills down, so the container is to leave it to the control.
    *info = {sizeof *info, nullptr, 0, CTRLINFO_EATS_RETURN};
    return S_OK;
}

STDMETHODIMP OleControlPart::OnMnemonic(LPMSG) { return S_OK; }

STDMETHODIMP OleControlPart::OnAmbientPropertyChange(DISPID id) {
    return host_.Method(IID_IOleControl, [&] {
        if (id == DISPID_AMBIENT_FONT || id == DISPID_UNKNOWN) activation_.AmbientFontChanged();
    });
}

STDMETHODIMP OleControlPart::FreezeEvents(BOOL freeze) {
    return host_.Method(IID_IOleControl, [&] {
        if (freeze != FALSE) {
            events_.Freeze();
        } else {
            events_.Thaw();
        }
    });
}

}  // namespace dlv
