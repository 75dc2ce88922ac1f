// The common part of everything that a reader of the screen is given: the interface IAccessible, its rules
// for arguments and results, and the enumeration of children, one at a time and only when asked for. What is
// told stands in the functions that derived classes fill in; each runs inside an entry, while the window is
// there.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oaidl.h>
#include <oleidl.h>

#include <memory>
#include <string>

#include "windows/access/AccessAnchor.h"
#include "windows/com/ComObject.h"

namespace dlv {

class AccessibleObject
    : public ComObject<Implements<IAccessible, IDispatch>, Implements<IEnumVARIANT>, Implements<IOleWindow>> {
public:
    explicit AccessibleObject(std::shared_ptr<AccessAnchor> anchor);
    ~AccessibleObject() override;

    /// How many objects were made since the library was loaded, and how many of them are there.
    static long Made();
    static long Alive();

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

    STDMETHODIMP get_accParent(IDispatch** parent) override;
    STDMETHODIMP get_accChildCount(LONG* count) override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* text) override;
    STDMETHODIMP get_accValue(VARIANT child, BSTR* text) override;
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* text) override;
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override;
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* text) override;
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override;
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* text) override;
    STDMETHODIMP get_accFocus(VARIANT* focused) override;
    STDMETHODIMP get_accSelection(VARIANT* selected) override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* text) override;
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override;
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    STDMETHODIMP accHitTest(LONG x, LONG y, VARIANT* hit) override;
    STDMETHODIMP accDoDefaultAction(VARIANT child) override;
    STDMETHODIMP put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP put_accValue(VARIANT, BSTR) override { return E_NOTIMPL; }

    STDMETHODIMP Next(ULONG count, VARIANT* children, ULONG* fetched) override;
    STDMETHODIMP Skip(ULONG count) override;
    STDMETHODIMP Reset() override;
    STDMETHODIMP Clone(IEnumVARIANT** copy) override;

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    using Object = ComPtr<AccessibleObject>;

    // What derived classes tell; each may throw ComError. An empty text is none.

    virtual std::string Name() { return {}; }
    virtual std::string Value() { return {}; }
    virtual std::string Description() { return {}; }
    virtual std::string Shortcut() { return {}; }
    virtual LONG Role() = 0;
    virtual LONG State() = 0;
    /// On the screen.
    virtual RECT Area() = 0;
    /// The object itself for an enumeration of its own.
    virtual Object Copy() const = 0;

    virtual ComPtr<IDispatch> Parent() = 0;
    virtual LONG ChildCount() { return 0; }
    /// By its id, from 1 or one that an event named; null when there is none.
    virtual Object Child(LONG /*id*/) { return nullptr; }
    /// In one of the directions NAVDIR_..., null when there is nothing.
    virtual Object Neighbour(LONG direction);
    /// The child at a point of the screen inside the area; null for the object itself.
    virtual Object ChildAt(POINT /*point*/) { return nullptr; }
    /// Whether the focus is on the object or below it, and the child that has it, if one does.
    virtual bool HasFocus(Object& /*child*/) { return false; }
    struct Selection {
        /// Null for nothing.
        Object object;
        /// It is no child, but enumerates those that are selected.
        bool several = false;
    };
    virtual Selection Selected() { return {}; }
    // Only while the window takes input.
    virtual HRESULT Select(LONG /*flags*/) { return DISP_E_MEMBERNOTFOUND; }
    virtual std::string ActionText() { return {}; }
    virtual HRESULT Act() { return DISP_E_MEMBERNOTFOUND; }

protected:
    AccessAnchor& Anchor() const { return *anchor_; }
    const std::shared_ptr<AccessAnchor>& SharedAnchor() const { return anchor_; }
    HWND Surface() const { return anchor_->Window(); }
    /// The object of the window itself, around what is inside it.
    ComPtr<IDispatch> WindowObject() const;
    RECT WindowArea() const;
    /// What every object in the window shares: unavailable and invisible.
    LONG WindowState() const;

private:
    using Text = std::string (AccessibleObject::*)();
    HRESULT Tell(const VARIANT& child, BSTR* text, Text what) noexcept;
    HRESULT TellNumber(const VARIANT& child, VARIANT* number, LONG (AccessibleObject::*what)()) noexcept;
    Object Target(const VARIANT& child);

    const std::shared_ptr<AccessAnchor> anchor_;
    LONG next_ = 0;
};

}  // namespace dlv
