#include "tests/windows/RawContainer.h"

namespace dlv::test {

using container::Make;
using container::SizeText;

namespace {

constexpr RECT kOtherPlace{10, 20, 510, 420};
constexpr SIZE kExtent{20000, 12000};

}  // namespace

struct RawContainer::Step {
    const char* name;
    void (*run)(RawContainer& self);
};

const RawContainer::Step RawContainer::kSteps[] = {
    {"create", [](RawContainer& self) { self.Create(); }},
    {"site", [](RawContainer& self) { self.SetSite(self.site_.Get(), "site"); }},
    {"other site", [](RawContainer& self) { self.SetSite(self.otherSite_.Get(), "other site"); }},
    {"no site", [](RawContainer& self) { self.SetSite(nullptr, "none"); }},
    {"start as new",
     [](RawContainer& self) {
         self.Ask<IPersistStreamInit>("IPersistStreamInit.InitNew",
                                      [](IPersistStreamInit& persist) { return persist.InitNew(); });
     }},
    {"save", [](RawContainer& self) { self.Save(); }},
    {"load", [](RawContainer& self) { self.Load(); }},
    {"set extent", [](RawContainer& self) { self.SetExtent(kExtent); }},
    {"get extent",
     [](RawContainer& self) {
         SIZE extent{};
         self.Ask<IOleObject>("IOleObject.GetExtent", [&](IOleObject& object) {
             return object.GetExtent(DVASPECT_CONTENT, &extent);
         });
         self.out_ << "  extent is " << SizeText(extent) << "\n";
     }},
    {"activate", [](RawContainer& self) { self.DoVerb(OLEIVERB_INPLACEACTIVATE); }},
    {"activate with UI", [](RawContainer& self) { self.DoVerb(OLEIVERB_UIACTIVATE); }},
    {"do the primary verb", [](RawContainer& self) { self.DoVerb(OLEIVERB_PRIMARY); }},
    {"show", [](RawContainer& self) { self.DoVerb(OLEIVERB_SHOW); }},
    {"open", [](RawContainer& self) { self.DoVerb(OLEIVERB_OPEN); }},
    {"hide", [](RawContainer& self) { self.DoVerb(OLEIVERB_HIDE); }},
    {"do verb 7", [](RawContainer& self) { self.DoVerb(7); }},
    {"do verb -100", [](RawContainer& self) { self.DoVerb(-100); }},
    {"place", [](RawContainer& self) { self.Place(kOtherPlace); }},
    {"deactivate UI",
     [](RawContainer& self) {
         self.Ask<IOleInPlaceObject>("IOleInPlaceObject.UIDeactivate",
                                     [](IOleInPlaceObject& object) { return object.UIDeactivate(); });
     }},
    {"deactivate",
     [](RawContainer& self) {
         self.Ask<IOleInPlaceObject>("IOleInPlaceObject.InPlaceDeactivate",
                                     [](IOleInPlaceObject& object) { return object.InPlaceDeactivate(); });
     }},
    {"get window",
     [](RawContainer& self) {
         self.Ask<IOleInPlaceObject>("IOleInPlaceObject.GetWindow", [](IOleInPlaceObject& object) {
             HWND window = nullptr;
             return object.GetWindow(&window);
         });
     }},
    {"draw", [](RawContainer& self) { self.Draw(); }},
    {"advise",
     [](RawContainer& self) {
         self.Ask<IOleObject>("IOleObject.Advise", [&](IOleObject& object) {
             DWORD connection = 0;
             return object.Advise(self.advises_.Get(), &connection);
         });
     }},
    {"advise of the view",
     [](RawContainer& self) {
         self.Ask<IViewObject>("IViewObject.SetAdvise", [&](IViewObject& view) {
             return view.SetAdvise(DVASPECT_CONTENT, 0, self.advises_.Get());
         });
     }},
    {"no advise of the view",
     [](RawContainer& self) {
         self.Ask<IViewObject>("IViewObject.SetAdvise(none)",
                               [](IViewObject& view) { return view.SetAdvise(0, 0, nullptr); });
     }},
    {"connect", [](RawContainer& self) { self.Connect(); }},
    {"disconnect", [](RawContainer& self) { self.events_->Disconnect(); }},
    {"change all ambients",
     [](RawContainer& self) {
         self.Ask<IOleControl>("IOleControl.OnAmbientPropertyChange(ALL)", [](IOleControl& control) {
             return control.OnAmbientPropertyChange(DISPID_UNKNOWN);
         });
     }},
    {"initialize",
     [](RawContainer& self) {
         self.Ask<_DLViewer>("_DLViewer.Initialize(none)",
                             [](_DLViewer& viewer) { return Initialize(&viewer); });
     }},
    {"set session units",
     [](RawContainer& self) {
         self.Ask<_DLViewer>("_DLViewer.SetSessionBUIDList(12)",
                             [](_DLViewer& viewer) { return SetSessionUnits(&viewer, {L"12"}); });
     }},
    {"stop",
     [](RawContainer& self) {
         self.Ask<_DLViewer>("_DLViewer.StopControl", [](_DLViewer& viewer) { return viewer.StopControl(); });
     }},
    {"close", [](RawContainer& self) { self.Close(OLECLOSE_NOSAVE, "NOSAVE"); }},
    {"close and save", [](RawContainer& self) { self.Close(OLECLOSE_SAVEIFDIRTY, "SAVEIFDIRTY"); }},
    {"pass the focus on", [](RawContainer& self) { self.PassFocusOn(); }},
    {"destroy the host's window", [](RawContainer& self) { self.window_.Destroy(); }},
    {"release", [](RawContainer& self) { self.Release(); }},
};

RawContainer::RawContainer(std::ostream& out)
    : out_(out),
      recorder_(std::make_shared<container::Recorder>(out, 1)),
      surroundings_{Make<container::Frame>(window_.Handle(), recorder_),
                    Make<container::Document>(window_.Handle(), recorder_)},
      site_(MakeSite()),
      otherSite_(MakeSite()),
      advises_(Make<container::AdviseSink>(recorder_)),
      events_(Make<EventSink>(recorder_)) {}

RawContainer::~RawContainer() {
    if (control_) Release();
}

ComPtr<container::Site> RawContainer::MakeSite() {
    return Make<container::Site>(window_.Handle(), kPlace, surroundings_, container::Ambients{}, recorder_);
}

bool RawContainer::Do(std::string_view step) {
    for (const Step& known : kSteps) {
        if (known.name != step) continue;
        out_ << step << "\n";
        known.run(*this);
        PumpMessages();
        return true;
    }
    return false;
}

ULONG RawContainer::HeldByTheControl() const {
    // Of the frame and the document each site has a reference, as has this container.
    return ReferencesOf(site_.Get()) + ReferencesOf(otherSite_.Get()) + ReferencesOf(advises_.Get()) +
           ReferencesOf(events_.Get()) - 4 + ReferencesOf(surroundings_.frame.Get()) +
           ReferencesOf(surroundings_.document.Get()) - 6;
}

void RawContainer::Create() {
    control_ = New<_DLViewer>(L"DLViewer");
    site_->SetControl(control_.Get());
    otherSite_->SetControl(control_.Get());
}

void RawContainer::SetSite(IOleClientSite* site, const char* name) {
    Ask<IOleObject>("IOleObject.SetClientSite(" + std::string(name) + ")",
                    [&](IOleObject& object) { return object.SetClientSite(site); });
}

void RawContainer::DoVerb(LONG verb) {
    Ask<IOleObject>("IOleObject.DoVerb(" + container::VerbText(verb) + ")", [&](IOleObject& object) {
        return object.DoVerb(verb, nullptr, site_.Get(), 0, window_.Handle(), &kPlace);
    });
}

void RawContainer::SetExtent(SIZE extent) {
    Ask<IOleObject>("IOleObject.SetExtent(" + SizeText(extent) + ")",
                    [&](IOleObject& object) { return object.SetExtent(DVASPECT_CONTENT, &extent); });
}

void RawContainer::Place(const RECT& place) {
    Ask<IOleInPlaceObject>("IOleInPlaceObject.SetObjectRects(" + container::PlaceText(place) + ")",
                           [&](IOleInPlaceObject& object) { return object.SetObjectRects(&place, &place); });
}

void RawContainer::Close(DWORD save, const char* name) {
    Ask<IOleObject>("IOleObject.Close(" + std::string(name) + ")",
                    [&](IOleObject& object) { return object.Close(save); });
}

void RawContainer::Save() {
    stream_.Reset();
    CreateStreamOnHGlobal(nullptr, TRUE, &stream_);
    Ask<IPersistStreamInit>("IPersistStreamInit.Save",
                            [&](IPersistStreamInit& persist) { return persist.Save(stream_.Get(), TRUE); });
}

void RawContainer::Load() {
    if (stream_) stream_->Seek({}, STREAM_SEEK_SET, nullptr);
    Ask<IPersistStreamInit>("IPersistStreamInit.Load",
                            [&](IPersistStreamInit& persist) { return persist.Load(stream_.Get()); });
}

void RawContainer::Draw() {
    const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    const RECTL bounds{0, 0, 300, 200};
    Ask<IViewObject>("IViewObject.Draw", [&](IViewObject& view) {
        return view.Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0);
    });
    const HENHMETAFILE picture = CloseEnhMetaFile(dc);
    out_ << (GetEnhMetaFileBits(picture, 0, nullptr) > sizeof(ENHMETAHEADER) * 2 ? "  a picture is there\n"
                                                                                 : "  nothing was drawn\n");
    DeleteEnhMetaFile(picture);
}

void RawContainer::Connect() {
    Ask<IConnectionPointContainer>("IConnectionPoint.Advise", [&](IConnectionPointContainer&) {
        return events_->Connect(control_.Get(), __uuidof(__DLViewer));
    });
}

namespace {

LRESULT CALLBACK GiveFocusOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const container = reinterpret_cast<RawContainer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_SETFOCUS) container->GotFocus();
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

// From now on the host's window gives the control every focus that it gets, as forms do.
void RawContainer::PassFocusOn() {
    SetWindowLongPtrW(window_.Handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window_.Handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(GiveFocusOn));
}

void RawContainer::GotFocus() {
    if (control_) DoVerb(OLEIVERB_UIACTIVATE);
}

void RawContainer::Release() {
    // A container lets the objects that it got in calls go before the control itself.
    surroundings_.frame->ForgetActiveObject();
    surroundings_.document->ForgetActiveObject();
    site_->SetControl(nullptr);
    otherSite_->SetControl(nullptr);
    container::Recorder::Call call(recorder_, container::Caller::Container, "IUnknown.Release");
    IUnknown* const last = control_.Detach();
    call.Ends("= " + std::to_string(last->Release()) + " left");
}

}  // namespace dlv::test
