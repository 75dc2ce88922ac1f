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

/// An array that says what it holds, but has no memory for it.
_variant_t WithoutMemory(ULONG count) {
    _variant_t value;
    EXPECT_EQ(SafeArrayAllocDescriptorEx(VT_BSTR, 1, &value.parray), S_OK);
    value.parray->rgsabound[0] = {count, 0};
    value.vt = VT_ARRAY | VT_BSTR;
    return value;
}

/// Gives what `make` makes as its value.
_variant_t ObjectWithValue(std::function<_variant_t()> make) {
    const auto object = container::Make<ScriptObject>();
    object->On(L"", [=](auto&, VARIANT& result) {
        result = make().Detach();
        return S_OK;
    });
    return _variant_t(static_cast<IDispatch*>(object.Get()));
}

TEST(Hostile, ArraysAndObjectsInPlaceOfTextsAreRefusedAtOnce) {
    // To copy an endless array takes seconds; one without memory is more than some systems bear.
    const auto endless = [] { return WithoutMemory(0xFFFFFFFF); };
    const auto missing = [] { return WithoutMemory(3); };
    _variant_t variable = endless();
    const auto nowhere = [] {
        _variant_t value;
        value.vt = VT_BYREF | VT_BSTR;
        return value;
    };
    const std::pair<const char*, _variant_t> values[] = {
        {"endless array", Reference(variable)},
        {"object with an endless array", ObjectWithValue(endless)},
        {"object with an array without memory", ObjectWithValue(missing)},
        {"object with an object", ObjectWithValue([=] { return ObjectWithValue(missing); })},
        {"object that leads nowhere", ObjectWithValue(nowhere)}};
    const ComPtr<IDispatch> params = New<IDispatch>(L"DLVParams");
    const ComPtr<IDispatch> viewer = New<IDispatch>(L"DLViewer");
    ASSERT_EQ(Call(viewer.Get(), L"Initialize", {_variant_t(static_cast<IDispatch*>(nullptr))}).result, S_OK);
    const ULONGLONG start = GetTickCount64();
    for (const auto& [name, value] : values) {
        EXPECT_EQ(Put(params.Get(), L"BUID", {value}).result, DISP_E_TYPEMISMATCH) << name;
        // What is no message is passed over.
        EXPECT_EQ(Call(viewer.Get(), L"ReceiveMessage", {value, 0L, L""}).result, S_OK) << name;
    }
    EXPECT_LT(GetTickCount64() - start, 1000u);
    EXPECT_EQ(Put(params.Get(), L"BUID", {ObjectWithValue([] { return _variant_t(L"12"); })}).result, S_OK);
    EXPECT_EQ(std::wstring(_bstr_t(Call(params.Get(), L"BUID").value)), L"12");
    // The system's own way to clear it would walk through all that is not there.
    SafeArrayDestroyDescriptor(variable.parray);
    variable.vt = VT_EMPTY;
}

TEST(Hostile, EmptyArraysMayHaveAnyBounds) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    for (const LONG lower : {LONG_MIN, -1L, 0L, LONG_MAX}) {
        SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, lower, 0);
        EXPECT_EQ(viewer->SetSessionBUIDList(&array), S_OK) << lower;
        SafeArrayDestroy(array);
    }
}

}  // namespace
}  // namespace dlv::test
