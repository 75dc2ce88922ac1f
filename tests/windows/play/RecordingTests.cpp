// What stands between a host and the built control records sessions that play alike without windows.
#include <sstream>

#include "hosts/recorder/RecordingControl.h"
#include "player/RecordingCheck.h"
#include "player/windows/WindowsPlayer.h"
#include "tests/sessions/SessionFiles.h"
#include "windows/com/Strings.h"

namespace dlv::player {
namespace {

using container::ComPtr;
using Texts = recorder::SessionRecorder::Texts;

/// A session that is recorded while it lives.
class Recording {
public:
    explicit Recording(Texts texts) : recorder_(std::make_shared<recorder::SessionRecorder>(out_, texts)) {}

    ComPtr<_DLViewer> Around(IUnknown& control) {
        return container::Make<recorder::RecordingControl>(control, recorder_);
    }
    Json Session() const { return Json::parse(out_.str()); }
    std::vector<std::string> Differences() const { return RecordingDifferences(out_.str()); }

private:
    std::ostringstream out_;
    const std::shared_ptr<recorder::SessionRecorder> recorder_;
};

class RecordedOnScreen : public testing::TestWithParam<std::string> {};

TEST_P(RecordedOnScreen, RaisesTheSameEventsAgain) {
    const Json steps = StepsOf(GetParam());
    std::map<std::string, int> events[2];
    for (const Texts texts : {Texts::AsTheyAre, Texts::Masked}) {
        Recording recording(texts);
        PlayOnScreen(steps, [&](IUnknown& control) { return recording.Around(control); });
        EXPECT_EQ(recording.Differences(), std::vector<std::string>());
        const Json session = recording.Session();
        for (const char* part : {"events", "observed"})
            for (const Json& entry : session[part])
                ++events[texts == Texts::Masked][entry.value("event", "failed")];
    }
    EXPECT_EQ(events[0], events[1]);
    EXPECT_FALSE(events[0].empty());
}

INSTANTIATE_TEST_SUITE_P(Sessions, RecordedOnScreen,
                         testing::Values("profiles-are-chosen-saved-and-managed", "saving-under-another-name",
                                         "start-up-runs-inside-the-events",
                                         "calls-out-of-order-fail-and-change-nothing",
                                         "a-message-inside-an-error-dialog-is-dropped",
                                         "a-stop-inside-an-event-ends-the-call"),
                         AsSentence);

struct Ole {
    Ole() { OleInitialize(nullptr); }
    ~Ole() { OleUninitialize(); }
};

HRESULT CallLate(IDispatch* object, const wchar_t* name, std::vector<VARIANT> lastToFirst) {
    DISPID id = 0;
    auto* member = const_cast<LPOLESTR>(name);
    const HRESULT known = object->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_NEUTRAL, &id);
    if (FAILED(known)) return known;
    DISPPARAMS arguments{lastToFirst.data(), nullptr, static_cast<UINT>(lastToFirst.size()), 0};
    return object->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &arguments, nullptr, nullptr,
                          nullptr);
}

TEST(RecordingControl, TakesLateBoundCallsAndValuesOfAnyKind) {
    const Ole ole;
    const container::Library library(container::BesideProgram(L"DashlonViewer.manifest"));
    const ComPtr<IUnknown> control = library.Create(L"DashlonViewer.DLViewer");
    Recording recording(Texts::AsTheyAre);
    const ComPtr<_DLViewer> viewer = recording.Around(*control.Get());
    Variant language("EN"), message("no message"), word("7"), null, list;
    null->vt = VT_NULL;
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = language.Address();
    VARIANT nothing{};
    nothing.vt = VT_DISPATCH;
    list->vt = VT_ARRAY | VT_VARIANT;
    list->parray = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    for (LONG i = 0; i < 2; ++i) SafeArrayPutElement(list->parray, &i, Variant(11 + i).Address());
    EXPECT_EQ(CallLate(viewer.Get(), L"Initialize", {nothing}), S_OK);
    EXPECT_EQ(CallLate(viewer.Get(), L"SetRegionalFormatInfo", {reference}), S_OK);
    EXPECT_EQ(CallLate(viewer.Get(), L"SetSessionBUIDList", {*list}), S_OK);
    EXPECT_EQ(CallLate(viewer.Get(), L"ReceiveMessage", {*word, *word, *message}), S_OK);
    EXPECT_TRUE(FAILED(viewer->ReceiveMessage(message.Address(), *Variant(1), *null)));
    EXPECT_EQ(CallLate(viewer.Get(), L"StopControl", {}), S_OK);
    Json steps = recording.Session()["steps"];
    for (Json& step : steps) step.erase("now");
    EXPECT_EQ(steps.dump(),
              R"([{"op":"create"},{"op":"initialize"},{"op":"setRegionalFormatInfo","language":"EN"},)"
              R"({"op":"setSessionBUIDList","ids":["11","12"]},)"
              R"({"op":"receiveMessage","dataType":"7","tag":"7","type":"String"},)"
              R"({"op":"receiveMessage","dataType":1,"tag":null,"type":"String"},{"op":"stopControl"}])");
    EXPECT_EQ(recording.Differences().size(), 1u) << "nobody listened to the request for the names";
}

TEST(RecordingControl, IsTheControlInEverythingElseAndLeavesNothingBehind) {
    const Ole ole;
    const long before = container::liveObjects;
    {
        const container::Library library(container::BesideProgram(L"DashlonViewer.manifest"));
        const ComPtr<IUnknown> control = library.Create(L"DashlonViewer.DLViewer");
        Recording recording(Texts::AsTheyAre);
        const ComPtr<_DLViewer> viewer = recording.Around(*control.Get());
        ComPtr<IOleObject> object;
        ComPtr<IConnectionPoint> point;
        ComPtr<IConnectionPointContainer> points;
        EXPECT_EQ(viewer.As(&object), S_OK);
        ASSERT_EQ(viewer.As(&points), S_OK);
        EXPECT_EQ(points->FindConnectionPoint(__uuidof(__DLViewer), &point), S_OK);
        EXPECT_EQ(points->FindConnectionPoint(IID_IPropertyNotifySink, &point), S_OK);
        EXPECT_EQ(points->FindConnectionPoint(__uuidof(__DLViewer), nullptr), E_POINTER);
        // Of two sinks, one is listened to.
        const auto first = container::Make<container::EventSink>(),
                   second = container::Make<container::EventSink>();
        EXPECT_EQ(first->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
        EXPECT_EQ(second->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
        IDispatch* none = nullptr;
        EXPECT_EQ(viewer->Initialize(&none), S_OK);
        SAFEARRAY* ids = SafeArrayCreateVector(VT_BSTR, 0, 0);
        EXPECT_EQ(viewer->SetSessionBUIDList(&ids), S_OK);
        SafeArrayDestroy(ids);
        EXPECT_EQ(viewer->ReceiveProfileResponse(nullptr, nullptr), E_POINTER);
        EXPECT_EQ(viewer->StopControl(), S_OK);
        EXPECT_EQ(first->Disconnect(), S_OK);
        EXPECT_EQ(second->Disconnect(), S_OK);
        EXPECT_EQ(recording.Session()["events"].size(), 1u);
        EXPECT_EQ(recording.Differences(), std::vector<std::string>());
    }
    EXPECT_EQ(container::liveObjects, before);
}

}  // namespace
}  // namespace dlv::player
