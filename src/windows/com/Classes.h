// The library's classes as hosts make objects of them.
#pragma once

#include "windows/com/PlainWindows.h"

namespace dlv {

/// The factory of a class; CLASS_E_CLASSNOTAVAILABLE when it is none of ours or not for hosts to make.
HRESULT GetFactory(REFCLSID id, REFIID iid, void** factory) noexcept;

}  // namespace dlv
