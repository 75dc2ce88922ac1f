// A set of profiles, as hosts see it.
#pragma once

#include "webdata/QZWebProfiles.h"
#include "windows/webdata/DataObject.h"

namespace dlv {

class ProfilesObject final : public DataObject<::QZWebProfiles, _QZWebProfiles> {
public:
    STDMETHODIMP get_Count(LONG* value) override;
    STDMETHODIMP get_Item(LONG index, _QZWebProfile** value) override;
    STDMETHODIMP Add(BSTR name, _QZWebProfile** value) override;
    STDMETHODIMP Exists(BSTR name, VARIANT_BOOL* value) override;
    STDMETHODIMP LoadText(BSTR text) override;
    STDMETHODIMP get_Text(BSTR* value) override;

private:
    QZWebProfiles profiles_;
};

}  // namespace dlv
