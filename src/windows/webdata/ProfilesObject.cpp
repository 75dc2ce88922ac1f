#include "windows/webdata/ProfilesObject.h"

#include "windows/webdata/ProfileObject.h"

namespace dlv {

STDMETHODIMP ProfilesObject::get_Count(LONG* value) {
    return GiveCount(value, [&] { return profiles_.Count(); });
}

STDMETHODIMP ProfilesObject::get_Item(LONG index, _QZWebProfile** value) {
    return GiveObject<ProfileObject>(value, [&] { return profiles_.Item(HostIndex(index)); });
}

STDMETHODIMP ProfilesObject::Add(BSTR name, _QZWebProfile** value) {
    return GiveObject<ProfileObject>(value, [&] { return profiles_.Add(Narrow(name)); });
}

STDMETHODIMP ProfilesObject::Exists(BSTR name, VARIANT_BOOL* value) {
    return GiveTruth(value, [&] { return profiles_.Exists(Narrow(name)); });
}

STDMETHODIMP ProfilesObject::LoadText(BSTR text) {
    return Own([&] { profiles_.LoadText(Narrow(text)); });
}

STDMETHODIMP ProfilesObject::get_Text(BSTR* value) {
    return GiveText(value, [&] { return profiles_.Text(); });
}

}  // namespace dlv
