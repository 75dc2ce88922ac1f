// The control's events on their way to the host's sinks, and the connection points at which these are
// advised.
#pragma once

#include "windows/com/PlainWindows.h"

#include <ocidl.h>

#include "webdata/HostEvents.h"
#include "windows/com/ConnectionPoint.h"
#include "windows/com/WindowHost.h"

namespace dlv {

class EventSource final : public ComPart<Implements<IConnectionPointContainer>>, public HostEvents {
public:
    EventSource(IUnknown& whole, WindowHost& host);

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    void PostRequest(const std::string& request) override;
    void Raise(HostEvent event, const DLVParams& params) override;

    /// While frozen, events are lost. Calls nest.
    void Freeze();
    void Thaw();

private:
    void Send(HostEvent event, VARIANT argument);

    WindowHost& host_;
    ConnectionPoint events_;
    ConnectionPoint propertyChanges_;
    int frozen_ = 0;
};

}  // namespace dlv
