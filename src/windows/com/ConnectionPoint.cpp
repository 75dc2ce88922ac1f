#include "windows/com/ConnectionPoint.h"

#include <olectl.h>

namespace dlv {

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!InlineIsEqualGUID(iid, IID_IUnknown) && !InlineIsEqualGUID(iid, IID_IConnectionPoint))
        return E_NOINTERFACE;
    *object = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (iid == nullptr) return E_POINTER;
    *iid = IID_NULL;
    return guard_.Method(IID_IConnectionPoint, [&] { *iid = iid_; });
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (container == nullptr) return E_POINTER;
    *container = nullptr;
    return guard_.Method(IID_IConnectionPoint, [&] {
        *container = &container_;
        container_.AddRef();
    });
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (cookie != nullptr) *cookie = 0;
    if (sink == nullptr || cookie == nullptr) return E_POINTER;
    return guard_.Method(IID_IConnectionPoint, [&] {
        Connection connection;
        HRESULT answer = sink->QueryInterface(iid_, reinterpret_cast<void**>(connection.sink.GetAddressOf()));
        if (FAILED(answer) && sinks_ == Sinks::AnyDispatch)
            answer =
                sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(connection.sink.GetAddressOf()));
        if (FAILED(answer) || !connection.sink) return CONNECT_E_CANNOTCONNECT;
        if (connections_.size() >= kMostSinks) return CONNECT_E_ADVISELIMIT;
        do ++lastCookie_;
        while (lastCookie_ == 0 || IsConnected(lastCookie_));
        connection.cookie = lastCookie_;
        connections_.push_back(connection);
        *cookie = connection.cookie;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    return guard_.Method(IID_IConnectionPoint, [&] {
        const auto found = std::find_if(connections_.begin(), connections_.end(),
                                        [&](const Connection& c) { return c.cookie == cookie; });
        if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
        // Released last: a sink may call back when it goes.
        const Connection dropped = std::move(*found);
        connections_.erase(found);
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
    if (connections == nullptr) return E_POINTER;
    *connections = nullptr;
    return guard_.Method(IID_IConnectionPoint,
                         [&] { *connections = MakeObject<dlv::EnumConnections>(connections_).Detach(); });
}

bool ConnectionPoint::IsConnected(DWORD cookie) const {
    return std::any_of(connections_.begin(), connections_.end(),
                       [&](const Connection& c) { return c.cookie == cookie; });
}

}  // namespace dlv
