#include "windows/com/OleObjectPart.h"

#include <ole2.h>
#include <olectl.h>

#include "ClassTable.h"
#include "DashlonViewer.h"
#include "windows/com/ComError.h"
#include "windows/com/EnumOf.h"

namespace dlv {

static_assert(kControlMiscStatus == (OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                     OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST));

namespace {

/// Hosts that show an object's verbs offer those with a name; the others are for containers.
OLEVERB Verb(LONG number) { return {number, nullptr, 0, OLEVERBATTRIB_NEVERDIRTIES}; }

LPOLESTR TaskText(std::wstring_view text) {
    auto* copy = static_cast<LPOLESTR>(CoTaskMemAlloc((text.size() + 1) * sizeof(wchar_t)));
    if (copy == nullptr) throw ComError(E_OUTOFMEMORY);
    text.copy(copy, text.size());
    copy[text.size()] = L'\0';
    return copy;
}

}  // namespace

OleObjectPart::OleObjectPart(IUnknown& whole, WindowHost& host, ClientSite& site, Ambience& ambience,
                             Extent& extent, Activation& activation, ViewPart& view, Persisted& persisted)
    : ComPart(whole),
      host_(host),
      site_(site),
      ambience_(ambience),
      extent_(extent),
      activation_(activation),
      view_(view),
      persisted_(persisted) {}

STDMETHODIMP OleObjectPart::SetClientSite(IOleClientSite* site) {
    return host_.Method(IID_IOleObject, [&] {
        if (site == nullptr) {
            LeaveContainer();
        } else {
            if (site_.Get() != nullptr && site_.Get() != site) activation_.Deactivate();
            site_.Set(site);
            ambience_.Read(DISPID_UNKNOWN);
        }
    });
}

void OleObjectPart::LeaveContainer() {
    activation_.Deactivate();
    site_.Set(nullptr);
    ambience_.Read(DISPID_UNKNOWN);
    view_.DropAdvise();
    const ComPtr<IOleAdviseHolder> dropped = std::move(advises_);
    host_.ContainerGone();
}

STDMETHODIMP OleObjectPart::GetClientSite(IOleClientSite** site) {
    if (site == nullptr) return E_POINTER;
    *site = nullptr;
    return host_.Method(IID_IOleObject, [&] { *site = ComPtr<IOleClientSite>(site_.Get()).Detach(); });
}

STDMETHODIMP OleObjectPart::SetHostNames(LPCOLESTR, LPCOLESTR) { return Just(S_OK); }

STDMETHODIMP OleObjectPart::Close(DWORD save) {
    return host_.Method(IID_IOleObject, [&] {
        const ComPtr<IOleClientSite> site = site_.Get();
        const ComPtr<IOleAdviseHolder> advises = advises_;
        const bool wanted = save != OLECLOSE_NOSAVE && persisted_.dirty && site;
        if (wanted && SUCCEEDED(site->SaveObject()) && advises) advises->SendOnSave();
        activation_.Deactivate();
        if (advises) advises->SendOnClose();
    });
}

STDMETHODIMP OleObjectPart::SetMoniker(DWORD, IMoniker*) { return Just(E_NOTIMPL); }

STDMETHODIMP OleObjectPart::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker == nullptr) return E_POINTER;
    *moniker = nullptr;
    return Just(E_NOTIMPL);
}

STDMETHODIMP OleObjectPart::InitFromData(IDataObject*, BOOL, DWORD) { return Just(E_NOTIMPL); }

STDMETHODIMP OleObjectPart::GetClipboardData(DWORD, IDataObject** data) {
    if (data == nullptr) return E_POINTER;
    *data = nullptr;
    return Just(E_NOTIMPL);
}

STDMETHODIMP OleObjectPart::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) {
    return host_.Method(IID_IOleObject, [&] {
        switch (verb) {
            case OLEIVERB_PRIMARY:
            case OLEIVERB_UIACTIVATE: return activation_.ActivateUI();
            case OLEIVERB_SHOW:
            case OLEIVERB_OPEN:
            case OLEIVERB_INPLACEACTIVATE: return activation_.ActivateInPlace();
            case OLEIVERB_HIDE: activation_.Hide(); return S_OK;
            case OLEIVERB_DISCARDUNDOSTATE: return S_OK;
            default: break;
        }
        if (verb < 0) return E_NOTIMPL;
        const HRESULT primary = activation_.ActivateUI();
        return FAILED(primary) ? primary : OLEOBJ_S_INVALIDVERB;
    });
}

STDMETHODIMP OleObjectPart::EnumVerbs(IEnumOLEVERB** verbs) {
    if (verbs == nullptr) return E_POINTER;
    *verbs = nullptr;
    return host_.Method(IID_IOleObject, [&] {
        std::vector<OLEVERB> known{Verb(OLEIVERB_PRIMARY), Verb(OLEIVERB_SHOW), Verb(OLEIVERB_HIDE),
                                   Verb(OLEIVERB_UIACTIVATE), Verb(OLEIVERB_INPLACEACTIVATE)};
        *verbs = MakeObject<dlv::EnumVerbs>(std::move(known)).Detach();
    });
}

STDMETHODIMP OleObjectPart::Update() { return Just(S_OK); }

STDMETHODIMP OleObjectPart::IsUpToDate() { return Just(S_OK); }

STDMETHODIMP OleObjectPart::GetUserClassID(CLSID* id) {
    if (id == nullptr) return E_POINTER;
    *id = CLSID_NULL;
    return host_.Method(IID_IOleObject, [&] { *id = __uuidof(::DLViewer); });
}

STDMETHODIMP OleObjectPart::GetUserType(DWORD, LPOLESTR* name) {
    if (name == nullptr) return E_POINTER;
    *name = nullptr;
    return host_.Method(IID_IOleObject, [&] { *name = TaskText(kControlDescription); });
}

STDMETHODIMP OleObjectPart::SetExtent(DWORD aspect, SIZEL* size) {
    if (size == nullptr) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    return host_.Method(IID_IOleObject, [&] {
        if (!extent_.SetHimetric(*size)) return;
        persisted_.dirty = true;
        if (activation_.Window() != nullptr) {
            activation_.RequestSizeOfExtent();
        } else {
            host_.Viewer().UserControl_Resize();
        }
    });
}

STDMETHODIMP OleObjectPart::GetExtent(DWORD aspect, SIZEL* size) {
    if (size == nullptr) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    return host_.Method(IID_IOleObject, [&] { *size = extent_.Himetric(); });
}

HRESULT OleObjectPart::Just(HRESULT result) {
    return host_.Method(IID_IOleObject, [&] { return result; });
}

IOleAdviseHolder& OleObjectPart::Advises() {
    if (!advises_) Check(CreateOleAdviseHolder(&advises_));
    return *advises_.Get();
}

STDMETHODIMP OleObjectPart::Advise(IAdviseSink* sink, DWORD* connection) {
    if (connection != nullptr) *connection = 0;
    if (sink == nullptr || connection == nullptr) return E_POINTER;
    return host_.Method(IID_IOleObject, [&] { return Advises().Advise(sink, connection); });
}

STDMETHODIMP OleObjectPart::Unadvise(DWORD connection) {
    return host_.Method(IID_IOleObject, [&] { return Advises().Unadvise(connection); });
}

STDMETHODIMP OleObjectPart::EnumAdvise(IEnumSTATDATA** advises) {
    if (advises == nullptr) return E_POINTER;
    *advises = nullptr;
    return host_.Method(IID_IOleObject, [&] { return Advises().EnumAdvise(advises); });
}

STDMETHODIMP OleObjectPart::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (status == nullptr) return E_POINTER;
    *status = 0;
    return host_.Method(IID_IOleObject, [&] {
        if (aspect == DVASPECT_CONTENT) *status = kControlMiscStatus;
    });
}

STDMETHODIMP OleObjectPart::SetColorScheme(LOGPALETTE*) { return Just(E_NOTIMPL); }

}  // namespace dlv
