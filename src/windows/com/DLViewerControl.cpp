#include "windows/com/DLViewerControl.h"

#include "windows/com/Arrays.h"
#include "windows/com/Coercion.h"
#include "windows/com/ForeignMessage.h"
#include "windows/webdata/MessageObject.h"

namespace dlv {

namespace {

constexpr std::string_view kMessageType = "QZWebMessage";

/// The host's value as the control takes it: messages are read directly when they are ours, late bound when
/// not.
HostObject TakeHostObject(const VARIANT& value) {
    HostObject taken{TypeNameOf(value), nullptr};
    const bool unknown = taken.typeName == kTellsNoType;
    if (taken.typeName != kMessageType && !unknown) return taken;
    Variant plain;
    Check(Dereference(value, plain));
    taken.message = MessageObject::Inside(*plain->punkVal);
    if (taken.message) return taken;
    ComPtr<IDispatch> object;
    plain->punkVal->QueryInterface(IID_PPV_ARGS(&object));
    // Classes of some script engines tell no type: whoever has a message's members is one.
    if (!object || (unknown && !ForeignMessage::IsLike(object.Get()))) return taken;
    taken.typeName = kMessageType;
    taken.message = std::make_shared<ForeignMessage>(object.Get());
    return taken;
}

}  // namespace

DLViewerControl::DLViewerControl()
    : events_(*static_cast<_DLViewer*>(this), *this, ambience_),
      platform_(*this, extent_, ambience_, activation_),
      viewer_(platform_, events_),
      activeObject_(*static_cast<_DLViewer*>(this), *this, activation_, site_),
      activation_(*this, site_, ambience_, extent_, activeObject_),
      view_(*static_cast<_DLViewer*>(this), *this, extent_, ambience_, activation_),
      oleObject_(*static_cast<_DLViewer*>(this), *this, site_, ambience_, extent_, activation_, view_,
                 persisted_),
      inPlaceObject_(*static_cast<_DLViewer*>(this), *this, activation_),
      oleControl_(*static_cast<_DLViewer*>(this), *this, site_, ambience_, activation_, events_, view_),
      saved_(*this, extent_, persisted_),
      persistStream_(*static_cast<_DLViewer*>(this), saved_),
      persistStorage_(*static_cast<_DLViewer*>(this), saved_),
      persistBag_(*static_cast<_DLViewer*>(this), saved_) {
    viewer_.UserControl_Resize();
}

STDMETHODIMP DLViewerControl::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    if (SUCCEEDED(DualObject::QueryInterface(iid, object))) return S_OK;
    void* found = nullptr;
    const auto look = [&](auto&... parts) { ((found = found != nullptr ? found : parts.Find(iid)), ...); };
    look(oleObject_, inPlaceObject_, activeObject_, oleControl_, view_, events_, persistStream_,
         persistStorage_, persistBag_);
    *object = found;
    if (found == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) DLViewerControl::Release() {
    const ULONG left = DualObject::Release();
    // Only the entries under way hold it still.
    if (left > 0 && OnOwnThread() && left == static_cast<ULONG>(Depth())) Abandon();
    return left;
}

STDMETHODIMP DLViewerControl::ReceiveMessage(VARIANT* data, VARIANT dataType, VARIANT tag) {
    if (data == nullptr) return E_POINTER;
    return Own([&] {
        const LONG type = LongOf(dataType);
        const std::string tagText = TextOf(tag);
        viewer_.ReceiveMessage(TakeHostObject(*data), type, tagText);
    });
}

STDMETHODIMP DLViewerControl::Initialize(IDispatch** trans) {
    return Own([&] {
        auto captions =
            trans == nullptr || *trans == nullptr ? nullptr : std::make_shared<TransportCaptions>(*trans);
        viewer_.Initialize(captions);
        transport_ = std::move(captions);
    });
}

STDMETHODIMP DLViewerControl::StopControl() {
    return Own([&] { EndWhatRuns(); });
}

STDMETHODIMP DLViewerControl::ReceiveProfileResponse(BSTR* resultXml, BSTR* functionName) {
    if (resultXml == nullptr || functionName == nullptr) return E_POINTER;
    return Own([&] { viewer_.ReceiveProfileResponse(Narrow(*resultXml), Narrow(*functionName)); });
}

STDMETHODIMP DLViewerControl::ResizeControls() {
    return Own([&] { viewer_.ResizeControls(); });
}

STDMETHODIMP DLViewerControl::SetSessionBUIDList(SAFEARRAY** ids) {
    if (ids == nullptr) return E_POINTER;
    return Own([&] { viewer_.SetSessionBUIDList(TextsOf(*ids)); });
}

STDMETHODIMP DLViewerControl::SetRegionalFormatInfo(BSTR* languageId) {
    if (languageId == nullptr) return E_POINTER;
    return Own([&] { viewer_.SetRegionalFormatInfo(Narrow(*languageId)); });
}

void DLViewerControl::EndWhatRuns() {
    viewer_.StopControl();
    // A dialog's message loop that sleeps is to notice.
    if (viewer_.Depth() > 0) PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void DLViewerControl::WindowDestroyed() {
    if (activation_.WindowDestroyed() == Activation::Loss::FromOutside) ContainerGone();
}

void DLViewerControl::ContainerGone() {
    if (viewer_.Depth() > 0) EndWhatRuns();
}

void DLViewerControl::Abandon() noexcept {
    if (std::exchange(abandoned_, true)) return;
    GuardMethod(IID_NULL, [&] { ContainerGone(); });
}

void DLViewerControl::BringUpToDate() {
    if (ControlWindow* window = activation_.Window()) {
        window->Flush();
        return;
    }
    bool changed = false;
    for (Control* control : viewer_.Controls().Controls()) changed = control->TakeChanged() || changed;
    if (changed) view_.TellChange();
}

void DLViewerControl::AtRest() {
    oleControl_.TellKeyChanges();
    activation_.DropRetiredWindows();
    if (viewer_.Stopped() && transport_) std::exchange(transport_, nullptr)->LetGo();
}

DLViewerControl::End DLViewerControl::PrepareEnd() noexcept {
    // Windows die on their own thread only; better left than torn from under it.
    if (!OnOwnThread()) return activation_.Window() == nullptr ? End::Delete : End::Leave;
    abandoned_ = true;
    GuardMethod(IID_NULL, [&] {
        viewer_.StopControl();
        oleObject_.LeaveContainer();
        activation_.DropRetiredWindows();
    });
    return End::Delete;
}

}  // namespace dlv
