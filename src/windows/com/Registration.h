// What stands in the registry so that hosts find the control, for the machine or for one user.
#pragma once

#include "windows/com/PlainWindows.h"

namespace dlv {

enum class RegisterFor { Machine, User };

/// Both return the first failure, but do what they can.
HRESULT Register(RegisterFor whom) noexcept;
HRESULT Unregister(RegisterFor whom) noexcept;

}  // namespace dlv
