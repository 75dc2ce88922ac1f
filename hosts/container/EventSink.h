// Listens to a control's events: one handler per dispatch id.
#pragma once

#include "hosts/container/Recorder.h"
#include "hosts/container/Unknown.h"

#include <functional>
#include <map>
#include <string>

namespace dlv::container {

class EventSink final : public Unknown<IDispatch>, private Recorded {
public:
    explicit EventSink(std::shared_ptr<Recorder> recorder = {}) : Recorded(std::move(recorder)) {}

    /// Gets the event's arguments as the control passes them: from last to first, by reference where it
    /// declares them so.
    using Handler = std::function<void(DISPPARAMS& arguments)>;

    /// Before or after connecting; an event without a handler is passed over.
    void On(DISPID event, Handler handler) { handlers_[event] = std::move(handler); }

    /// Advises the control's source interface `iid`. One connection at a time.
    HRESULT Connect(IUnknown* control, REFIID iid);
    /// Ends the connection; nothing when there is none.
    HRESULT Disconnect();

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

private:
    void* Find(REFIID iid) override;
    std::string EventText(DISPID id, const DISPPARAMS& arguments) const;

    std::map<DISPID, Handler> handlers_;
    IID source_{};
    /// The description of the source interface; null when the control has none.
    ComPtr<ITypeInfo> events_;
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

/// The text of an argument that is passed by value or by reference; empty when it is none.
std::wstring TextArgument(const VARIANT& argument);
/// The object of an argument that is passed by value or by reference; null when it is none.
ComPtr<IDispatch> ObjectArgument(const VARIANT& argument);

}  // namespace dlv::container
