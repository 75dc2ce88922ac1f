// Stands in a host's code in the place of its control and has everything recorded that passes between the
// two: the seven calls, early or late bound, and the events of every sink that is advised here. All other
// interfaces are the control's own, so that a container needs nothing of it: it keeps the control, and what
// calls and listens gets this.
//
//   auto recorder = std::make_shared<recorder::SessionRecorder>(file,
//   recorder::SessionRecorder::Texts::AsTheyAre); auto viewer =
//   container::Make<recorder::RecordingControl>(control, recorder);
#pragma once

#include <windows.h>

#include <memory>

#include "DashlonViewer.h"
#include "hosts/container/Unknown.h"
#include "hosts/recorder/SessionRecorder.h"

namespace dlv::recorder {

class RecordingControl final : public container::Unknown<_DLViewer, IConnectionPointContainer> {
public:
    /// The session goes on with a new control from here. `control` has the interface `_DLViewer`.
    RecordingControl(IUnknown& control, std::shared_ptr<SessionRecorder> recorder);

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

    STDMETHODIMP ReceiveMessage(VARIANT* data, VARIANT dataType, VARIANT tag) override;
    STDMETHODIMP Initialize(IDispatch** trans) override;
    STDMETHODIMP StopControl() override;
    STDMETHODIMP ReceiveProfileResponse(BSTR* resultXml, BSTR* functionName) override;
    STDMETHODIMP ResizeControls() override;
    STDMETHODIMP SetSessionBUIDList(SAFEARRAY** ids) override;
    STDMETHODIMP SetRegionalFormatInfo(BSTR* languageId) override;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

private:
    void* Find(REFIID iid) override;
    template <class Body>
    HRESULT Record(Json step, Body&& call);

    const container::ComPtr<IUnknown> whole_;
    container::ComPtr<_DLViewer> control_;
    const std::shared_ptr<SessionRecorder> recorder_;
    /// Of several sinks, one is listened to.
    const std::shared_ptr<bool> heard_ = std::make_shared<bool>(false);
};

}  // namespace dlv::recorder
