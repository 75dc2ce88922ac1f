// The control and its data objects called late bound, in the ways in which scripts and other hosts do it.
#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

/// A control that has been initialized, and what it last heard of.
class LateBoundControl : public testing::Test {
protected:
    LateBoundControl() { EXPECT_EQ(Call(viewer.Get(), L"Initialize", {Nothing()}).result, S_OK); }

    static _variant_t Nothing() { return _variant_t(static_cast<IDispatch*>(nullptr)); }
    static _variant_t Array(SAFEARRAY* array, VARTYPE element) {
        _variant_t value;
        value.vt = static_cast<VARTYPE>(VT_ARRAY | element);
        SafeArrayCopy(array, &value.parray);
        return value;
    }

    ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
};

TEST_F(LateBoundControl, NamesAreFoundInAnySpelling) {
    EXPECT_EQ(Call(viewer.Get(), L"RESIZEcontrols").result, S_OK);
    EXPECT_EQ(Call(viewer.Get(), L"Resize").result, DISP_E_UNKNOWNNAME);
}

TEST_F(LateBoundControl, TextsAreTakenByValueByReferenceAndFromVariables) {
    EXPECT_EQ(Call(viewer.Get(), L"SetRegionalFormatInfo", {_variant_t(L"EN")}).result, S_OK);
    _variant_t variable(L"PO");
    EXPECT_EQ(Call(viewer.Get(), L"SetRegionalFormatInfo", {Reference(variable)}).result, S_OK);
    BSTR text = SysAllocString(L"SP");
    _variant_t reference;
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &text;
    EXPECT_EQ(Call(viewer.Get(), L"SetRegionalFormatInfo", {reference}).result, S_OK);
    SysFreeString(text);
    EXPECT_EQ(Call(viewer.Get(), L"SetRegionalFormatInfo", {_variant_t(12L)}).result, S_OK);
}

TEST_F(LateBoundControl, ListsAreTakenAsArraysOfTextsOfVariantsAndAsArrayObjects) {
    TextArray texts{L"1", L"2"};
    EXPECT_EQ(Call(viewer.Get(), L"SetSessionBUIDList", {Array(texts.Get(), VT_BSTR)}).result, S_OK);

    SAFEARRAY* variants = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    LONG index = 0;
    SafeArrayPutElement(variants, &index, &static_cast<VARIANT&>(*std::make_unique<_variant_t>(L"1")));
    index = 1;
    SafeArrayPutElement(variants, &index, &static_cast<VARIANT&>(*std::make_unique<_variant_t>(2L)));
    _variant_t variable = Array(variants, VT_VARIANT);
    EXPECT_EQ(Call(viewer.Get(), L"SetSessionBUIDList", {Reference(variable)}).result, S_OK);
    SafeArrayDestroy(variants);

    const auto array = container::Make<ScriptObject>();
    array->On(L"length", [](auto&, VARIANT& result) { return Return(result, _variant_t(2L)); });
    array->On(L"0", [](auto&, VARIANT& result) { return Return(result, _variant_t(L"1")); });
    array->On(L"1", [](auto&, VARIANT& result) { return Return(result, _variant_t(2.0)); });
    EXPECT_EQ(
        Call(viewer.Get(), L"SetSessionBUIDList", {_variant_t(static_cast<IDispatch*>(array.Get()))}).result,
        S_OK);
}

TEST_F(LateBoundControl, ARepeatedIdIsTheCallsErrorWithItsText) {
    TextArray texts{L"1", L"2", L"1"};
    const CallResult late = Call(viewer.Get(), L"SetSessionBUIDList", {Array(texts.Get(), VT_BSTR)});
    EXPECT_EQ(late.result, DISP_E_EXCEPTION);
    EXPECT_EQ(late.code, RunTimeErrorResult(457));
    EXPECT_EQ(late.text, L"This key is already associated with an element of this collection");

    EXPECT_EQ(viewer->SetSessionBUIDList(texts.Address()), RunTimeErrorResult(457));
    EXPECT_EQ(TakeErrorText(), L"This key is already associated with an element of this collection");
}

TEST_F(LateBoundControl, WrongArgumentsAreNamed) {
    CallResult call = Call(viewer.Get(), L"SetRegionalFormatInfo", {});
    EXPECT_EQ(call.result, DISP_E_BADPARAMCOUNT);
    call = Call(viewer.Get(), L"StopControl", {_variant_t(1L)});
    EXPECT_EQ(call.result, DISP_E_BADPARAMCOUNT);

    // The index counts from the last argument, as callers pass them.
    call = Call(viewer.Get(), L"ReceiveProfileResponse", {Nothing(), _variant_t(L"GetProfiles")});
    EXPECT_EQ(call.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call.wrongArgument, 1u);
    call = Call(viewer.Get(), L"SetSessionBUIDList", {_variant_t(L"12")});
    EXPECT_EQ(call.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call.wrongArgument, 0u);
    call = Call(viewer.Get(), L"Initialize", {_variant_t(L"transport")});
    EXPECT_EQ(call.result, DISP_E_TYPEMISMATCH);
}

TEST_F(LateBoundControl, NamedArgumentsFindTheirPlaces) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"ReceiveProfileResponse"),
                        const_cast<LPOLESTR>(L"FunctionName"), const_cast<LPOLESTR>(L"ResultXML")};
    DISPID ids[3] = {};
    ASSERT_EQ(viewer->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
    EXPECT_EQ(ids[1], 1);
    EXPECT_EQ(ids[2], 0);
    _variant_t values[] = {_variant_t(L"PutProfiles"), _variant_t(L"<WebData></WebData>")};
    DISPPARAMS parameters{values, ids + 1, 2, 2};
    EXPECT_EQ(viewer->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                             nullptr, nullptr),
              S_OK);
    ids[2] = 5;
    EXPECT_EQ(viewer->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                             nullptr, nullptr),
              DISP_E_PARAMNOTFOUND);
}

TEST_F(LateBoundControl, DataTypeAndTagAreConvertedAsTheSystemDoes) {
    const _variant_t data(L"just a text");
    EXPECT_EQ(Call(viewer.Get(), L"ReceiveMessage", {data, _variant_t(L"12"), _variant_t(3L)}).result, S_OK);
    _variant_t null;
    null.vt = VT_NULL;
    const CallResult byType = Call(viewer.Get(), L"ReceiveMessage", {data, null, _variant_t(L"")});
    EXPECT_EQ(byType.result, DISP_E_EXCEPTION);
    EXPECT_EQ(byType.code, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Call(viewer.Get(), L"ReceiveMessage", {data, _variant_t(1L), null}).code, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Call(viewer.Get(), L"ReceiveMessage", {data, _variant_t(1e300), _variant_t(L"")}).code,
              DISP_E_OVERFLOW);
}

TEST(LateBound, PropertiesOfARecordAreReadAndWritten) {
    const ComPtr<_DLVParams> record = New<_DLVParams>(L"DLVParams");
    EXPECT_EQ(Call(record.Get(), L"ResultXML").value, _variant_t(L""));
    const std::wstring odd = std::wstring(L"a\0b", 3) + wchar_t{0xD800};
    const _variant_t text(_bstr_t(SysAllocStringLen(odd.data(), static_cast<UINT>(odd.size())), false));
    EXPECT_EQ(Put(record.Get(), L"ResultXML", {text}).result, S_OK);
    EXPECT_EQ(Call(record.Get(), L"ResultXML", {}, DISPATCH_PROPERTYGET).value, text);
    EXPECT_EQ(Call(record.Get(), L"ResultXML", {_variant_t(L"by reference")}, DISPATCH_PROPERTYPUTREF).result,
              S_OK);
    EXPECT_EQ(Call(record.Get(), L"ResultXML").value, _variant_t(L"by reference"));
    EXPECT_EQ(Call(record.Get(), L"BUID").value, _variant_t(L""));
}

TEST(LateBound, AMemberThatIsNotThereIsNotCalled) {
    const ComPtr<_DLVParams> record = New<_DLVParams>(L"DLVParams");
    DISPPARAMS none{};
    EXPECT_EQ(record->Invoke(12345, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
                             nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(record->Invoke(0x40030000, IID_IUnknown, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                             nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
}

}  // namespace
}  // namespace dlv::test
