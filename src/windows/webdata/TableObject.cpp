#include "windows/webdata/TableObject.h"

#include "windows/com/Arrays.h"
#include "windows/webdata/RowObject.h"

namespace dlv {

namespace {

std::vector<std::string> NamesOf(const VARIANT& columns) {
    std::vector<std::string> names;
    const HRESULT result = GuardMethod(IID_NULL, [&] { names = TextsOf(columns); });
    if (result == DISP_E_TYPEMISMATCH)
        throw RunTimeError(kErrorTypeMismatch, "Type mismatch: Columns is no array of names");
    Check(result);
    return names;
}

}  // namespace

STDMETHODIMP TableObject::get_Name(BSTR* value) {
    return GiveText(value, [&] { return table_->Name(); });
}

STDMETHODIMP TableObject::put_Name(BSTR value) {
    return Own([&] { table_->SetName(Narrow(value)); });
}

STDMETHODIMP TableObject::get_RowCount(LONG* value) {
    return GiveCount(value, [&] { return table_->RowCount(); });
}

STDMETHODIMP TableObject::get_Row(LONG index, _QZWebRow** value) {
    return GiveObject<TableRowObject>(value, [&] {
        const std::size_t number = HostIndex(index);
        if (number > table_->RowCount()) RaiseSubscript();
        return TableRow{table_, number};
    });
}

STDMETHODIMP TableObject::AddRow(_QZWebRow** value) {
    return GiveObject<TableRowObject>(value, [&] { return TableRow{table_, table_->AddRow()}; });
}

STDMETHODIMP TableObject::Fill(VARIANT columns, VARIANT values) {
    return Own([&] {
        TableFill fill(NamesOf(columns));
        FillFrom(values, fill);
        table_->Fill(std::move(fill));
    });
}

STDMETHODIMP TableObject::LoadText(BSTR text) {
    return Own([&] { table_->LoadText(Narrow(text)); });
}

STDMETHODIMP TableObject::get_Text(BSTR* value) {
    return GiveText(value, [&] { return table_->Text(); });
}

}  // namespace dlv
