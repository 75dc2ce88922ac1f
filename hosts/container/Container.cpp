#include "hosts/container/Container.h"

#include "hosts/container/Measure.h"

namespace dlv::container {

namespace {

Surroundings SurroundingsOf(HWND frame, HWND parent, const std::shared_ptr<Recorder>& recorder) {
    return {Make<Frame>(frame, recorder), parent == frame ? nullptr : Make<Document>(parent, recorder)};
}

}  // namespace

Container::Container(HWND frame, HWND parent, const RECT& place, Ambients ambients,
                     std::shared_ptr<Recorder> recorder)
    : parent_(parent),
      recorder_(std::move(recorder)),
      surroundings_(SurroundingsOf(frame, parent, recorder_)),
      site_(Make<Site>(parent, place, surroundings_, std::move(ambients), recorder_)) {}

Container::~Container() { Remove(); }

template <class Interface, class Body>
HRESULT Container::Ask(std::string_view text, Body&& body) const {
    // The call may lead to the control's removal.
    const ComPtr<IUnknown> control = control_;
    return container::Ask<Interface>(recorder_, control.Get(), text, body);
}

HRESULT Container::Insert(IUnknown* control) {
    Remove();
    control_ = control;
    site_->SetControl(control);
    const HRESULT placed = Ask<IOleObject>("IOleObject.SetClientSite(site)", [this](IOleObject& object) {
        return object.SetClientSite(site_.Get());
    });
    if (FAILED(placed)) return placed;
    const HRESULT started = Ask<IPersistStreamInit>(
        "IPersistStreamInit.InitNew", [](IPersistStreamInit& persist) { return persist.InitNew(); });
    // Not every control keeps something.
    if (FAILED(started) && started != E_NOINTERFACE) return started;
    return SetExtent(site_->Place());
}

HRESULT Container::SetExtent(const RECT& place) {
    SIZEL extent = ToHimetric(place, DpiOf(parent_));
    return Ask<IOleObject>("IOleObject.SetExtent(" + SizeText(extent) + ")",
                           [&](IOleObject& object) { return object.SetExtent(DVASPECT_CONTENT, &extent); });
}

HRESULT Container::DoVerb(LONG verb) {
    const RECT place = site_->Place();
    return Ask<IOleObject>("IOleObject.DoVerb(" + VerbText(verb) + ")", [&](IOleObject& object) {
        return object.DoVerb(verb, nullptr, site_.Get(), 0, parent_, &place);
    });
}

HRESULT Container::Activate() { return DoVerb(OLEIVERB_INPLACEACTIVATE); }

HRESULT Container::ActivateUI() { return DoVerb(OLEIVERB_UIACTIVATE); }

HRESULT Container::Deactivate() {
    if (site_->InPlaceObject() == nullptr) return S_OK;
    return Ask<IOleInPlaceObject>("IOleInPlaceObject.InPlaceDeactivate",
                                  [](IOleInPlaceObject& object) { return object.InPlaceDeactivate(); });
}

HRESULT Container::SetPlace(const RECT& place) {
    site_->SetPlace(place);
    HRESULT result = S_OK;
    if (site_->InPlaceObject() != nullptr)
        result = Ask<IOleInPlaceObject>(
            "IOleInPlaceObject.SetObjectRects(" + PlaceText(place) + ")",
            [&](IOleInPlaceObject& object) { return object.SetObjectRects(&place, &place); });
    return SUCCEEDED(result) ? SetExtent(place) : result;
}

HRESULT Container::Draw(HDC dc, const RECT& bounds) const {
    const RECTL place{bounds.left, bounds.top, bounds.right, bounds.bottom};
    return Ask<IViewObject>("IViewObject.Draw(" + PlaceText(bounds) + ")", [&](IViewObject& view) {
        return view.Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &place, nullptr, nullptr, 0);
    });
}

void Container::Remove() {
    if (!control_) return;
    Deactivate();
    Ask<IOleObject>("IOleObject.Close(NOSAVE)",
                    [](IOleObject& object) { return object.Close(OLECLOSE_NOSAVE); });
    Ask<IOleObject>("IOleObject.SetClientSite(none)",
                    [](IOleObject& object) { return object.SetClientSite(nullptr); });
    control_.Reset();
    site_->SetControl(nullptr);
}

bool Container::TranslateKey(MSG& message) const {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    const ComPtr<IOleInPlaceActiveObject> active = HostFrame().ActiveObject();
    if (active &&
        container::Ask<IOleInPlaceActiveObject>(
            recorder_, active.Get(), "IOleInPlaceActiveObject.TranslateAccelerator(" + KeyText(message) + ")",
            [&](IOleInPlaceActiveObject& object) { return object.TranslateAccelerator(&message); }) == S_OK)
        return true;
    if (PressAccessKey(message)) return true;
    const bool tab = active && message.message == WM_KEYDOWN && message.wParam == VK_TAB;
    if (!tab || !tabOut_) return false;
    return tabOut_(GetKeyState(VK_SHIFT) < 0 ? Direction::Backward : Direction::Forward);
}

// Also while the control is not the active object: its access keys lead into it.
bool Container::PressAccessKey(MSG& message) const {
    if (!control_ || (message.message != WM_SYSKEYDOWN && message.message != WM_SYSCHAR)) return false;
    CONTROLINFO info{};
    info.cb = sizeof info;
    const HRESULT told = Ask<IOleControl>(
        "IOleControl.GetControlInfo", [&](IOleControl& control) { return control.GetControlInfo(&info); });
    if (FAILED(told) || info.hAccel == nullptr) return false;
    if (!IsAccelerator(info.hAccel, info.cAccel, &message, nullptr)) return false;
    return Ask<IOleControl>("IOleControl.OnMnemonic(" + KeyText(message) + ")",
                            [&](IOleControl& control) { return control.OnMnemonic(&message); }) == S_OK;
}

HRESULT Container::TellAmbientChange(DISPID id) const {
    return Ask<IOleControl>("IOleControl.OnAmbientPropertyChange(" + AmbientText(id) + ")",
                            [id](IOleControl& control) { return control.OnAmbientPropertyChange(id); });
}

HWND Container::ControlWindow() const {
    HWND window = nullptr;
    const ComPtr<IOleInPlaceObject> active = site_->InPlaceObject();
    return active && SUCCEEDED(active->GetWindow(&window)) ? window : nullptr;
}

}  // namespace dlv::container
