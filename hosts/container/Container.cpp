#include "hosts/container/Container.h"

#include "hosts/container/Measure.h"

namespace dlv::container {

Container::Container(HWND frame, HWND parent, const RECT& place, Ambients ambients)
    : parent_(parent),
      frame_(Make<Frame>(frame)),
      site_(Make<Site>(parent, place, frame_, std::move(ambients))) {}

Container::~Container() { Remove(); }

HRESULT Container::Insert(IUnknown* control) {
    Remove();
    ComPtr<IOleObject> object;
    HRESULT result = control->QueryInterface(IID_PPV_ARGS(&object));
    if (FAILED(result)) return result;
    control_ = control;
    object_ = object;
    site_->SetControl(control);
    result = object->SetClientSite(site_.Get());
    ComPtr<IPersistStreamInit> persist;
    if (SUCCEEDED(result) && SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&persist))))
        result = persist->InitNew();
    SIZEL extent = ToHimetric(site_->Place(), DpiOf(parent_));
    if (SUCCEEDED(result)) result = object->SetExtent(DVASPECT_CONTENT, &extent);
    return result;
}

HRESULT Container::DoVerb(LONG verb) {
    const ComPtr<IOleObject> object = object_;
    if (!object) return E_UNEXPECTED;
    const RECT place = site_->Place();
    return object->DoVerb(verb, nullptr, site_.Get(), 0, parent_, &place);
}

HRESULT Container::Activate() { return DoVerb(OLEIVERB_INPLACEACTIVATE); }

HRESULT Container::ActivateUI() { return DoVerb(OLEIVERB_UIACTIVATE); }

HRESULT Container::Deactivate() {
    const ComPtr<IOleInPlaceObject> active = site_->InPlaceObject();
    return active ? active->InPlaceDeactivate() : S_OK;
}

HRESULT Container::SetPlace(const RECT& place) {
    site_->SetPlace(place);
    const ComPtr<IOleObject> object = object_;
    if (!object) return E_UNEXPECTED;
    const ComPtr<IOleInPlaceObject> active = site_->InPlaceObject();
    HRESULT result = active ? active->SetObjectRects(&place, &place) : S_OK;
    SIZEL extent = ToHimetric(place, DpiOf(parent_));
    if (SUCCEEDED(result)) result = object->SetExtent(DVASPECT_CONTENT, &extent);
    return result;
}

HRESULT Container::Draw(HDC dc, const RECT& bounds) const {
    ComPtr<IViewObject> view;
    if (!control_) return E_UNEXPECTED;
    const HRESULT result = control_.As(&view);
    if (FAILED(result)) return result;
    const RECTL place{bounds.left, bounds.top, bounds.right, bounds.bottom};
    return view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &place, nullptr, nullptr, 0);
}

void Container::Remove() {
    const ComPtr<IOleObject> object = std::move(object_);
    const ComPtr<IUnknown> control = std::move(control_);
    if (!object) return;
    const ComPtr<IOleInPlaceObject> active = site_->InPlaceObject();
    if (active) active->InPlaceDeactivate();
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
    site_->SetControl(nullptr);
}

bool Container::TranslateKey(MSG& message) const {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    const ComPtr<IOleInPlaceActiveObject> active = frame_->ActiveObject();
    return active && active->TranslateAccelerator(&message) == S_OK;
}

HRESULT Container::TellAmbientChange(DISPID id) const {
    ComPtr<IOleControl> control;
    if (!control_) return E_UNEXPECTED;
    const HRESULT result = control_.As(&control);
    return FAILED(result) ? result : control->OnAmbientPropertyChange(id);
}

HWND Container::ControlWindow() const {
    HWND window = nullptr;
    const ComPtr<IOleInPlaceObject> active = site_->InPlaceObject();
    return active && SUCCEEDED(active->GetWindow(&window)) ? window : nullptr;
}

}  // namespace dlv::container
