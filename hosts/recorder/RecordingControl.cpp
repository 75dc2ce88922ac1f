#include "hosts/recorder/RecordingControl.h"

#include "hosts/recorder/CallValues.h"
#include "hosts/recorder/HostSteps.h"
#include "windows/com/Strings.h"

namespace dlv::recorder {

namespace {

using container::ComPtr;
using Meanwhile = SessionRecorder::Meanwhile;
using Result = SessionRecorder::Result;

/// Passes events on to a host's sink.
class RecordingSink final : public container::Unknown<IDispatch> {
public:
    RecordingSink(ComPtr<IDispatch> sink, std::shared_ptr<SessionRecorder> recorder,
                  std::shared_ptr<bool> heard)
        : sink_(std::move(sink)), recorder_(std::move(recorder)), heard_(std::move(heard)), hears_(!*heard_) {
        *heard_ = true;
    }
    ~RecordingSink() override {
        if (hears_) *heard_ = false;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return sink_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return sink_->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override {
        return sink_->GetIDsOfNames(reserved, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override {
        const ComPtr<IDispatch> sink = sink_;
        const std::shared_ptr<SessionRecorder> recorder =
            hears_ && arguments != nullptr && EventName(id) != nullptr ? recorder_ : nullptr;
        if (recorder) recorder->BeginEvent(EventName(id), EventFields(id, *arguments));
        const HRESULT done =
            sink->Invoke(id, reserved, locale, flags, arguments, result, exception, wrongArgument);
        if (recorder) recorder->EndEvent();
        return done;
    }

private:
    void* Find(REFIID iid) override {
        return IsEqualGUID(iid, __uuidof(__DLViewer)) ? static_cast<IDispatch*>(this) : Unknown::Find(iid);
    }

    const ComPtr<IDispatch> sink_;
    const std::shared_ptr<SessionRecorder> recorder_;
    const std::shared_ptr<bool> heard_;
    const bool hears_;
};

/// The control's connection point for its events, which gets a recording sink for each of the host's.
class RecordingPoint final : public container::Unknown<IConnectionPoint> {
public:
    RecordingPoint(ComPtr<IConnectionPoint> point, std::shared_ptr<SessionRecorder> recorder,
                   std::shared_ptr<bool> heard)
        : point_(std::move(point)), recorder_(std::move(recorder)), heard_(std::move(heard)) {}

    STDMETHODIMP GetConnectionInterface(IID* iid) override { return point_->GetConnectionInterface(iid); }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override {
        return point_->GetConnectionPointContainer(container);
    }
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override {
        ComPtr<IDispatch> heard;
        if (sink == nullptr || (FAILED(sink->QueryInterface(__uuidof(__DLViewer), &heard)) &&
                                FAILED(sink->QueryInterface(IID_PPV_ARGS(&heard)))))
            return point_->Advise(sink, cookie);
        return point_->Advise(container::Make<RecordingSink>(heard, recorder_, heard_).Get(), cookie);
    }
    STDMETHODIMP Unadvise(DWORD cookie) override { return point_->Unadvise(cookie); }
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override {
        return point_->EnumConnections(connections);
    }

private:
    const ComPtr<IConnectionPoint> point_;
    const std::shared_ptr<SessionRecorder> recorder_;
    const std::shared_ptr<bool> heard_;
};

/// A dialog keeps the window that it belongs to from being used.
Meanwhile WhatIsOpen(IUnknown* control) {
    ComPtr<IOleWindow> site;
    HWND window = nullptr;
    if (FAILED(control->QueryInterface(IID_PPV_ARGS(&site))) || FAILED(site->GetWindow(&window)) ||
        window == nullptr || IsWindowEnabled(GetAncestor(window, GA_ROOT)) != FALSE)
        return Meanwhile::Nothing;
    return Meanwhile::ADialogIsOpen;
}

}  // namespace

RecordingControl::RecordingControl(IUnknown& control, std::shared_ptr<SessionRecorder> recorder)
    : whole_(&control), recorder_(std::move(recorder)) {
    control.QueryInterface(IID_PPV_ARGS(&control_));
    recorder_->NewControl();
}

STDMETHODIMP RecordingControl::QueryInterface(REFIID iid, void** object) {
    const HRESULT found = Unknown::QueryInterface(iid, object);
    return found == E_NOINTERFACE ? whole_->QueryInterface(iid, object) : found;
}

void* RecordingControl::Find(REFIID iid) {
    return IsEqualGUID(iid, IID_IDispatch) ? static_cast<_DLViewer*>(this) : Unknown::Find(iid);
}

template <class Body>
HRESULT RecordingControl::Record(Json step, Body&& call) {
    // The call may be the end of this object and of its owner.
    const ComPtr<_DLViewer> control = control_;
    const std::shared_ptr<SessionRecorder> recorder = recorder_;
    recorder->BeginCall(std::move(step), WhatIsOpen(control.Get()));
    const HRESULT result = call(*control.Get());
    recorder->EndCall(SUCCEEDED(result) ? Result::Succeeded : Result::Failed);
    return result;
}

STDMETHODIMP RecordingControl::GetTypeInfoCount(UINT* count) { return control_->GetTypeInfoCount(count); }

STDMETHODIMP RecordingControl::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) {
    return control_->GetTypeInfo(index, locale, info);
}

STDMETHODIMP RecordingControl::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                             DISPID* ids) {
    return control_->GetIDsOfNames(reserved, names, count, locale, ids);
}

STDMETHODIMP RecordingControl::Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                      DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                      UINT* wrongArgument) {
    const auto call = [&](_DLViewer& control) {
        return control.Invoke(id, reserved, locale, flags, arguments, result, exception, wrongArgument);
    };
    Json step = arguments == nullptr ? Json() : LateCall(id, *arguments);
    return step.is_null() ? call(*control_.Get()) : Record(std::move(step), call);
}

STDMETHODIMP RecordingControl::ReceiveMessage(VARIANT* data, VARIANT dataType, VARIANT tag) {
    const auto call = [&](_DLViewer& control) { return control.ReceiveMessage(data, dataType, tag); };
    return data == nullptr ? call(*control_.Get()) : Record(MessageCall(*data, dataType, tag), call);
}

STDMETHODIMP RecordingControl::Initialize(IDispatch** trans) {
    return Record(Step("initialize"), [&](_DLViewer& control) { return control.Initialize(trans); });
}

STDMETHODIMP RecordingControl::StopControl() {
    return Record(Step("stopControl"), [](_DLViewer& control) { return control.StopControl(); });
}

STDMETHODIMP RecordingControl::ReceiveProfileResponse(BSTR* resultXml, BSTR* functionName) {
    const auto call = [&](_DLViewer& control) {
        return control.ReceiveProfileResponse(resultXml, functionName);
    };
    if (resultXml == nullptr || functionName == nullptr) return call(*control_.Get());
    return Record(AnswerCall(Narrow(*resultXml), Narrow(*functionName)), call);
}

STDMETHODIMP RecordingControl::ResizeControls() {
    return Record(Step("resizeControls"), [](_DLViewer& control) { return control.ResizeControls(); });
}

STDMETHODIMP RecordingControl::SetSessionBUIDList(SAFEARRAY** ids) {
    const auto call = [&](_DLViewer& control) { return control.SetSessionBUIDList(ids); };
    return ids == nullptr ? call(*control_.Get()) : Record(UnitsCall(*ids), call);
}

STDMETHODIMP RecordingControl::SetRegionalFormatInfo(BSTR* languageId) {
    const auto call = [&](_DLViewer& control) { return control.SetRegionalFormatInfo(languageId); };
    return languageId == nullptr ? call(*control_.Get()) : Record(LanguageCall(Narrow(*languageId)), call);
}

STDMETHODIMP RecordingControl::EnumConnectionPoints(IEnumConnectionPoints** points) {
    ComPtr<IConnectionPointContainer> container;
    const HRESULT found = whole_.As(&container);
    return FAILED(found) ? found : container->EnumConnectionPoints(points);
}

STDMETHODIMP RecordingControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (point == nullptr) return E_POINTER;
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> own;
    HRESULT found = whole_.As(&container);
    if (SUCCEEDED(found)) found = container->FindConnectionPoint(iid, &own);
    if (SUCCEEDED(found) && IsEqualGUID(iid, __uuidof(__DLViewer)))
        own = container::Make<RecordingPoint>(own, recorder_, heard_);
    *point = own.Detach();
    return found;
}

}  // namespace dlv::recorder
