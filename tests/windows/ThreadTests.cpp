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

TEST(Threads, OtherThanItsOwnAreRefusedAtEveryEntry) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ComPtr<IEnumOLEVERB> verbs;
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(As<IOleObject>(viewer.Get())->EnumVerbs(&verbs), S_OK);
    ASSERT_EQ(As<IConnectionPointContainer>(viewer.Get())->FindConnectionPoint(__uuidof(__DLViewer), &point),
              S_OK);
    std::vector<HRESULT> results;
    std::thread other([&] {
        const auto object = As<IOleObject>(viewer.Get());
        const auto place = As<IOleInPlaceObject>(viewer.Get());
        const auto active = As<IOleInPlaceActiveObject>(viewer.Get());
        const auto control = As<IOleControl>(viewer.Get());
        const auto view = As<IViewObject2>(viewer.Get());
        const auto stream = As<IPersistStreamInit>(viewer.Get());
        const auto storage = As<IPersistStorage>(viewer.Get());
        const auto bag = As<IPersistPropertyBag>(viewer.Get());
        const auto info = As<IProvideClassInfo2>(viewer.Get());
        const auto points = As<IConnectionPointContainer>(viewer.Get());
        SIZE size{1, 1};
        RECT rect{0, 0, 1, 1};
        MSG key{};
        key.message = WM_KEYDOWN;
        DWORD number = 0;
        UINT count = 0;
        GUID id{};
        HWND window = nullptr;
        LPOLESTR name = nullptr;
        OLEVERB verb{};
        CONTROLINFO keys{};
        ULARGE_INTEGER bytes{};
        ComPtr<ITypeInfo> type;
        ComPtr<IEnumOLEVERB> moreVerbs;
        ComPtr<IEnumSTATDATA> advises;
        ComPtr<IEnumConnections> connections;
        ComPtr<IEnumConnectionPoints> allPoints;
        ComPtr<IConnectionPoint> onePoint;
        ComPtr<IConnectionPointContainer> back;
        ComPtr<IOleClientSite> site;
        ComPtr<IStream> memory;
        CreateStreamOnHGlobal(nullptr, TRUE, &memory);
        results = {object->GetClientSite(&site),
                   object->SetHostNames(L"", L""),
                   object->Close(OLECLOSE_NOSAVE),
                   object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr),
                   object->EnumVerbs(&moreVerbs),
                   object->Update(),
                   object->IsUpToDate(),
                   object->GetUserClassID(&id),
                   object->GetUserType(USERCLASSTYPE_FULL, &name),
                   object->GetExtent(DVASPECT_CONTENT, &size),
                   object->Unadvise(1),
                   object->EnumAdvise(&advises),
                   object->GetMiscStatus(DVASPECT_CONTENT, &number),
                   object->SetColorScheme(nullptr),
                   place->GetWindow(&window),
                   place->ContextSensitiveHelp(FALSE),
                   place->UIDeactivate(),
                   place->SetObjectRects(&rect, &rect),
                   place->ReactivateAndUndo(),
                   active->TranslateAccelerator(&key),
                   active->OnFrameWindowActivate(TRUE),
                   active->OnDocWindowActivate(TRUE),
                   active->ResizeBorder(&rect, nullptr, FALSE),
                   active->EnableModeless(TRUE),
                   control->GetControlInfo(&keys),
                   control->OnMnemonic(&key),
                   control->OnAmbientPropertyChange(DISPID_UNKNOWN),
                   control->FreezeEvents(TRUE),
                   view->Freeze(DVASPECT_CONTENT, -1, nullptr, &number),
                   view->Unfreeze(1),
                   view->SetAdvise(0, 0, nullptr),
                   view->GetAdvise(nullptr, nullptr, nullptr),
                   view->GetExtent(DVASPECT_CONTENT, -1, nullptr, &size),
                   stream->GetClassID(&id),
                   stream->IsDirty(),
                   stream->Load(memory.Get()),
                   stream->Save(memory.Get(), TRUE),
                   stream->GetSizeMax(&bytes),
                   stream->InitNew(),
                   storage->IsDirty(),
                   storage->SaveCompleted(nullptr),
                   storage->HandsOffStorage(),
                   bag->InitNew(),
                   info->GetClassInfo(&type),
                   info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id),
                   points->EnumConnectionPoints(&allPoints),
                   points->FindConnectionPoint(__uuidof(__DLViewer), &onePoint),
                   point->GetConnectionInterface(&id),
                   point->GetConnectionPointContainer(&back),
                   point->Unadvise(1),
                   point->EnumConnections(&connections),
                   viewer->GetTypeInfoCount(&count),
                   viewer->GetTypeInfo(0, 0, &type),
                   As<ISupportErrorInfo>(viewer.Get())->InterfaceSupportsErrorInfo(__uuidof(_DLViewer)),
                   verbs->Next(1, &verb, nullptr),
                   verbs->Skip(1),
                   verbs->Reset(),
                   verbs->Clone(&moreVerbs)};
    });
    other.join();
    for (std::size_t i = 0; i < results.size(); ++i)
        EXPECT_EQ(results[i], RPC_E_WRONG_THREAD) << "call " << i;
}

TEST(Threads, MayLetGoOfAControlThatIsNotActive) {
    ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    std::thread other([&] { viewer.Reset(); });
    other.join();
    EXPECT_EQ(CanUnload(), S_OK);
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
