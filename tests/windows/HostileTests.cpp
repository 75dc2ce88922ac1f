// Hosts whose objects answer oddly: the control reports it and works on.
#include "tests/windows/Dialogs.h"
#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

/// A value that no conversion makes a text or a number of.
HRESULT ReturnArray(VARIANT& result) {
    result.vt = VT_ARRAY | VT_I4;
    result.parray = SafeArrayCreateVector(VT_I4, 0, 1);
    return result.parray == nullptr ? E_OUTOFMEMORY : S_OK;
}

/// A data message of the host's whose member `odd`, at whatever depth, gives an array.
ComPtr<ScriptObject> MessageWithOdd(const std::wstring& odd) {
    const auto say = [odd](const ComPtr<ScriptObject>& object, const wchar_t* member,
                           const _variant_t& value) {
        object->On(member, [=](auto&, VARIANT& result) {
            return odd == member ? ReturnArray(result) : Return(result, value);
        });
    };
    const auto asValue = [](const ComPtr<ScriptObject>& object) {
        return _variant_t(static_cast<IDispatch*>(object.Get()));
    };
    const auto row = container::Make<ScriptObject>();
    say(row, L"Field", L"1");
    const auto table = container::Make<ScriptObject>();
    say(table, L"RowCount", 1L);
    say(table, L"Row", asValue(row));
    const auto data = container::Make<ScriptObject>();
    say(data, L"Table", asValue(table));
    const auto message = container::Make<ScriptObject>(L"QZWebMessage");
    say(message, L"Name", L"DLVData");
    say(message, L"Property", L"15");
    say(message, L"Data", asValue(data));
    return message;
}

class OddAnswer : public testing::TestWithParam<const wchar_t*> {};

TEST_P(OddAnswer, OfAHostsMessageIsReportedAndTheNextMessageWorks) {
    HostedControl control;
    control.StartUp();
    {
        const DialogCloser closer;
        EXPECT_EQ(Receive(control.Viewer(), MessageWithOdd(GetParam()).Get()), S_OK);
        EXPECT_GE(closer.Closed(), 1);
    }
    EXPECT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    EXPECT_EQ(control.ListedUnits(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Members, OddAnswer,
                         testing::Values(L"Name", L"Data", L"Table", L"RowCount", L"Row", L"Field",
                                         L"Property"));

TEST(Hostile, DecimalsWithoutAMeaningAreRefused) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    VARIANT decimal{};
    decimal.decVal.Lo64 = 7;
    for (const auto& [scale, sign] : {std::pair{29, 0}, std::pair{255, 0}, std::pair{0, 1}}) {
        decimal.decVal.scale = static_cast<BYTE>(scale);
        decimal.decVal.sign = static_cast<BYTE>(sign);
        decimal.vt = VT_DECIMAL;
        EXPECT_EQ(Call(viewer.Get(), L"ReceiveMessage", {_variant_t(), decimal, _variant_t(L"")}).code,
                  DISP_E_TYPEMISMATCH)
            << scale;
    }
    decimal.decVal.scale = 0;
    decimal.decVal.sign = 0;
    decimal.vt = VT_DECIMAL;
    EXPECT_EQ(Call(viewer.Get(), L"ReceiveMessage", {_variant_t(), decimal, _variant_t(L"")}).result, S_OK);
}

TEST(Hostile, ArraysWithoutMemoryAreRefused) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    for (const VARTYPE type : {VARTYPE{VT_BSTR}, VARTYPE{VT_VARIANT}}) {
        SAFEARRAYBOUND bound{3, 0};
        SAFEARRAY* const array = SafeArrayCreate(type, 1, &bound);
        ASSERT_EQ(SafeArrayDestroyData(array), S_OK);
        array->pvData = nullptr;
        VARIANT value{};
        value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
        value.parray = array;
        DISPPARAMS arguments{&value, nullptr, 1, 0};
        constexpr DISPID kSetSessionBUIDList = 0x60030022;
        EXPECT_EQ(viewer->Invoke(kSetSessionBUIDList, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr,
                                 nullptr, nullptr),
                  DISP_E_TYPEMISMATCH)
            << type;
        SafeArrayDestroyDescriptor(array);
    }
}

}  // namespace
}  // namespace dlv::test
