#include "windows/webdata/ProfileObject.h"

#include "windows/webdata/SectionObject.h"

namespace dlv {

STDMETHODIMP ProfileObject::get_Name(BSTR* value) {
    return GiveText(value, [&] { return profile_->Name(); });
}

STDMETHODIMP ProfileObject::put_Name(BSTR value) {
    return Own([&] { profile_->SetName(Narrow(value)); });
}

STDMETHODIMP ProfileObject::get_Section(BSTR name, _QZWebSection** value) {
    return GiveObject<SectionObject>(value, [&] { return profile_->Section(Narrow(name)); });
}

STDMETHODIMP ProfileObject::HasSection(BSTR name, VARIANT_BOOL* value) {
    return GiveTruth(value, [&] { return profile_->HasSection(Narrow(name)); });
}

STDMETHODIMP ProfileObject::AddSection(BSTR name, BSTR fields, _QZWebSection** value) {
    return GiveObject<SectionObject>(value,
                                     [&] { return profile_->AddSection(Narrow(name), Narrow(fields)); });
}

STDMETHODIMP ProfileObject::LoadText(BSTR text) {
    return Own([&] { profile_->LoadText(Narrow(text)); });
}

STDMETHODIMP ProfileObject::get_Text(BSTR* value) {
    return GiveText(value, [&] { return profile_->Text(); });
}

}  // namespace dlv
