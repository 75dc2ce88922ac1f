// The container's ambient properties: what the control makes of each, and that it keeps nothing of what it
// read.
#include <olectl.h>

#include "tests/windows/Keyboard.h"

namespace dlv::test {
namespace {

/// A font that the test can count the users of.
ComPtr<IFontDisp> MakeFont(const wchar_t* face, int points) {
    FONTDESC wanted{};
    wanted.cbSizeofstruct = sizeof wanted;
    std::wstring name = face;
    wanted.lpstrName = name.data();
    wanted.cySize.int64 = points * 10000;
    wanted.sWeight = FW_NORMAL;
    ComPtr<IFontDisp> font;
    EXPECT_EQ(OleCreateFontIndirect(&wanted, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())),
              S_OK);
    return font;
}

class AmbientTest : public testing::Test {
protected:
    AmbientTest() {
        control.StartUp();
        EXPECT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    }

    container::Ambients& Ambients() const { return control.container.ControlSite().AmbientProperties(); }
    void Tell(DISPID id) const { EXPECT_EQ(control.container.TellAmbientChange(id), S_OK); }
    HWND Window() const { return control.container.ControlWindow(); }
    LONG FontHeight() const {
        const HWND button = FindCaption(Window(), L"View");
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(button, WM_GETFONT, 0, 0)), sizeof font, &font);
        return font.lfHeight;
    }
    /// The colour in a corner of the main frame that no control covers.
    COLORREF Ground() const { return PixelAt(FindClass(Window(), L"DashlonViewerFrame"), 2, 2); }
    static COLORREF PixelAt(HWND window, int x, int y) {
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        const HDC dc = GetDC(window);
        const COLORREF colour = GetPixel(dc, x, y);
        ReleaseDC(window, dc);
        return colour;
    }
    /// The colour of the picture that the container asks for.
    COLORREF GroundOfPicture() const {
        const HDC screen = GetDC(nullptr);
        const HDC dc = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, 900, 600);
        ReleaseDC(nullptr, screen);
        const HGDIOBJ before = SelectObject(dc, bitmap);
        EXPECT_EQ(control.container.Draw(dc, kPlace), S_OK);
        const COLORREF colour = GetPixel(dc, 2, 2);
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
        return colour;
    }

    HostedControl control;
};

TEST_F(AmbientTest, TheFontIsFollowed) {
    const LONG before = FontHeight();
    Ambients().font = MakeFont(L"Tahoma", 18);
    Tell(DISPID_AMBIENT_FONT);
    EXPECT_LT(-FontHeight(), -2 * before) << "a small control has no room for it";
    ASSERT_EQ(control.container.SetPlace({0, 0, 1800, 1000}), S_OK);
    EXPECT_EQ(FontHeight(), 2 * before);
    Ambients().font.Reset();
    Tell(DISPID_UNKNOWN);
    EXPECT_EQ(FontHeight(), before);
}

TEST_F(AmbientTest, TheColoursAreFollowedOnTheScreenAndInPictures) {
    const COLORREF before = Ground();
    EXPECT_EQ(before, GetSysColor(COLOR_BTNFACE));
    const struct {
        OLE_COLOR wanted;
        COLORREF shown;
    } rows[] = {{RGB(10, 120, 230), RGB(10, 120, 230)},
                {0x80000000u | COLOR_HIGHLIGHT, GetSysColor(COLOR_HIGHLIGHT)}};
    for (const auto& row : rows) {
        Ambients().backColor = row.wanted;
        Tell(DISPID_AMBIENT_BACKCOLOR);
        EXPECT_EQ(Ground(), row.shown);
        EXPECT_EQ(GroundOfPicture(), row.shown);
    }
    Ambients().backColor = 0x80000000u | COLOR_BTNFACE;
    Tell(DISPID_UNKNOWN);
    EXPECT_EQ(Ground(), before);
}

TEST_F(AmbientTest, TheDisplayNameIsTheNameOfTheWindow) {
    EXPECT_EQ(CaptionOf(Window()), L"Viewer");
    Ambients().displayName = L"Figures1";
    Tell(DISPID_AMBIENT_DISPLAYNAME);
    EXPECT_EQ(CaptionOf(Window()), L"Figures1");
    Ambients().displayName.clear();
    Tell(DISPID_UNKNOWN);
    EXPECT_EQ(CaptionOf(Window()), L"Dashlon Viewer");
}

/// The times of the last data message as the control shows them, with the formats that the host leaves open.
std::wstring ShownTime(HostedControl& control) {
    const auto message = New<_QZWebMessage>(L"QZWebMessage");
    std::wstring text = kSampleMessage;
    text.replace(text.find(L"hh:mm AM/PM"), 11, L"");
    EXPECT_EQ(message->LoadText(_bstr_t(text.c_str())), S_OK);
    EXPECT_EQ(Receive(control.Viewer(), message.Get()), S_OK);
    const HWND heading = FindCaption(control.container.ControlWindow(), L"Last refresh time :");
    return heading == nullptr ? L"" : CaptionOf(GetWindow(heading, GW_HWNDNEXT));
}

TEST_F(AmbientTest, TheLocaleDecidesHowTheSystemWritesTimes) {
    Ambients().locale = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
    Tell(DISPID_AMBIENT_LOCALEID);
    const std::wstring german = ShownTime(control);
    EXPECT_EQ(german.find(L'M'), std::wstring::npos) << testing::PrintToString(german);
    Ambients().locale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    Tell(DISPID_AMBIENT_LOCALEID);
    const std::wstring english = ShownTime(control);
    EXPECT_NE(english.find(L'M'), std::wstring::npos) << testing::PrintToString(english);
    Ambients().locale = 0xFFFF;  // no locale at all
    Tell(DISPID_AMBIENT_LOCALEID);
    EXPECT_NE(ShownTime(control), L"");
}

struct ModeCase {
    const char* name;
    bool userMode;
    bool dead;
    friend void PrintTo(const ModeCase& test, std::ostream* out) { *out << test.name; }
};

class NotForUse : public AmbientTest, public testing::WithParamInterface<ModeCase> {};

TEST_P(NotForUse, TheControlShowsItselfButTakesNoInput) {
    ASSERT_EQ(control.container.ActivateUI(), S_OK);
    ASSERT_TRUE(IsChild(Window(), GetFocus()));
    Ambients().userMode = GetParam().userMode;
    Ambients().userInterfaceDead = GetParam().dead;
    Tell(DISPID_UNKNOWN);
    EXPECT_TRUE(IsWindowVisible(Window()));
    EXPECT_FALSE(IsWindowEnabled(Window()));
    EXPECT_FALSE(IsChild(Window(), GetFocus())) << "the keyboard is the container's again";
    EXPECT_EQ(control.container.HostFrame().ActiveObject(), nullptr);
    EXPECT_EQ(control.container.ActivateUI(), OLEOBJ_S_CANNOT_DOVERB_NOW);
    MSG message{FindCaption(Window(), L"View"), WM_KEYDOWN, VK_RETURN, 1, 1, {}};
    EXPECT_EQ(As<IOleInPlaceActiveObject>(control.Viewer())->TranslateAccelerator(&message), S_FALSE);
    CONTROLINFO info{};
    info.cb = sizeof info;
    EXPECT_EQ(As<IOleControl>(control.Viewer())->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 0);

    Ambients().userMode = true;
    Ambients().userInterfaceDead = false;
    Tell(DISPID_UNKNOWN);
    EXPECT_TRUE(IsWindowEnabled(Window()));
    EXPECT_EQ(control.container.ActivateUI(), S_OK);
    EXPECT_TRUE(IsChild(Window(), GetFocus()));
}

INSTANTIATE_TEST_SUITE_P(Modes, NotForUse,
                         testing::Values(ModeCase{"while a form is designed", false, false},
                                         ModeCase{"while the program stands still", true, true}));

TEST_F(AmbientTest, NoEventsComeWhileAFormIsDesigned) {
    int events = 0;
    control.sink->On(4, [&](DISPPARAMS&) { ++events; });
    Ambients().userMode = false;
    Tell(DISPID_AMBIENT_USERMODE);
    EXPECT_EQ(SetSessionUnits(control.Viewer(), {L"1"}), S_OK);
    EXPECT_EQ(events, 0);
    Ambients().userMode = true;
    Tell(DISPID_AMBIENT_USERMODE);
    EXPECT_EQ(SetSessionUnits(control.Viewer(), {L"1"}), S_OK);
    EXPECT_EQ(events, 1);
}

TEST_F(AmbientTest, NothingOfWhatWasReadIsKept) {
    Ambients().font = MakeFont(L"Tahoma", 10);
    Tell(DISPID_AMBIENT_FONT);
    const ULONG references = ReferencesOf(Ambients().font.Get());
    EXPECT_EQ(references, 1u);
    for (int i = 0; i < 50; ++i) Tell(DISPID_UNKNOWN);
    EXPECT_EQ(ReferencesOf(Ambients().font.Get()), references);
}

TEST_F(AmbientTest, PropertiesThatTheControlDoesNotFollowChangeNothing) {
    for (const DISPID id : {DISPID_AMBIENT_APPEARANCE, DISPID_AMBIENT_RIGHTTOLEFT, 12345, -12345}) Tell(id);
    EXPECT_TRUE(IsWindowEnabled(Window()));
}

/// Offers ambient properties of the wrong types.
class OddAmbients final : public container::Unknown<IOleClientSite, IDispatch> {
public:
    STDMETHODIMP SaveObject() override { return S_OK; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        return VariantCopy(result, &value);
    }
    _variant_t value;
};

TEST(Ambients, OfTheWrongTypeCountAsNotOffered) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    const auto site = container::Make<OddAmbients>();
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    const _variant_t odd[] = {_variant_t(L"text"), _variant_t(1.5),
                              _variant_t(static_cast<IDispatch*>(nullptr)), _variant_t(),
                              _variant_t(static_cast<IDispatch*>(site.Get()))};
    const ULONG references = ReferencesOf(static_cast<IOleClientSite*>(site.Get()));
    for (const _variant_t& value : odd) {
        site->value = value;
        EXPECT_EQ(As<IOleObject>(viewer.Get())->SetClientSite(site.Get()), S_OK);
        EXPECT_EQ(As<IOleControl>(viewer.Get())->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    }
    site->value.Clear();
    EXPECT_EQ(As<IOleObject>(viewer.Get())->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(ReferencesOf(static_cast<IOleClientSite*>(site.Get())), references);
}

}  // namespace
}  // namespace dlv::test
