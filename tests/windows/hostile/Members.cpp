#include "tests/windows/hostile/Members.h"

#include <comutil.h>
#include <wrl/client.h>

#include <algorithm>
#include <stdexcept>

namespace dlv::hostile {

using Microsoft::WRL::ComPtr;

namespace {

void Check(HRESULT result) {
    if (FAILED(result)) throw std::runtime_error("the type library cannot be read");
}

std::string Plain(BSTR text) {
    const std::wstring wide(text, SysStringLen(text));
    std::string plain;
    for (const wchar_t c : wide) plain += static_cast<char>(c);
    SysFreeString(text);
    return plain;
}

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

Member ReadMember(ITypeInfo& info, const FUNCDESC& description) {
    constexpr UINT kMostNames = 8;
    BSTR names[kMostNames] = {};
    UINT count = 0;
    Check(info.GetNames(description.memid, names, kMostNames, &count));
    Member member;
    member.name = Plain(names[0]);
    member.id = description.memid;
    member.kind = description.invkind;
    member.offset = static_cast<ULONG_PTR>(description.oVft);
    for (SHORT i = 0; i < description.cParams; ++i) {
        const ELEMDESC& element = description.lprgelemdescParam[i];
        const auto place = static_cast<UINT>(i) + 1;
        Parameter parameter;
        parameter.name = place < count ? Plain(names[place]) : "Value";
        parameter.type = AutomationType(element.tdesc);
        parameter.isResult = (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
        member.parameters.push_back(std::move(parameter));
    }
    if (member.kind == INVOKE_PROPERTYPUT) member.name = "put_" + member.name;
    if (member.kind == INVOKE_PROPERTYGET) member.name = "get_" + member.name;
    return member;
}

std::string NameOf(ITypeInfo& info) {
    BSTR name = nullptr;
    Check(info.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
    return Plain(name);
}

Interface ReadInterface(ITypeInfo& dispatch) {
    // Behind the description of a dual interface's dispatch side stands the one with the slots.
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> info;
    Check(dispatch.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    Check(dispatch.GetRefTypeInfo(reference, &info));
    TYPEATTR* attributes = nullptr;
    Check(info->GetTypeAttr(&attributes));
    Interface read;
    read.name = NameOf(*info.Get());
    read.iid = attributes->guid;
    const UINT count = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* description = nullptr;
        Check(info->GetFuncDesc(i, &description));
        read.members.push_back(ReadMember(*info.Get(), *description));
        info->ReleaseFuncDesc(description);
    }
    return read;
}

}  // namespace

std::size_t Member::Given() const {
    return static_cast<std::size_t>(
        std::count_if(parameters.begin(), parameters.end(), [](const Parameter& p) { return !p.isResult; }));
}

std::vector<Interface> InterfacesOf(ITypeLib& library) {
    std::vector<Interface> interfaces;
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> info;
        TYPEATTR* attributes = nullptr;
        Check(library.GetTypeInfo(i, &info));
        Check(info->GetTypeAttr(&attributes));
        const bool wanted =
            attributes->typekind == TKIND_DISPATCH && (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
        info->ReleaseTypeAttr(attributes);
        if (wanted) interfaces.push_back(ReadInterface(*info.Get()));
    }
    const auto control = std::find_if(interfaces.begin(), interfaces.end(),
                                      [](const Interface& known) { return known.name == "_DLViewer"; });
    if (control == interfaces.end()) throw std::runtime_error("the type library has no control");
    std::rotate(interfaces.begin(), control, control + 1);
    return interfaces;
}

}  // namespace dlv::hostile
