// <windows.h> without those of its macros that would rename types of the control.
#pragma once

#include <windows.h>

#undef MessageBox
