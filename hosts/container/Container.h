// A small complete container for one control: it gives it a site, activates it, keeps it in its place, offers
// it keys, and lets it go. Sample hosts and tests share it.
//
//   Library library(BesideProgram(L"DashlonViewer.manifest"));
//   Container container(window, window, place);
//   container.Insert(library.Create(L"DashlonViewer.DLViewer").Get());
//   container.Activate();
//   ... while (GetMessage(&message, ...)) if (!container.TranslateKey(message)) { dispatch it }
#pragma once

#include "hosts/container/Site.h"

namespace dlv::container {

enum class Direction { Forward, Backward };

class Container {
public:
    /// `frame` is the host's top-level window, `parent` the window that the control stands in, which may be
    /// the same; `place` in the parent's client pixels. Both windows outlive the control's stay. The
    /// recorder, if any, writes down every call between container and control.
    Container(HWND frame, HWND parent, const RECT& place, Ambients ambients = {},
              std::shared_ptr<Recorder> recorder = {});
    /// Removes the control.
    ~Container();
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    /// Gives the control its site and size and starts it as new.
    HRESULT Insert(IUnknown* control);
    /// Makes the control active in place: it has a window then.
    HRESULT Activate();
    /// Gives it the focus too.
    HRESULT ActivateUI();
    HRESULT Deactivate();
    /// Moves and resizes the control.
    HRESULT SetPlace(const RECT& place);
    /// Lets the control draw itself, whether it has a window or not.
    HRESULT Draw(HDC dc, const RECT& bounds) const;
    /// Deactivates and closes the control and lets it go. Nothing when there is none.
    void Remove();

    /// To be called for every message of the host's loop before it is dispatched; true when it is used up: by
    /// the control, as one of its access keys, or by Tab leaving the control.
    bool TranslateKey(MSG& message) const;
    /// What Tab does at the control's ends: gives the focus to what stands behind the control, or before it,
    /// and says whether there is anything. Without it Tab goes around inside the control.
    void SetTabOut(std::function<bool(Direction)> leave) { tabOut_ = std::move(leave); }
    /// Tells the control that an ambient property is another; DISPID_UNKNOWN stands for all.
    HRESULT TellAmbientChange(DISPID id) const;

    IUnknown* Control() const { return control_.Get(); }
    /// The control's window; null while it has none.
    HWND ControlWindow() const;
    Site& ControlSite() const { return *site_.Get(); }
    Frame& HostFrame() const { return *surroundings_.frame.Get(); }

private:
    HRESULT DoVerb(LONG verb);
    HRESULT SetExtent(const RECT& place);
    template <class Interface, class Body>
    HRESULT Ask(std::string_view text, Body&& body) const;
    bool PressAccessKey(MSG& message) const;

    const HWND parent_;
    const std::shared_ptr<Recorder> recorder_;
    const Surroundings surroundings_;
    ComPtr<Site> site_;
    ComPtr<IUnknown> control_;
    std::function<bool(Direction)> tabOut_;
};

}  // namespace dlv::container
