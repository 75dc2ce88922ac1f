// The enumerators that COM asks for, over a copy of a list taken when the enumerator is made.
#pragma once

#include "windows/com/PlainWindows.h"

#include <ocidl.h>
#include <oleidl.h>

#include <algorithm>
#include <vector>

#include "windows/com/ComObject.h"
#include "windows/com/Entry.h"

namespace dlv {

/// How an item is handed out: the caller gets what it frees or releases itself.
inline void CopyOut(const ComPtr<IConnectionPoint>& item, IConnectionPoint*& out) {
    out = ComPtr<IConnectionPoint>(item).Detach();
}

struct Connection {
    DWORD cookie = 0;
    ComPtr<IUnknown> sink;
};
inline void CopyOut(const Connection& item, CONNECTDATA& out) {
    out.dwCookie = item.cookie;
    out.pUnk = ComPtr<IUnknown>(item.sink).Detach();
}

inline void CopyOut(const OLEVERB& item, OLEVERB& out) {
    out = item;
    out.lpszVerbName = nullptr;
    if (item.lpszVerbName == nullptr) return;
    const std::size_t bytes = (wcslen(item.lpszVerbName) + 1) * sizeof(wchar_t);
    out.lpszVerbName = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (out.lpszVerbName != nullptr) memcpy(out.lpszVerbName, item.lpszVerbName, bytes);
}

/// `Interface` enumerates values of type `Out`; `Item` is how they are kept.
template <class Interface, class Out, class Item>
class EnumOf final : public ComObject<Implements<Interface>> {
public:
    explicit EnumOf(std::vector<Item> items, std::size_t next = 0) : items_(std::move(items)), next_(next) {}

    STDMETHODIMP Next(ULONG count, Out* out, ULONG* fetched) override {
        if (out == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
        if (!OnOwnThread()) return RPC_E_WRONG_THREAD;
        const auto given = static_cast<ULONG>(std::min<std::size_t>(count, items_.size() - next_));
        for (ULONG i = 0; i < given; ++i) CopyOut(items_[next_++], out[i]);
        if (fetched != nullptr) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) override {
        if (!OnOwnThread()) return RPC_E_WRONG_THREAD;
        const std::size_t skipped = std::min<std::size_t>(count, items_.size() - next_);
        next_ += skipped;
        return skipped == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() override {
        if (!OnOwnThread()) return RPC_E_WRONG_THREAD;
        next_ = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(Interface** copy) override {
        if (copy == nullptr) return E_POINTER;
        *copy = nullptr;
        if (!OnOwnThread()) return RPC_E_WRONG_THREAD;
        return GuardMethod(__uuidof(Interface), [&] { *copy = MakeObject<EnumOf>(items_, next_).Detach(); });
    }

private:
    bool OnOwnThread() const { return GetCurrentThreadId() == thread_; }

    const DWORD thread_ = GetCurrentThreadId();
    std::vector<Item> items_;
    std::size_t next_;
};

using EnumConnectionPoints = EnumOf<IEnumConnectionPoints, IConnectionPoint*, ComPtr<IConnectionPoint>>;
using EnumConnections = EnumOf<IEnumConnections, CONNECTDATA, Connection>;
using EnumVerbs = EnumOf<IEnumOLEVERB, OLEVERB, OLEVERB>;

}  // namespace dlv
