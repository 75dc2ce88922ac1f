// The tool tip window of a form: it asks each control's window for its text when it is about to be shown.
#pragma once

#include "windows/com/PlainWindows.h"

#include "windows/hwnd/Mirror.h"

namespace dlv {

class ToolTips : public Window {
public:
    explicit ToolTips(WindowHost& host) : Window(host) {}

    void Make(HWND parent);
    void Add(const Mirror& mirror);
};

}  // namespace dlv
