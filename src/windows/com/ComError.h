// A failed call into Windows or COM on its way out. It is thrown where a call fails; inside the control's own
// procedures it is a run-time error like any other, and where nobody traps it the guard of the entry turns it
// into the entry's result.
#pragma once

#include "windows/com/PlainWindows.h"

#include <string>

#include "base/RunTimeError.h"

namespace dlv {

class ComError : public RunTimeError {
public:
    explicit ComError(HRESULT result) : RunTimeError(NumberFor(result), TextFor(result)), result_(result) {}

    HRESULT Result() const noexcept { return result_; }

private:
    static std::int32_t NumberFor(HRESULT result) {
        switch (result) {
            case DISP_E_TYPEMISMATCH: return kErrorTypeMismatch;
            case DISP_E_OVERFLOW: return kErrorOverflow;
            case E_OUTOFMEMORY: return kErrorOutOfMemory;
            default: return result;
        }
    }
    static std::string TextFor(HRESULT result) {
        switch (result) {
            case DISP_E_TYPEMISMATCH: return "Type mismatch";
            case DISP_E_OVERFLOW: return "Overflow";
            case E_OUTOFMEMORY: return "Out of memory";
            default: return "A call into the system failed";
        }
    }

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
