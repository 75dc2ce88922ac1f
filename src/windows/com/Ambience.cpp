#include "windows/com/Ambience.h"

#include <ocidl.h>
#include <olectl.h>

namespace dlv {

using Microsoft::WRL::ComPtr;

void Ambience::Read(DISPID id) {
    const auto asked = [id](DISPID property) { return id == property || id == DISPID_UNKNOWN; };
    if (asked(DISPID_AMBIENT_FONT)) look_.font = Font();
    if (asked(DISPID_AMBIENT_BACKCOLOR)) look_.ground = Colour(DISPID_AMBIENT_BACKCOLOR);
    if (asked(DISPID_AMBIENT_FORECOLOR)) look_.ink = Colour(DISPID_AMBIENT_FORECOLOR);
    if (asked(DISPID_AMBIENT_USERMODE)) userMode_ = Truth(DISPID_AMBIENT_USERMODE, true);
    if (asked(DISPID_AMBIENT_UIDEAD)) dead_ = Truth(DISPID_AMBIENT_UIDEAD, false);
    if (asked(DISPID_AMBIENT_LOCALEID)) {
        const auto locale = static_cast<LCID>(Number(DISPID_AMBIENT_LOCALEID).value_or(LOCALE_USER_DEFAULT));
        locale_ = IsValidLocale(locale, LCID_INSTALLED) ? locale : LOCALE_USER_DEFAULT;
    }
    if (asked(DISPID_AMBIENT_DISPLAYNAME)) displayName_ = Name();
}

std::optional<LONG> Ambience::Number(DISPID id) const {
    std::optional<Variant> value = site_.Ambient(id);
    // An object is no number, whatever its default property is; an array is none that could be looked into.
    if (!value || (*value)->vt == VT_DISPATCH || (*value)->vt == VT_UNKNOWN || ((*value)->vt & VT_ARRAY) != 0)
        return std::nullopt;
    if (FAILED(VariantChangeType(value->Address(), value->Address(), 0, VT_I4))) return std::nullopt;
    return (*value)->lVal;
}

bool Ambience::Truth(DISPID id, bool otherwise) const {
    const std::optional<LONG> value = Number(id);
    return value ? *value != 0 : otherwise;
}

std::optional<ContainerColour> Ambience::Colour(DISPID id) const {
    const std::optional<LONG> value = Number(id);
    return value ? std::optional(static_cast<ContainerColour>(*value)) : std::nullopt;
}

std::optional<FontChoice> Ambience::Font() const {
    const std::optional<Variant> value = site_.Ambient(DISPID_AMBIENT_FONT);
    if (!value || ((*value)->vt != VT_DISPATCH && (*value)->vt != VT_UNKNOWN)) return std::nullopt;
    ComPtr<IFont> font;
    if ((*value)->punkVal == nullptr || FAILED((*value)->punkVal->QueryInterface(IID_PPV_ARGS(&font))))
        return std::nullopt;
    FontChoice choice = DefaultFont();
    Bstr face;
    CY size{};
    if (SUCCEEDED(font->get_Name(face.Address())) && !face.View().empty()) choice.face = face.View();
    // Currency counts ten-thousandths.
    if (SUCCEEDED(font->get_Size(&size)) && size.int64 > 0)
        choice.points = static_cast<double>(size.int64) / 10000;
    return choice;
}

std::wstring Ambience::Name() const {
    const std::optional<Variant> value = site_.Ambient(DISPID_AMBIENT_DISPLAYNAME);
    if (!value || (*value)->vt != VT_BSTR || SysStringLen((*value)->bstrVal) == 0) return kOwnName;
    return {(*value)->bstrVal, SysStringLen((*value)->bstrVal)};
}

}  // namespace dlv
