// The control as an ActiveX control: access keys, ambient properties, the freezing of events.
#pragma once

#include "windows/com/PlainWindows.h"

#include <ocidl.h>

#include <memory>
#include <string>

#include "windows/com/Activation.h"
#include "windows/com/ComObject.h"
#include "windows/com/EventSource.h"
#include "windows/com/ViewPart.h"

namespace dlv {

struct AcceleratorTableDeleter {
    using pointer = HACCEL;
    void operator()(HACCEL table) const { DestroyAcceleratorTable(table); }
};
using AcceleratorTable = std::unique_ptr<HACCEL, AcceleratorTableDeleter>;

class OleControlPart final : public ComPart<Implements<IOleControl>> {
public:
    OleControlPart(IUnknown& whole, WindowHost& host, ClientSite& site, Ambience& ambience,
                   Activation& activation, EventSource& events, ViewPart& view)
        : ComPart(whole),
          host_(host),
          site_(site),
          ambience_(ambience),
          activation_(activation),
          events_(events),
          view_(view) {}

    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnMnemonic(LPMSG message) override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;
    STDMETHODIMP FreezeEvents(BOOL freeze) override;

    /// Tells the container when the access keys are others than it has heard of.
    void TellKeyChanges();

private:
    std::string UsableKeys() const;
    void MakeTable(const std::string& keys);

    WindowHost& host_;
    ClientSite& site_;
    Ambience& ambience_;
    Activation& activation_;
    EventSource& events_;
    ViewPart& view_;

    /// The keys that the container knows, one letter each.
    std::string told_;
    /// The table that it was given last, which stays its until it asks again.
    AcceleratorTable table_;
    std::string tableKeys_;
    WORD tableSize_ = 0;
};

}  // namespace dlv
