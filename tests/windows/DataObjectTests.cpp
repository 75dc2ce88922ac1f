// The data objects through their interfaces: what a host puts in comes out again, as members and as text.
#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

std::wstring Text(HRESULT result, _bstr_t& text) {
    EXPECT_EQ(result, S_OK);
    return text.length() == 0 ? std::wstring() : std::wstring(text.GetBSTR(), text.length());
}

template <class Object>
std::wstring TextOf(Object* object) {
    _bstr_t text;
    const HRESULT result = object->get_Text(text.GetAddress());
    return Text(result, text);
}

std::wstring Field(_QZWebRow* row, const wchar_t* name) {
    _bstr_t value;
    const HRESULT result = row->get_Field(_bstr_t(name), value.GetAddress());
    return Text(result, value);
}

TEST(DataObjects, AMessageIsBuiltAndReadBackFromItsText) {
    const ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    EXPECT_EQ(message->put_Name(_bstr_t(L"DLVData")), S_OK);
    EXPECT_EQ(message->put_Property(_bstr_t(L"tqDBRefreshInterval"), _bstr_t(L"15")), S_OK);
    LONG count = -1;
    EXPECT_EQ(message->get_DataCount(&count), S_OK);
    EXPECT_EQ(count, 0);
    ComPtr<_QZWebData> data;
    ASSERT_EQ(message->get_Data(1, &data), S_OK);
    EXPECT_EQ(message->get_DataCount(&count), S_OK);
    EXPECT_EQ(count, 1);
    ComPtr<_QZWebTable> table;
    ASSERT_EQ(data->AddTable(_bstr_t(L"BusinessUnits"), &table), S_OK);
    ComPtr<_QZWebRow> row;
    ASSERT_EQ(table->AddRow(&row), S_OK);
    EXPECT_EQ(row->put_Field(_bstr_t(L"BUID"), _bstr_t(L"a \"b\" <c>\n\x00E9\x4E2D")), S_OK);

    const ComPtr<_QZWebMessage> copy = New<_QZWebMessage>(L"QZWebMessage");
    ASSERT_EQ(copy->LoadText(_bstr_t(TextOf(message.Get()).c_str())), S_OK);
    EXPECT_EQ(TextOf(copy.Get()), TextOf(message.Get()));
    _bstr_t property;
    EXPECT_EQ(Text(copy->get_Property(_bstr_t(L"tqDBRefreshInterval"), property.GetAddress()), property),
              L"15");
    ASSERT_EQ(copy->get_Data(1, data.ReleaseAndGetAddressOf()), S_OK);
    ASSERT_EQ(data->get_Table(_bstr_t(L"BusinessUnits"), table.ReleaseAndGetAddressOf()), S_OK);
    ASSERT_EQ(table->get_Row(1, row.ReleaseAndGetAddressOf()), S_OK);
    EXPECT_EQ(Field(row.Get(), L"BUID"), L"a \"b\" <c>\n\x00E9\x4E2D");
}

TEST(DataObjects, ProfilesAreBuiltAndReadBackFromTheirText) {
    const ComPtr<_QZWebProfiles> profiles = New<_QZWebProfiles>(L"QZWebProfiles");
    ComPtr<_QZWebProfile> profile;
    ASSERT_EQ(profiles->Add(_bstr_t(L"Default"), &profile), S_OK);
    ComPtr<_QZWebSection> section;
    ASSERT_EQ(profile->AddSection(_bstr_t(L"DLVSelect"), _bstr_t(L"BUList,SummaryOption"), &section), S_OK);
    ComPtr<_QZWebRow> row;
    ASSERT_EQ(section->AddRow(&row), S_OK);
    EXPECT_EQ(row->put_Field(_bstr_t(L"BUList"), _bstr_t(L"12|40")), S_OK);
    EXPECT_EQ(row->put_Field(_bstr_t(L"Unknown"), _bstr_t(L"x")), RunTimeErrorResult(9));

    const ComPtr<_QZWebProfiles> copy = New<_QZWebProfiles>(L"QZWebProfiles");
    ASSERT_EQ(copy->LoadText(_bstr_t(TextOf(profiles.Get()).c_str())), S_OK);
    LONG count = 0;
    EXPECT_EQ(copy->get_Count(&count), S_OK);
    EXPECT_EQ(count, 1);
    VARIANT_BOOL truth = VARIANT_FALSE;
    EXPECT_EQ(copy->Exists(_bstr_t(L"Default"), &truth), S_OK);
    EXPECT_EQ(truth, VARIANT_TRUE);
    EXPECT_EQ(copy->Exists(_bstr_t(L"default"), &truth), S_OK);
    EXPECT_EQ(truth, VARIANT_FALSE);
    ASSERT_EQ(copy->get_Item(1, profile.ReleaseAndGetAddressOf()), S_OK);
    EXPECT_EQ(profile->HasSection(_bstr_t(L"DLVSelect"), &truth), S_OK);
    EXPECT_EQ(truth, VARIANT_TRUE);
    ASSERT_EQ(profile->get_Section(_bstr_t(L"DLVSelect"), section.ReleaseAndGetAddressOf()), S_OK);
    ASSERT_EQ(section->get_Row(1, row.ReleaseAndGetAddressOf()), S_OK);
    EXPECT_EQ(Field(row.Get(), L"BUList"), L"12|40");
    EXPECT_EQ(Field(row.Get(), L"SummaryOption"), L"");
    EXPECT_EQ(section->RemoveRow(1), S_OK);
    EXPECT_EQ(section->get_RowCount(&count), S_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(copy->get_Item(2, profile.ReleaseAndGetAddressOf()), RunTimeErrorResult(9));
}

TEST(DataObjects, ErrorsCarryTheirNumberAndText) {
    const ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    EXPECT_EQ(message->LoadText(_bstr_t(L"<WebMessage Name=\"x\">")), RunTimeErrorResult(1003));
    EXPECT_EQ(TakeErrorText().substr(0, 31), L"Document error at line 1, colum");
    ComPtr<_QZWebData> data;
    ASSERT_EQ(message->get_Data(1, &data), S_OK);
    ComPtr<_QZWebTable> table;
    EXPECT_EQ(data->get_Table(_bstr_t(L"Nowhere"), &table), RunTimeErrorResult(1001));
    EXPECT_EQ(TakeErrorText(), L"Table Nowhere is missing");
    EXPECT_EQ(message->get_Data(0, data.ReleaseAndGetAddressOf()), RunTimeErrorResult(9));
    EXPECT_EQ(message->get_Data(7, data.ReleaseAndGetAddressOf()), RunTimeErrorResult(9));
    EXPECT_EQ(message->get_Name(nullptr), E_POINTER);

    const CallResult late = Call(message.Get(), L"Data", {_variant_t(9L)});
    EXPECT_EQ(late.result, DISP_E_EXCEPTION);
    EXPECT_EQ(late.code, RunTimeErrorResult(9));
    EXPECT_EQ(late.text, L"Subscript out of range");
}

TEST(DataObjects, LateBoundChainsWorkAsScriptsWriteThem) {
    const ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    EXPECT_EQ(Put(message.Get(), L"Property", {_variant_t(L"key"), _variant_t(L"value")}).result, S_OK);
    EXPECT_EQ(Call(message.Get(), L"Property", {_variant_t(L"key")}).value, _variant_t(L"value"));
    const CallResult data = Call(message.Get(), L"Data", {_variant_t(L"1")});
    ASSERT_EQ(data.result, S_OK);
    const CallResult table = Call(data.value.pdispVal, L"AddTable", {_variant_t(L"T")});
    const CallResult row = Call(table.value.pdispVal, L"AddRow");
    EXPECT_EQ(Put(row.value.pdispVal, L"Field", {_variant_t(L"A"), _variant_t(5L)}).result, S_OK);
    EXPECT_EQ(Call(row.value.pdispVal, L"Field", {_variant_t(L"A")}).value, _variant_t(L"5"));
    EXPECT_EQ(Call(table.value.pdispVal, L"RowCount").value, _variant_t(1L));
    EXPECT_EQ(Call(data.value.pdispVal, L"TableCount").value, _variant_t(1L));
}

}  // namespace
}  // namespace dlv::test
