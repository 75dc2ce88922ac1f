// One outgoing interface of the control and the sinks that listen to it.
#pragma once

#include "windows/com/PlainWindows.h"

#include <ocidl.h>

#include <span>
#include <vector>

#include "windows/com/ComObject.h"
#include "windows/com/EnumOf.h"

namespace dlv {

/// Lives and counts references with the control as a whole but is an object of its own: it answers to
/// IConnectionPoint alone.
class ConnectionPoint final : public IConnectionPoint {
public:
    /// `iid` is what a sink must answer to; one that only has IDispatch will do where the interface is a
    /// dispatch interface.
    enum class Sinks { OfTheInterface, AnyDispatch };
    ConnectionPoint(IConnectionPointContainer& container, MethodGuard& guard, REFIID iid, Sinks sinks)
        : container_(container), guard_(guard), iid_(iid), sinks_(sinks) {}

    /// More sinks than this are a host that forgets to unadvise.
    static constexpr std::size_t kMostSinks = 1000;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return container_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return container_.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

    const IID& Id() const { return iid_; }
    /// The sinks of this moment. One that is taken off while the others are being called is not to be called.
    std::vector<Connection> Connections() const { return connections_; }
    bool IsConnected(DWORD cookie) const;

private:
    IConnectionPointContainer& container_;
    MethodGuard& guard_;
    const IID iid_;
    const Sinks sinks_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

}  // namespace dlv
