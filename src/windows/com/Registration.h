// What stands in the registry so that hosts find the control, for the machine or for one user.
#pragma once

#include "windows/com/PlainWindows.h"

namespace dlv {

enum class RegisterFor { Machine, User };

/// All or nothing: with the first failure, which it returns, everything is put back as it was.
HRESULT Register(RegisterFor whom) noexcept;
/// Removes what Register writes and nothing else, and of that what 32- and 64-bit programs share only with
/// the last of the two controls. Returns the first failure, but does what it can.
HRESULT Unregister(RegisterFor whom) noexcept;

}  // namespace dlv
