#include "windows/com/EventSource.h"

#include <olectl.h>

#include "windows/com/ParamsObject.h"
#include "windows/com/Strings.h"
#include "windows/hwnd/CommonControls.h"

namespace dlv {

EventSource::EventSource(IUnknown& whole, WindowHost& host, const Ambience& ambience)
    : ComPart(whole),
      host_(host),
      ambience_(ambience),
      events_(*this, host, __uuidof(__DLViewer), ConnectionPoint::Sinks::AnyDispatch),
      propertyChanges_(*this, host, IID_IPropertyNotifySink, ConnectionPoint::Sinks::OfTheInterface) {}

STDMETHODIMP EventSource::EnumConnectionPoints(IEnumConnectionPoints** points) {
    if (points == nullptr) return E_POINTER;
    *points = nullptr;
    return host_.Method(IID_IConnectionPointContainer, [&] {
        std::vector<ComPtr<IConnectionPoint>> all{&events_, &propertyChanges_};
        *points = MakeObject<dlv::EnumConnectionPoints>(std::move(all)).Detach();
    });
}

STDMETHODIMP EventSource::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    return host_.Method(IID_IConnectionPointContainer, [&] {
        for (ConnectionPoint* known : {&events_, &propertyChanges_})
            if (InlineIsEqualGUID(iid, known->Id())) *point = ComPtr<IConnectionPoint>(known).Detach();
        return *point != nullptr ? S_OK : CONNECT_E_NOCONNECTION;
    });
}

// A sink may put something else in the place of what it is given; each has one of its own to play with.
void EventSource::PostRequest(const std::string& request) {
    SendToEach([&](const Sender& send) {
        Bstr text(request);
        VARIANT argument;
        VariantInit(&argument);
        argument.vt = VT_BYREF | VT_BSTR;
        argument.pbstrVal = text.Address();
        send(HostEvent::PostRequest, argument);
    });
}

void EventSource::Raise(HostEvent event, const DLVParams& params) {
    const ComPtr<ParamsObject> record = MakeObject<ParamsObject>(params);
    SendToEach([&](const Sender& send) {
        ComPtr<IDispatch> reference(record.Get());
        VARIANT argument;
        VariantInit(&argument);
        argument.vt = VT_BYREF | VT_DISPATCH;
        argument.ppdispVal = reference.GetAddressOf();
        send(event, argument);
    });
}

void EventSource::Freeze() { ++frozen_; }

void EventSource::Thaw() {
    if (frozen_ > 0) --frozen_;
}

void EventSource::SendToEach(const std::function<void(const Sender&)>& give) {
    if (frozen_ > 0 || !ambience_.UserMode()) return;
    const HostScope inHost;
    for (const Connection& connection : events_.Connections()) {
        if (host_.Ending()) return;
        if (!events_.IsConnected(connection.cookie)) continue;
        give([&](HostEvent event, VARIANT argument) {
            DISPPARAMS parameters{};
            parameters.rgvarg = &argument;
            parameters.cArgs = 1;
            // What a sink fails with is its own affair.
            static_cast<IDispatch*>(connection.sink.Get())
                ->Invoke(static_cast<DISPID>(event), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                         &parameters, nullptr, nullptr, nullptr);
        });
    }
}

}  // namespace dlv
