// Why the control does not load for a program, or that it does and from where, in one sentence. It goes the
// way that Windows goes: the program's manifest, then the registry of the program's bitness, then the file
// found there.
#pragma once

#include <string>

#include "dlcheck/Computer.h"

namespace dlv::dlcheck {

/// The control that is looked for.
struct Control {
    std::string assembly;
    std::string fileName;
    std::string classId;
};

struct Diagnosis {
    bool loads = false;
    std::string sentence;
};

/// For a program, or for a copy of the control itself.
Diagnosis CheckFile(const Computer& computer, const Control& control, const std::string& path);
/// For any program of that kind, by the registry alone.
Diagnosis CheckRegistration(const Computer& computer, const Control& control, Bitness bitness);

}  // namespace dlv::dlcheck
