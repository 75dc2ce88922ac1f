// The place of one control in the container: what the control asks of its container and tells it.
#pragma once

#include <functional>

#include "hosts/container/Ambients.h"
#include "hosts/container/Frame.h"
#include "hosts/container/Unknown.h"

namespace dlv::container {

/// What a site stands in; `document` is null where the frame is the document's window too.
struct Surroundings {
    ComPtr<Frame> frame;
    ComPtr<Document> document;
};

class Site final : public Unknown<IOleClientSite, IOleInPlaceSite, IOleControlSite, IDispatch>,
                   private Recorded {
public:
    /// The control stands in `parent`, at `place` in its client pixels.
    Site(HWND parent, const RECT& place, Surroundings surroundings, Ambients ambients,
         std::shared_ptr<Recorder> recorder = {})
        : Recorded(std::move(recorder)),
          parent_(parent),
          place_(place),
          surroundings_(std::move(surroundings)),
          ambients_(std::move(ambients)) {}

    /// Keys that the control has no use for, and offers; true takes them.
    void SetKeyFilter(std::function<bool(const MSG&)> filter) { keyFilter_ = std::move(filter); }

    const RECT& Place() const { return place_; }
    void SetPlace(const RECT& place) { place_ = place; }
    Ambients& AmbientProperties() { return ambients_; }
    /// The active control; null while it is not active in place.
    IOleInPlaceObject* InPlaceObject() const { return inPlaceObject_.Get(); }
    bool HasFocus() const { return hasFocus_; }
    /// Whom the site asks for the control's in-place object once it is active. With null the site holds
    /// nothing of the control any more.
    void SetControl(IUnknown* control);

    STDMETHODIMP SaveObject() override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override;
    STDMETHODIMP OnShowWindow(BOOL show) override;
    STDMETHODIMP RequestNewObjectLayout() override;

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP CanInPlaceActivate() override;
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE extent) override;
    STDMETHODIMP OnUIDeactivate(BOOL undoable) override;
    STDMETHODIMP OnInPlaceDeactivate() override;
    STDMETHODIMP DiscardUndoState() override;
    STDMETHODIMP DeactivateAndUndo() override;
    STDMETHODIMP OnPosRectChange(LPCRECT place) override;

    STDMETHODIMP OnControlInfoChanged() override;
    STDMETHODIMP LockInPlaceActive(BOOL lock) override;
    STDMETHODIMP GetExtendedControl(IDispatch** extended) override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message, DWORD modifiers) override;
    STDMETHODIMP OnFocus(BOOL gotFocus) override;
    STDMETHODIMP ShowPropertyFrame() override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

private:
    void* Find(REFIID iid) override;

    const HWND parent_;
    RECT place_;
    const Surroundings surroundings_;
    Ambients ambients_;
    std::function<bool(const MSG&)> keyFilter_;
    IUnknown* control_ = nullptr;
    ComPtr<IOleInPlaceObject> inPlaceObject_;
    bool hasFocus_ = false;
};

}  // namespace dlv::container
