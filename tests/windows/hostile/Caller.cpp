#include "tests/windows/hostile/Caller.h"

#include <cstdlib>

#include "tests/windows/hostile/Watch.h"

namespace dlv::hostile {

namespace {

using Fault = HRESULT (*)(IUnknown& object);

// Read at run time, so that the compiler cannot see the fault coming.
volatile std::uintptr_t nowhere = 16;
Fault planted = nullptr;

const std::pair<const char*, Fault> kFaults[] = {
    {"crash",
     [](IUnknown&) {
         *reinterpret_cast<volatile int*>(nowhere) = 1;
         return S_OK;
     }},
    {"abort", [](IUnknown&) -> HRESULT { std::abort(); }},
    {"hang",
     [](IUnknown&) {
         Sleep(INFINITE);
         return S_OK;
     }},
    {"object",
     [](IUnknown& object) {
         object.AddRef();
         return S_OK;
     }},
    {"bytes", [](IUnknown&) { return HeapAlloc(GetProcessHeap(), 0, 100) == nullptr ? E_FAIL : S_OK; }},
    {"gdi", [](IUnknown&) { return CreateSolidBrush(RGB(1, 2, 3)) == nullptr ? E_FAIL : S_OK; }},
    {"window",
     [](IUnknown&) {
         const HWND made =
             CreateWindowExW(0, L"BUTTON", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
         return made == nullptr ? E_FAIL : S_OK;
     }},
    {"unexpected", [](IUnknown&) { return E_UNEXPECTED; }},
};

constexpr char kNullPointer[] = "null pointer";

/// In place of what a callee is to give back.
void* const kUntouched = reinterpret_cast<void*>(static_cast<std::uintptr_t>(0x5EED));

bool IsPointer(const Parameter& parameter) { return (parameter.type & VT_BYREF) != 0; }

/// Lists of the type that a slot takes, without the null pointer that a reference can be.
std::size_t ListFor(VARTYPE type) {
    switch (type & ~VT_BYREF) {
        case VT_BSTR: return Texts().size();
        case VT_I4: return Numbers().size();
        case VT_DISPATCH: return Objects().size();
        case VT_ARRAY | VT_BSTR: return Arrays().size();
        case VT_VARIANT: return Values().size();
        default: return 0;
    }
}

/// Two names, of columns or units.
SAFEARRAY* TwoNames() {
    SAFEARRAY* const names = SafeArrayCreateVector(VT_BSTR, 0, 2);
    for (int i = 0; i < 2; ++i) static_cast<BSTR*>(names->pvData)[i] = SysAllocString(i == 0 ? L"12" : L"40");
    return names;
}

/// What a good caller gives; `value` is empty.
void MakeGood(const Parameter& parameter, VARIANT& value, Making& making) {
    NoteScope::Value("good");
    switch (parameter.type & ~VT_BYREF) {
        case VT_BSTR:
            value.bstrVal = SysAllocString(parameter.name == "ResultXML"      ? kGoodProfiles
                                           : parameter.name == "FunctionName" ? L"GetProfiles"
                                                                              : L"a");
            value.vt = VT_BSTR;
            break;
        case VT_I4:
            value.lVal = 1;
            value.vt = VT_I4;
            break;
        case VT_DISPATCH:
            value.vt = VT_DISPATCH;
            value.pdispVal = nullptr;
            break;
        case VT_ARRAY | VT_BSTR:
            value.parray = TwoNames();
            value.vt = VT_ARRAY | VT_BSTR;
            break;
        default:
            value.vt = VT_I4;
            value.lVal = 0;
            if (parameter.name == "data") {
                value.pdispVal =
                    making.scene.NewMessage(static_cast<int>(making.random.Below(1000))).Detach();
                value.vt = VT_DISPATCH;
            } else if (parameter.name == "Columns") {
                value.parray = TwoNames();
                value.vt = VT_ARRAY | VT_BSTR;
            } else if (parameter.name == "Values") {
                SAFEARRAYBOUND plane[2] = {{2, 0}, {2, 0}};
                value.parray = SafeArrayCreate(VT_VARIANT, 2, plane);
                value.vt = VT_ARRAY | VT_VARIANT;
            }
    }
}

template <class Item>
const Item& Chosen(const std::vector<Item>& items, std::size_t choice, Random& random) {
    const Item& item = choice == kAny ? AnyOf(items, random) : items[choice];
    NoteScope::Value(item.name.c_str());
    return item;
}

/// A parameter's value as its slot takes it, or any for a late-bound caller.
void MakeValue(const Parameter& parameter, Way way, std::size_t choice, VARIANT& value, Making& making) {
    if (choice == kGood) return MakeGood(parameter, value, making);
    const auto type = static_cast<VARTYPE>(way == Way::Late ? VT_VARIANT : parameter.type & ~VT_BYREF);
    if (type == VT_VARIANT) return Chosen(Values(), choice, making.random).make(value, making);
    value.vt = type;
    switch (type) {
        case VT_BSTR: value.bstrVal = Chosen(Texts(), choice, making.random).make(making.random); break;
        case VT_I4: value.lVal = Chosen(Numbers(), choice, making.random).value; break;
        case VT_DISPATCH:
            value.pdispVal = Chosen(Objects(), choice, making.random).make(making).Detach();
            break;
        case VT_ARRAY | VT_BSTR: value.parray = Chosen(Arrays(), choice, making.random).make(making); break;
        default: break;
    }
}

const char* WayName(Way way) { return way == Way::Slot ? "by slot" : "late bound"; }

}  // namespace

bool PlantFault(const std::string& name) {
    for (const auto& [known, fault] : kFaults)
        if (name == known) planted = fault;
    return planted != nullptr;
}

std::size_t Caller::ValuesFor(const Parameter& parameter, Way way) {
    if (way == Way::Late) return Values().size();
    return ListFor(parameter.type) + (IsPointer(parameter) ? 1 : 0);
}

void Caller::Blame(const char* what) {
    if (wrong_.empty()) wrong_ = std::string(what) + "\n" + CallsUnderWay();
}

void Caller::Judge(HRESULT answer) {
    if (answer == E_UNEXPECTED) Blame("E_UNEXPECTED: an exception that nobody expected");
    if (answer > 0) Blame("neither S_OK nor a failure");
}

void Caller::Call(std::size_t index, const Member& member, Way way, const Choice& choice, Random& random,
                  const LateShape* shape) {
    const Interface& owner = scene_.Interfaces()[index];
    const ComPtr<IDispatch> object = scene_.ObjectOf(index, random);
    if (!object) return;
    ++calls_;
    const NoteScope note({owner.name.c_str(), member.name.c_str(), WayName(way), {}});
    if (shape != nullptr) NoteScope::Value(shape->name);
    if (way == Way::Slot) {
        ThroughSlot(*object.Get(), owner, member, choice, random);
        return;
    }
    Arena arena;
    Making making{arena, scene_, random};
    LateCall late(member);
    for (std::size_t i = 0; i < member.Given(); ++i) {
        VARIANT& value = *arena.Value();
        MakeValue(member.parameters[i], Way::Late, choice[i], value, making);
        late.arguments.insert(late.arguments.begin(), value);
    }
    if (shape != nullptr) shape->spoil(late);
    Invoke(*object.Get(), late, random);
}

void Caller::Invoke(IDispatch& object, LateCall& late, Random& random) {
    VARIANT result;
    VariantInit(&result);
    EXCEPINFO exception{};
    constexpr UINT kUntold = UINT_MAX;
    UINT wrongArgument = kUntold;
    DISPPARAMS parameters{late.arguments.empty() || late.withoutArguments ? nullptr : late.arguments.data(),
                          late.names.empty() || late.withoutNames ? nullptr : late.names.data(),
                          static_cast<UINT>(late.arguments.size()), late.nameCount};
    const HRESULT answer = object.Invoke(
        late.id, late.iid, late.locale, late.flags, late.withoutParameters ? nullptr : &parameters,
        late.withoutResult ? nullptr : &result, late.withoutException ? nullptr : &exception,
        late.withoutPlace ? nullptr : &wrongArgument);
    Judge(answer);
    if (FAILED(answer) && result.vt != VT_EMPTY) Blame("a result although the call failed");
    const bool placed = answer == DISP_E_TYPEMISMATCH || answer == DISP_E_PARAMNOTFOUND;
    if (placed && !late.withoutPlace && wrongArgument >= parameters.cArgs)
        Blame("a wrong argument without its place");
    if (answer == DISP_E_EXCEPTION && !late.withoutException && SUCCEEDED(exception.scode))
        Blame("an exception without a number");
    if (result.vt == VT_DISPATCH && result.pdispVal != nullptr) scene_.Keep(result.pdispVal, random);
    VariantClear(&result);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
}

void Caller::ThroughSlot(IDispatch& object, const Interface& owner, const Member& member,
                         const Choice& choice, Random& random) {
    Arena arena;
    Making making{arena, scene_, random};
    ComPtr<IUnknown> slots;
    if (FAILED(object.QueryInterface(owner.iid, reinterpret_cast<void**>(slots.GetAddressOf())))) return;
    std::vector<VARTYPE> types;
    std::vector<VARIANT*> values;
    void* result = kUntouched;
    const Parameter* resultParameter = nullptr;
    for (std::size_t i = 0; i < member.parameters.size(); ++i) {
        const Parameter& parameter = member.parameters[i];
        VARIANT& value = *arena.Value();
        types.push_back(parameter.type);
        values.push_back(&value);
        if (parameter.isResult || IsPointer(parameter)) {
            // A value that points to another: it owns nothing.
            value.vt = parameter.type;
            const bool none = parameter.isResult ? random.OneIn(16)
                                                 : choice[i] == ListFor(parameter.type) ||
                                                       (choice[i] == kAny && random.OneIn(32));
            if (none) {
                value.byref = nullptr;
                NoteScope::Value(kNullPointer);
                continue;
            }
        }
        if (parameter.isResult) {
            resultParameter = &parameter;
            value.byref = &result;
            continue;
        }
        VARIANT& target = IsPointer(parameter) ? *arena.Value() : value;
        MakeValue(parameter, Way::Slot, choice[i], target, making);
        if (IsPointer(parameter))
            value.byref = (parameter.type & ~VT_BYREF) == VT_VARIANT ? static_cast<void*>(&target)
                                                                     : static_cast<void*>(&target.byref);
    }
    VARIANT answered;
    VariantInit(&answered);
    if (FAILED(DispCallFunc(slots.Get(), member.offset, CC_STDCALL, VT_ERROR, static_cast<UINT>(types.size()),
                            types.data(), values.data(), &answered))) {
        Blame("the system cannot make the call");
        return;
    }
    if (planted != nullptr && member.name == "put_BUID" && values[0]->vt == VT_BSTR &&
        std::wstring_view(values[0]->bstrVal, SysStringLen(values[0]->bstrVal)) == L"#")
        answered.scode = planted(object);
    Judge(answered.scode);
    if (resultParameter != nullptr) TakeResult(resultParameter->type, answered.scode, result, random);
}

void Caller::TakeResult(VARTYPE type, HRESULT answer, void* result, Random& random) {
    // Small results fill only the lower part.
    const bool small = type == (VT_BYREF | VT_I4) || type == (VT_BYREF | VT_BOOL);
    const auto bits =
        reinterpret_cast<std::uintptr_t>(result) & (type == (VT_BYREF | VT_BOOL) ? 0xFFFFu : ~0u);
    if (small ? bits == 0x5EED : result == kUntouched) {
        Blame("a result that is left untouched");
        return;
    }
    if (FAILED(answer) && (small ? bits != 0 : result != nullptr)) Blame("a result although the call failed");
    if (small || result == nullptr) return;
    if (type == (VT_BYREF | VT_BSTR)) {
        SysFreeString(static_cast<BSTR>(result));
        return;
    }
    ComPtr<IDispatch> object;
    *object.GetAddressOf() = static_cast<IDispatch*>(result);
    scene_.Keep(object.Get(), random);
}

void Caller::CallAny(Random& random) {
    const auto count = static_cast<std::uint32_t>(scene_.Interfaces().size());
    const std::size_t index = random.OneIn(3) ? 0 : random.Below(count);
    const Member& member = AnyOf(scene_.Interfaces()[index].members, random);
    // A control that was stopped has little to say, and each dialog takes as long as a hundred calls.
    const bool seldom = member.name == "StopControl" || member.name == "ReceiveProfileResponse";
    if (seldom && !random.OneIn(6)) return;
    const std::uint32_t how = random.Below(8);
    if (how == 0) return Ask(index, random);
    Choice choice;
    for (std::size_t i = 0; i < member.Given(); ++i) choice.push_back(random.OneIn(3) ? kGood : kAny);
    const LateShape* const shape = how == 1 ? &AnyOf(LateShapes(), random) : nullptr;
    Call(index, member, shape != nullptr || random.OneIn(2) ? Way::Late : Way::Slot, choice, random, shape);
}

void Caller::Ask(std::size_t index, Random& random) {
    const Interface& owner = scene_.Interfaces()[index];
    const ComPtr<IDispatch> object = scene_.ObjectOf(index, random);
    if (!object) return;
    ++calls_;
    const NoteScope note({owner.name.c_str(), "IDispatch", "asked", {}});
    const std::uint32_t what = random.Below(6);
    ComPtr<ITypeInfo> info;
    ComPtr<IProvideClassInfo2> provider;
    if (what == 0) Judge(object->GetTypeInfo(random.OneIn(2) ? 0 : random.Bits(), random.Bits(), &info));
    if (what == 1) Judge(object->GetTypeInfo(0, 0, nullptr));
    if (what == 2) Judge(object->GetTypeInfoCount(nullptr));
    if (what == 3) {
        IID iid = owner.iid;
        iid.Data1 += random.Below(3);
        ComPtr<IUnknown> found;
        Judge(object->QueryInterface(
            iid, random.OneIn(4) ? nullptr : reinterpret_cast<void**>(found.GetAddressOf())));
    }
    if (what == 4 && SUCCEEDED(object.As(&provider))) {
        GUID guid{};
        Judge(provider->GetClassInfo(random.OneIn(2) ? nullptr : info.GetAddressOf()));
        const HRESULT told = provider->GetGUID(random.Below(3), random.OneIn(4) ? nullptr : &guid);
        // Objects without events answer so, by the interface's own words.
        if (told != E_UNEXPECTED) Judge(told);
    }
    if (what != 5) return;
    Arena arena;
    const BSTR made = *arena.Text(Chosen(Texts(), kAny, random).make(random));
    wchar_t nothing[] = L"";
    std::wstring member(owner.members[0].name.begin(), owner.members[0].name.end());
    LPOLESTR names[] = {random.OneIn(2) ? member.data() : nothing, made == nullptr ? nothing : made, nothing};
    DISPID ids[std::size(names)] = {};
    Judge(object->GetIDsOfNames(random.OneIn(8) ? IID_IUnknown : IID_NULL, random.OneIn(8) ? nullptr : names,
                                random.Below(4), random.Bits(), random.OneIn(8) ? nullptr : ids));
}

}  // namespace dlv::hostile
