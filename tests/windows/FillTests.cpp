// A table filled from arrays: every way in which hosts have them, and what does not fit.
#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

using Cells = std::vector<std::vector<_variant_t>>;

/// The values in a two-dimensional array of variants with these lower bounds.
_variant_t Plane(const Cells& cells, LONG lowerRow = 0, LONG lowerColumn = 0, std::size_t width = 2) {
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(cells.size()), lowerRow},
                                {static_cast<ULONG>(cells.empty() ? width : cells[0].size()), lowerColumn}};
    _variant_t array;
    array.vt = VT_ARRAY | VT_VARIANT;
    array.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    for (std::size_t row = 0; row < cells.size(); ++row)
        for (std::size_t column = 0; column < cells[row].size(); ++column) {
            LONG place[2] = {lowerRow + static_cast<LONG>(row), lowerColumn + static_cast<LONG>(column)};
            VARIANT value = cells[row][column];
            EXPECT_EQ(SafeArrayPutElement(array.parray, place, &value), S_OK);
        }
    return array;
}

/// The same of one simple type, filled with `element` of row and column.
template <class Element>
_variant_t PlaneOf(VARTYPE type, const std::function<Element(LONG row, LONG column)>& element) {
    SAFEARRAYBOUND bounds[2] = {{2, 1}, {2, 1}};
    _variant_t array;
    array.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    array.parray = SafeArrayCreate(type, 2, bounds);
    for (LONG row = 1; row <= 2; ++row)
        for (LONG column = 1; column <= 2; ++column) {
            LONG place[2] = {row, column};
            void* to = nullptr;
            EXPECT_EQ(SafeArrayPtrOfIndex(array.parray, place, &to), S_OK);
            *static_cast<Element*>(to) = element(row, column);
        }
    return array;
}

/// One row, or the rows as an array of arrays.
_variant_t Row(const std::vector<_variant_t>& values) {
    _variant_t array;
    array.vt = VT_ARRAY | VT_VARIANT;
    array.parray = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(values.size()));
    for (LONG i = 0; i < static_cast<LONG>(values.size()); ++i) {
        VARIANT value = values[static_cast<std::size_t>(i)];
        EXPECT_EQ(SafeArrayPutElement(array.parray, &i, &value), S_OK);
    }
    return array;
}

/// The same as an array object of a script engine.
_variant_t Script(const std::vector<_variant_t>& values) {
    const auto array = container::Make<ScriptObject>();
    const auto count = static_cast<long>(values.size());
    array->On(L"length", [count](auto&, VARIANT& result) { return Return(result, _variant_t(count)); });
    for (std::size_t i = 0; i < values.size(); ++i)
        array->On(std::to_wstring(i),
                  [value = values[i]](auto&, VARIANT& result) { return Return(result, value); });
    return _variant_t(static_cast<IDispatch*>(array.Get()));
}

_variant_t Null() {
    _variant_t value;
    value.vt = VT_NULL;
    return value;
}

_variant_t Names() { return Row({L"a", L"b"}); }

/// Rows by "/", values by ",".
std::wstring Shown(_QZWebTable* table) {
    std::wstring text;
    LONG count = 0;
    EXPECT_EQ(table->get_RowCount(&count), S_OK);
    for (LONG i = 1; i <= count; ++i) {
        ComPtr<_QZWebRow> row;
        EXPECT_EQ(table->get_Row(i, &row), S_OK);
        if (i > 1) text += L"/";
        for (const wchar_t* name : {L"a", L"b"}) {
            _bstr_t value;
            EXPECT_EQ(row->get_Field(_bstr_t(name), value.GetAddress()), S_OK);
            if (*name != L'a') text += L",";
            text.append(value.GetBSTR(), value.length());
        }
    }
    return text;
}

struct FillCase {
    const char* name;
    std::function<_variant_t()> values;
    std::wstring shown;
    friend void PrintTo(const FillCase& test, std::ostream* out) { *out << test.name; }
};

class Fills : public testing::TestWithParam<FillCase> {};

TEST_P(Fills, TakeTheValuesAsTexts) {
    const ComPtr<_QZWebTable> table = New<_QZWebTable>(L"QZWebTable");
    _variant_t names = Names();
    _variant_t values = GetParam().values();
    ASSERT_EQ(table->Fill(names, values), S_OK) << testing::PrintToString(TakeErrorText());
    EXPECT_EQ(Shown(table.Get()), GetParam().shown);
    // And late bound, from variables.
    const ComPtr<_QZWebTable> late = New<_QZWebTable>(L"QZWebTable");
    EXPECT_EQ(Call(late.Get(), L"Fill", {Reference(names), Reference(values)}).result, S_OK);
    EXPECT_EQ(Shown(late.Get()), GetParam().shown);
}

const std::wstring kZero(L"x\0y", 3);
const wchar_t kLone[] = {L'z', 0xD800, 0};

INSTANTIATE_TEST_SUITE_P(
    Arrays, Fills,
    testing::Values(
        FillCase{"variants",
                 [] {
                     return Plane({{L"x", 1L}, {L"y", 2L}});
                 },
                 L"x,1/y,2"},
        FillCase{"any bounds",
                 [] {
                     return Plane({{L"x", 1L}, {L"y", 2L}}, -7, 1000);
                 },
                 L"x,1/y,2"},
        FillCase{"no row", [] { return Plane({}, 5, 5); }, L""},
        FillCase{"nothing", [] { return _variant_t(); }, L""}, FillCase{"null", [] { return Null(); }, L""},
        FillCase{"empty and null values",
                 [] {
                     return Plane({{_variant_t(), Null()}});
                 },
                 L","},
        FillCase{"numbers",
                 [] {
                     return Plane({{-1L, 2147483647L}, {0.5, 1e6}});
                 },
                 L"-1,2147483647/0.5,1000000"},
        FillCase{"truths and small ones",
                 [] {
                     return Plane({{true, static_cast<short>(-3)}});
                 },
                 L"True,-3"},
        FillCase{"texts with odd characters",
                 [] {
                     return Plane({{_variant_t(_bstr_t(SysAllocStringLen(kZero.data(), 3), false)), kLone}});
                 },
                 kZero + L"," + kLone},
        FillCase{"texts",
                 [] {
                     return PlaneOf<BSTR>(VT_BSTR, [](LONG row, LONG column) {
                         return row == 2 && column == 2 ? nullptr : SysAllocString(row == 1 ? L"007" : L"7");
                     });
                 },
                 L"007,007/7,"},
        FillCase{"whole numbers",
                 [] { return PlaneOf<LONG>(VT_I4, [](LONG r, LONG c) { return r * 10 + c; }); },
                 L"11,12/21,22"},
        FillCase{"short ones",
                 [] { return PlaneOf<SHORT>(VT_I2, [](LONG r, LONG) { return static_cast<SHORT>(-r); }); },
                 L"-1,-1/-2,-2"},
        FillCase{"bytes", [] { return PlaneOf<BYTE>(VT_UI1, [](LONG, LONG) { return BYTE{255}; }); },
                 L"255,255/255,255"},
        FillCase{"fractions",
                 [] { return PlaneOf<double>(VT_R8, [](LONG r, LONG c) { return r + c / 4.0; }); },
                 L"1.25,1.5/2.25,2.5"},
        FillCase{"money",
                 [] { return PlaneOf<CY>(VT_CY, [](LONG r, LONG) { return CY{.int64 = r * 12500}; }); },
                 L"1.25,1.25/2.5,2.5"},
        FillCase{"rows of values",
                 [] {
                     return Row({Row({L"x", 1L}), Row({L"y", 2L})});
                 },
                 L"x,1/y,2"},
        FillCase{"no rows of values", [] { return Row({}); }, L""},
        FillCase{"a script's array of arrays",
                 [] {
                     return Script({Script({L"x", 1L}), Script({L"y", 2.0})});
                 },
                 L"x,1/y,2"},
        FillCase{"a mixture of both",
                 [] {
                     return Script({Row({L"x", 1L}), Script({L"y", 2L})});
                 },
                 L"x,1/y,2"}));

struct MisfitCase {
    const char* name;
    std::function<_variant_t()> names;
    std::function<_variant_t()> values;
    int error;
    const wchar_t* text;
    friend void PrintTo(const MisfitCase& test, std::ostream* out) { *out << test.name; }
};

class Misfits : public testing::TestWithParam<MisfitCase> {};

TEST_P(Misfits, AreNamedAndLeaveTheTableAsItWas) {
    const ComPtr<_QZWebTable> table = New<_QZWebTable>(L"QZWebTable");
    ASSERT_EQ(table->Fill(Names(), Plane({{L"before", 1L}})), S_OK);
    EXPECT_EQ(table->Fill(GetParam().names(), GetParam().values()), RunTimeErrorResult(GetParam().error));
    EXPECT_EQ(TakeErrorText(), GetParam().text);
    EXPECT_EQ(Shown(table.Get()), L"before,1");
}

const auto kGood = [] { return Plane({{L"x", 1L}}); };
constexpr wchar_t kNoPlane[] = L"Type mismatch: Values is no array of rows and columns";
constexpr wchar_t kNoNames[] = L"Type mismatch: Columns is no array of names";

_variant_t Deep() {
    SAFEARRAYBOUND bounds[3] = {{1, 0}, {1, 0}, {1, 0}};
    _variant_t array;
    array.vt = VT_ARRAY | VT_VARIANT;
    array.parray = SafeArrayCreate(VT_VARIANT, 3, bounds);
    return array;
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, Misfits,
    testing::Values(
        MisfitCase{"no names", [] { return _variant_t(L"a,b"); }, kGood, 13, kNoNames},
        MisfitCase{"names in a plane",
                   [] {
                       return Plane({{L"a", L"b"}});
                   },
                   kGood, 13, kNoNames},
        MisfitCase{"a name that is none",
                   [] {
                       return Row({L"a", Null()});
                   },
                   kGood, 13, kNoNames},
        MisfitCase{"a name twice",
                   [] {
                       return Row({L"a", L"a"});
                   },
                   kGood, 457, L"This key is already associated with an element of this collection"},
        MisfitCase{"too few names", [] { return Row({L"a"}); }, kGood, 5,
                   L"Invalid procedure call or argument: Values has 2 columns, Columns names 1"},
        MisfitCase{"too many names",
                   [] {
                       return Row({L"a", L"b", L"c"});
                   },
                   kGood, 5, L"Invalid procedure call or argument: Values has 2 columns, Columns names 3"},
        MisfitCase{"no array", Names, [] { return _variant_t(5L); }, 13, kNoPlane},
        MisfitCase{"a text", Names, [] { return _variant_t(L"x"); }, 13, kNoPlane},
        MisfitCase{"an object that is no array", Names,
                   [] { return _variant_t(static_cast<IDispatch*>(container::Make<ScriptObject>().Get())); },
                   13, kNoPlane},
        MisfitCase{"three dimensions", Names, Deep, 13, kNoPlane},
        MisfitCase{"one row that is no array", Names,
                   [] {
                       return Row({L"x", 1L});
                   },
                   13, kNoPlane},
        MisfitCase{"a short row", Names,
                   [] {
                       return Row({Row({L"x", 1L}), Row({L"y"})});
                   },
                   5, L"Invalid procedure call or argument: row 2 of Values has 1 columns, Columns names 2"},
        MisfitCase{"a long row", Names,
                   [] {
                       return Script({Script({L"x", 1L, 2L})});
                   },
                   5, L"Invalid procedure call or argument: row 1 of Values has 3 columns, Columns names 2"},
        MisfitCase{"a value without text", Names,
                   [] {
                       return Plane({{L"x", 1L},
                                     {L"y", _variant_t(static_cast<IDispatch*>(
                                                container::Make<ScriptObject>().Get()))}});
                   },
                   13, L"Type mismatch: the value in row 2, column 2 of Values has no text"}));

TEST(Filling, LeavesTheHostsArrayUnlockedAndUnchanged) {
    const ComPtr<_QZWebTable> table = New<_QZWebTable>(L"QZWebTable");
    _variant_t values = Plane({{L"x", 1L}, {L"y", _variant_t(static_cast<IDispatch*>(nullptr))}});
    EXPECT_TRUE(FAILED(table->Fill(Names(), values)));
    EXPECT_EQ(values.parray->cLocks, 0u);
    LONG place[2] = {0, 0};
    _variant_t first;
    EXPECT_EQ(SafeArrayGetElement(values.parray, place, &first), S_OK);
    EXPECT_EQ(first, _variant_t(L"x"));
}

}  // namespace
}  // namespace dlv::test
