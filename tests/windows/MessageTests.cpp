// Data messages on their way into the control: its own message objects, objects of the host's, and values
// that are no messages at all; and calls that come out of their order.
#include "tests/windows/Dialogs.h"
#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

/// The texts that the control shows.
bool Shows(const HostedControl& control, const wchar_t* text) {
    return FindChild(control.container.ControlWindow(), text) != nullptr;
}

/// A host's own table: rows as text by column.
ComPtr<ScriptObject> ForeignTable(std::vector<std::map<std::wstring, std::wstring>> rows) {
    const auto table = container::Make<ScriptObject>();
    const auto count = static_cast<long>(rows.size());
    table->On(L"RowCount", [count](auto&, VARIANT& result) { return Return(result, _variant_t(count)); });
    table->On(L"Row", [rows = std::move(rows)](auto& arguments, VARIANT& result) {
        const auto row = container::Make<ScriptObject>();
        const auto& fields = rows.at(static_cast<std::size_t>(static_cast<long>(arguments.at(0))) - 1);
        row->On(L"Field", [fields](auto& names, VARIANT& value) {
            const auto found = fields.find(static_cast<const wchar_t*>(_bstr_t(names.at(0))));
            return found == fields.end() ? HRESULT(0x800A03EA)
                                         : Return(value, _variant_t(found->second.c_str()));
        });
        return Return(result, _variant_t(static_cast<IDispatch*>(row.Get())));
    });
    return table;
}

/// A message of the host's own making, of a class that is called like ours.
ComPtr<ScriptObject> ForeignMessage(const wchar_t* typeName, const wchar_t* name) {
    const auto data = container::Make<ScriptObject>();
    data->On(L"Table", [](auto& arguments, VARIANT& result) {
        const std::wstring wanted = static_cast<const wchar_t*>(_bstr_t(arguments.at(0)));
        ComPtr<ScriptObject> table = ForeignTable({});
        if (wanted == L"BusinessUnits")
            table = ForeignTable({{{L"BUID", L"12"}, {L"BUDesc", L"North"}, {L"ParentBUID", L"#"}}});
        if (wanted == L"BUGeneralInfo")
            table = ForeignTable({{{L"BUID", L"12"},
                                   {L"BUDesc", L"North"},
                                   {L"TechCount", L"3"},
                                   {L"HoursWorked", L"1"},
                                   {L"HoursRemaining", L"2"}}});
        return Return(result, _variant_t(static_cast<IDispatch*>(table.Get())));
    });
    const auto message = container::Make<ScriptObject>(typeName);
    message->On(L"Name", [name](auto&, VARIANT& result) { return Return(result, _variant_t(name)); });
    message->On(L"Property", [](auto&, VARIANT& result) { return Return(result, _variant_t(L"15")); });
    message->On(L"Data", [data](auto&, VARIANT& result) {
        return Return(result, _variant_t(static_cast<IDispatch*>(data.Get())));
    });
    return message;
}

TEST(Messages, OfOurOwnAreShown) {
    HostedControl control;
    control.StartUp();
    EXPECT_FALSE(Shows(control, L"Last refresh time :"));
    EXPECT_EQ(control.ListedUnits(), 0u);
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    EXPECT_TRUE(Shows(control, L"Last refresh time :"));
    EXPECT_EQ(control.ListedUnits(), 2u);
}

TEST(Messages, AreNotAskedForWhenTheirIntervalIsOver) {
    HostedControl control;
    control.StartUp();
    std::wstring text = kSampleMessage;
    text.replace(text.find(L"\"15\""), 4, L"\"0.0005\"");  // 30 milliseconds
    const ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    ASSERT_EQ(message->LoadText(_bstr_t(text.c_str())), S_OK);
    int events = 0;
    for (DISPID id = 1; id <= 8; ++id) control.sink->On(id, [&](DISPPARAMS&) { ++events; });
    ASSERT_EQ(Receive(control.Viewer(), message.Get()), S_OK);
    EXPECT_FALSE(PumpUntil([&] { return events > 0; }, std::chrono::milliseconds(150)));
}

TEST(Messages, OfAForeignClassOfThatNameAreReadThroughTheirMembers) {
    HostedControl control;
    control.StartUp();
    DialogCloser closer;
    const auto message = ForeignMessage(L"QZWebMessage", L"DLVServerStopped");
    ASSERT_EQ(Receive(control.Viewer(), message.Get()), S_OK);
    EXPECT_GT(message->CallsOf(L"Name"), 0);
    EXPECT_TRUE(closer.Texts().empty()) << testing::PrintToString(closer.Texts());

    // By its class, by its interface, and one that tells no type but has all the members.
    for (const wchar_t* type : {L"QZWebMessage", L"_QZWebMessage", L""}) {
        const auto data = ForeignMessage(type, L"DLVData");
        ASSERT_EQ(Receive(control.Viewer(), data.Get()), S_OK);
        EXPECT_GT(data->CallsOf(L"Name"), 0) << testing::PrintToString(type);
    }
    EXPECT_EQ(control.ListedUnits(), 1u);
    EXPECT_TRUE(closer.Texts().empty()) << testing::PrintToString(closer.Texts());
}

TEST(Messages, OfAnyOtherTypeArePassedOver) {
    HostedControl control;
    control.StartUp();
    int asked = 0;
    for (const wchar_t* type : {L"SomeMessage", L"qzwebmessage", L"__QZWebMessage"}) {
        const auto stranger = ForeignMessage(type, L"DLVData");
        EXPECT_EQ(Receive(control.Viewer(), stranger.Get()), S_OK);
        asked += stranger->CallsOf(L"Name");
    }
    // Tells no type, and lacks a member that messages have.
    const auto nameless = container::Make<ScriptObject>();
    for (const wchar_t* member : {L"Name", L"Data"})
        nameless->On(member, [](auto&, VARIANT& result) { return Return(result, L"DLVData"); });
    EXPECT_EQ(Receive(control.Viewer(), nameless.Get()), S_OK);
    EXPECT_EQ(Receive(control.Viewer(), New<_QZWebTable>(L"QZWebTable").Get()), S_OK);
    EXPECT_EQ(Receive(control.Viewer(), nullptr), S_OK);
    EXPECT_EQ(asked + nameless->CallsOf(L"Name"), 0);
    EXPECT_FALSE(Shows(control, L"Last refresh time :"));
}

TEST(Messages, ThatCannotBeLoadedAreReportedAndTheNextGoodOneWorks) {
    HostedControl control;
    control.StartUp();
    DialogCloser closer;
    EXPECT_EQ(Receive(control.Viewer(), BrokenMessage().Get()), S_OK);
    ASSERT_EQ(closer.Closed(), 1);
    EXPECT_TRUE(closer.Showed(L"1001"));
    EXPECT_TRUE(closer.Showed(L"Table BusinessUnits is missing"));
    EXPECT_TRUE(closer.Showed(L"cDLVController.LoadData"));
    EXPECT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    EXPECT_EQ(closer.Closed(), 1);
    EXPECT_TRUE(Shows(control, L"Last refresh time :"));
}

TEST(Messages, OfAHostWhoseObjectFailsAreReportedWithItsError) {
    HostedControl control;
    control.StartUp();
    const auto message = container::Make<ScriptObject>(L"QZWebMessage");
    message->On(L"Name", [](auto&, VARIANT& result) { return Return(result, _variant_t(L"DLVData")); });
    message->On(L"Data", [](auto&, VARIANT&) { return HRESULT(0x800A0046); });
    message->On(L"Property", [](auto&, VARIANT& result) { return Return(result, _variant_t(L"")); });
    DialogCloser closer;
    EXPECT_EQ(Receive(control.Viewer(), message.Get()), S_OK);
    ASSERT_GE(closer.Closed(), 1);
    EXPECT_TRUE(closer.Showed(L"70"));
    EXPECT_TRUE(closer.Showed(L"the script failed"));
}

struct OrderCase {
    const char* name;
    std::function<HRESULT(_DLViewer*)> call;
    const wchar_t* beforeInitialize;  // null: succeeds
    const wchar_t* afterStop;
    friend void PrintTo(const OrderCase& test, std::ostream* out) { *out << test.name; }
};

constexpr wchar_t kSucceeds[] = L"";

class CallOutOfOrder : public testing::TestWithParam<OrderCase> {
protected:
    static void Expect(_DLViewer* viewer, const std::wstring& error) {
        const HRESULT result = GetParam().call(viewer);
        EXPECT_EQ(result, error.empty() ? S_OK : RunTimeErrorResult(1004));
        EXPECT_EQ(TakeErrorText(), error);
    }
};

TEST_P(CallOutOfOrder, IsRefusedWithItsReason) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    Expect(viewer.Get(), GetParam().beforeInitialize);
    const ComPtr<_DLViewer> stopped = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(stopped.Get()), S_OK);
    ASSERT_EQ(stopped->StopControl(), S_OK);
    Expect(stopped.Get(), GetParam().afterStop);
}

HRESULT SetLanguage(_DLViewer* viewer) {
    _bstr_t language(L"EN");
    BSTR text = language.GetBSTR();
    return viewer->SetRegionalFormatInfo(&text);
}

INSTANTIATE_TEST_SUITE_P(
    Methods, CallOutOfOrder,
    testing::Values(
        OrderCase{"Initialize", [](_DLViewer* v) { return Initialize(v); }, kSucceeds,
                  L"Call Initialize is not possible now: the control was stopped"},
        OrderCase{"SetRegionalFormatInfo", SetLanguage, kSucceeds,
                  L"Call SetRegionalFormatInfo is not possible now: the control was stopped"},
        OrderCase{"ResizeControls", [](_DLViewer* v) { return v->ResizeControls(); }, kSucceeds,
                  L"Call ResizeControls is not possible now: the control was stopped"},
        OrderCase{"SetSessionBUIDList", [](_DLViewer* v) { return SetSessionUnits(v, {L"1"}); },
                  L"Call SetSessionBUIDList is not possible now: the control is not initialized",
                  L"Call SetSessionBUIDList is not possible now: the control was stopped"},
        OrderCase{"ReceiveMessage", [](_DLViewer* v) { return Receive(v, nullptr); },
                  L"Call ReceiveMessage is not possible now: the control is not initialized",
                  L"Call ReceiveMessage is not possible now: the control was stopped"},
        OrderCase{"ReceiveProfileResponse",
                  [](_DLViewer* v) { return AnswerProfiles(v, L"", L"GetProfiles"); },
                  L"Call ReceiveProfileResponse is not possible now: the control is not initialized",
                  L"Call ReceiveProfileResponse is not possible now: the control was stopped"},
        OrderCase{"StopControl", [](_DLViewer* v) { return v->StopControl(); }, kSucceeds, kSucceeds}));

TEST(Transport, IsAskedForCaptionsAndLetGoByAStop) {
    HostedControl control;
    const auto transport = container::Make<ScriptObject>();
    transport->On(L"LanguageID", [](auto&, VARIANT& result) { return Return(result, _variant_t(L"PO")); });
    transport->On(L"Caption", [](auto& arguments, VARIANT& result) {
        // Not known by an error, by an empty text and by nothing; one is known.
        const std::wstring key = static_cast<const wchar_t*>(_bstr_t(arguments.at(0)));
        if (key == L"HoursWorked") return E_FAIL;
        if (key == L"SelectionCriteria") return Return(result, _variant_t(L""));
        return key == L"CurrentProductivity" ? Return(result, _variant_t(L"Now")) : S_OK;
    });
    ASSERT_EQ(Initialize(control.Viewer(), transport.Get()), S_OK);
    EXPECT_GT(transport->CallsOf(L"Caption"), 10);
    EXPECT_EQ(transport->CallsOf(L"LanguageID"), 1);
    for (const wchar_t* caption :
         {L"Horas trabalhadas", L"Crit\x00E9rios de sele\x00E7\x00E3o", L"Horas restantes", L"Now"})
        EXPECT_TRUE(Shows(control, caption)) << testing::PrintToString(std::wstring(caption));
    const int asked = transport->CallsOf(L"Caption");
    EXPECT_EQ(SetLanguage(control.Viewer()), S_OK);
    EXPECT_EQ(control.Viewer()->ResizeControls(), S_OK);
    EXPECT_EQ(transport->CallsOf(L"Caption"), asked) << "captions are set once";
    EXPECT_GT(ReferencesOf(transport.Get()), 1u);
    ASSERT_EQ(control.Viewer()->StopControl(), S_OK);
    EXPECT_EQ(ReferencesOf(transport.Get()), 1u);
}

}  // namespace
}  // namespace dlv::test
