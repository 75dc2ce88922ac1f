// Hears from a control that it looks different, has been saved or has closed.
#pragma once

#include "hosts/container/Recorder.h"
#include "hosts/container/Unknown.h"

namespace dlv::container {

class AdviseSink final : public Unknown<IAdviseSink>, private Recorded {
public:
    explicit AdviseSink(std::shared_ptr<Recorder> recorder = {}) : Recorded(std::move(recorder)) {}

    STDMETHODIMP_(void) OnDataChange(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP_(void) OnViewChange(DWORD aspect, LONG index) override;
    STDMETHODIMP_(void) OnRename(IMoniker* moniker) override;
    STDMETHODIMP_(void) OnSave() override;
    STDMETHODIMP_(void) OnClose() override;
};

}  // namespace dlv::container
