// What every object of the container has in common: a count of references and the interfaces that it answers
// to.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>
#include <wrl/client.h>

#include <atomic>
#include <memory>
#include <utility>

namespace dlv::container {

using Microsoft::WRL::ComPtr;

/// How many objects of this library there are in the process: 0 when every control has let go of its
/// container.
inline std::atomic<long> liveObjects{0};

template <class First, class... Rest>
class Unknown : public First, public Rest... {
public:
    Unknown() { ++liveObjects; }
    Unknown(const Unknown&) = delete;
    Unknown& operator=(const Unknown&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = IsEqualGUID(iid, IID_IUnknown) ? static_cast<First*>(this) : Find(iid);
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) std::unique_ptr<Unknown>{this};
        return left;
    }

protected:
    virtual ~Unknown() { --liveObjects; }
    friend std::default_delete<Unknown>;

    /// The pointer for an interface, without a reference. Overridden to answer to bases of the interfaces
    /// too.
    virtual void* Find(REFIID iid) {
        void* found = nullptr;
        const auto look = [&]<class Interface>(Interface* self) {
            if (found == nullptr && IsEqualGUID(iid, __uuidof(Interface))) found = self;
        };
        look(static_cast<First*>(this));
        (look(static_cast<Rest*>(this)), ...);
        return found;
    }

private:
    std::atomic<ULONG> references_{1};
};

template <class Object, class... Arguments>
ComPtr<Object> Make(Arguments&&... arguments) {
    // Not by Attach, which takes a reference of its own with these tools.
    ComPtr<Object> made;
    *made.GetAddressOf() = std::make_unique<Object>(std::forward<Arguments>(arguments)...).release();
    return made;
}

}  // namespace dlv::container
