#include "windows/com/Arrays.h"

#include <oleauto.h>
#include <wrl/client.h>

#include <memory>
#include <optional>

#include "base/RunTimeError.h"
#include "windows/com/Coercion.h"
#include "windows/com/ComError.h"
#include "windows/com/Elements.h"

namespace dlv {

using Microsoft::WRL::ComPtr;

namespace {

// Script array objects longer than this are taken for a mistake.
constexpr LONG kLongestScriptArray = 10'000'000;

struct SafeArrayDeleter {
    void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};

SAFEARRAY* ArrayOf(const VARIANT& plain) {
    return (plain.vt & VT_BYREF) != 0 ? *plain.pparray : plain.parray;
}

IDispatch* ObjectOf(const VARIANT& plain) {
    if (plain.vt == VT_DISPATCH) return plain.pdispVal;
    return plain.vt == (VT_BYREF | VT_DISPATCH) ? *plain.ppdispVal : nullptr;
}

/// An array of a script engine: an object with a `length` and members named by their indices.
class ScriptArray {
public:
    explicit ScriptArray(IDispatch& object) : object_(&object) {}

    /// Nothing for an object that is no array.
    std::optional<std::size_t> Count() const {
        Variant length;
        if (FAILED(Get(L"length", length))) return std::nullopt;
        const LONG count = LongOf(*length);
        if (count < 0 || count > kLongestScriptArray) throw ComError(DISP_E_OVERFLOW);
        return static_cast<std::size_t>(count);
    }
    Variant At(std::size_t index) const {
        Variant element;
        const HRESULT got = Get(std::to_wstring(index).c_str(), element);
        if (FAILED(got) && got != DISP_E_UNKNOWNNAME && got != DISP_E_MEMBERNOTFOUND)
            throw ComError(DISP_E_TYPEMISMATCH);
        return element;
    }

private:
    HRESULT Get(const wchar_t* name, Variant& value) const {
        DISPID id = DISPID_UNKNOWN;
        auto* text = const_cast<LPOLESTR>(name);
        const HRESULT found = object_->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
        if (FAILED(found)) return found;
        DISPPARAMS none{};
        return object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                               value.Address(), nullptr, nullptr);
    }

    ComPtr<IDispatch> object_;
};

/// Calls `take` with each element of a one-dimensional array of any kind; false when it is none.
template <class Take>
bool ForEach(const VARIANT& array, Take take) {
    const VARIANT* plain = Behind(array);
    if (plain == nullptr) return false;
    if ((plain->vt & VT_ARRAY) != 0) {
        SAFEARRAY* const elements = ArrayOf(*plain);
        if (elements == nullptr || SafeArrayGetDim(elements) != 1 || !Elements::CanRead(*elements))
            return false;
        const Elements locked(*elements);
        const std::size_t count = locked.Count(1);
        for (std::size_t i = 0; i < count; ++i) take(locked.At(i));
        return true;
    }
    IDispatch* const object = ObjectOf(*plain);
    if (object == nullptr) return false;
    const ScriptArray script(*object);
    const std::optional<std::size_t> count = script.Count();
    for (std::size_t i = 0; count && i < *count; ++i) take(*script.At(i));
    return count.has_value();
}

/// Most texts of a table are small numbers: they need not become texts of ours first.
std::optional<std::int32_t> PlainNumber(std::wstring_view text) {
    constexpr std::size_t kSurelyInRange = 9;
    if (text.empty() || text.size() > kSurelyInRange || (text[0] == L'0' && text.size() > 1))
        return std::nullopt;
    std::int32_t number = 0;
    for (const wchar_t unit : text) {
        if (unit < L'0' || unit > L'9') return std::nullopt;
        number = number * 10 + (unit - L'0');
    }
    return number;
}

/// The texts of the values, one after another, on their way into a table.
class CellWriter {
public:
    explicit CellWriter(TableFill& fill) : fill_(fill) {}

    void Add(const VARIANT& value) {
        const VARIANT* plain = Behind(value);
        if (plain == nullptr) RaiseNoText();
        switch (plain->vt) {
            case VT_BSTR: return AddText(plain->bstrVal);
            case VT_BYREF | VT_BSTR: return AddText(*plain->pbstrVal);
            case VT_I2: return fill_.AddWhole(plain->iVal);
            case VT_I4: return fill_.AddWhole(plain->lVal);
            case VT_BYREF | VT_I4: return fill_.AddWhole(*plain->plVal);
            case VT_EMPTY:
            case VT_NULL: return fill_.Add({});
            default: break;
        }
        if (!ReadText(*plain, text_)) RaiseNoText();
        fill_.Add(text_);
    }

private:
    void AddText(BSTR text) {
        const std::wstring_view units(text, text == nullptr ? 0 : SysStringLen(text));
        if (const auto number = PlainNumber(units)) return fill_.AddWhole(*number);
        NarrowInto(units, text_);
        fill_.Add(text_);
    }
    [[noreturn]] void RaiseNoText() const {
        throw RunTimeError(kErrorTypeMismatch,
                           "Type mismatch: the value in row " + std::to_string(fill_.Row() + 1) +
                               ", column " + std::to_string(fill_.Column() + 1) + " of Values has no text");
    }

    TableFill& fill_;
    std::string text_;
};

[[noreturn]] void RaiseWidth(const std::string& what, std::size_t width, std::size_t wanted) {
    throw RunTimeError(kErrorInvalidCall, "Invalid procedure call or argument: " + what + " has " +
                                              std::to_string(width) + " columns, Columns names " +
                                              std::to_string(wanted));
}

void FillFromPlane(SAFEARRAY& array, TableFill& fill) {
    const Elements values(array);
    const std::size_t rows = values.Count(1);
    const std::size_t width = values.Count(2);
    if (width != fill.Width()) RaiseWidth("Values", width, fill.Width());
    fill.Expect(rows);
    CellWriter cells(fill);
    for (std::size_t row = 0; row < rows; ++row)
        for (std::size_t column = 0; column < width; ++column) cells.Add(values.At(column * rows + row));
}

[[noreturn]] void RaiseNoRows() {
    throw RunTimeError(kErrorTypeMismatch, "Type mismatch: Values is no array of rows and columns");
}

void FillFromRows(const VARIANT& values, TableFill& fill) {
    CellWriter cells(fill);
    std::size_t number = 0;
    const bool rows = ForEach(values, [&](const VARIANT& row) {
        ++number;
        std::size_t width = 0;
        const bool isRow = ForEach(row, [&](const VARIANT& value) {
            if (width++ < fill.Width()) cells.Add(value);
        });
        if (!isRow) RaiseNoRows();
        if (width != fill.Width())
            RaiseWidth("row " + std::to_string(number) + " of Values", width, fill.Width());
    });
    if (!rows) RaiseNoRows();
}

}  // namespace

std::vector<std::string> TextsOf(SAFEARRAY* array) {
    if (array == nullptr) RaiseSubscript();
    VARIANT plain;
    VariantInit(&plain);
    plain.vt = VT_ARRAY;
    plain.parray = array;
    return TextsOf(plain);
}

std::vector<std::string> TextsOf(const VARIANT& array) {
    std::vector<std::string> texts;
    const bool found = ForEach(array, [&](const VARIANT& value) { texts.push_back(TextOf(value)); });
    if (!found) throw ComError(DISP_E_TYPEMISMATCH);
    return texts;
}

Variant TextArray(const VARIANT& array) {
    const std::vector<std::string> texts = TextsOf(array);
    std::unique_ptr<SAFEARRAY, SafeArrayDeleter> made(
        SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size())));
    if (!made) throw ComError(E_OUTOFMEMORY);
    for (LONG i = 0; i < static_cast<LONG>(texts.size()); ++i)
        Check(SafeArrayPutElement(made.get(), &i, Bstr(texts[static_cast<std::size_t>(i)]).Get()));
    Variant result;
    result->vt = VT_ARRAY | VT_BSTR;
    result->parray = made.release();
    return result;
}

void FillFrom(const VARIANT& values, TableFill& fill) {
    const VARIANT* plain = Behind(values);
    if (plain == nullptr) RaiseNoRows();
    if (plain->vt == VT_EMPTY || plain->vt == VT_NULL) return;
    SAFEARRAY* const array = (plain->vt & VT_ARRAY) != 0 ? ArrayOf(*plain) : nullptr;
    if (array != nullptr && SafeArrayGetDim(array) == 2 && Elements::CanRead(*array)) {
        FillFromPlane(*array, fill);
    } else {
        FillFromRows(*plain, fill);
    }
}

}  // namespace dlv
