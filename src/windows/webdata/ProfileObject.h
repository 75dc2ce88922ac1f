// A profile, as hosts see it.
#pragma once

#include "webdata/QZWebProfile.h"
#include "windows/webdata/DataObject.h"

namespace dlv {

class ProfileObject final : public DataObject<::QZWebProfile, _QZWebProfile> {
public:
    explicit ProfileObject(std::shared_ptr<QZWebProfile> profile = std::make_shared<QZWebProfile>())
        : profile_(std::move(profile)) {}

    STDMETHODIMP get_Name(BSTR* value) override;
    STDMETHODIMP put_Name(BSTR value) override;
    STDMETHODIMP get_Section(BSTR name, _QZWebSection** value) override;
    STDMETHODIMP HasSection(BSTR name, VARIANT_BOOL* value) override;
    STDMETHODIMP AddSection(BSTR name, BSTR fields, _QZWebSection** value) override;
    STDMETHODIMP LoadText(BSTR text) override;
    STDMETHODIMP get_Text(BSTR* value) override;

private:
    std::shared_ptr<QZWebProfile> profile_;
};

}  // namespace dlv
