#include "tests/windows/hostile/Values.h"

namespace dlv::hostile {

namespace {

struct Scalar {
    const char* name;
    VARTYPE type;
    std::uint64_t bits;
};

constexpr Scalar kScalars[] = {
    {"0 as I1", VT_I1, 0},
    {"smallest I1", VT_I1, 0x80},
    {"0 as I2", VT_I2, 0},
    {"-1 as I2", VT_I2, 0xFFFF},
    {"largest I2", VT_I2, 0x7FFF},
    {"smallest I2", VT_I2, 0x8000},
    {"0 as I4", VT_I4, 0},
    {"1 as I4", VT_I4, 1},
    {"-1 as I4", VT_I4, 0xFFFFFFFF},
    {"largest I4", VT_I4, 0x7FFFFFFF},
    {"smallest I4", VT_I4, 0x80000000},
    {"largest INT", VT_INT, 0x7FFFFFFF},
    {"largest UINT", VT_UINT, 0xFFFFFFFF},
    {"largest UI1", VT_UI1, 0xFF},
    {"largest UI2", VT_UI2, 0xFFFF},
    {"largest UI4", VT_UI4, 0xFFFFFFFF},
    {"smallest I8", VT_I8, 0x8000000000000000},
    {"largest I8", VT_I8, 0x7FFFFFFFFFFFFFFF},
    {"largest UI8", VT_UI8, 0xFFFFFFFFFFFFFFFF},
    {"R4 that is no number", VT_R4, 0x7FC00000},
    {"R4 infinity", VT_R4, 0x7F800000},
    {"smallest R4", VT_R4, 0x00000001},
    {"largest R4", VT_R4, 0x7F7FFFFF},
    {"R8 that is no number", VT_R8, 0x7FF8000000000000},
    {"R8 that signals", VT_R8, 0x7FF0000000000001},
    {"R8 infinity", VT_R8, 0x7FF0000000000000},
    {"R8 -infinity", VT_R8, 0xFFF0000000000000},
    {"R8 -0", VT_R8, 0x8000000000000000},
    {"smallest R8", VT_R8, 0x0000000000000001},
    {"largest R8", VT_R8, 0x7FEFFFFFFFFFFFFF},
    {"2.5", VT_R8, 0x4004000000000000},
    {"2147483647.5", VT_R8, 0x41DFFFFFFFE00000},
    {"largest CY", VT_CY, 0x7FFFFFFFFFFFFFFF},
    {"smallest CY", VT_CY, 0x8000000000000000},
    {"date 0", VT_DATE, 0},
    {"last date", VT_DATE, 0x4146922780000000},
    {"date 1e300", VT_DATE, 0x7E37E43C8800759C},
    {"date that is no number", VT_DATE, 0x7FF8000000000000},
    {"date before all", VT_DATE, 0xC1641056C0000000},
    {"false", VT_BOOL, 0},
    {"true", VT_BOOL, 0xFFFF},
    {"1 as truth", VT_BOOL, 1},
    {"odd truth", VT_BOOL, 0x7FFF},
    {"left out", VT_ERROR, 0x80020004},
    {"error 0", VT_ERROR, 0},
    {"error E_FAIL", VT_ERROR, 0x80004005},
    {"null text", VT_BSTR, 0},
    {"null object", VT_DISPATCH, 0},
    {"null unknown", VT_UNKNOWN, 0},
};

void AddScalars(std::vector<Value>& all) {
    for (const Scalar& scalar : kScalars) {
        all.push_back({scalar.name, [scalar](VARIANT& value, Making&) {
                           value.vt = scalar.type;
                           value.ullVal = scalar.bits;
                       }});
        all.push_back({std::string("reference to ") + scalar.name, [scalar](VARIANT& value, Making& making) {
                           value.vt = static_cast<VARTYPE>(scalar.type | VT_BYREF);
                           value.byref = making.arena.Plain(scalar.bits);
                       }});
    }
    for (const BYTE scale : {BYTE{0}, BYTE{28}, BYTE{255}})
        all.push_back({"decimal of scale " + std::to_string(scale), [scale](VARIANT& value, Making&) {
                           value.decVal.Hi32 = 0xFFFFFFFF;
                           value.decVal.Lo64 = 0xFFFFFFFFFFFFFFFF;
                           value.decVal.scale = scale;
                           value.decVal.sign = DECIMAL_NEG;
                           value.vt = VT_DECIMAL;
                       }});
}

/// Zeros of every type, also of those that a value cannot have: nothing, and references to nothing.
void AddZeros(std::vector<Value>& all) {
    constexpr VARTYPE kLastType = VT_CLSID;
    std::vector<VARTYPE> types{VT_BSTR_BLOB, VT_ILLEGALMASKED, VT_VECTOR | VT_DISPATCH, VT_RESERVED | VT_I4};
    for (VARTYPE type = 0; type <= kLastType; ++type) types.push_back(type);
    for (const VARTYPE type : types)
        for (const int more : {0, int{VT_BYREF}, int{VT_ARRAY}, VT_BYREF | VT_ARRAY})
            all.push_back({"zero of type " + std::to_string(type | more),
                           [=](VARIANT& value, Making&) { value.vt = static_cast<VARTYPE>(type | more); }});
}

void AddTexts(std::vector<Value>& all) {
    for (const Text& text : Texts())
        all.push_back({text.name, [&text](VARIANT& value, Making& making) {
                           value.bstrVal = text.make(making.random);
                           value.vt = VT_BSTR;
                       }});
    all.push_back({"reference to a text", [](VARIANT& value, Making& making) {
                       value.pbstrVal = making.arena.Text(AnyOf(Texts(), making.random).make(making.random));
                       value.vt = VT_BYREF | VT_BSTR;
                   }});
}

void AddObjects(std::vector<Value>& all) {
    for (std::size_t i = 0; i < Objects().size(); ++i) {
        const Object& object = Objects()[i];
        all.push_back({object.name, [&object, i](VARIANT& value, Making& making) {
                           value.pdispVal = object.make(making).Detach();
                           value.vt = i % 4 == 3 ? VT_UNKNOWN : VT_DISPATCH;
                       }});
    }
    all.push_back({"reference to an object", [](VARIANT& value, Making& making) {
                       value.ppdispVal =
                           making.arena.Object(AnyOf(Objects(), making.random).make(making).Get());
                       value.vt = VT_BYREF | VT_DISPATCH;
                   }});
}

VARTYPE TypeOf(SAFEARRAY* array) {
    VARTYPE type = VT_EMPTY;
    return array == nullptr || FAILED(SafeArrayGetVartype(array, &type)) ? VARTYPE{VT_VARIANT} : type;
}

void AddArrays(std::vector<Value>& all) {
    for (const Array& array : Arrays()) {
        all.push_back({array.name, [&array](VARIANT& value, Making& making) {
                           value.parray = array.make(making);
                           value.vt = static_cast<VARTYPE>(VT_ARRAY | TypeOf(value.parray));
                       }});
        all.push_back({"reference to " + array.name, [&array](VARIANT& value, Making& making) {
                           value.pparray = making.arena.Array(array.make(making));
                           value.vt = static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | TypeOf(*value.pparray));
                       }});
    }
    for (const VARTYPE lie : {VT_BSTR, VT_VARIANT})
        all.push_back({"reference to an array, called one of type " + std::to_string(lie),
                       [lie](VARIANT& value, Making& making) {
                           value.pparray = making.arena.Array(AnyOf(Arrays(), making.random).make(making));
                           value.vt = static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | lie);
                       }});
}

/// References to values, to references, and to themselves.
void AddChains(std::vector<Value>& all) {
    const std::size_t plain = all.size();
    const auto refer = [](VARIANT& value, VARIANT* target) {
        value.vt = VT_BYREF | VT_VARIANT;
        value.pvarVal = target;
    };
    for (std::size_t i = 0; i < plain; i += 7)
        all.push_back(
            {"variable with " + all[i].name, [refer, inner = all[i]](VARIANT& value, Making& making) {
                 VARIANT* const target = making.arena.Value();
                 inner.make(*target, making);
                 refer(value, target);
             }});
    for (const int depth : {2, 3, 100})
        all.push_back({"chain of " + std::to_string(depth), [=](VARIANT& value, Making& making) {
                           VARIANT* target = making.arena.Value();
                           for (int i = 1; i < depth; ++i) {
                               VARIANT* const next = making.arena.Value();
                               refer(*next, target);
                               target = next;
                           }
                           refer(value, target);
                       }});
    all.push_back({"reference to itself", [=](VARIANT& value, Making&) { refer(value, &value); }});
    all.push_back({"references to each other", [=](VARIANT& value, Making& making) {
                       VARIANT* const other = making.arena.Value();
                       refer(*other, &value);
                       refer(value, other);
                   }});
}

}  // namespace

const std::vector<Number>& Numbers() {
    static const std::vector<Number> all = [] {
        std::vector<Number> made;
        const auto add = [&](LONG value) { made.push_back({std::to_string(value), value}); };
        for (const LONG value : {0, 1, -1, 2, -2, 3, 4, 5, 7, 10, 11, 99, 100, 1000, 10'000, 1'000'000})
            add(value);
        for (const int bits : {7, 8, 15, 16, 24, 30})
            for (const int off : {-1, 0, 1})
                for (const int sign : {1, -1}) add(sign * ((1 << bits) + off));
        for (const int off : {0, 1, 2}) {
            add(LONG_MAX - off);
            add(LONG_MIN + off);
        }
        return made;
    }();
    return all;
}

const std::vector<Value>& Values() {
    static const std::vector<Value> all = [] {
        std::vector<Value> made;
        AddScalars(made);
        AddZeros(made);
        AddTexts(made);
        AddObjects(made);
        AddArrays(made);
        AddChains(made);
        return made;
    }();
    return all;
}

}  // namespace dlv::hostile
