// Connection points and their enumerators, and sinks that do what they like while they are told of an event.
#include <olectl.h>

#include <array>

#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

constexpr DISPID kGetProfileList = 4;

ComPtr<IConnectionPoint> PointOf(IUnknown* control, REFIID iid) {
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(As<IConnectionPointContainer>(control)->FindConnectionPoint(iid, &point), S_OK);
    return point;
}

/// Walks through an enumerator of `count` items in every way; `release` gives back what Next gave.
template <class Enumerator, class Item, class Release>
void ExpectEnumerates(Enumerator* items, ULONG count, Release release) {
    const auto take = [&](ULONG wanted, ULONG expected) {
        std::vector<Item> got(wanted + 1);
        ULONG fetched = 77;
        EXPECT_EQ(items->Next(wanted, got.data(), &fetched), expected == wanted ? S_OK : S_FALSE);
        EXPECT_EQ(fetched, expected);
        for (ULONG i = 0; i < fetched && i < wanted; ++i) release(got[i]);
    };
    take(count, count);
    take(1, 0);
    EXPECT_EQ(items->Reset(), S_OK);
    take(count + 5, count);
    EXPECT_EQ(items->Reset(), S_OK);
    EXPECT_EQ(items->Skip(count - 1), S_OK);
    ComPtr<Enumerator> copy;
    ASSERT_EQ(items->Clone(&copy), S_OK);
    take(1, 1);
    EXPECT_EQ(copy->Skip(1), S_OK) << "the copy stands where the first stood";
    EXPECT_EQ(copy->Skip(1), S_FALSE);
    EXPECT_EQ(items->Skip(1), S_FALSE);
    EXPECT_EQ(items->Reset(), S_OK);
    EXPECT_EQ(items->Skip(count + 1), S_FALSE);
    EXPECT_EQ(items->Skip(0), S_OK);
    EXPECT_EQ(items->Next(0, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(items->Clone(nullptr), E_POINTER);
}

TEST(Enumerators, OfPointsConnectionsAndVerbsWalkSkipResetAndClone) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(As<IConnectionPointContainer>(viewer.Get())->EnumConnectionPoints(&points), S_OK);
    ExpectEnumerates<IEnumConnectionPoints, IConnectionPoint*>(points.Get(), 2,
                                                               [](IConnectionPoint* p) { p->Release(); });
    points.Reset();

    const auto sink = container::Make<EventSink>();
    const ComPtr<IConnectionPoint> point = PointOf(viewer.Get(), __uuidof(__DLViewer));
    DWORD cookies[3] = {};
    for (DWORD& cookie : cookies)
        ASSERT_EQ(point->Advise(static_cast<IDispatch*>(sink.Get()), &cookie), S_OK);
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(&connections), S_OK);
    ExpectEnumerates<IEnumConnections, CONNECTDATA>(connections.Get(), 3,
                                                    [](CONNECTDATA& data) { data.pUnk->Release(); });
    connections.Reset();
    for (const DWORD cookie : cookies) EXPECT_EQ(point->Unadvise(cookie), S_OK);
    EXPECT_EQ(ReferencesOf(sink.Get()), 1u);

    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(As<IOleObject>(viewer.Get())->EnumVerbs(&verbs), S_OK);
    ExpectEnumerates<IEnumOLEVERB, OLEVERB>(verbs.Get(), 5,
                                            [](OLEVERB& verb) { CoTaskMemFree(verb.lpszVerbName); });
}

TEST(ConnectionPoints, AreObjectsOfTheirOwnThatHoldTheControl) {
    ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    const ComPtr<IConnectionPoint> point = PointOf(viewer.Get(), __uuidof(__DLViewer));
    EXPECT_EQ(As<IConnectionPoint>(viewer.Get()).Get(), nullptr);
    EXPECT_EQ(As<IDispatch>(point.Get()).Get(), nullptr);
    EXPECT_NE(As<IUnknown>(point.Get()).Get(), As<IUnknown>(viewer.Get()).Get());
    viewer.Reset();
    IID id{};
    EXPECT_EQ(point->GetConnectionInterface(&id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, __uuidof(__DLViewer)));
    EXPECT_EQ(point->GetConnectionInterface(nullptr), E_POINTER);
    EXPECT_EQ(point->GetConnectionPointContainer(nullptr), E_POINTER);
    EXPECT_EQ(point->EnumConnections(nullptr), E_POINTER);
}

TEST(ConnectionPoints, TakeSinksUpToALimit) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    const auto sink = container::Make<EventSink>();
    const ComPtr<IConnectionPoint> point = PointOf(viewer.Get(), __uuidof(__DLViewer));
    std::vector<DWORD> cookies;
    DWORD cookie = 0;
    HRESULT result = S_OK;
    while ((result = point->Advise(static_cast<IDispatch*>(sink.Get()), &cookie)) == S_OK &&
           cookies.size() < 5000)
        cookies.push_back(cookie);
    EXPECT_EQ(result, CONNECT_E_ADVISELIMIT);
    EXPECT_EQ(cookies.size(), 1000u);
    EXPECT_EQ(cookie, 0u);
    for (const DWORD known : cookies) EXPECT_EQ(point->Unadvise(known), S_OK);
    EXPECT_EQ(point->Unadvise(cookies[0]), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point->Unadvise(0), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(ReferencesOf(sink.Get()), 1u);
}

/// A sink that is nothing but a notify sink.
class NotifySink final : public container::Unknown<IPropertyNotifySink> {
public:
    STDMETHODIMP OnChanged(DISPID) override { return S_OK; }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }
};

TEST(ConnectionPoints, OfPropertyChangesTakeNotifySinksAlone) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    const ComPtr<IConnectionPoint> changes = PointOf(viewer.Get(), IID_IPropertyNotifySink);
    const ComPtr<IConnectionPoint> events = PointOf(viewer.Get(), __uuidof(__DLViewer));
    const auto sink = container::Make<NotifySink>();
    DWORD cookie = 0;
    EXPECT_EQ(events->Advise(sink.Get(), &cookie), CONNECT_E_CANNOTCONNECT);
    ASSERT_EQ(changes->Advise(sink.Get(), &cookie), S_OK);
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    EXPECT_EQ(changes->Unadvise(cookie), S_OK);
    EXPECT_EQ(ReferencesOf(sink.Get()), 1u);
}

/// What the first of three sinks does inside the event.
struct SinkCase {
    const char* name;
    std::function<void(class SinkTest&)> act;
    /// Calls of the first, second, third and a late sink after two events.
    std::array<int, 4> calls;
    friend void PrintTo(const SinkCase& test, std::ostream* out) { *out << test.name; }
};

class SinkTest : public testing::TestWithParam<SinkCase> {
public:
    void SetUp() override {
        ASSERT_EQ(Initialize(viewer.Get()), S_OK);
        for (int i = 0; i < 4; ++i) {
            sinks.push_back(container::Make<EventSink>());
            sinks.back()->On(kGetProfileList, [this, i](DISPPARAMS&) {
                ++calls[static_cast<std::size_t>(i)];
                if (i == 0 && !std::exchange(acted, true)) GetParam().act(*this);
            });
            if (i < 3) Connect(i);
        }
    }
    void TearDown() override {
        for (const auto& sink : sinks) sink->Disconnect();
    }
    void Connect(int i) {
        EXPECT_EQ(sinks[static_cast<std::size_t>(i)]->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
    }
    void Disconnect(int i) { EXPECT_EQ(sinks[static_cast<std::size_t>(i)]->Disconnect(), S_OK); }
    void Fire() {
        // Held by the call alone once the sink lets the control go.
        _DLViewer* const called = viewer.Get();
        if (called == nullptr) return;
        EXPECT_EQ(SetSessionUnits(called, {L"1"}), S_OK);
    }

    ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    std::vector<ComPtr<EventSink>> sinks;
    std::array<int, 4> calls{};
    bool acted = false;
};

TEST_P(SinkTest, MayDoSoInsideTheEvent) {
    Fire();
    Fire();
    EXPECT_EQ(calls, GetParam().calls);
    for (const auto& sink : sinks) sink->Disconnect();
    viewer.Reset();
    EXPECT_EQ(CanUnload(), S_OK);
}

INSTANTIATE_TEST_SUITE_P(
    Acts, SinkTest,
    testing::Values(SinkCase{"nothing", [](SinkTest&) {}, {2, 2, 2, 0}},
                    SinkCase{"unadvise itself", [](SinkTest& test) { test.Disconnect(0); }, {1, 2, 2, 0}},
                    SinkCase{"unadvise the next", [](SinkTest& test) { test.Disconnect(1); }, {2, 0, 2, 0}},
                    SinkCase{"unadvise all",
                             [](SinkTest& test) {
                                 for (int i = 0; i < 3; ++i) test.Disconnect(i);
                             },
                             {1, 0, 0, 0}},
                    SinkCase{"advise another, which hears of the next event only",
                             [](SinkTest& test) { test.Connect(3); },
                             {2, 2, 2, 1}},
                    SinkCase{"replace the next by another",
                             [](SinkTest& test) {
                                 test.Disconnect(1);
                                 test.Connect(3);
                             },
                             {2, 0, 2, 1}},
                    SinkCase{"raise the event again", [](SinkTest& test) { test.Fire(); }, {3, 3, 3, 0}},
                    SinkCase{"freeze events for the others",
                             [](SinkTest& test) { As<IOleControl>(test.viewer.Get())->FreezeEvents(TRUE); },
                             {1, 1, 1, 0}},
                    SinkCase{"stop the control",
                             [](SinkTest& test) {
                                 test.viewer->StopControl();
                                 test.viewer.Reset();
                             },
                             {1, 0, 0, 0}},
                    SinkCase{"let the control go",
                             [](SinkTest& test) {
                                 for (int i = 0; i < 3; ++i) test.Disconnect(i);
                                 test.viewer.Reset();
                             },
                             {1, 0, 0, 0}}));

/// Fails every event in one way or another.
class FailingSink final : public container::Unknown<IDispatch> {
public:
    explicit FailingSink(HRESULT result) : result_(result) {}
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO* exception,
                        UINT*) override {
        ++calls;
        // Whatever it puts in the place of the record is the control's to release.
        if (arguments->rgvarg[0].vt == (VT_BYREF | VT_DISPATCH)) {
            (*arguments->rgvarg[0].ppdispVal)->Release();
            *arguments->rgvarg[0].ppdispVal = nullptr;
        }
        EXPECT_EQ(exception, nullptr);
        return result_;
    }
    int calls = 0;

private:
    const HRESULT result_;
};

TEST(Sinks, ThatFailDoNotKeepTheOthersFromBeingTold) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    const ComPtr<IConnectionPoint> point = PointOf(viewer.Get(), __uuidof(__DLViewer));
    std::vector<ComPtr<FailingSink>> failing;
    for (const HRESULT result :
         {E_FAIL, DISP_E_EXCEPTION, DISP_E_MEMBERNOTFOUND, RPC_E_DISCONNECTED, E_OUTOFMEMORY, S_FALSE}) {
        failing.push_back(container::Make<FailingSink>(result));
        DWORD cookie = 0;
        ASSERT_EQ(point->Advise(failing.back().Get(), &cookie), S_OK);
    }
    int heard = 0;
    const auto last = container::Make<EventSink>();
    last->On(kGetProfileList, [&](DISPPARAMS& arguments) {
        ++heard;
        EXPECT_TRUE(container::ObjectArgument(arguments.rgvarg[0])) << "whatever the others did to theirs";
    });
    ASSERT_EQ(last->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
    EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"1"}), S_OK);
    for (const auto& sink : failing) EXPECT_EQ(sink->calls, 1);
    EXPECT_EQ(heard, 1);
    last->Disconnect();
}

}  // namespace
}  // namespace dlv::test
