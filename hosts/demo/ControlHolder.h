// A container with one control in it.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace dlv::demo {

class ControlHolder {
public:
    virtual ~ControlHolder() = default;

    /// Makes the control and shows it at `place` of the window.
    virtual HRESULT Open(HWND window, const RECT& place) = 0;
    /// Null while there is none.
    virtual IUnknown* Control() const = 0;
    virtual void Move(const RECT& place) = 0;
    virtual void Focus() = 0;
    /// Offers a message of the loop to the control first. True when it was used up.
    virtual bool Translate(MSG& message) = 0;
    virtual void Close() = 0;
};

}  // namespace dlv::demo
