// The calls of a host and the clock that the measurements on the built control share.
#pragma once

#include <windows.h>

#include <comutil.h>
#include <ole2.h>

#include <string>
#include <vector>

#include "DashlonViewer.h"

namespace dlv::bench {

/// Says what failed and ends the program.
void Need(HRESULT result, const char* what);

/// Milliseconds of a steady clock.
double Now();

/// Brings a control to where it waits for data; the session may see the units of these ids.
void StartUp(_DLViewer& viewer, const std::vector<std::wstring>& ids);

void Push(_DLViewer& viewer, _QZWebMessage& message);

}  // namespace dlv::bench
