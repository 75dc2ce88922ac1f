// A failed call into Windows or COM on its way out. It is thrown where a call fails and turned into the
// entry's result by the guard of that entry; nothing in between catches it.
#pragma once

#include "windows/com/PlainWindows.h"

#include <exception>

namespace dlv {

class ComError : public std::exception {
public:
    explicit ComError(HRESULT result) noexcept : result_(result) {}

    HRESULT Result() const noexcept { return result_; }
    const char* what() const noexcept override { return "A call into the system failed"; }

private:
    HRESULT result_;
};

/// Throws for a failing result; passes the others on.
inline HRESULT Check(HRESULT result) {
    if (FAILED(result)) throw ComError(result);
    return result;
}

/// For calls that say no more than that they failed: throws GetLastError() as a result.
[[noreturn]] inline void RaiseLastError() {
    const DWORD error = GetLastError();
    throw ComError(error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error));
}

}  // namespace dlv
