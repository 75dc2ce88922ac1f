// The control in the system's own container, the window class that comes with the system.
#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

class AtlContainer : public testing::Test {
protected:
    void SetUp() override {
        library_ = LoadLibraryW(L"atl.dll");
        ASSERT_NE(library_, nullptr);
        const auto init = Function<BOOL(WINAPI*)()>("AtlAxWinInit");
        getControl_ = Function<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl");
        attach_ = Function<HRESULT(WINAPI*)(IUnknown*, HWND, IUnknown**)>("AtlAxAttachControl");
        ASSERT_TRUE(init != nullptr && getControl_ != nullptr && attach_ != nullptr);
        ASSERT_TRUE(init());
    }

    template <class Type>
    Type Function(const char* name) const {
        return reinterpret_cast<Type>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
    }

    HMODULE library_ = nullptr;
    HRESULT(WINAPI* getControl_)(HWND, IUnknown**) = nullptr;
    HRESULT(WINAPI* attach_)(IUnknown*, HWND, IUnknown**) = nullptr;
    HostWindow window_;
};

TEST_F(AtlContainer, MakesTheControlByNameShowsItAndLetsItGo) {
    HWND holder = nullptr;
    {
        const Library::Scope scope(ControlLibrary());
        holder = CreateWindowExW(0, L"AtlAxWin", kControl, WS_CHILD | WS_VISIBLE, 0, 0, 900, 600,
                                 window_.Handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
    }
    ASSERT_NE(holder, nullptr);
    ComPtr<IUnknown> control;
    ASSERT_EQ(getControl_(holder, &control), S_OK);
    const auto viewer = As<_DLViewer>(control.Get());
    ASSERT_TRUE(viewer);
    const auto sink = container::Make<EventSink>();
    int requests = 0;
    sink->On(4, [&](DISPPARAMS&) { ++requests; });
    ASSERT_EQ(sink->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
    EXPECT_EQ(Initialize(viewer.Get()), S_OK);
    EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"12"}), S_OK);
    EXPECT_EQ(requests, 1);
    EXPECT_EQ(Receive(viewer.Get(), SampleMessage().Get()), S_OK);
    HWND shown = nullptr;
    EXPECT_EQ(As<IOleInPlaceObject>(control.Get())->GetWindow(&shown), S_OK);
    EXPECT_TRUE(IsWindowVisible(shown));
    EXPECT_EQ(GetParent(shown), holder);
    PumpMessages();
    EXPECT_EQ(viewer->StopControl(), S_OK);
    sink->Disconnect();
    DestroyWindow(holder);
}

}  // namespace
}  // namespace dlv::test
