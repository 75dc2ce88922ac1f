// The system's common controls in their themed version. The version is chosen by an activation context made
// from the manifest inside this library (resource 2, the place that isolation-aware libraries keep it in), so
// that it does not depend on what the host asks for.
#pragma once

#include "windows/com/PlainWindows.h"

namespace dlv {

/// The context is active on this thread while it lives. Without a manifest the host's own context stays.
class ControlsScope {
public:
    ControlsScope();
    ~ControlsScope();
    ControlsScope(const ControlsScope&) = delete;
    ControlsScope& operator=(const ControlsScope&) = delete;

private:
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
    HANDLE host_ = nullptr;
    HANDLE hostBefore_;
    bool before_;
};

/// While it lives, the context is active that was so before the control's own, on every way out to the host:
/// an unregistered host finds its classes by the context that its call is made in. Events and the loops of
/// dialogs and menus are such ways.
class HostScope {
public:
    HostScope();
    ~HostScope();
    HostScope(const HostScope&) = delete;
    HostScope& operator=(const HostScope&) = delete;

private:
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
    bool before_;
};

/// Registers the classes of list view, tab strip, tool bar and tool tips. Inside a ControlsScope.
void NeedCommonControls();

/// The library or program that this code stands in.
HINSTANCE OwnModule();

}  // namespace dlv
