#include "windows/com/ClientSite.h"

#include <olectl.h>

namespace dlv {

namespace {

// In no header of the tools.
constexpr DWORD kShift = 0x1;
constexpr DWORD kControl = 0x2;
constexpr DWORD kAlt = 0x4;

}  // namespace

using Microsoft::WRL::ComPtr;

void ClientSite::Set(IOleClientSite* site) {
    // The old ones go last: their release may run code of the container.
    const ComPtr<IOleClientSite> oldSite = std::exchange(site_, ComPtr<IOleClientSite>(site));
    const ComPtr<IOleControlSite> oldControlSite = std::exchange(controlSite_, As<IOleControlSite>());
    const ComPtr<IDispatch> oldAmbients = std::exchange(ambients_, As<IDispatch>());
}

std::optional<Variant> ClientSite::Ambient(DISPID id) const {
    if (!ambients_) return std::nullopt;
    const ComPtr<IDispatch> ambients = ambients_;
    DISPPARAMS none{};
    Variant value;
    if (FAILED(ambients->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                value.Address(), nullptr, nullptr)))
        return std::nullopt;
    return value;
}

void ClientSite::TellFocus(Focus change) const {
    const ComPtr<IOleControlSite> site = controlSite_;
    if (site) site->OnFocus(change == Focus::Taken ? TRUE : FALSE);
}

bool ClientSite::TranslateKey(MSG& message) const {
    const ComPtr<IOleControlSite> site = controlSite_;
    return site && site->TranslateAccelerator(&message, KeyModifiers()) == S_OK;
}

DWORD KeyModifiers() noexcept {
    const auto down = [](int key) { return GetKeyState(key) < 0; };
    return (down(VK_SHIFT) ? kShift : 0) | (down(VK_CONTROL) ? kControl : 0) | (down(VK_MENU) ? kAlt : 0);
}

}  // namespace dlv
