// The control as an OLE object: its site, its extent, its verbs, its advises, its end.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oleidl.h>

#include "windows/com/Activation.h"
#include "windows/com/ComObject.h"
#include "windows/com/ViewPart.h"

namespace dlv {

/// What became of the control that its container has to know or to save.
struct Persisted {
    bool dirty = false;
};

class OleObjectPart final : public ComPart<Implements<IOleObject>> {
public:
    OleObjectPart(IUnknown& whole, WindowHost& host, ClientSite& site, Ambience& ambience, Extent& extent,
                  Activation& activation, ViewPart& view, Persisted& persisted);

    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR object) override;
    STDMETHODIMP Close(DWORD save) override;
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) override;
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT place) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
    STDMETHODIMP Update() override;
    STDMETHODIMP IsUpToDate() override;
    STDMETHODIMP GetUserClassID(CLSID* id) override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* name) override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) override;
    STDMETHODIMP Unadvise(DWORD connection) override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** advises) override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) override;

    /// Lets the container and everything of it go.
    void LeaveContainer();

private:
    /// For what needs no more than an answer.
    HRESULT Just(HRESULT result);
    IOleAdviseHolder& Advises();

    WindowHost& host_;
    ClientSite& site_;
    Ambience& ambience_;
    Extent& extent_;
    Activation& activation_;
    ViewPart& view_;
    Persisted& persisted_;
    ComPtr<IOleAdviseHolder> advises_;
};

}  // namespace dlv
