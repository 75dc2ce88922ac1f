// Verbs, places and sinks: what a container asks of the control as an OLE object.
#include <olectl.h>

#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

struct VerbCase {
    const char* name;
    LONG verb;
    HRESULT result;
    bool window;
    bool active;
    friend void PrintTo(const VerbCase& test, std::ostream* out) { *out << test.name; }
};

/// A control in its container, not active yet.
class Inserted : public testing::Test {
protected:
    Inserted() { EXPECT_EQ(container.Insert(viewer.Get()), S_OK); }
    IOleObject* Object() const { return object.Get(); }
    bool IsActive() const { return container.HostFrame().ActiveObject() != nullptr; }

    HostWindow window;
    ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ComPtr<IOleObject> object = As<IOleObject>(viewer.Get());
    Container container{window.Handle(), window.Handle(), kPlace};
};

class Verb : public Inserted, public testing::WithParamInterface<VerbCase> {};

TEST_P(Verb, DoesWhatItSaysWhateverGoesWithIt) {
    // Some containers give all of it, some nothing, some a wrong index.
    EXPECT_EQ(Object()->DoVerb(GetParam().verb, nullptr, nullptr, -1, nullptr, nullptr), GetParam().result);
    EXPECT_EQ(container.ControlWindow() != nullptr && IsWindowVisible(container.ControlWindow()),
              GetParam().window);
    EXPECT_EQ(IsActive(), GetParam().active);
    EXPECT_EQ(
        Object()->DoVerb(GetParam().verb, nullptr, &container.ControlSite(), 0, window.Handle(), &kPlace),
        GetParam().result)
        << "a second time";
}

constexpr LONG kUnknownBelow = -4711;
INSTANTIATE_TEST_SUITE_P(
    All, Verb,
    testing::Values(VerbCase{"PRIMARY", OLEIVERB_PRIMARY, S_OK, true, true},
                    VerbCase{"SHOW", OLEIVERB_SHOW, S_OK, true, false},
                    VerbCase{"OPEN", OLEIVERB_OPEN, S_OK, true, false},
                    VerbCase{"HIDE", OLEIVERB_HIDE, S_OK, false, false},
                    VerbCase{"UIACTIVATE", OLEIVERB_UIACTIVATE, S_OK, true, true},
                    VerbCase{"INPLACEACTIVATE", OLEIVERB_INPLACEACTIVATE, S_OK, true, false},
                    VerbCase{"DISCARDUNDOSTATE", OLEIVERB_DISCARDUNDOSTATE, S_OK, false, false},
                    VerbCase{"PROPERTIES", OLEIVERB_PROPERTIES, E_NOTIMPL, false, false},
                    VerbCase{"unknown below 0", kUnknownBelow, E_NOTIMPL, false, false},
                    VerbCase{"lowest", LONG_MIN, E_NOTIMPL, false, false},
                    VerbCase{"unknown above 0", 1, OLEOBJ_S_INVALIDVERB, true, true},
                    VerbCase{"highest", LONG_MAX, OLEOBJ_S_INVALIDVERB, true, true}));

TEST_F(Inserted, HideAndShowKeepTheWindow) {
    ASSERT_EQ(container.ActivateUI(), S_OK);
    const HWND shown = container.ControlWindow();
    EXPECT_EQ(Object()->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_FALSE(IsWindowVisible(shown));
    EXPECT_FALSE(IsActive());
    EXPECT_EQ(Object()->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_TRUE(IsWindowVisible(shown));
    EXPECT_EQ(container.ControlWindow(), shown);
}

TEST(Placing, APositionRequestIsNeverAnsweredWithAnother) {
    int depth = 0;
    int deepest = 0;
    int requests = 0;
    IUnknown* asking = nullptr;
    const CallListener listener([&](std::string_view call) {
        if (asking == nullptr || !call.starts_with("IOleInPlaceSite.OnPosRectChange")) return;
        ++requests;
        deepest = std::max(deepest, ++depth);
        // The container has a size of its own in mind, and says so at once in both ways.
        const RECT other{0, 0, 333 + requests, 222};
        SIZE extent{12000 + requests, 9000};
        As<IOleInPlaceObject>(asking)->SetObjectRects(&other, &other);
        As<IOleObject>(asking)->SetExtent(DVASPECT_CONTENT, &extent);
        --depth;
    });
    HostedControl control(listener.Recorder());
    asking = control.Viewer();
    SIZE extent{20000, 15000};
    EXPECT_EQ(As<IOleObject>(control.Viewer())->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(requests, 1);
    asking = nullptr;
}

/// Counts what a container's view and object sinks are told.
class AdviseSink final : public container::Unknown<IAdviseSink> {
public:
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { ++views; }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override { ++closes; }
    int views = 0;
    int closes = 0;
};

TEST_F(Inserted, AdvisesAreListedToldAndLetGo) {
    const auto sink = container::Make<AdviseSink>();
    const auto other = container::Make<AdviseSink>();
    DWORD connections[2] = {};
    ASSERT_EQ(Object()->Advise(sink.Get(), &connections[0]), S_OK);
    ASSERT_EQ(Object()->Advise(other.Get(), &connections[1]), S_OK);
    EXPECT_NE(connections[0], connections[1]);
    ComPtr<IEnumSTATDATA> advises;
    ASSERT_EQ(Object()->EnumAdvise(&advises), S_OK);
    std::vector<IAdviseSink*> listed;
    STATDATA found{};
    while (advises->Next(1, &found, nullptr) == S_OK) {
        listed.push_back(found.pAdvSink);
        found.pAdvSink->Release();
    }
    advises.Reset();
    EXPECT_EQ(listed, (std::vector<IAdviseSink*>{sink.Get(), other.Get()}));
    EXPECT_EQ(Object()->Unadvise(connections[1]), S_OK);
    EXPECT_TRUE(FAILED(Object()->Unadvise(connections[1])));
    EXPECT_EQ(Object()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(sink->closes, 1);
    EXPECT_EQ(other->closes, 0);
    EXPECT_EQ(Object()->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(ReferencesOf(sink.Get()), 1u);
    EXPECT_EQ(ReferencesOf(other.Get()), 1u);
}

TEST_F(Inserted, TheViewsSinkHearsOfNewPicturesAndIsLetGoWithTheSite) {
    const auto sink = container::Make<AdviseSink>();
    const auto view = As<IViewObject2>(viewer.Get());
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, sink.Get()), S_OK);
    EXPECT_EQ(sink->views, 1);
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    EXPECT_GT(sink->views, 1);
    DWORD aspects = 0;
    DWORD flags = 0;
    ComPtr<IAdviseSink> found;
    EXPECT_EQ(view->GetAdvise(&aspects, &flags, &found), S_OK);
    EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));
    EXPECT_EQ(flags, static_cast<DWORD>(ADVF_PRIMEFIRST));
    EXPECT_EQ(found.Get(), static_cast<IAdviseSink*>(sink.Get()));
    found.Reset();
    EXPECT_EQ(view->GetAdvise(nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(Object()->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(ReferencesOf(sink.Get()), 1u);
}

TEST_F(Inserted, TheActiveDocumentGetsTheActiveObjectBack) {
    ASSERT_EQ(container.ActivateUI(), S_OK);
    const auto active = As<IOleInPlaceActiveObject>(viewer.Get());
    container.HostFrame().SetActiveObject(nullptr, nullptr);
    EXPECT_EQ(active->OnDocWindowActivate(FALSE), S_OK);
    EXPECT_FALSE(IsActive());
    EXPECT_EQ(active->OnDocWindowActivate(TRUE), S_OK);
    EXPECT_TRUE(IsActive());
    EXPECT_EQ(active->OnFrameWindowActivate(TRUE), S_OK);
}

TEST_F(Inserted, WhatItHasNotItRefusesByTheBook) {
    ComPtr<IMoniker> moniker;
    ComPtr<IDataObject> data;
    EXPECT_EQ(Object()->GetMoniker(OLEGETMONIKER_ONLYIFTHERE, OLEWHICHMK_OBJFULL, &moniker), E_NOTIMPL);
    EXPECT_EQ(Object()->SetMoniker(OLEWHICHMK_CONTAINER, nullptr), E_NOTIMPL);
    EXPECT_EQ(Object()->InitFromData(nullptr, TRUE, 0), E_NOTIMPL);
    EXPECT_EQ(Object()->GetClipboardData(0, &data), E_NOTIMPL);
    EXPECT_EQ(Object()->SetColorScheme(nullptr), E_NOTIMPL);
    EXPECT_EQ(As<IOleInPlaceObject>(viewer.Get())->ReactivateAndUndo(), INPLACE_E_NOTUNDOABLE);
    SIZE size{1, 1};
    EXPECT_EQ(Object()->SetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);
    EXPECT_EQ(Object()->GetExtent(DVASPECT_THUMBNAIL, &size), DV_E_DVASPECT);
    DWORD status = 1;
    EXPECT_EQ(Object()->GetMiscStatus(DVASPECT_ICON, &status), S_OK);
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(Object()->SetHostNames(L"host", L"form"), S_OK);
    EXPECT_EQ(Object()->Update(), S_OK);
    EXPECT_EQ(Object()->IsUpToDate(), S_OK);
}

struct NullCase {
    const char* name;
    std::function<HRESULT(IUnknown* control)> call;
    friend void PrintTo(const NullCase& test, std::ostream* out) { *out << test.name; }
};

#define OBJECT(body)                      \
    [](IUnknown* c) {                     \
        const auto o = As<IOleObject>(c); \
        return o->body;                   \
    }
#define PLACED(body)                             \
    [](IUnknown* c) {                            \
        const auto o = As<IOleInPlaceObject>(c); \
        return o->body;                          \
    }
#define VIEW(body)                          \
    [](IUnknown* c) {                       \
        const auto o = As<IViewObject2>(c); \
        return o->body;                     \
    }
#define EVENTS(body)                                     \
    [](IUnknown* c) {                                    \
        const auto o = As<IConnectionPointContainer>(c); \
        return o->body;                                  \
    }
#define STREAM(body)                              \
    [](IUnknown* c) {                             \
        const auto o = As<IPersistStreamInit>(c); \
        return o->body;                           \
    }
#define STORAGE(body)                          \
    [](IUnknown* c) {                          \
        const auto o = As<IPersistStorage>(c); \
        return o->body;                        \
    }
#define BAG(body)                                  \
    [](IUnknown* c) {                              \
        const auto o = As<IPersistPropertyBag>(c); \
        return o->body;                            \
    }
#define INFO(body)                                \
    [](IUnknown* c) {                             \
        const auto o = As<IProvideClassInfo2>(c); \
        return o->body;                           \
    }
#define CALLS(body)                      \
    [](IUnknown* c) {                    \
        const auto o = As<IDispatch>(c); \
        return o->body;                  \
    }

const NullCase kNullCases[] = {
    {"GetClientSite", OBJECT(GetClientSite(nullptr))},
    {"GetMoniker", OBJECT(GetMoniker(1, 1, nullptr))},
    {"GetClipboardData", OBJECT(GetClipboardData(0, nullptr))},
    {"EnumVerbs", OBJECT(EnumVerbs(nullptr))},
    {"GetUserClassID", OBJECT(GetUserClassID(nullptr))},
    {"GetUserType", OBJECT(GetUserType(USERCLASSTYPE_FULL, nullptr))},
    {"SetExtent", OBJECT(SetExtent(DVASPECT_CONTENT, nullptr))},
    {"GetExtent", OBJECT(GetExtent(DVASPECT_CONTENT, nullptr))},
    {"Advise", OBJECT(Advise(nullptr, nullptr))},
    {"EnumAdvise", OBJECT(EnumAdvise(nullptr))},
    {"GetMiscStatus", OBJECT(GetMiscStatus(DVASPECT_CONTENT, nullptr))},
    {"GetWindow", PLACED(GetWindow(nullptr))},
    {"SetObjectRects", PLACED(SetObjectRects(nullptr, nullptr))},
    {"ViewExtent", VIEW(GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr))},
    {"Draw",
     VIEW(Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0))},
    {"GetColorSet", VIEW(GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr))},
    {"EnumConnectionPoints", EVENTS(EnumConnectionPoints(nullptr))},
    {"FindConnectionPoint", EVENTS(FindConnectionPoint(IID_NULL, nullptr))},
    {"GetClassID", STREAM(GetClassID(nullptr))},
    {"StreamLoad", STREAM(Load(nullptr))},
    {"StreamSave", STREAM(Save(nullptr, TRUE))},
    {"GetSizeMax", STREAM(GetSizeMax(nullptr))},
    {"StorageInitNew", STORAGE(InitNew(nullptr))},
    {"StorageLoad", STORAGE(Load(nullptr))},
    {"StorageSave", STORAGE(Save(nullptr, TRUE))},
    {"BagLoad", BAG(Load(nullptr, nullptr))},
    {"BagSave", BAG(Save(nullptr, TRUE, TRUE))},
    {"GetClassInfo", INFO(GetClassInfo(nullptr))},
    {"GetGUID", INFO(GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr))},
    {"GetTypeInfoCount", CALLS(GetTypeInfoCount(nullptr))},
    {"GetTypeInfo", CALLS(GetTypeInfo(0, 0, nullptr))},
    {"GetIDsOfNames", CALLS(GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr))},
    {"Invoke", CALLS(Invoke(0x60030021, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr))},
};

class NullArgument : public testing::TestWithParam<NullCase> {};

TEST_P(NullArgument, IsRefused) {
    const HRESULT result = GetParam().call(New<_DLViewer>(L"DLViewer").Get());
    EXPECT_TRUE(result == E_POINTER || result == E_INVALIDARG) << std::hex << result;
}

INSTANTIATE_TEST_SUITE_P(Members, NullArgument, testing::ValuesIn(kNullCases));

}  // namespace
}  // namespace dlv::test
