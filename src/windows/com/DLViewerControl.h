// The control: the COM object in which the portable control, its window and the container's interfaces come
// together. Its own interface is implemented here; the OLE interfaces are parts of their own.
#pragma once

#include "windows/com/PlainWindows.h"

#include "DashlonViewer.h"
#include "control/DLViewer.h"
#include "windows/com/Activation.h"
#include "windows/com/ControlPlatform.h"
#include "windows/com/DualObject.h"
#include "windows/com/EventSource.h"
#include "windows/com/InPlaceParts.h"
#include "windows/com/OleControlPart.h"
#include "windows/com/OleObjectPart.h"
#include "windows/com/Persistence.h"
#include "windows/com/TransportCaptions.h"
#include "windows/com/ViewPart.h"

namespace dlv {

class DLViewerControl final : public DualObject<::DLViewer, _DLViewer, __DLViewer, WindowHost> {
public:
    DLViewerControl();

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP ReceiveMessage(VARIANT* data, VARIANT dataType, VARIANT tag) override;
    STDMETHODIMP Initialize(IDispatch** trans) override;
    STDMETHODIMP StopControl() override;
    STDMETHODIMP ReceiveProfileResponse(BSTR* resultXml, BSTR* functionName) override;
    STDMETHODIMP ResizeControls() override;
    STDMETHODIMP SetSessionBUIDList(SAFEARRAY** ids) override;
    STDMETHODIMP SetRegionalFormatInfo(BSTR* languageId) override;

    DLViewer& Viewer() noexcept override { return viewer_; }
    bool Ending() const noexcept override { return abandoned_ || viewer_.Stopped(); }
    HWND DialogOwner() noexcept override { return activation_.DialogOwner(); }
    void SetContainerModeless(Modeless state) override { activation_.SetContainerModeless(state); }
    void FocusEntered() override { activation_.FocusEntered(); }
    void FocusLeft() override { activation_.FocusLeft(); }
    bool OfferKeyToContainer(MSG& message) override {
        return !activeObject_.WasOffered(message) && site_.TranslateKey(message);
    }
    void WindowDestroyed() override;
    void ContainerGone() override;

private:
    End PrepareEnd() noexcept override;
    void BringUpToDate() override;
    void AtRest() override;
    /// Ends what is still running in the control.
    void EndWhatRuns();
    void Abandon() noexcept;

    // The order matters: what stands above is used by what stands below for as long as that lives.
    Persisted persisted_;
    ClientSite site_;
    Ambience ambience_{site_};
    Extent extent_;
    EventSource events_;
    ControlPlatform platform_;
    DLViewer viewer_;
    ActiveObjectPart activeObject_;
    Activation activation_;

    ViewPart view_;
    OleObjectPart oleObject_;
    InPlaceObjectPart inPlaceObject_;
    OleControlPart oleControl_;
    SavedState saved_;
    PersistStreamPart persistStream_;
    PersistStoragePart persistStorage_;
    PersistBagPart persistBag_;

    std::shared_ptr<TransportCaptions> transport_;
    bool abandoned_ = false;
};

}  // namespace dlv
