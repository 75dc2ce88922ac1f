// The life of a control in a container, in the orders that containers keep and in orders that none should:
// each ends with nothing left.
#include "tests/windows/Dialogs.h"

namespace dlv::test {
namespace {

/// A container's raw calls on the control, one per letter of a test's sequence.
class RawContainer {
public:
    RawContainer() : frame_(container::Make<container::Frame>(window_.Handle())) {
        site_ = container::Make<container::Site>(window_.Handle(), kPlace, frame_, container::Ambients{});
        site_->SetListener([this](std::string_view call) {
            if (call == "IOleInPlaceSite.OnPosRectChange") ++positionRequests;
        });
    }
    ~RawContainer() { site_->SetControl(nullptr); }
    RawContainer(const RawContainer&) = delete;
    RawContainer& operator=(const RawContainer&) = delete;

    void Do(char step) {
        if (step == 'c') {
            control_ = New<_DLViewer>(L"DLViewer");
            site_->SetControl(control_.Get());
            return;
        }
        if (!control_) return;
        const auto object = As<IOleObject>(control_.Get());
        const auto inPlace = As<IOleInPlaceObject>(control_.Get());
        switch (step) {
            case 's': object->SetClientSite(site_.Get()); break;
            case 'n': As<IPersistStreamInit>(control_.Get())->InitNew(); break;
            case 'e': SetExtent(*object.Get()); break;
            case 'a': Verb(*object.Get(), OLEIVERB_INPLACEACTIVATE); break;
            case 'u': Verb(*object.Get(), OLEIVERB_UIACTIVATE); break;
            case 'v': Verb(*object.Get(), OLEIVERB_SHOW); break;
            case 'h': Verb(*object.Get(), OLEIVERB_HIDE); break;
            case 'i': Initialize(control_.Get()); break;
            case 'r': inPlace->SetObjectRects(&kSmall, &kSmall); break;
            case 'U': inPlace->UIDeactivate(); break;
            case 'd': inPlace->InPlaceDeactivate(); break;
            case 'x': control_->StopControl(); break;
            case 'l': object->Close(OLECLOSE_NOSAVE); break;
            case 'p': object->Close(OLECLOSE_PROMPTSAVE); break;
            case 'S': object->SetClientSite(nullptr); break;
            case 'w': window_.Destroy(); break;
            case 'R':
                frame_->SetActiveObject(nullptr, nullptr);
                site_->SetControl(nullptr);
                control_.Reset();
                break;
            default: FAIL() << "no step '" << step << "'";
        }
        PumpMessages();
    }

    ULONG SiteReferences() const { return ReferencesOf(site_.Get()); }
    ULONG FrameReferences() const { return ReferencesOf(frame_.Get()); }
    HWND Window() const { return window_.Handle(); }
    _DLViewer* Control() const { return control_.Get(); }
    int positionRequests = 0;

private:
    static constexpr RECT kSmall{10, 20, 510, 420};

    void SetExtent(IOleObject& object) {
        SIZE extent{20000 + 500 * ++extents_, 12000};
        object.SetExtent(DVASPECT_CONTENT, &extent);
    }
    void Verb(IOleObject& object, LONG verb) {
        object.DoVerb(verb, nullptr, site_.Get(), 0, window_.Handle(), &kPlace);
    }

    HostWindow window_;
    ComPtr<container::Frame> frame_;
    ComPtr<container::Site> site_;
    ComPtr<_DLViewer> control_;
    int extents_ = 0;
};

class Order : public testing::TestWithParam<const char*> {};

TEST_P(Order, EndsWithNothingLeft) {
    {
        RawContainer container;
        for (const char* step = GetParam(); *step != '\0'; ++step) container.Do(*step);
        // The raw container and its test hold one each; the frame is the site's too.
        EXPECT_EQ(container.SiteReferences(), 1u);
        EXPECT_EQ(container.FrameReferences(), 2u);
        EXPECT_EQ(GetWindow(container.Window(), GW_CHILD), nullptr);
        EXPECT_EQ(CanUnload(), S_OK);
    }
    EXPECT_EQ(container::liveObjects, 0);
}

INSTANTIATE_TEST_SUITE_P(Legal, Order,
                         testing::Values("cR", "csSR", "csneSR", "csnealSR", "csneaildlSR", "csneauUdlSR",
                                         "csneixlSR", "csneailxSR", "csneairxdlSR", "csneahvudlSR",
                                         "csneadadalSR", "csneaeeerdlSR", "ncsealSR", "csneaplSR"));
INSTANTIATE_TEST_SUITE_P(Illegal, Order,
                         testing::Values("caR", "cuvhR", "cdUlR", "cSSR", "crR", "csaR", "csauR", "csauSR",
                                         "csaisaxR", "csaSaSlR", "cssSR", "csawR", "csauwdlSR", "cswaR",
                                         "csawlSR", "cxixR", "cixiR", "csneauR", "csalalSuR", "cslaldadR"));

TEST(LifeCycle, TheControlAsksForAPlaceOnlyWhenItsSizeChangesAndNeverWhileItIsPlaced) {
    RawContainer container;
    for (const char step : {'c', 's', 'n', 'e', 'a'}) container.Do(step);
    EXPECT_EQ(container.positionRequests, 0);
    container.Do('r');
    EXPECT_EQ(container.positionRequests, 0);
    container.Do('e');
    EXPECT_EQ(container.positionRequests, 1);
    SIZE extent{};
    const auto object = As<IOleObject>(container.Control());
    ASSERT_EQ(object->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(container.positionRequests, 1);
    for (const char step : {'d', 'l', 'S'}) container.Do(step);
}

TEST(LifeCycle, TheWindowFillsThePlaceThatTheContainerGives) {
    HostedControl control;
    const auto expectPlace = [&](const RECT& place) {
        RECT found{};
        const HWND window = control.container.ControlWindow();
        ASSERT_NE(window, nullptr);
        GetWindowRect(window, &found);
        MapWindowPoints(nullptr, control.window.Handle(), reinterpret_cast<POINT*>(&found), 2);
        EXPECT_TRUE(EqualRect(&found, &place));
    };
    expectPlace(kPlace);
    for (const RECT place :
         {RECT{5, 6, 705, 406}, RECT{0, 0, 40, 30}, RECT{0, 0, 0, 0}, RECT{0, 0, 1200, 800}}) {
        EXPECT_EQ(control.container.SetPlace(place), S_OK);
        expectPlace(place);
        SIZE extent{};
        EXPECT_EQ(As<IOleObject>(control.Viewer())->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
        EXPECT_EQ(extent.cx, MulDiv(place.right - place.left, 2540, 96));
    }
}

TEST(LifeCycle, AControlThatWasActiveBecomesActiveAgainWithItsState) {
    HostedControl control;
    control.StartUp();
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    EXPECT_EQ(control.ListedUnits(), 2u);
    EXPECT_EQ(control.container.Deactivate(), S_OK);
    EXPECT_EQ(control.container.ControlWindow(), nullptr);
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    ASSERT_EQ(control.container.Activate(), S_OK);
    EXPECT_EQ(control.ListedUnits(), 2u);
}

TEST(LifeCycle, WorksWithoutEverBeingActive) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    ASSERT_EQ(SetSessionUnits(viewer.Get(), {L"12"}), S_OK);
    ASSERT_EQ(Receive(viewer.Get(), SampleMessage().Get()), S_OK);
    DialogCloser closer;
    EXPECT_EQ(Receive(viewer.Get(), BrokenMessage().Get()), S_OK);
    EXPECT_EQ(closer.Closed(), 1);
    EXPECT_EQ(viewer->StopControl(), S_OK);
}

TEST(LifeCycle, TheFocusMakesTheControlTheActiveObjectOfItsFrame) {
    HostedControl control;
    control.StartUp();
    EXPECT_EQ(control.container.HostFrame().ActiveObject(), nullptr);
    EXPECT_EQ(control.container.ActivateUI(), S_OK);
    EXPECT_NE(control.container.HostFrame().ActiveObject(), nullptr);
    EXPECT_TRUE(IsChild(control.container.ControlWindow(), GetFocus()));
    EXPECT_TRUE(control.container.ControlSite().HasFocus());
    EXPECT_EQ(As<IOleInPlaceObject>(control.Viewer())->UIDeactivate(), S_OK);
    EXPECT_EQ(control.container.HostFrame().ActiveObject(), nullptr);
}

}  // namespace
}  // namespace dlv::test
