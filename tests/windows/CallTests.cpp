// One late-bound call a row: how arguments may come, and what a call that does not fit is answered with.
#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

/// A call to be, with all that IDispatch::Invoke takes. Arguments stand in the order in which one writes
/// them.
struct CallCase {
    const char* name;
    const wchar_t* className;
    const wchar_t* member;
    std::vector<_variant_t> arguments;
    HRESULT result = S_OK;
    /// The argument that is wrong, counted from the last; UINT_MAX: not told.
    UINT wrong = UINT_MAX;
    HRESULT code = S_OK;
    const wchar_t* text = L"";
    WORD kind = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    friend void PrintTo(const CallCase& test, std::ostream* out) { *out << test.name; }
};

_variant_t Nothing() { return _variant_t(static_cast<IDispatch*>(nullptr)); }

_variant_t LeftOut() {
    _variant_t value;
    value.vt = VT_ERROR;
    value.scode = DISP_E_PARAMNOTFOUND;
    return value;
}

_variant_t Null() {
    _variant_t value;
    value.vt = VT_NULL;
    return value;
}

/// A reference that leads nowhere.
_variant_t Nowhere(VARTYPE type) {
    _variant_t value;
    value.vt = static_cast<VARTYPE>(VT_BYREF | type);
    return value;
}

class Calls : public testing::TestWithParam<CallCase> {};

TEST_P(Calls, AreAnsweredByTheBook) {
    const ComPtr<IDispatch> object = New<IDispatch>(GetParam().className);
    if (std::wstring(GetParam().className) == L"DLViewer") {
        ASSERT_EQ(Call(object.Get(), L"Initialize", {Nothing()}).result, S_OK);
    }
    // A reference that leads nowhere must not be cleared with the arguments.
    const CallResult call = Call(object.Get(), GetParam().member, GetParam().arguments, GetParam().kind);
    EXPECT_EQ(call.result, GetParam().result) << std::hex << call.result;
    EXPECT_EQ(call.wrongArgument, GetParam().wrong);
    EXPECT_EQ(call.code, GetParam().code) << std::hex << call.code;
    EXPECT_EQ(call.text, GetParam().text);
}

constexpr HRESULT kCall = DISP_E_EXCEPTION;

INSTANTIATE_TEST_SUITE_P(
    Counts, Calls,
    testing::Values(
        CallCase{"none of one", L"DLViewer", L"SetRegionalFormatInfo", {}, DISP_E_BADPARAMCOUNT},
        CallCase{"two of one", L"DLViewer", L"SetRegionalFormatInfo", {L"EN", L"PO"}, DISP_E_BADPARAMCOUNT},
        CallCase{"one of none", L"DLViewer", L"ResizeControls", {1L}, DISP_E_BADPARAMCOUNT},
        CallCase{"two of three", L"DLViewer", L"ReceiveMessage", {1L, 2L}, DISP_E_BADPARAMCOUNT},
        CallCase{"a left-out text",
                 L"DLViewer",
                 L"SetRegionalFormatInfo",
                 {LeftOut()},
                 DISP_E_PARAMNOTOPTIONAL,
                 0},
        CallCase{"the first left out",
                 L"DLViewer",
                 L"ReceiveMessage",
                 {LeftOut(), 0L, L""},
                 DISP_E_PARAMNOTOPTIONAL,
                 2},
        CallCase{"the last left out",
                 L"DLViewer",
                 L"ReceiveMessage",
                 {L"", 0L, LeftOut()},
                 DISP_E_PARAMNOTOPTIONAL,
                 0},
        CallCase{"a property without its key", L"QZWebMessage", L"Property", {}, DISP_E_BADPARAMCOUNT},
        CallCase{"a put without its value",
                 L"QZWebMessage",
                 L"Name",
                 {},
                 DISP_E_MEMBERNOTFOUND,
                 UINT_MAX,
                 S_OK,
                 L"",
                 DISPATCH_METHOD}));

INSTANTIATE_TEST_SUITE_P(
    Types, Calls,
    testing::Values(
        CallCase{"an object for a text",
                 L"DLViewer",
                 L"SetRegionalFormatInfo",
                 {Nothing()},
                 DISP_E_TYPEMISMATCH,
                 0},
        CallCase{"Null for a text", L"DLViewer", L"SetRegionalFormatInfo", {Null()}, DISP_E_TYPEMISMATCH, 0},
        CallCase{"Empty for a text", L"DLViewer", L"SetRegionalFormatInfo", {_variant_t()}},
        CallCase{"a number for a text", L"DLViewer", L"SetRegionalFormatInfo", {2.5}},
        CallCase{"a truth for a text", L"DLViewer", L"SetRegionalFormatInfo", {true}},
        CallCase{"a text for an object", L"DLViewer", L"Initialize", {L"x"}, DISP_E_TYPEMISMATCH, 0},
        CallCase{"a text for an array", L"DLViewer", L"SetSessionBUIDList", {L"x"}, DISP_E_TYPEMISMATCH, 0},
        CallCase{
            "nothing for an array", L"DLViewer", L"SetSessionBUIDList", {Nothing()}, DISP_E_TYPEMISMATCH, 0},
        CallCase{"a bad first of two",
                 L"DLViewer",
                 L"ReceiveProfileResponse",
                 {Nothing(), L"GetProfiles"},
                 DISP_E_TYPEMISMATCH,
                 1},
        CallCase{"a bad second of two",
                 L"DLViewer",
                 L"ReceiveProfileResponse",
                 {L"", Nothing()},
                 DISP_E_TYPEMISMATCH,
                 0},
        CallCase{"a word for a number", L"QZWebMessage", L"Data", {L"one"}, DISP_E_TYPEMISMATCH, 0},
        CallCase{"a numeral for a number", L"QZWebMessage", L"Data", {L"1"}},
        CallCase{"too large a number", L"QZWebMessage", L"Data", {3e9}, DISP_E_OVERFLOW, 0},
        CallCase{"a text reference to nowhere",
                 L"DLViewer",
                 L"SetRegionalFormatInfo",
                 {Nowhere(VT_BSTR)},
                 DISP_E_TYPEMISMATCH,
                 0},
        CallCase{"a variable that is none",
                 L"DLViewer",
                 L"SetRegionalFormatInfo",
                 {Nowhere(VT_VARIANT)},
                 DISP_E_TYPEMISMATCH,
                 0},
        CallCase{"a variable that is none for a variant",
                 L"DLViewer",
                 L"ReceiveMessage",
                 {L"", Nowhere(VT_VARIANT), L""},
                 DISP_E_TYPEMISMATCH,
                 1},
        CallCase{"an array reference to nowhere",
                 L"QZWebTable",
                 L"Fill",
                 {Nowhere(VT_ARRAY | VT_BSTR), L""},
                 DISP_E_TYPEMISMATCH,
                 1}));

INSTANTIATE_TEST_SUITE_P(
    Failures, Calls,
    testing::Values(
        CallCase{"a subscript",
                 L"QZWebMessage",
                 L"Data",
                 {0L},
                 kCall,
                 UINT_MAX,
                 RunTimeErrorResult(9),
                 L"Subscript out of range"},
        CallCase{"a table",
                 L"QZWebData",
                 L"Table",
                 {L"T"},
                 kCall,
                 UINT_MAX,
                 RunTimeErrorResult(1001),
                 L"Table T is missing"},
        CallCase{"a document",
                 L"QZWebProfiles",
                 L"LoadText",
                 {L"<WebData/>"},
                 kCall,
                 UINT_MAX,
                 RunTimeErrorResult(1003),
                 L"Document error at line 1, column 1: the element WebProfiles or WebProfile is expected"},
        CallCase{"an order",
                 L"DLViewer",
                 L"Initialize",
                 {Nothing()},
                 kCall,
                 UINT_MAX,
                 RunTimeErrorResult(1004),
                 L"Call Initialize is not possible now: the control is initialized already"},
        CallCase{"a conversion inside",
                 L"DLViewer",
                 L"ReceiveMessage",
                 {L"", L"x", L""},
                 kCall,
                 UINT_MAX,
                 DISP_E_TYPEMISMATCH,
                 L""}));

constexpr WORD kGet = DISPATCH_PROPERTYGET, kMethod = DISPATCH_METHOD, kPut = DISPATCH_PROPERTYPUT,
               kPutRef = DISPATCH_PROPERTYPUTREF;
INSTANTIATE_TEST_SUITE_P(
    Kinds, Calls,
    testing::Values(
        CallCase{"a property read as one", L"DLVParams", L"BUID", {}, S_OK, UINT_MAX, S_OK, L"", kGet},
        CallCase{"a property called",
                 L"DLVParams",
                 L"BUID",
                 {},
                 DISP_E_MEMBERNOTFOUND,
                 UINT_MAX,
                 S_OK,
                 L"",
                 kMethod},
        CallCase{"a method called", L"QZWebTable", L"AddRow", {}, S_OK, UINT_MAX, S_OK, L"", kMethod},
        CallCase{
            "a method read", L"QZWebTable", L"AddRow", {}, DISP_E_MEMBERNOTFOUND, UINT_MAX, S_OK, L"", kGet},
        CallCase{"a put", L"DLVParams", L"BUID", {L"1"}, S_OK, UINT_MAX, S_OK, L"", kPut},
        CallCase{"a put by reference", L"DLVParams", L"BUID", {L"1"}, S_OK, UINT_MAX, S_OK, L"", kPutRef},
        CallCase{"either put",
                 L"DLVParams",
                 L"BUID",
                 {L"1"},
                 S_OK,
                 UINT_MAX,
                 S_OK,
                 L"",
                 static_cast<WORD>(kPut | kPutRef)},
        CallCase{"a put of what can be read only",
                 L"QZWebTable",
                 L"RowCount",
                 {1L},
                 DISP_E_MEMBERNOTFOUND,
                 UINT_MAX,
                 S_OK,
                 L"",
                 kPut},
        CallCase{
            "a put with a key", L"QZWebMessage", L"Property", {L"k", L"v"}, S_OK, UINT_MAX, S_OK, L"", kPut},
        CallCase{"a put of an object",
                 L"DLVParams",
                 L"BUID",
                 {Nothing()},
                 DISP_E_TYPEMISMATCH,
                 0,
                 S_OK,
                 L"",
                 kPutRef},
        CallCase{
            "no kind at all", L"DLVParams", L"BUID", {}, DISP_E_MEMBERNOTFOUND, UINT_MAX, S_OK, L"", 0}));

/// Invoke with named arguments: values and names as Invoke takes them, the named ones first.
struct NamedCase {
    const char* name;
    std::vector<_variant_t> values;
    std::vector<DISPID> names;
    HRESULT result;
    UINT wrong = UINT_MAX;
    friend void PrintTo(const NamedCase& test, std::ostream* out) { *out << test.name; }
};

class NamedArguments : public testing::TestWithParam<NamedCase> {};

TEST_P(NamedArguments, FindTheirPlacesOrAreRefused) {
    const ComPtr<IDispatch> object = New<IDispatch>(L"DLViewer");
    ASSERT_EQ(Call(object.Get(), L"Initialize", {Nothing()}).result, S_OK);
    std::vector<VARIANT> values(GetParam().values.begin(), GetParam().values.end());
    std::vector<DISPID> names = GetParam().names;
    DISPPARAMS parameters{values.data(), names.data(), static_cast<UINT>(values.size()),
                          static_cast<UINT>(names.size())};
    UINT wrong = UINT_MAX;
    EXPECT_EQ(object->Invoke(0x60030010, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                             nullptr, &wrong),
              GetParam().result);
    EXPECT_EQ(wrong, GetParam().wrong);
}

const _variant_t kResult(L"<WebData></WebData>");
const _variant_t kFunction(L"PutProfiles");
INSTANTIATE_TEST_SUITE_P(
    Orders, NamedArguments,
    testing::Values(
        NamedCase{"none named", {kFunction, kResult}, {}, S_OK},
        NamedCase{"both", {kFunction, kResult}, {1, 0}, S_OK},
        NamedCase{"both, the other way", {kResult, kFunction}, {0, 1}, S_OK},
        NamedCase{"the last", {kFunction, kResult}, {1}, S_OK},
        NamedCase{"the first, whose place is taken", {kResult, kFunction}, {0}, DISP_E_PARAMNOTOPTIONAL},
        NamedCase{"one twice", {kFunction, kResult}, {1, 1}, DISP_E_PARAMNOTFOUND, 1},
        NamedCase{"one that is not there", {kFunction, kResult}, {5}, DISP_E_PARAMNOTFOUND, 0},
        NamedCase{"a negative one", {kFunction, kResult}, {-7}, DISP_E_PARAMNOTFOUND, 0},
        NamedCase{"a put in a method", {kFunction, kResult}, {DISPID_PROPERTYPUT}, DISP_E_PARAMNOTFOUND, 0},
        NamedCase{"more names than values", {kFunction, kResult}, {1, 0, 0}, DISP_E_BADPARAMCOUNT}));

TEST(LateCalls, WithoutTheArgumentsThatTheyCountAreRefused) {
    const ComPtr<IDispatch> record = New<IDispatch>(L"DLVParams");
    DISPPARAMS noValues{nullptr, nullptr, 1, 0};
    EXPECT_EQ(
        record->Invoke(0x40030000, IID_NULL, 0, DISPATCH_PROPERTYPUT, &noValues, nullptr, nullptr, nullptr),
        E_INVALIDARG);
    _variant_t value(L"x");
    DISPPARAMS noNames{&value, nullptr, 1, 1};
    EXPECT_EQ(
        record->Invoke(0x40030000, IID_NULL, 0, DISPATCH_PROPERTYPUT, &noNames, nullptr, nullptr, nullptr),
        E_INVALIDARG);
}

TEST(LateCalls, NeedNoResultNoExceptionAndNoIndex) {
    const ComPtr<IDispatch> message = New<IDispatch>(L"QZWebMessage");
    DISPPARAMS none{};
    EXPECT_EQ(message->Invoke(6, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr), S_OK);
    _variant_t zero(0L);
    DISPPARAMS one{&zero, nullptr, 1, 0};
    EXPECT_EQ(message->Invoke(3, IID_NULL, 0, DISPATCH_PROPERTYGET, &one, nullptr, nullptr, nullptr),
              DISP_E_EXCEPTION);
    _variant_t word(L"word");
    DISPPARAMS wrong{&word, nullptr, 1, 0};
    EXPECT_EQ(message->Invoke(3, IID_NULL, 0, DISPATCH_PROPERTYGET, &wrong, nullptr, nullptr, nullptr),
              DISP_E_TYPEMISMATCH);
}

TEST(LateCalls, AreTheSameInEveryLocale) {
    const ComPtr<IDispatch> table = New<IDispatch>(L"QZWebTable");
    for (const LCID locale : {LCID{LOCALE_USER_DEFAULT}, LCID{LOCALE_SYSTEM_DEFAULT}, LCID{0}, LCID{0x407},
                              LCID{0x416}, LCID{0xFFFFFFFF}}) {
        auto* name = const_cast<LPOLESTR>(L"rowCOUNT");
        DISPID id = DISPID_UNKNOWN;
        EXPECT_EQ(table->GetIDsOfNames(IID_NULL, &name, 1, locale, &id), S_OK);
        EXPECT_EQ(id, 2);
        DISPPARAMS none{};
        _variant_t count;
        EXPECT_EQ(table->Invoke(id, IID_NULL, locale, DISPATCH_PROPERTYGET, &none, &count, nullptr, nullptr),
                  S_OK);
        EXPECT_EQ(count, _variant_t(0L));
        ComPtr<ITypeInfo> info;
        EXPECT_EQ(table->GetTypeInfo(0, locale, &info), S_OK);
        EXPECT_EQ(table->GetTypeInfo(1, locale, &info), DISP_E_BADINDEX);
    }
    // A fraction has a point, whatever the user's own sign is.
    const ComPtr<IDispatch> record = New<IDispatch>(L"DLVParams");
    EXPECT_EQ(Put(record.Get(), L"Info", {_variant_t(2.5)}).result, S_OK);
    EXPECT_EQ(Call(record.Get(), L"Info").value, _variant_t(L"2.5"));
}

TEST(LateCalls, GiveUnknownNamesNoId) {
    const ComPtr<IDispatch> viewer = New<IDispatch>(L"DLViewer");
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"ReceiveMessage"), const_cast<LPOLESTR>(L"tag"),
                        const_cast<LPOLESTR>(L"nobody")};
    DISPID ids[3] = {};
    EXPECT_EQ(viewer->GetIDsOfNames(IID_NULL, names, 3, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], 0x60030000);
    EXPECT_EQ(ids[1], 2);
    EXPECT_EQ(ids[2], DISPID_UNKNOWN);
    EXPECT_EQ(viewer->GetIDsOfNames(IID_NULL, names + 1, 1, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], DISPID_UNKNOWN);
    names[1] = nullptr;
    EXPECT_EQ(viewer->GetIDsOfNames(IID_NULL, names, 2, 0, ids), E_POINTER);
    EXPECT_EQ(viewer->GetIDsOfNames(IID_IDispatch, names, 1, 0, ids), DISP_E_UNKNOWNINTERFACE);
}

/// Every way in which hosts pass a list of ids.
struct ListCase {
    const char* name;
    std::function<void(const std::function<void(_variant_t)>& pass)> make;
    friend void PrintTo(const ListCase& test, std::ostream* out) { *out << test.name; }
};

/// An array with the ids "1" and "2".
template <class Element>
_variant_t IdArray(VARTYPE type, LONG lower, Element first, Element second) {
    _variant_t array;
    array.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    array.parray = SafeArrayCreateVector(type, lower, 2);
    Element* data = nullptr;
    SafeArrayAccessData(array.parray, reinterpret_cast<void**>(&data));
    data[0] = first;
    data[1] = second;
    SafeArrayUnaccessData(array.parray);
    return array;
}

BSTR Id(const wchar_t* text) { return SysAllocString(text); }

_variant_t ByReference(_variant_t& array) {
    _variant_t reference;
    reference.vt = static_cast<VARTYPE>(array.vt | VT_BYREF);
    reference.pparray = &array.parray;
    return reference;
}

ComPtr<ScriptObject> ScriptIds(std::vector<_variant_t> ids) {
    const auto array = container::Make<ScriptObject>();
    const auto count = static_cast<long>(ids.size());
    array->On(L"length", [count](auto&, VARIANT& result) { return Return(result, _variant_t(count)); });
    for (std::size_t i = 0; i < ids.size(); ++i)
        if (ids[i].vt != VT_ERROR)
            array->On(std::to_wstring(i),
                      [id = ids[i]](auto&, VARIANT& result) { return Return(result, id); });
    return array;
}

class IdLists : public testing::TestWithParam<ListCase> {};

TEST_P(IdLists, AreTakenAsTheyCome) {
    const ComPtr<IDispatch> viewer = New<IDispatch>(L"DLViewer");
    ASSERT_EQ(Call(viewer.Get(), L"Initialize", {Nothing()}).result, S_OK);
    GetParam().make([&](const _variant_t& list) {
        const CallResult call = Call(viewer.Get(), L"SetSessionBUIDList", {list});
        EXPECT_EQ(call.result, S_OK) << std::hex << call.code;
    });
    // The list counts: the same id twice in it would have been refused.
    const auto twice = IdArray<BSTR>(VT_BSTR, 0, Id(L"1"), Id(L"1"));
    EXPECT_EQ(Call(viewer.Get(), L"SetSessionBUIDList", {twice}).code, RunTimeErrorResult(457));
}

using Pass = std::function<void(_variant_t)>;
INSTANTIATE_TEST_SUITE_P(
    Kinds, IdLists,
    testing::Values(
        ListCase{"texts", [](const Pass& pass) { pass(IdArray<BSTR>(VT_BSTR, 0, Id(L"1"), Id(L"2"))); }},
        ListCase{"texts from -5",
                 [](const Pass& pass) { pass(IdArray<BSTR>(VT_BSTR, -5, Id(L"1"), Id(L"2"))); }},
        ListCase{"texts by reference",
                 [](const Pass& pass) {
                     _variant_t array = IdArray<BSTR>(VT_BSTR, 1, Id(L"1"), Id(L"2"));
                     pass(ByReference(array));
                 }},
        ListCase{"variants in a variable",
                 [](const Pass& pass) {
                     _variant_t array =
                         IdArray<VARIANT>(VT_VARIANT, 0, _variant_t(L"1").Detach(), _variant_t(2L));
                     pass(Reference(array));
                 }},
        ListCase{"variants by reference",
                 [](const Pass& pass) {
                     _variant_t array = IdArray<VARIANT>(VT_VARIANT, 0, _variant_t(1.0), _variant_t(2L));
                     pass(ByReference(array));
                 }},
        ListCase{"whole numbers", [](const Pass& pass) { pass(IdArray<LONG>(VT_I4, 1, 1, 2)); }},
        ListCase{"fractions", [](const Pass& pass) { pass(IdArray<double>(VT_R8, 1, 1.5, 2)); }},
        ListCase{"decimals",
                 [](const Pass& pass) {
                     DECIMAL first{};
                     DECIMAL second{};
                     VarDecFromI4(1, &first);
                     VarDecFromI4(2, &second);
                     pass(IdArray<DECIMAL>(VT_DECIMAL, 0, first, second));
                 }},
        ListCase{"an array object",
                 [](const Pass& pass) {
                     pass(_variant_t(static_cast<IDispatch*>(ScriptIds({L"1", 2.0}).Get())));
                 }},
        ListCase{"an array object with a hole",
                 [](const Pass& pass) {
                     pass(_variant_t(static_cast<IDispatch*>(ScriptIds({L"1", LeftOut(), L"3"}).Get())));
                 }},
        ListCase{"an empty array object",
                 [](const Pass& pass) { pass(_variant_t(static_cast<IDispatch*>(ScriptIds({}).Get()))); }}));

TEST(LateCalls, TakeNoArraysWithoutOneRowOfTexts) {
    const ComPtr<IDispatch> viewer = New<IDispatch>(L"DLViewer");
    ASSERT_EQ(Call(viewer.Get(), L"Initialize", {Nothing()}).result, S_OK);
    SAFEARRAYBOUND plane[2] = {{1, 0}, {1, 0}};
    _variant_t array;
    array.vt = VT_ARRAY | VT_BSTR;
    array.parray = SafeArrayCreate(VT_BSTR, 2, plane);
    std::vector<_variant_t> lists{array, IdArray<VARIANT>(VT_VARIANT, 0, Null(), Null()),
                                  IdArray<IUnknown*>(VT_UNKNOWN, 0, nullptr, nullptr),
                                  _variant_t(static_cast<IDispatch*>(container::Make<ScriptObject>().Get())),
                                  _variant_t(static_cast<IDispatch*>(ScriptIds({Nothing()}).Get()))};
    for (const _variant_t& list : lists) {
        const CallResult call = Call(viewer.Get(), L"SetSessionBUIDList", {list});
        EXPECT_TRUE(call.result == DISP_E_TYPEMISMATCH || call.code == DISP_E_TYPEMISMATCH)
            << std::hex << call.result;
    }
}

}  // namespace
}  // namespace dlv::test
