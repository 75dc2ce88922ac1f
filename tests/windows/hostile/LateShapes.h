// A late-bound call in the making, and the ways in which it can be wrong as a whole: counts, names, flags,
// ids and missing pointers.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <vector>

#include "tests/windows/hostile/Members.h"

namespace dlv::hostile {

struct LateCall {
    explicit LateCall(const Member& member);

    DISPID id;
    IID iid = IID_NULL;
    LCID locale = LOCALE_USER_DEFAULT;
    WORD flags = DISPATCH_METHOD;
    /// From last to first; what they hold is somebody else's.
    std::vector<VARIANT> arguments;
    std::vector<DISPID> names;
    /// How many names the call says that it has.
    UINT nameCount = 0;
    bool withoutParameters = false;
    bool withoutArguments = false;
    bool withoutNames = false;
    bool withoutResult = false;
    bool withoutException = false;
    bool withoutPlace = false;
};

struct LateShape {
    const char* name;
    std::function<void(LateCall&)> spoil;
};

const std::vector<LateShape>& LateShapes();

}  // namespace dlv::hostile
