// The container's ambient properties, as far as the control follows them. They are read when the container
// gives its site and when it says that one has changed; what it does not offer is the system's choice.
#pragma once

#include "windows/com/PlainWindows.h"

#include <string>

#include "windows/com/ClientSite.h"
#include "windows/gdi/Appearance.h"

namespace dlv {

class Ambience {
public:
    /// `site` outlives it.
    explicit Ambience(const ClientSite& site) : site_(site) {}

    /// Reads one property, or all for DISPID_UNKNOWN. One that the control does not follow is passed over.
    void Read(DISPID id);

    /// Font and colours.
    const Appearance& Look() const { return look_; }
    /// A person uses the control; else a form is being designed: then it shows itself but does nothing.
    bool UserMode() const { return userMode_; }
    /// Whether a person's input counts.
    bool IsLive() const { return userMode_ && !dead_; }
    /// Whose customs times are shown in.
    LCID Locale() const { return locale_; }
    /// What the container calls the control.
    const std::wstring& DisplayName() const { return displayName_; }

private:
    bool Truth(DISPID id, bool otherwise) const;
    std::optional<LONG> Number(DISPID id) const;
    std::optional<ContainerColour> Colour(DISPID id) const;
    std::optional<FontChoice> Font() const;
    std::wstring Name() const;

    const ClientSite& site_;
    Appearance look_;
    bool userMode_ = true;
    bool dead_ = false;
    LCID locale_ = LOCALE_USER_DEFAULT;
    std::wstring displayName_{kOwnName};

    static constexpr wchar_t kOwnName[] = L"Dashlon Viewer";
};

}  // namespace dlv
