#include "windows/com/DispatchTable.h"

#include <oleauto.h>

#include <algorithm>
#include <map>
#include <mutex>

#include "windows/com/Coercion.h"
#include "windows/com/ComError.h"
#include "windows/com/Module.h"
#include "windows/com/Strings.h"

namespace dlv {

using Microsoft::WRL::ComPtr;

namespace {

bool SameName(std::wstring_view left, std::wstring_view right) {
    return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

/// The automation type of a parameter: pointers become VT_BYREF, our interfaces VT_DISPATCH.
VARTYPE AutomationType(const TYPEDESC& type) {
    switch (type.vt) {
        case VT_PTR: {
            const VARTYPE target = AutomationType(*type.lptdesc);
            return target == VT_USERDEFINED ? VARTYPE{VT_DISPATCH} : static_cast<VARTYPE>(target | VT_BYREF);
        }
        case VT_SAFEARRAY: return static_cast<VARTYPE>(AutomationType(*type.lptdesc) | VT_ARRAY);
        default: return type.vt;
    }
}

/// Moves the thread's error information into the form that late-bound callers get it in.
HRESULT ReportException(HRESULT failure, EXCEPINFO* exception) {
    ComPtr<IErrorInfo> info;
    GetErrorInfo(0, &info);
    if (exception == nullptr) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = failure;
    if (info) {
        info->GetSource(&exception->bstrSource);
        info->GetDescription(&exception->bstrDescription);
    }
    return DISP_E_EXCEPTION;
}

}  // namespace

const DispatchTable& DispatchTable::Of(REFIID iid) {
    struct Less {
        bool operator()(const IID& left, const IID& right) const {
            return memcmp(&left, &right, sizeof left) < 0;
        }
    };
    static std::mutex guard;
    static std::map<IID, DispatchTable, Less> tables;
    const std::lock_guard lock(guard);
    auto found = tables.find(iid);
    if (found == tables.end()) found = tables.emplace(iid, DispatchTable(iid)).first;
    return found->second;
}

DispatchTable::DispatchTable(REFIID iid) {
    // The description of a dual interface is that of its dispatch side; behind it stands the one with the
    // slots.
    const ComPtr<ITypeInfo> dispatch = TypeInfoOf(iid);
    HREFTYPE reference = 0;
    Check(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    ComPtr<ITypeInfo> info;
    Check(dispatch->GetRefTypeInfo(reference, &info));

    TYPEATTR* attributes = nullptr;
    Check(info->GetTypeAttr(&attributes));
    const UINT count = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    members_.reserve(count);
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* description = nullptr;
        Check(info->GetFuncDesc(i, &description));
        members_.push_back(ReadMember(*info.Get(), *description));
        info->ReleaseFuncDesc(description);
    }
}

DispatchTable::Member DispatchTable::ReadMember(ITypeInfo& info, const FUNCDESC& description) {
    constexpr UINT kMostNames = 8;
    BSTR raw[kMostNames] = {};
    UINT count = 0;
    Check(info.GetNames(description.memid, raw, kMostNames, &count));
    std::vector<std::wstring> names;
    for (UINT i = 0; i < count; ++i) {
        names.emplace_back(raw[i], SysStringLen(raw[i]));
        SysFreeString(raw[i]);
    }

    Member member;
    member.name = names.at(0);
    member.id = description.memid;
    member.kind = description.invkind;
    member.offset = static_cast<ULONG_PTR>(description.oVft);
    for (SHORT i = 0; i < description.cParams; ++i) {
        const ELEMDESC& element = description.lprgelemdescParam[i];
        const VARTYPE type = AutomationType(element.tdesc);
        if ((element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
            member.resultType = static_cast<VARTYPE>(type & ~VT_BYREF);
        } else {
            const auto place = static_cast<std::size_t>(i) + 1;
            member.parameters.push_back({place < names.size() ? names[place] : std::wstring(), type});
        }
    }
    return member;
}

HRESULT DispatchTable::IdsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const {
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    if (count == 0) return S_OK;
    if (std::find(names, names + count, nullptr) != names + count) return E_POINTER;
    const Member* member = nullptr;
    for (const Member& candidate : members_)
        if (SameName(candidate.name, names[0]) &&
            (member == nullptr || candidate.parameters.size() > member->parameters.size()))
            member = &candidate;
    if (member == nullptr) return DISP_E_UNKNOWNNAME;
    ids[0] = member->id;
    HRESULT result = S_OK;
    for (UINT i = 1; i < count; ++i) {
        for (std::size_t p = 0; p < member->parameters.size(); ++p)
            if (SameName(member->parameters[p].name, names[i])) ids[i] = static_cast<DISPID>(p);
        if (ids[i] == DISPID_UNKNOWN) result = DISP_E_UNKNOWNNAME;
    }
    return result;
}

const DispatchTable::Member* DispatchTable::Find(DISPID id, WORD flags, bool& known) const {
    // A reference put to a property of text is a put like any other.
    const int wanted = (flags & DISPATCH_PROPERTYPUTREF) != 0 ? flags | DISPATCH_PROPERTYPUT : flags;
    known = false;
    for (const Member& member : members_) {
        if (member.id != id) continue;
        known = true;
        if ((member.kind & wanted) != 0) return &member;
    }
    return nullptr;
}

/// One call in the making: arguments in the order of the parameters, and what keeps their temporaries.
struct DispatchTable::Call {
    Call(const Member& called, WORD flags, DISPPARAMS& given)
        : member(called),
          puts((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0),
          arguments(given),
          indices(called.parameters.size(), kMissing) {}

    static constexpr UINT kMissing = static_cast<UINT>(-1);

    /// Finds each parameter's place among the given arguments, which stand from last to first, named ones
    /// before.
    HRESULT Arrange(UINT* wrongArgument) {
        const auto count = static_cast<UINT>(indices.size());
        if ((arguments.cArgs > 0 && arguments.rgvarg == nullptr) ||
            (arguments.cNamedArgs > 0 && arguments.rgdispidNamedArgs == nullptr))
            return E_INVALIDARG;
        if (arguments.cArgs != count || arguments.cNamedArgs > arguments.cArgs) return DISP_E_BADPARAMCOUNT;
        for (UINT i = 0; i < arguments.cNamedArgs; ++i) {
            const DISPID name = arguments.rgdispidNamedArgs[i];
            const UINT place = name == DISPID_PROPERTYPUT && puts ? count - 1 : static_cast<UINT>(name);
            if (place >= count || indices[place] != kMissing) {
                if (wrongArgument != nullptr) *wrongArgument = i;
                return DISP_E_PARAMNOTFOUND;
            }
            indices[place] = i;
        }
        for (UINT given = arguments.cArgs, place = 0; given > arguments.cNamedArgs; ++place) {
            --given;
            if (indices[place] != kMissing) return DISP_E_PARAMNOTOPTIONAL;
            indices[place] = given;
        }
        return S_OK;
    }

    /// Brings each argument into its parameter's type.
    HRESULT Coerce(UINT* wrongArgument) {
        temporaries.resize(indices.size());
        for (std::size_t i = 0; i < indices.size(); ++i) {
            VARIANT& argument = arguments.rgvarg[indices[i]];
            VARIANT typed;
            const HRESULT result = CoerceArgument(argument, member.parameters[i].type, temporaries[i], typed);
            if (FAILED(result)) {
                if (wrongArgument != nullptr) *wrongArgument = indices[i];
                return result;
            }
            types.push_back(member.parameters[i].type);
            values.push_back(typed);
        }
        return S_OK;
    }

    HRESULT Make(void* object, VARIANT* result, EXCEPINFO* exception) {
        Variant back;
        if (member.resultType) {
            VARIANT pointer;
            VariantInit(&pointer);
            pointer.vt = static_cast<VARTYPE>(*member.resultType | VT_BYREF);
            pointer.byref = &back->bstrVal;
            types.push_back(pointer.vt);
            values.push_back(pointer);
        }
        std::vector<VARIANT*> pointers;
        for (VARIANT& value : values) pointers.push_back(&value);
        VARIANT returned;
        VariantInit(&returned);
        Check(DispCallFunc(object, member.offset, CC_STDCALL, VT_ERROR, static_cast<UINT>(values.size()),
                           types.data(), pointers.data(), &returned));
        if (FAILED(returned.scode)) return ReportException(returned.scode, exception);
        if (member.resultType) back->vt = *member.resultType;
        if (result != nullptr) *result = std::exchange(*back, VARIANT{});
        return S_OK;
    }

    const Member& member;
    const bool puts;
    DISPPARAMS& arguments;
    std::vector<UINT> indices;
    std::vector<Variant> temporaries;
    std::vector<VARTYPE> types;
    std::vector<VARIANT> values;
};

HRESULT DispatchTable::Invoke(void* object, DISPID id, WORD flags, DISPPARAMS& arguments, VARIANT* result,
                              EXCEPINFO* exception, UINT* wrongArgument) const {
    bool known = false;
    const Member* member = Find(id, flags, known);
    if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
    Call call(*member, flags, arguments);
    HRESULT arranged = call.Arrange(wrongArgument);
    if (SUCCEEDED(arranged)) arranged = call.Coerce(wrongArgument);
    return FAILED(arranged) ? arranged : call.Make(object, result, exception);
}

}  // namespace dlv
