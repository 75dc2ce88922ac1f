// The hostile arrays: every number of dimensions, every kind of bounds and elements, and descriptors that
// lack what they describe.
#include "tests/windows/hostile/Scene.h"
#include "tests/windows/hostile/Values.h"

namespace dlv::hostile {

namespace {

using Bounds = std::vector<SAFEARRAYBOUND>;

SAFEARRAY* Shaped(VARTYPE type, Bounds bounds) {
    return SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data());
}

SAFEARRAY* OfTexts(LONG lower, const std::vector<std::wstring>& texts) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, lower, static_cast<ULONG>(texts.size()));
    for (std::size_t i = 0; array != nullptr && i < texts.size(); ++i)
        static_cast<BSTR*>(array->pvData)[i] =
            SysAllocStringLen(texts[i].data(), static_cast<UINT>(texts[i].size()));
    return array;
}

/// Bounds and a type, if any, but no memory behind them.
SAFEARRAY* Descriptor(VARTYPE type, const Bounds& bounds) {
    SAFEARRAY* array = nullptr;
    const auto dimensions = static_cast<UINT>(bounds.size());
    const HRESULT made = type == VT_EMPTY ? SafeArrayAllocDescriptor(dimensions, &array)
                                          : SafeArrayAllocDescriptorEx(type, dimensions, &array);
    if (FAILED(made)) return nullptr;
    std::copy(bounds.rbegin(), bounds.rend(), array->rgsabound);
    return array;
}

/// Every element a hostile one.
template <class Element, class Make>
SAFEARRAY* OfOdd(VARTYPE type, const Bounds& bounds, Make make) {
    SAFEARRAY* const array = Shaped(type, bounds);
    if (array == nullptr) return nullptr;
    std::size_t count = 1;
    for (const SAFEARRAYBOUND& bound : bounds) count *= bound.cElements;
    for (std::size_t i = 0; i < count; ++i) make(static_cast<Element*>(array->pvData)[i]);
    return array;
}

SAFEARRAY* OfValues(const Bounds& bounds, Making& making) {
    return OfOdd<VARIANT>(VT_VARIANT, bounds,
                          [&](VARIANT& element) { AnyOf(Values(), making.random).make(element, making); });
}

/// An array of a value that holds an array of a value, and so on.
SAFEARRAY* Nested(int depth) {
    SAFEARRAY* inner = OfTexts(0, {L"12"});
    for (int i = 0; i < depth; ++i) {
        SAFEARRAY* const outer = SafeArrayCreateVector(VT_VARIANT, 0, 1);
        auto& element = *static_cast<VARIANT*>(outer->pvData);
        element.vt = static_cast<VARTYPE>(VT_ARRAY | (i == 0 ? VT_BSTR : VT_VARIANT));
        element.parray = inner;
        inner = outer;
    }
    return inner;
}

void AddShapes(std::vector<Array>& all) {
    const std::pair<const char*, Bounds> shapes[] = {
        {"2 by 2", {{2, 0}, {2, 1}}},
        {"2 by 0", {{2, 0}, {0, 0}}},
        {"0 by 2", {{0, 0}, {2, 0}}},
        {"2 by 2, negative bounds", {{2, -7}, {2, LONG_MIN}}},
        {"2 by 2 at the end", {{2, LONG_MAX - 1}, {2, LONG_MAX - 1}}},
        {"3 dimensions", {{2, 0}, {2, 0}, {2, 0}}},
        {"60 dimensions", Bounds(60, {1, 0})},
    };
    for (const auto& [name, bounds] : shapes)
        for (const VARTYPE type : {VT_BSTR, VT_VARIANT, VT_R8})
            all.push_back({std::string(name) + " of type " + std::to_string(type),
                           [bounds = bounds, type](Making&) { return Shaped(type, bounds); }});
    for (VARTYPE type = VT_I2; type <= VT_UINT; ++type)
        all.push_back({"two zeros of type " + std::to_string(type),
                       [type](Making&) { return SafeArrayCreateVector(type, 0, 2); }});
    for (const int depth : {1, 2, 50})
        all.push_back(
            {"nested " + std::to_string(depth) + " deep", [depth](Making&) { return Nested(depth); }});
}

void AddOdd(std::vector<Array>& all) {
    const auto add = [&](const char* name, std::function<SAFEARRAY*(Making&)> make) {
        all.push_back({name, std::move(make)});
    };
    add("odd texts", [](Making& making) {
        return OfOdd<BSTR>(VT_BSTR, {{3, 0}}, [&](BSTR& element) {
            element = AnyOf(Texts(), making.random).make(making.random);
        });
    });
    add("objects", [](Making& making) {
        return OfOdd<IDispatch*>(VT_DISPATCH, {{2, 0}}, [&](IDispatch*& element) {
            element = AnyOf(Objects(), making.random).make(making).Detach();
        });
    });
    add("odd values", [](Making& making) { return OfValues({{3, -1}}, making); });
    add("2 by 2 odd values", [](Making& making) { return OfValues({{2, 0}, {2, 0}}, making); });
    add("3,000 texts", [](Making&) { return OfTexts(0, std::vector<std::wstring>(3'000, L"7")); });
    add("1 MiB text", [](Making&) { return OfTexts(0, {std::wstring(1 << 20, L'z')}); });
    add("locked", [](Making& making) {
        SAFEARRAY* const array = OfTexts(0, {L"12", L"40"});
        making.arena.Lock(array);
        return array;
    });
    add("null array", [](Making&) -> SAFEARRAY* { return nullptr; });
    add("null texts", [](Making&) { return SafeArrayCreateVector(VT_BSTR, 0, 3); });
    add("texts without memory", [](Making&) { return Descriptor(VT_BSTR, {{3, 0}}); });
    add("values without memory", [](Making&) { return Descriptor(VT_VARIANT, {{2, 0}, {2, 0}}); });
    add("endless texts without memory", [](Making&) { return Descriptor(VT_BSTR, {{0xFFFFFFFF, 0}}); });
    add("endless values without memory", [](Making&) {
        return Descriptor(VT_VARIANT, {{0x7FFFFFFF, 0}, {0xFFFFFFFF, 0}});
    });
    add("no type", [](Making&) { return Descriptor(VT_EMPTY, {{2, 0}}); });
    add("no dimensions", [](Making&) {
        SAFEARRAY* const array = Descriptor(VT_BSTR, {{0, 0}});
        array->cDims = 0;
        return array;
    });
}

void AddTexts(std::vector<Array>& all) {
    const std::vector<std::wstring> texts{L"12", L"40"};
    for (const LONG lower : {0L, 1L, -5L, LONG_MIN, LONG_MAX - 1, LONG_MAX})
        for (const std::size_t count : {0u, 1u, 2u})
            all.push_back({std::to_string(count) + " texts from " + std::to_string(lower),
                           [lower, part = std::vector(texts.begin(), texts.begin() + count)](Making&) {
                               return OfTexts(lower, part);
                           }});
    for (const wchar_t* text : {L"", L"12"})
        all.push_back({"the same text twice",
                       [twice = std::vector<std::wstring>(2, text)](Making&) { return OfTexts(0, twice); }});
}

}  // namespace

const std::vector<Array>& Arrays() {
    static const std::vector<Array> all = [] {
        std::vector<Array> made;
        AddTexts(made);
        AddShapes(made);
        AddOdd(made);
        return made;
    }();
    return all;
}

}  // namespace dlv::hostile
