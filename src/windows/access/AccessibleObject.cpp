#include "windows/access/AccessibleObject.h"

#include <algorithm>
#include <atomic>

#include "windows/com/ComError.h"
#include "windows/com/Strings.h"

namespace dlv {

namespace {

std::atomic<long> made{0};
std::atomic<long> alive{0};

// LIBID_Accessibility, which no import library has.
constexpr GUID kAccessibility = {
    0x1ea4dbf0, 0x3c3b, 0x11cf, {0x81, 0x0c, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71}};

ComPtr<ITypeInfo> AccessibleType() {
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> info;
    Check(LoadRegTypeLib(kAccessibility, 1, 1, LOCALE_NEUTRAL, &library));
    Check(library->GetTypeInfoOfGuid(__uuidof(IAccessible), &info));
    return info;
}

HRESULT GiveChild(const AccessibleObject::Object& object, VARIANT* out) {
    if (!object) return S_FALSE;
    out->vt = VT_DISPATCH;
    out->pdispVal = ComPtr<IDispatch>(object).Detach();
    return S_OK;
}

void GiveNumber(LONG number, VARIANT* out) {
    out->vt = VT_I4;
    out->lVal = number;
}

}  // namespace

bool TakesInput(HWND window) {
    if (!IsWindowVisible(window)) return false;
    for (HWND each = window; each != nullptr; each = GetAncestor(each, GA_PARENT))
        if (!IsWindowEnabled(each)) return false;
    return true;
}

AccessibleObject::AccessibleObject(std::shared_ptr<AccessAnchor> anchor) : anchor_(std::move(anchor)) {
    ++made;
    ++alive;
}

AccessibleObject::~AccessibleObject() { --alive; }

long AccessibleObject::Made() { return made; }
long AccessibleObject::Alive() { return alive; }

// The object that a call means: this one, or a child that the caller names by its id.
AccessibleObject::Object AccessibleObject::Target(const VARIANT& child) {
    if (child.vt != VT_I4) throw ComError(E_INVALIDARG);
    Object target = child.lVal == CHILDID_SELF ? Object(this) : Child(child.lVal);
    if (!target) throw ComError(E_INVALIDARG);
    return target;
}

HRESULT AccessibleObject::Tell(const VARIANT& child, BSTR* text, Text what) noexcept {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    return anchor_->Call([&] {
        const std::string told = (*Target(child).Get().*what)();
        if (told.empty()) return S_FALSE;
        *text = Bstr(told).Detach();
        return S_OK;
    });
}

HRESULT AccessibleObject::TellNumber(const VARIANT& child, VARIANT* number,
                                     LONG (AccessibleObject::*what)()) noexcept {
    if (number == nullptr) return E_POINTER;
    VariantInit(number);
    return anchor_->Call([&] { GiveNumber((*Target(child).Get().*what)(), number); });
}

STDMETHODIMP AccessibleObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return anchor_->Call([&] { *count = 1; });
}

STDMETHODIMP AccessibleObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return anchor_->Call([&] { *info = AccessibleType().Detach(); });
}

STDMETHODIMP AccessibleObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                             DISPID* ids) {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    if (!InlineIsEqualGUID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    return anchor_->Call([&] { return AccessibleType()->GetIDsOfNames(names, count, ids); });
}

STDMETHODIMP AccessibleObject::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                                      VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) {
    if (arguments == nullptr) return E_POINTER;
    if (!InlineIsEqualGUID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    return anchor_->Call([&] {
        return AccessibleType()->Invoke(static_cast<IAccessible*>(this), id, flags, arguments, result,
                                        exception, wrongArgument);
    });
}

STDMETHODIMP AccessibleObject::get_accParent(IDispatch** parent) {
    if (parent == nullptr) return E_POINTER;
    *parent = nullptr;
    return anchor_->Call([&] {
        *parent = Parent().Detach();
        return *parent == nullptr ? S_FALSE : S_OK;
    });
}

STDMETHODIMP AccessibleObject::get_accChildCount(LONG* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return anchor_->Call([&] { *count = ChildCount(); });
}

STDMETHODIMP AccessibleObject::get_accChild(VARIANT child, IDispatch** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    return anchor_->Call([&] { *object = ComPtr<IDispatch>(Target(child)).Detach(); });
}

STDMETHODIMP AccessibleObject::get_accName(VARIANT child, BSTR* text) {
    return Tell(child, text, &AccessibleObject::Name);
}

STDMETHODIMP AccessibleObject::get_accValue(VARIANT child, BSTR* text) {
    return Tell(child, text, &AccessibleObject::Value);
}

STDMETHODIMP AccessibleObject::get_accDescription(VARIANT child, BSTR* text) {
    return Tell(child, text, &AccessibleObject::Description);
}

STDMETHODIMP AccessibleObject::get_accRole(VARIANT child, VARIANT* role) {
    return TellNumber(child, role, &AccessibleObject::Role);
}

STDMETHODIMP AccessibleObject::get_accState(VARIANT child, VARIANT* state) {
    return TellNumber(child, state, &AccessibleObject::State);
}

STDMETHODIMP AccessibleObject::get_accHelp(VARIANT, BSTR* text) {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    return anchor_->Call([] { return S_FALSE; });
}

STDMETHODIMP AccessibleObject::get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) {
    if (file == nullptr || topic == nullptr) return E_POINTER;
    *file = nullptr;
    *topic = 0;
    return anchor_->Call([] { return S_FALSE; });
}

STDMETHODIMP AccessibleObject::get_accKeyboardShortcut(VARIANT child, BSTR* text) {
    return Tell(child, text, &AccessibleObject::Shortcut);
}

STDMETHODIMP AccessibleObject::get_accFocus(VARIANT* focused) {
    if (focused == nullptr) return E_POINTER;
    VariantInit(focused);
    return anchor_->Call([&] {
        Object child;
        if (!HasFocus(child)) return S_FALSE;
        if (GiveChild(child, focused) != S_OK) GiveNumber(CHILDID_SELF, focused);
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::get_accSelection(VARIANT* selected) {
    if (selected == nullptr) return E_POINTER;
    VariantInit(selected);
    return anchor_->Call([&] {
        const Selection selection = Selected();
        if (!selection.several) return GiveChild(selection.object, selected);
        selected->vt = VT_UNKNOWN;
        selected->punkVal = ComPtr<IEnumVARIANT>(selection.object).Detach();
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::get_accDefaultAction(VARIANT child, BSTR* text) {
    return Tell(child, text, &AccessibleObject::ActionText);
}

STDMETHODIMP AccessibleObject::accSelect(LONG flags, VARIANT child) {
    return anchor_->Call([&] {
        const Object target = Target(child);
        return TakesInput(Surface()) ? target->Select(flags) : DISP_E_MEMBERNOTFOUND;
    });
}

STDMETHODIMP AccessibleObject::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) return E_POINTER;
    *left = *top = *width = *height = 0;
    return anchor_->Call([&] {
        const RECT area = Target(child)->Area();
        *left = area.left;
        *top = area.top;
        *width = area.right - area.left;
        *height = area.bottom - area.top;
    });
}

AccessibleObject::Object AccessibleObject::Neighbour(LONG direction) {
    if (direction == NAVDIR_FIRSTCHILD) return Child(1);
    return direction == NAVDIR_LASTCHILD ? Child(ChildCount()) : nullptr;
}

STDMETHODIMP AccessibleObject::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    if (end == nullptr) return E_POINTER;
    VariantInit(end);
    if (direction <= NAVDIR_MIN || direction >= NAVDIR_MAX) return E_INVALIDARG;
    return anchor_->Call([&] { return GiveChild(Target(start)->Neighbour(direction), end); });
}

STDMETHODIMP AccessibleObject::accHitTest(LONG x, LONG y, VARIANT* hit) {
    if (hit == nullptr) return E_POINTER;
    VariantInit(hit);
    return anchor_->Call([&] {
        const POINT point{x, y};
        const RECT area = Area();
        if (!PtInRect(&area, point)) return S_FALSE;
        if (GiveChild(ChildAt(point), hit) != S_OK) GiveNumber(CHILDID_SELF, hit);
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::accDoDefaultAction(VARIANT child) {
    return anchor_->Call([&] {
        const Object target = Target(child);
        return TakesInput(Surface()) ? target->Act() : DISP_E_MEMBERNOTFOUND;
    });
}

STDMETHODIMP AccessibleObject::Next(ULONG count, VARIANT* children, ULONG* fetched) {
    if (fetched != nullptr) *fetched = 0;
    if (children == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
    ULONG given = 0;
    const HRESULT result = anchor_->Call([&] {
        for (; given < count && next_ < ChildCount(); ++given) {
            VariantInit(&children[given]);
            if (GiveChild(Child(next_ + 1), &children[given]) != S_OK) break;
            ++next_;
        }
        return given == count ? S_OK : S_FALSE;
    });
    if (FAILED(result))
        while (given > 0) VariantClear(&children[--given]);
    if (fetched != nullptr) *fetched = given;
    return result;
}

STDMETHODIMP AccessibleObject::Skip(ULONG count) {
    return anchor_->Call([&] {
        const ULONG left = static_cast<ULONG>(std::max(0L, ChildCount() - next_));
        next_ += static_cast<LONG>(std::min(count, left));
        return count <= left ? S_OK : S_FALSE;
    });
}

STDMETHODIMP AccessibleObject::Reset() {
    return anchor_->Call([&] { next_ = 0; });
}

STDMETHODIMP AccessibleObject::Clone(IEnumVARIANT** copy) {
    if (copy == nullptr) return E_POINTER;
    *copy = nullptr;
    return anchor_->Call([&] {
        const Object other = Copy();
        other->next_ = next_;
        HandOut(other, copy);
    });
}

STDMETHODIMP AccessibleObject::GetWindow(HWND* window) {
    if (window == nullptr) return E_POINTER;
    *window = nullptr;
    return anchor_->Call([&] { *window = Surface(); });
}

ComPtr<IDispatch> AccessibleObject::WindowObject() const {
    ComPtr<IAccessible> window;
    Check(AccessibleObjectFromWindow(Surface(), static_cast<DWORD>(OBJID_WINDOW), __uuidof(IAccessible),
                                     reinterpret_cast<void**>(window.GetAddressOf())));
    return window;
}

RECT AccessibleObject::WindowArea() const {
    RECT area{};
    GetClientRect(Surface(), &area);
    MapWindowPoints(Surface(), HWND_DESKTOP, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

LONG AccessibleObject::WindowState() const {
    if (!IsWindowVisible(Surface())) return STATE_SYSTEM_INVISIBLE;
    return TakesInput(Surface()) ? 0 : STATE_SYSTEM_UNAVAILABLE;
}

}  // namespace dlv
