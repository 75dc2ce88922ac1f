// The common part of every COM object here: its count of references and the interfaces that it answers to. A
// class names them once, each with those of its bases under which it is asked for too:
//
//   class Rows : public ComObject<Implements<IEnumVARIANT>> { ... };
//   ComPtr<Rows> rows = MakeObject<Rows>(...);
#pragma once

#include "windows/com/PlainWindows.h"

#include <unknwn.h>
#include <wrl/client.h>

#include <atomic>
#include <memory>
#include <utility>

#include "windows/com/Module.h"

namespace dlv {

using Microsoft::WRL::ComPtr;

/// An interface, and the bases of it that QueryInterface answers with it. IUnknown goes without saying.
template <class Implemented, class... Bases>
struct Implements {
    using Interface = Implemented;

    static bool Answers(REFIID iid) {
        return InlineIsEqualGUID(iid, __uuidof(Implemented)) ||
               (InlineIsEqualGUID(iid, __uuidof(Bases)) || ...);
    }
};

/// The interface pointer of `object` for `iid`, without a reference; null when it has none.
template <class... Answering, class Object>
void* FindInterface(Object* object, REFIID iid) {
    void* found = nullptr;
    const auto look = [&]<class Answer>(Answer) {
        if (found == nullptr && Answer::Answers(iid))
            found = static_cast<typename Answer::Interface*>(object);
    };
    (look(Answering{}), ...);
    return found;
}

template <class First, class... Rest>
class ComObject : public First::Interface, public Rest::Interface... {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = InlineIsEqualGUID(iid, __uuidof(IUnknown)) ? static_cast<typename First::Interface*>(this)
                                                             : FindInterface<First, Rest...>(this, iid);
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left > 0) return left;
        // What is torn down may take and drop references again; they must not lead here a second time.
        references_ = kDying;
        if (PrepareEnd() == End::Delete) std::unique_ptr<ComObject>{this};
        return 0;
    }

protected:
    virtual ~ComObject() = default;

    enum class End { Delete, Leave };
    /// The last reference has gone. An object that cannot be taken apart now is left as it is.
    virtual End PrepareEnd() noexcept { return End::Delete; }

    friend std::default_delete<ComObject>;

private:
    static constexpr ULONG kDying = 0x40000000;

    const ModuleLock lock_;
    std::atomic<ULONG> references_{1};
};

/// A part of an object that answers to interfaces of its own but lives and dies with the whole.
template <class... Parts>
class ComPart : public Parts::Interface... {
public:
    /// `whole` outlives the part.
    explicit ComPart(IUnknown& whole) : whole_(whole) {}
    ComPart(const ComPart&) = delete;
    ComPart& operator=(const ComPart&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        return whole_.QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return whole_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return whole_.Release(); }

    /// The interface pointer for `iid`, without a reference; null when the part has none.
    void* Find(REFIID iid) { return FindInterface<Parts...>(this, iid); }

protected:
    ~ComPart() = default;

private:
    IUnknown& whole_;
};

/// A new object with the one reference that the pointer holds.
template <class Object, class... Arguments>
ComPtr<Object> MakeObject(Arguments&&... arguments) {
    // Not by Attach, which takes a reference of its own with these tools.
    ComPtr<Object> made;
    *made.GetAddressOf() = std::make_unique<Object>(std::forward<Arguments>(arguments)...).release();
    return made;
}

/// Hands `object` with a reference to a caller's pointer.
template <class Interface, class Object>
void HandOut(const ComPtr<Object>& object, Interface** out) {
    *out = ComPtr<Interface>(object).Detach();
}

}  // namespace dlv
