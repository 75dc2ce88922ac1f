// The object that the host gives the control at its start, called late bound: it tells the language and
// leaves all captions to the control.
#pragma once

#include "hosts/container/Unknown.h"
#include "hosts/demo/workday/SampleCompany.h"

namespace dlv::demo {

class Transport final : public container::Unknown<IDispatch> {
public:
    explicit Transport(Language language) : language_(language) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

private:
    Language language_;
};

}  // namespace dlv::demo
