// The control's events on their way to the host's sinks, and the connection points at which these are
// advised.
#pragma once

#include "windows/com/PlainWindows.h"

#include <ocidl.h>

#include <functional>

#include "webdata/HostEvents.h"
#include "windows/com/Ambience.h"
#include "windows/com/ConnectionPoint.h"
#include "windows/com/WindowHost.h"

namespace dlv {

class EventSource final : public ComPart<Implements<IConnectionPointContainer>>, public HostEvents {
public:
    EventSource(IUnknown& whole, WindowHost& host, const Ambience& ambience);

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    void PostRequest(const std::string& request) override;
    void Raise(HostEvent event, const DLVParams& params) override;

    /// While frozen, events are lost, as they are while a form is being designed. Calls nest.
    void Freeze();
    void Thaw();

private:
    using Sender = std::function<void(HostEvent event, VARIANT argument)>;
    /// Calls `give` once for each sink, with what sends an event to that sink.
    void SendToEach(const std::function<void(const Sender&)>& give);

    WindowHost& host_;
    const Ambience& ambience_;
    ConnectionPoint events_;
    ConnectionPoint propertyChanges_;
    int frozen_ = 0;
};

}  // namespace dlv
