// The container's end of the control: the client site and what hangs off it.
#pragma once

#include "windows/com/PlainWindows.h"

#include <ocidl.h>
#include <oleidl.h>
#include <wrl/client.h>

#include <optional>

#include "windows/com/Strings.h"

namespace dlv {

enum class Focus { Taken, Lost };

class ClientSite {
public:
    /// Null lets everything of the container go.
    void Set(IOleClientSite* site);
    IOleClientSite* Get() const { return site_.Get(); }

    /// An interface of the site; null when there is no site or it has none.
    template <class Interface>
    Microsoft::WRL::ComPtr<Interface> As() const {
        Microsoft::WRL::ComPtr<Interface> found;
        if (site_) site_.As(&found);
        return found;
    }

    /// An ambient property; nothing when the container does not offer it.
    std::optional<Variant> Ambient(DISPID id) const;

    /// Tells the container that the control has taken or lost the focus.
    void TellFocus(Focus change) const;
    /// Offers a key message; true when the container took it.
    bool TranslateKey(MSG& message) const;

private:
    Microsoft::WRL::ComPtr<IOleClientSite> site_;
    Microsoft::WRL::ComPtr<IOleControlSite> controlSite_;
    Microsoft::WRL::ComPtr<IDispatch> ambients_;
};

/// Which shift keys are down, as containers want to know it: KEYMOD bits.
DWORD KeyModifiers() noexcept;

}  // namespace dlv
