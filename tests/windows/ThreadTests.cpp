// Calls from a thread that the control does not belong to.
#include <thread>

#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

TEST(Threads, OtherThanItsOwnAreRefused) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    const ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    std::vector<HRESULT> results;
    std::thread other([&] {
        DISPPARAMS none{};
        SIZE extent{1000, 1000};
        LONG count = 0;
        results = {viewer->StopControl(),
                   viewer->ResizeControls(),
                   Receive(viewer.Get(), nullptr),
                   viewer->Invoke(0x6003000D, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
                   As<IOleObject>(viewer.Get())->SetExtent(DVASPECT_CONTENT, &extent),
                   As<IOleObject>(viewer.Get())->SetClientSite(nullptr),
                   As<IOleInPlaceObject>(viewer.Get())->InPlaceDeactivate(),
                   message->get_DataCount(&count)};
    });
    other.join();
    for (std::size_t i = 0; i < results.size(); ++i)
        EXPECT_EQ(results[i], RPC_E_WRONG_THREAD) << "call " << i;
    // And the control is as it was.
    EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"1"}), S_OK);
}

TEST(Threads, MayEachHaveControlsOfTheirOwn) {
    const Library& library = ControlLibrary();
    HRESULT result = E_FAIL;
    std::thread other([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        {
            const ComPtr<_DLViewer> viewer = As<_DLViewer>(library.Create(kControl).Get());
            result = Initialize(viewer.Get());
            if (SUCCEEDED(result)) result = viewer->StopControl();
        }
        CoUninitialize();
    });
    other.join();
    EXPECT_EQ(result, S_OK);
    EXPECT_EQ(CanUnload(), S_OK);
}

}  // namespace
}  // namespace dlv::test
