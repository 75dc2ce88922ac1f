// The control and its data objects used from apartments other than their own: every call passes the system's
// marshalling by type library, found by the manifest alone.
#include "tests/windows/Apartment.h"
#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

/// A control that is active in an apartment of its own.
class DistantControl {
public:
    DistantControl() {
        owner_.Do([this] { control_ = std::make_unique<HostedControl>(); });
    }
    ~DistantControl() {
        owner_.Do([this] { control_.reset(); });
    }
    DistantControl(const DistantControl&) = delete;
    DistantControl& operator=(const DistantControl&) = delete;

    /// The control for the apartment of the caller.
    ComPtr<_DLViewer> Viewer() {
        std::unique_ptr<Parcel> parcel;
        owner_.Do([&] { parcel = std::make_unique<Parcel>(control_->Viewer()); });
        return parcel->Take<_DLViewer>();
    }
    /// A data object that lives with the control.
    template <class Interface>
    ComPtr<Interface> NewThere(const wchar_t* className) {
        std::unique_ptr<Parcel> parcel;
        owner_.Do([&] { parcel = std::make_unique<Parcel>(New<Interface>(className).Get()); });
        return parcel->Take<Interface>();
    }
    std::size_t ListedUnits() {
        std::size_t units = 0;
        owner_.Do([&] { units = control_->ListedUnits(); });
        return units;
    }

private:
    Apartment owner_{Apartment::Kind::Single};
    std::unique_ptr<HostedControl> control_;
};

/// The tests' own thread is a single-threaded apartment; the other kind of client gets a thread.
class Apartments : public testing::TestWithParam<Apartment::Kind> {
protected:
    void FromElsewhere(const std::function<void()>& body) {
        if (GetParam() == Apartment::Kind::Multi) {
            Apartment(Apartment::Kind::Multi).Do(body);
        } else {
            const Library::Scope classes(ControlLibrary());
            body();
        }
        EXPECT_TRUE(PumpUntil([] { return CanUnload() == S_OK; }));
    }
};

TEST_P(Apartments, PassTextsArraysAndObjectsByReference) {
    FromElsewhere([] {
        DistantControl distant;
        const ComPtr<_DLViewer> viewer = distant.Viewer();
        ASSERT_TRUE(viewer);
        EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"12"}), RunTimeErrorResult(1004));
        ASSERT_EQ(Initialize(viewer.Get()), S_OK);
        _bstr_t language(L"EN");
        BSTR text = language.GetBSTR();
        EXPECT_EQ(viewer->SetRegionalFormatInfo(&text), S_OK);
        EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"12", L"40"}), S_OK);
        EXPECT_EQ(AnswerProfiles(viewer.Get(), L"<WebData></WebData>", L"GetProfileList"), S_OK);
        EXPECT_EQ(AnswerProfiles(viewer.Get(), L"<WebData></WebData>", L"GetProfiles"), S_OK);
        const auto message = distant.NewThere<_QZWebMessage>(L"QZWebMessage");
        ASSERT_TRUE(message);
        EXPECT_EQ(message->LoadText(_bstr_t(kSampleMessage)), S_OK);
        EXPECT_EQ(Receive(viewer.Get(), message.Get()), S_OK);
        EXPECT_EQ(distant.ListedUnits(), 2u);
        EXPECT_EQ(viewer->StopControl(), S_OK);
    });
}

TEST_P(Apartments, LetTheControlReadAMessageOfAThird) {
    FromElsewhere([] {
        DistantControl distant;
        Apartment third(Apartment::Kind::Single);
        std::unique_ptr<Parcel> parcel;
        third.Do([&] { parcel = std::make_unique<Parcel>(SampleMessage().Get()); });
        const ComPtr<_DLViewer> viewer = distant.Viewer();
        ASSERT_EQ(Initialize(viewer.Get()), S_OK);
        EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"12"}), S_OK);
        EXPECT_EQ(AnswerProfiles(viewer.Get(), L"<WebData></WebData>", L"GetProfileList"), S_OK);
        EXPECT_EQ(AnswerProfiles(viewer.Get(), L"<WebData></WebData>", L"GetProfiles"), S_OK);
        EXPECT_EQ(Receive(viewer.Get(), parcel->Take<_QZWebMessage>().Get()), S_OK);
        EXPECT_EQ(distant.ListedUnits(), 1u);
    });
}

TEST_P(Apartments, HearEventsOfTheOther) {
    FromElsewhere([] {
        DistantControl distant;
        const ComPtr<_DLViewer> viewer = distant.Viewer();
        const auto sink = container::Make<EventSink>();
        std::vector<std::wstring> heard;
        sink->On(4, [&](DISPPARAMS&) {
            heard.push_back(L"GetProfileList");
            EXPECT_EQ(AnswerProfiles(viewer.Get(), L"<WebData></WebData>", L"GetProfileList"), S_OK);
        });
        sink->On(3, [&](DISPPARAMS& arguments) {
            // The call may have come on a thread of the system's.
            const Library::Scope classes(ControlLibrary());
            const auto record = As<_DLVParams>(container::ObjectArgument(arguments.rgvarg[0]).Get());
            ASSERT_TRUE(record);
            _bstr_t name;
            EXPECT_EQ(record->get_ProfileName(name.GetAddress()), S_OK);
            EXPECT_EQ(record->put_Info(_bstr_t(L"heard")), S_OK);
            _bstr_t info;
            EXPECT_EQ(record->get_Info(info.GetAddress()), S_OK);
            heard.push_back(L"GetProfiles " + std::wstring(name) + L" " + std::wstring(info));
            EXPECT_EQ(AnswerProfiles(viewer.Get(), L"<WebData></WebData>", L"GetProfiles"), S_OK);
        });
        sink->On(1, [&](DISPPARAMS& arguments) {
            heard.push_back(L"PostRequest " + container::TextArgument(arguments.rgvarg[0]));
        });
        ASSERT_EQ(sink->Connect(viewer.Get(), __uuidof(__DLViewer)), S_OK);
        ASSERT_EQ(Initialize(viewer.Get()), S_OK);
        EXPECT_EQ(SetSessionUnits(viewer.Get(), {L"12"}), S_OK);
        EXPECT_EQ(sink->Disconnect(), S_OK);
        const std::vector<std::wstring> wanted{L"GetProfileList", L"GetProfiles Default heard",
                                               L"PostRequest ClientReady"};
        EXPECT_EQ(heard, wanted);
    });
}

TEST_P(Apartments, PassErrorsOnWithTheirTexts) {
    FromElsewhere([] {
        DistantControl distant;
        const ComPtr<_DLViewer> viewer = distant.Viewer();
        _variant_t units;
        units.vt = VT_ARRAY | VT_BSTR;
        units.parray = SafeArrayCreateVector(VT_BSTR, 0, 1);
        const CallResult early = Call(viewer.Get(), L"SetSessionBUIDList", {units});
        EXPECT_EQ(early.result, DISP_E_EXCEPTION);
        EXPECT_EQ(early.code, RunTimeErrorResult(1004));
        EXPECT_NE(early.text.find(L"SetSessionBUIDList"), std::wstring::npos)
            << testing::PrintToString(early.text);
        const auto data = distant.NewThere<_QZWebData>(L"QZWebData");
        const CallResult missing = Call(data.Get(), L"Table", {L"none"});
        EXPECT_EQ(missing.code, RunTimeErrorResult(1001));
        EXPECT_EQ(missing.text, L"Table none is missing");
        ComPtr<_QZWebTable> none;
        EXPECT_EQ(data->get_Table(_bstr_t(L"none"), &none), RunTimeErrorResult(1001));
        EXPECT_FALSE(none);
    });
}

TEST_P(Apartments, FillDataObjectsOfTheOther) {
    FromElsewhere([] {
        DistantControl distant;
        const auto data = distant.NewThere<_QZWebData>(L"QZWebData");
        ComPtr<_QZWebTable> table;
        ASSERT_EQ(data->AddTable(_bstr_t(L"Units"), &table), S_OK);
        SAFEARRAYBOUND bounds[]{{3, 0}, {2, 0}};
        _variant_t values;
        values.vt = VT_ARRAY | VT_VARIANT;
        values.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
        for (LONG row = 0; row < 3; ++row)
            for (LONG column = 0; column < 2; ++column) {
                LONG at[]{row, column};
                _variant_t cell(row * 10 + column);
                SafeArrayPutElement(values.parray, at, &cell);
            }
        TextArray names{L"A", L"B"};
        VARIANT columns;
        columns.vt = VT_ARRAY | VT_BSTR;
        columns.parray = names.Get();
        EXPECT_EQ(table->Fill(columns, values), S_OK);
        LONG rows = 0;
        EXPECT_EQ(table->get_RowCount(&rows), S_OK);
        EXPECT_EQ(rows, 3);
        ComPtr<_QZWebRow> row;
        ASSERT_EQ(table->get_Row(3, &row), S_OK);
        _bstr_t field;
        EXPECT_EQ(row->get_Field(_bstr_t(L"B"), field.GetAddress()), S_OK);
        EXPECT_STREQ(field, L"21");
    });
}

TEST_P(Apartments, FindTheControlInTheTableOfTheProcess) {
    FromElsewhere([] {
        ComPtr<IGlobalInterfaceTable> table;
        ASSERT_EQ(CoCreateInstance(CLSID_StdGlobalInterfaceTable, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_PPV_ARGS(&table)),
                  S_OK);
        Apartment owner(Apartment::Kind::Single);
        DWORD cookie = 0;
        owner.Do([&] {
            EXPECT_EQ(table->RegisterInterfaceInGlobal(New<_DLViewer>(L"DLViewer").Get(), __uuidof(_DLViewer),
                                                       &cookie),
                      S_OK);
        });
        ComPtr<_DLViewer> viewer;
        EXPECT_EQ(table->GetInterfaceFromGlobal(cookie, IID_PPV_ARGS(&viewer)), S_OK);
        EXPECT_EQ(Initialize(viewer.Get()), S_OK);
        EXPECT_EQ(viewer->StopControl(), S_OK);
        viewer.Reset();
        owner.Do([&] { EXPECT_EQ(table->RevokeInterfaceFromGlobal(cookie), S_OK); });
    });
}

INSTANTIATE_TEST_SUITE_P(Clients, Apartments,
                         testing::Values(Apartment::Kind::Single, Apartment::Kind::Multi),
                         [](const auto& test) {
                             return test.param == Apartment::Kind::Single ? "Single" : "Multi";
                         });

}  // namespace
}  // namespace dlv::test
