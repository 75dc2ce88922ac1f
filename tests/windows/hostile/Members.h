// What the type library inside the control says can be called: every member of every interface that objects
// of the library have, with the types of its parameters and its place among the slots.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <vector>

namespace dlv::hostile {

struct Parameter {
    std::string name;
    /// As automation has it: VT_BYREF for pointers, VT_DISPATCH for the library's own interfaces.
    VARTYPE type = VT_EMPTY;
    /// What the member gives back; only the slot has it.
    bool isResult = false;
};

struct Member {
    std::string name;
    DISPID id = DISPID_UNKNOWN;
    INVOKEKIND kind = INVOKE_FUNC;
    ULONG_PTR offset = 0;
    std::vector<Parameter> parameters;

    /// How many a late-bound caller gives.
    std::size_t Given() const;
};

struct Interface {
    std::string name;
    IID iid{};
    std::vector<Member> members;
};

/// All of them, the control's own first.
std::vector<Interface> InterfacesOf(ITypeLib& library);

}  // namespace dlv::hostile
