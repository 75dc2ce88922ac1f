// The control as an ActiveX control: mnemonics, ambient properties, the freezing of events.
#pragma once

#include "windows/com/PlainWindows.h"

#include <ocidl.h>

#include "windows/com/Activation.h"
#include "windows/com/ComObject.h"
#include "windows/com/EventSource.h"

namespace dlv {

class OleControlPart final : public ComPart<Implements<IOleControl>> {
public:
    OleControlPart(IUnknown& whole, WindowHost& host, Activation& activation, EventSource& events)
        : ComPart(whole), host_(host), activation_(activation), events_(events) {}

    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnMnemonic(LPMSG message) override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;
    STDMETHODIMP FreezeEvents(BOOL freeze) override;

private:
    WindowHost& host_;
    Activation& activation_;
    EventSource& events_;
};

}  // namespace dlv
