// Late-bound calls to an object's dual interface. The table holds what the type library says of the
// interface's members; a call's arguments are brought into the members' types, however a script passes them
// (variables by reference, arrays of variants, array objects of a script engine), and the member is called.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oaidl.h>

#include <optional>
#include <string>
#include <vector>

namespace dlv {

class DispatchTable {
public:
    /// The table of a dual interface of the type library; made once per interface and process. Throws
    /// ComError.
    static const DispatchTable& Of(REFIID iid);

    HRESULT IdsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const;

    /// `object` points to the interface itself. The arguments after it are those of IDispatch::Invoke.
    HRESULT Invoke(void* object, DISPID id, WORD flags, DISPPARAMS& arguments, VARIANT* result,
                   EXCEPINFO* exception, UINT* wrongArgument) const;

private:
    struct Parameter {
        std::wstring name;
        /// As the member declares it, VT_BYREF included; pointers to interfaces are VT_DISPATCH.
        VARTYPE type = VT_EMPTY;
    };
    struct Member {
        std::wstring name;
        DISPID id = DISPID_UNKNOWN;
        INVOKEKIND kind = INVOKE_FUNC;
        ULONG_PTR offset = 0;
        std::vector<Parameter> parameters;
        /// What it gives back, if anything.
        std::optional<VARTYPE> resultType;
    };
    struct Call;

    explicit DispatchTable(REFIID iid);
    static Member ReadMember(ITypeInfo& info, const FUNCDESC& description);
    const Member* Find(DISPID id, WORD flags, bool& known) const;

    std::vector<Member> members_;
};

}  // namespace dlv
