// The hourglass while something is written or printed that keeps the person waiting.
#pragma once

#include "windows/com/PlainWindows.h"

namespace dlv {

class WaitCursor {
public:
    WaitCursor() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(before_); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    HCURSOR before_;
};

}  // namespace dlv
