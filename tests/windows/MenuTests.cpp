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

TEST(ProfileMenu, OpensAtItsButtonAndDoesWhatIsChosen) {
    HostedControl control;
    control.StartUp();
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    int saved = 0;
    control.sink->On(5, [&](DISPPARAMS&) { ++saved; });
    {
        const MenuKeys keys(control, {VK_DOWN, VK_DOWN, VK_RETURN});
        PressProfiles(control);
        EXPECT_TRUE(keys.Seen()) << "no menu opened";
    }
    EXPECT_EQ(saved, 1);
    {
        const MenuKeys keys(control, {VK_ESCAPE});
        PressProfiles(control);
        EXPECT_TRUE(keys.Seen()) << "no menu opened";
    }
    EXPECT_EQ(saved, 1);
    EXPECT_EQ(OpenMenu(), nullptr);
}

TEST(ProfileMenu, GoesWithAControlThatIsStopped) {
    HostedControl control;
    control.StartUp();
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    static _DLViewer* viewer = nullptr;
    viewer = control.Viewer();
    const UINT_PTR timer = SetTimer(nullptr, 0, kEvery, [](HWND, UINT, UINT_PTR id, DWORD) {
        if (OpenMenu() == nullptr) return;
        KillTimer(nullptr, id);
        EXPECT_EQ(viewer->StopControl(), S_OK);
    });
    PressProfiles(control);
    KillTimer(nullptr, timer);
    EXPECT_EQ(OpenMenu(), nullptr);
}

}  // namespace
}  // namespace dlv::test
