// The control's events on their way to the host.
#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

struct Event {
    DISPID id;
    std::wstring text;
    bool operator==(const Event&) const = default;
    friend void PrintTo(const Event& event, std::ostream* out) {
        *out << event.id << " " << testing::PrintToString(event.text);
    }
};

/// Notes every event: `PostRequest` with its text, the others with the record's ProfileName.
void NoteAll(EventSink& sink, std::vector<Event>& events) {
    sink.On(1, [&events](DISPPARAMS& arguments) {
        EXPECT_EQ(arguments.cArgs, 1u);
        EXPECT_EQ(arguments.rgvarg[0].vt, VT_BYREF | VT_BSTR);
        events.push_back({1, container::TextArgument(arguments.rgvarg[0])});
    });
    for (DISPID id = 2; id <= 8; ++id)
        sink.On(id, [id, &events](DISPPARAMS& arguments) {
            EXPECT_EQ(arguments.cArgs, 1u);
            EXPECT_EQ(arguments.rgvarg[0].vt, VT_BYREF | VT_DISPATCH);
            const auto record = As<_DLVParams>(container::ObjectArgument(arguments.rgvarg[0]).Get());
            ASSERT_TRUE(record);
            _bstr_t name;
            EXPECT_EQ(record->get_ProfileName(name.GetAddress()), S_OK);
            events.push_back({id, std::wstring(name.GetBSTR(), name.length())});
        });
}

TEST(Events, ComeInTheOrderOfTheStartUpWithTheirRecords) {
    HostedControl control;
    std::vector<Event> events;
    NoteAll(*control.sink.Get(), events);
    control.StartUp();
    const std::vector<Event> wanted{{4, L""}, {3, L"Default"}, {5, L""}, {1, L"ClientReady"}};
    EXPECT_EQ(events, wanted);
}

TEST(Events, ReachEverySinkThatIsStillConnected) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    int first = 0;
    int second = 0;
    int third = 0;
    const auto sinks = {container::Make<EventSink>(), container::Make<EventSink>(),
                        container::Make<EventSink>()};
    EventSink* const all[] = {sinks.begin()[0].Get(), sinks.begin()[1].Get(), sinks.begin()[2].Get()};
    for (EventSink* sink : all) ASSERT_EQ(sink->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
    // The first ends its own connection and that of the second while it is being called.
    all[0]->On(4, [&](DISPPARAMS&) {
        ++first;
        all[0]->Disconnect();
        all[1]->Disconnect();
    });
    all[1]->On(4, [&](DISPPARAMS&) { ++second; });
    all[2]->On(4, [&](DISPPARAMS&) { ++third; });
    EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"1"}), S_OK);
    EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"1"}), S_OK);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
    EXPECT_EQ(third, 2);
    all[2]->Disconnect();
}

TEST(Events, OfASinkThatFailsDoNoHarm) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    // Knows no event: every call of it fails.
    const auto failing = container::Make<ScriptObject>();
    const auto point = [&] {
        ComPtr<IConnectionPoint> found;
        As<IConnectionPointContainer>(viewer.Get())->FindConnectionPoint(__uuidof(__DLViewer), &found);
        return found;
    }();
    const auto counting = container::Make<EventSink>();
    int calls = 0;
    counting->On(4, [&](DISPPARAMS&) { ++calls; });
    DWORD cookie = 0;
    failing->On(L"PostRequest", [](auto&, VARIANT&) { return E_FAIL; });
    failing->On(L"GetDetails", [](auto&, VARIANT&) { return E_FAIL; });
    failing->On(L"GetProfiles", [](auto&, VARIANT&) { return E_FAIL; });
    failing->On(L"GetProfileList", [](auto&, VARIANT&) { return E_FAIL; });
    ASSERT_EQ(point->Advise(static_cast<IDispatch*>(failing.Get()), &cookie), S_OK);
    ASSERT_EQ(counting->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
    EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"1"}), S_OK);
    EXPECT_EQ(failing->CallsOf(L"GetProfileList"), 1);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
    EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    counting->Disconnect();
}

TEST(Events, AreLostWhileFrozen) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    const auto sink = container::Make<EventSink>();
    int calls = 0;
    sink->On(4, [&](DISPPARAMS&) { ++calls; });
    ASSERT_EQ(sink->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
    const auto control = As<IOleControl>(viewer.Get());
    EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
    EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
    SetSessionUnits(viewer.Get(), {L"1"});
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
    SetSessionUnits(viewer.Get(), {L"1"});
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
    SetSessionUnits(viewer.Get(), {L"1"});
    EXPECT_EQ(calls, 1);
    sink->Disconnect();
}

TEST(Events, AreAdvisedByASinkOfTheRightKindOnly) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ComPtr<IConnectionPoint> changes;
    ASSERT_EQ(
        As<IConnectionPointContainer>(viewer.Get())->FindConnectionPoint(IID_IPropertyNotifySink, &changes),
        S_OK);
    const auto sink = container::Make<EventSink>();
    DWORD cookie = 7;
    EXPECT_EQ(changes->Advise(static_cast<IDispatch*>(sink.Get()), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(changes->Advise(nullptr, &cookie), E_POINTER);

    ASSERT_EQ(sink->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
    ComPtr<IConnectionPoint> events;
    ComPtr<IEnumConnections> connections;
    As<IConnectionPointContainer>(viewer.Get())->FindConnectionPoint(__uuidof(__DLViewer), &events);
    ASSERT_EQ(events->EnumConnections(&connections), S_OK);
    CONNECTDATA data{};
    EXPECT_EQ(connections->Next(1, &data, nullptr), S_OK);
    EXPECT_EQ(As<IUnknown>(data.pUnk).Get(), As<IUnknown>(sink.Get()).Get());
    data.pUnk->Release();
    EXPECT_EQ(connections->Next(1, &data, nullptr), S_FALSE);
    sink->Disconnect();
}

TEST(Events, MayBeAnsweredInside) {
    HostedControl control;
    std::vector<Event> events;
    NoteAll(*control.sink.Get(), events);
    control.sink->On(4, [&](DISPPARAMS&) {
        EXPECT_EQ(AnswerProfiles(control.Viewer(), L"<WebData><ProfileIDs></ProfileIDs></WebData>",
                                 L"GetProfileList"),
                  S_OK);
    });
    ASSERT_EQ(Initialize(control.Viewer()), S_OK);
    ASSERT_EQ(SetSessionUnits(control.Viewer(), {L"12"}), S_OK);
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events.front(), (Event{3, L"Default"}));
}

}  // namespace
}  // namespace dlv::test
