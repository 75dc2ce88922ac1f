// An object with a dual interface of the type library: callable through slots and late bound, with its class
// information and rich error information. Derived classes implement the interface's own members, each
// through Method().
#pragma once

#include "windows/com/PlainWindows.h"

#include <ocidl.h>
#include <oleauto.h>

#include "windows/com/ComError.h"
#include "windows/com/ComObject.h"
#include "windows/com/DispatchTable.h"
#include "windows/com/Entry.h"

namespace dlv {

/// `Class` is the coclass, `Interface` its default interface, `Source` its default source interface or void;
/// `Guard` a MethodGuard.
template <class Class, class Interface, class Source, class Guard>
class DualObject : public ComObject<Implements<Interface, IDispatch>, Implements<ISupportErrorInfo>,
                                    Implements<IProvideClassInfo2, IProvideClassInfo>>,
                   public Guard {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return Own([&] { *count = 1; });
    }

    STDMETHODIMP GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) override {
        if (info == nullptr) return E_POINTER;
        *info = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        return Own([&] { *info = TypeInfoOf(__uuidof(Interface)).Detach(); });
    }

    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID /*locale*/,
                               DISPID* ids) override {
        if (names == nullptr || ids == nullptr) return E_POINTER;
        if (!InlineIsEqualGUID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        return Own([&] { return DispatchTable::Of(__uuidof(Interface)).IdsOfNames(names, count, ids); });
    }

    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID /*locale*/, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override {
        if (arguments == nullptr) return E_POINTER;
        if (!InlineIsEqualGUID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        if (result != nullptr) VariantInit(result);
        return Own([&] {
            return DispatchTable::Of(__uuidof(Interface))
                .Invoke(static_cast<Interface*>(this), id, flags, *arguments, result, exception,
                        wrongArgument);
        });
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return Own([&] { return InlineIsEqualGUID(iid, __uuidof(Interface)) ? S_OK : S_FALSE; });
    }

    STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
        if (info == nullptr) return E_POINTER;
        *info = nullptr;
        return Own([&] { *info = TypeInfoOf(__uuidof(Class)).Detach(); });
    }

    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override {
        if (guid == nullptr) return E_POINTER;
        *guid = GUID_NULL;
        if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
        return Own([&] {
            if constexpr (std::is_void_v<Source>) {
                return E_UNEXPECTED;
            } else {
                *guid = __uuidof(Source);
                return S_OK;
            }
        });
    }

protected:
    /// A method of the interface.
    template <class Body>
    HRESULT Own(Body&& body) noexcept {
        return this->Method(__uuidof(Interface), body);
    }

    void Keep() noexcept override { this->AddRef(); }
    void LetGo() noexcept override { this->Release(); }
};

}  // namespace dlv
