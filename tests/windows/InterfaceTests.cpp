// The control as an OLE object: which interfaces it answers to, what they say without a container, what it
// keeps.
#include <ocidl.h>

#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

struct InterfaceCase {
    const char* name;
    IID id;
    friend void PrintTo(const InterfaceCase& test, std::ostream* out) { *out << test.name; }
};

class Answers : public testing::TestWithParam<InterfaceCase> {};

TEST_P(Answers, WithAPointerThatLeadsBackToTheSameObject) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ComPtr<IUnknown> found;
    ASSERT_EQ(viewer.CopyTo(GetParam().id, reinterpret_cast<void**>(found.GetAddressOf())), S_OK);
    EXPECT_EQ(As<IUnknown>(found.Get()).Get(), As<IUnknown>(viewer.Get()).Get());
    EXPECT_EQ(As<_DLViewer>(found.Get()).Get(), viewer.Get());
    found.Reset();
    EXPECT_EQ(ReferencesOf(viewer.Get()), 1u);
}

#define CASE(name) \
    InterfaceCase { #name, IID_##name }
INSTANTIATE_TEST_SUITE_P(Control, Answers,
                         testing::Values(CASE(IUnknown), CASE(IDispatch), CASE(IOleObject), CASE(IOleWindow),
                                         CASE(IOleInPlaceObject), CASE(IOleInPlaceActiveObject),
                                         CASE(IOleControl), CASE(IViewObject), CASE(IViewObject2),
                                         CASE(IConnectionPointContainer), CASE(IProvideClassInfo),
                                         CASE(IProvideClassInfo2), CASE(IPersist), CASE(IPersistStreamInit),
                                         CASE(IPersistStorage), CASE(IPersistPropertyBag),
                                         CASE(ISupportErrorInfo),
                                         InterfaceCase{"_DLViewer", __uuidof(_DLViewer)}));
#undef CASE

TEST(Control, DoesNotAnswerToWhatItIsNot) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    void* found = &found;
    EXPECT_EQ(viewer->QueryInterface(IID_IPersistFile, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(viewer->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(Control, TellsItsClassAndItsEvents) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    GUID events{};
    EXPECT_EQ(As<IProvideClassInfo2>(viewer.Get())->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(IsEqualGUID(events, __uuidof(__DLViewer)));
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(As<IProvideClassInfo2>(viewer.Get())->GetClassInfo(&info), S_OK);
    BSTR name = nullptr;
    EXPECT_EQ(info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr), S_OK);
    EXPECT_STREQ(name, L"DLViewer");
    SysFreeString(name);

    const ComPtr<IOleObject> object = As<IOleObject>(viewer.Get());
    CLSID id{};
    EXPECT_EQ(object->GetUserClassID(&id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, __uuidof(::DLViewer)));
    DWORD status = 0;
    EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, 0x20191u);
    LPOLESTR type = nullptr;
    EXPECT_EQ(object->GetUserType(USERCLASSTYPE_FULL, &type), S_OK);
    EXPECT_STREQ(type, L"Dashlon Viewer Control");
    CoTaskMemFree(type);
}

TEST(Control, ListsItsVerbs) {
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(As<IOleObject>(New<_DLViewer>(L"DLViewer").Get())->EnumVerbs(&verbs), S_OK);
    std::vector<LONG> found;
    OLEVERB verb{};
    while (verbs->Next(1, &verb, nullptr) == S_OK) found.push_back(verb.lVerb);
    EXPECT_EQ(found, (std::vector<LONG>{OLEIVERB_PRIMARY, OLEIVERB_SHOW, OLEIVERB_HIDE, OLEIVERB_UIACTIVATE,
                                        OLEIVERB_INPLACEACTIVATE}));
}

TEST(Control, WithoutASiteCannotBecomeActive) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    EXPECT_TRUE(
        FAILED(As<IOleObject>(viewer.Get())->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr)));
    HWND window = nullptr;
    EXPECT_TRUE(FAILED(As<IOleInPlaceObject>(viewer.Get())->GetWindow(&window)));
    EXPECT_EQ(As<IOleInPlaceObject>(viewer.Get())->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(As<IOleObject>(viewer.Get())->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(As<IOleObject>(viewer.Get())->SetClientSite(nullptr), S_OK);
}

class KeptExtent : public testing::TestWithParam<SIZE> {};

TEST_P(KeptExtent, ComesBackExactlyFromObjectStreamStorageAndBag) {
    SIZE wanted = GetParam();
    const ComPtr<_DLViewer> first = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(As<IOleObject>(first.Get())->SetExtent(DVASPECT_CONTENT, &wanted), S_OK);
    const auto expectExtent = [&](IUnknown* control) {
        SIZE found{};
        EXPECT_EQ(As<IOleObject>(control)->GetExtent(DVASPECT_CONTENT, &found), S_OK);
        EXPECT_EQ(found.cx, wanted.cx);
        EXPECT_EQ(found.cy, wanted.cy);
        EXPECT_EQ(As<IViewObject2>(control)->GetExtent(DVASPECT_CONTENT, -1, nullptr, &found), S_OK);
        EXPECT_EQ(found.cx, wanted.cx);
    };
    expectExtent(first.Get());

    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>(first.Get())->IsDirty(), S_OK);
    ASSERT_EQ(As<IPersistStreamInit>(first.Get())->Save(stream.Get(), TRUE), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>(first.Get())->IsDirty(), S_FALSE);
    ASSERT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    const ComPtr<_DLViewer> second = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(As<IPersistStreamInit>(second.Get())->Load(stream.Get()), S_OK);
    expectExtent(second.Get());

    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    ASSERT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, &bytes), S_OK);
    ASSERT_EQ(StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                           0, &storage),
              S_OK);
    ASSERT_EQ(As<IPersistStorage>(second.Get())->Save(storage.Get(), FALSE), S_OK);
    ASSERT_EQ(As<IPersistStorage>(second.Get())->SaveCompleted(nullptr), S_OK);
    const ComPtr<_DLViewer> third = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(As<IPersistStorage>(third.Get())->Load(storage.Get()), S_OK);
    expectExtent(third.Get());
}

INSTANTIATE_TEST_SUITE_P(Sizes, KeptExtent,
                         testing::Values(SIZE{23812, 15875}, SIZE{1, 1}, SIZE{0, 0}, SIZE{12345, 6789},
                                         SIZE{1000000, 2000000}));

TEST(Control, RefusesAStreamThatItDidNotWrite) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    EXPECT_TRUE(FAILED(As<IPersistStreamInit>(viewer.Get())->Load(stream.Get())));
    ASSERT_EQ(stream->Write("this is a stream of somebody else's", 34, nullptr), S_OK);
    ASSERT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>(viewer.Get())->Load(stream.Get()), STG_E_DOCFILECORRUPT);
}

TEST(Control, OffersItsEventsAndPropertyChangesAtConnectionPoints) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    const auto container = As<IConnectionPointContainer>(viewer.Get());
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(&points), S_OK);
    std::vector<IID> found;
    IConnectionPoint* point = nullptr;
    while (points->Next(1, &point, nullptr) == S_OK) {
        IID id{};
        EXPECT_EQ(point->GetConnectionInterface(&id), S_OK);
        found.push_back(id);
        ComPtr<IConnectionPointContainer> back;
        EXPECT_EQ(point->GetConnectionPointContainer(&back), S_OK);
        EXPECT_EQ(back.Get(), container.Get());
        point->Release();
    }
    ASSERT_EQ(found.size(), 2u);
    EXPECT_TRUE(IsEqualGUID(found[0], __uuidof(__DLViewer)));
    EXPECT_TRUE(IsEqualGUID(found[1], IID_IPropertyNotifySink));
    ComPtr<IConnectionPoint> none;
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, &none), CONNECT_E_NOCONNECTION);
}

TEST(Control, ListsTheAdvisesOfItsContainer) {
    const ComPtr<IOleObject> object = As<IOleObject>(New<_DLViewer>(L"DLViewer").Get());
    ComPtr<IEnumSTATDATA> advises;
    EXPECT_EQ(object->EnumAdvise(&advises), S_OK);
    EXPECT_TRUE(FAILED(object->Unadvise(77)));
}

}  // namespace
}  // namespace dlv::test
