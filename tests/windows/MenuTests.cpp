// The pop-up menu of the profiles, opened and used as a person does.
#include "tests/windows/Dialogs.h"

namespace dlv::test {
namespace {

constexpr UINT kEvery = 20;  // milliseconds

/// Types keys into the next menu that opens on this thread.
class MenuKeys {
public:
    MenuKeys(const HostedControl& control, std::vector<WPARAM> keys)
        : control_(control.container.ControlWindow()), keys_(std::move(keys)) {
        current_ = this;
        timer_ = SetTimer(nullptr, 0, kEvery, Tick);
    }
    ~MenuKeys() {
        KillTimer(nullptr, timer_);
        current_ = nullptr;
    }
    MenuKeys(const MenuKeys&) = delete;
    MenuKeys& operator=(const MenuKeys&) = delete;

    bool Seen() const { return keys_.empty(); }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (current_ == nullptr || OpenMenu() == nullptr) return;
        for (const WPARAM key : std::exchange(current_->keys_, {})) {
            PostMessageW(current_->control_, WM_KEYDOWN, key, 1);
            PostMessageW(current_->control_, WM_KEYUP, key, 1);
        }
    }

    static inline MenuKeys* current_ = nullptr;
    const HWND control_;
    std::vector<WPARAM> keys_;
    UINT_PTR timer_ = 0;
};

void ShowFigures(HostedControl& control) {
    control.StartUp();
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
}

TEST(ProfileMenu, OpensAtItsButtonAndDoesWhatIsChosen) {
    HostedControl control;
    ShowFigures(control);
    int saved = 0;
    control.sink->On(5, [&](DISPPARAMS&) { ++saved; });
    {
        const MenuKeys keys(control, {VK_DOWN, VK_DOWN, VK_RETURN});
        Press(control, Tool::Profiles);
        EXPECT_TRUE(keys.Seen()) << "no menu opened";
    }
    EXPECT_EQ(saved, 1);
    // Where the mouse is, by the button's arrow too.
    SetCursorPos(700, 500);
    const HWND bar = control.WindowOf(TOOLBARCLASSNAMEW);
    RECT button{};
    SendMessageW(bar, TB_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&button));
    for (const LONG x : {button.left + 8, button.right - 4}) {
        bool seen = false;
        const Person person({[&](HWND menu) {
            RECT place{};
            GetWindowRect(menu, &place);
            EXPECT_EQ(place.left, 700);
            EXPECT_EQ(place.top, 500);
            seen = true;
            return Person::Keys({VK_ESCAPE})(menu);
        }});
        SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, button.top + 8));
        SendMessageW(bar, WM_LBUTTONUP, 0, MAKELPARAM(x, button.top + 8));
        EXPECT_TRUE(seen) << "no menu opened at " << x;
    }
    EXPECT_EQ(saved, 1);
    EXPECT_EQ(OpenMenu(), nullptr);
}

/// The host's list of all names, as the answer to a request.
void AnswerNames(const HostedControl& control, const std::vector<std::wstring>& names) {
    std::wstring list = L"<ProfileIDs>";
    for (const std::wstring& name : names) list += L"<ProfileID>" + name + L"</ProfileID>";
    ASSERT_EQ(AnswerProfiles(control.Viewer(), (list + L"</ProfileIDs>").c_str(), L"AddProfiles"), S_OK);
}

/// The inner menu of the one that is open.
HMENU ProfilesIn(HWND menu) {
    return GetSubMenu(reinterpret_cast<HMENU>(SendMessageW(menu, MN_GETHMENU, 0, 0)), 0);
}

/// What an open menu says, without separators and the marks of access keys.
std::wstring LinesOf(HWND window) {
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0));
    std::wstring lines;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[80] = {};
        if (GetMenuStringW(menu, static_cast<UINT>(i), text, 80, MF_BYPOSITION) == 0) continue;
        lines += std::wstring(text) + L'|';
    }
    std::erase(lines, L'&');
    return lines;
}

TEST(ProfileMenu, ShowsEveryNameInOneLineAndAsksForItExactly) {
    const std::wstring longName = L"L" + std::wstring(50000, L'o') + L"ng";
    // As the menu has it, where two ampersands show one.
    const struct {
        std::wstring name;
        std::wstring shown;
    } names[] = {{L"a\tb", L"a\u2192b"},
                 {L"Default", L"Default"},
                 {longName, L"L" + std::wstring(52, L'o') + L"\u2026" + std::wstring(24, L'o') + L"ng"},
                 {L"R&D && more", L"R&&D &&&& more"},
                 {L"two\r\nlines", L"two\u00B6lines"},
                 {L"\u05D0\u05D1 \u202E", L"\u05D0\u05D1 \u202E"}};
    HostedControl control;
    ShowFigures(control);
    std::vector<std::wstring> list;
    for (const auto& row : names) list.push_back(row.name);
    AnswerNames(control, list);
    std::wstring asked;
    control.sink->On(3, [&](DISPPARAMS& parameters) {
        _bstr_t name;
        const ComPtr<_DLVParams> params = As<_DLVParams>(*parameters.rgvarg[0].ppdispVal);
        params->get_ProfileName(name.GetAddress());
        asked = name;
    });
    for (std::size_t i = 0; i < std::size(names); ++i) {
        std::vector<WPARAM> keys(i, VK_DOWN);
        keys.insert(keys.begin(), {VK_DOWN, VK_RIGHT});
        keys.push_back(VK_RETURN);
        const Person person({[&](HWND menu) {
            wchar_t text[200] = {};
            GetMenuStringW(ProfilesIn(menu), static_cast<UINT>(i), text, 200, MF_BYPOSITION);
            EXPECT_EQ(text, names[i].shown);
            EXPECT_EQ(LinesOf(menu),
                      L"Use Profile|Save Current Profile|Save Current Profile As|Manage Profiles|");
            return Person::Keys(keys)(menu);
        }});
        Press(control, Tool::Profiles);
        EXPECT_TRUE(asked == names[i].name) << "of the name in line " << i;
    }
}

TEST(ProfileMenu, HoldsTenThousandNamesAndGoesToALetter) {
    HostedControl control;
    ShowFigures(control);
    std::vector<std::wstring> names;
    for (int i = 0; i < 10000; ++i) names.push_back(L"Name " + std::to_wstring(i));
    names.emplace_back(L"Zulu");
    AnswerNames(control, names);
    const Person person({[&](HWND menu) {
        EXPECT_EQ(GetMenuItemCount(ProfilesIn(menu)), 10002);
        PostMessageW(menu, WM_KEYDOWN, VK_DOWN, 1);
        PostMessageW(menu, WM_KEYDOWN, VK_RIGHT, 1);
        PostMessageW(menu, WM_CHAR, 'z', 1);
        return true;
    }});
    std::wstring asked;
    control.sink->On(3, [&](DISPPARAMS&) { asked = L"something"; });
    Press(control, Tool::Profiles);
    EXPECT_EQ(asked, L"something");
}

TEST(ProfileMenu, StandsBelowItsButtonForTheKeyboard) {
    HostedControl control;
    ShowFigures(control);
    const HWND bar = control.WindowOf(TOOLBARCLASSNAMEW);
    RECT button{};
    SendMessageW(bar, TB_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&button));
    MapWindowPoints(bar, nullptr, reinterpret_cast<POINT*>(&button), 2);
    int saved = 0;
    control.sink->On(5, [&](DISPPARAMS&) { ++saved; });
    SetCursorPos(700, 500);
    const struct {
        UINT message;
        WPARAM key;
    } ways[] = {{WM_CHAR, VK_SPACE}, {WM_CHAR, VK_RETURN}, {WM_KEYDOWN, VK_DOWN}, {WM_SYSKEYDOWN, VK_DOWN}};
    for (const auto& way : ways) {
        const Person person({[&](HWND menu) {
            RECT place{};
            GetWindowRect(menu, &place);
            EXPECT_EQ(place.left, button.left);
            EXPECT_EQ(place.top, button.bottom);
            // The first entry is marked already.
            return Person::Keys({VK_DOWN, VK_RETURN})(menu);
        }});
        SetFocus(bar);
        for (const WPARAM key : {VK_HOME, VK_RIGHT, VK_RIGHT}) SendMessageW(bar, WM_KEYDOWN, key, 1);
        SendMessageW(bar, way.message, way.key, 1);
        EXPECT_EQ(GetFocus(), bar);
    }
    EXPECT_EQ(saved, 4);
}

_DLViewer* stoppedByTimer = nullptr;

void CALLBACK StopOnceTheMenuIsOpen(HWND, UINT, UINT_PTR timer, DWORD) {
    if (OpenMenu() == nullptr) return;
    KillTimer(nullptr, timer);
    EXPECT_EQ(stoppedByTimer->StopControl(), S_OK);
}

TEST(ProfileMenu, GoesWithAControlThatIsStopped) {
    HostedControl control;
    ShowFigures(control);
    stoppedByTimer = control.Viewer();
    const UINT_PTR timer = SetTimer(nullptr, 0, kEvery, StopOnceTheMenuIsOpen);
    Press(control, Tool::Profiles);
    KillTimer(nullptr, timer);
    EXPECT_EQ(OpenMenu(), nullptr);
}

}  // namespace
}  // namespace dlv::test
