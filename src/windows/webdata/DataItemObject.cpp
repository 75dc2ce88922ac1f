#include "windows/webdata/DataItemObject.h"

#include "windows/webdata/TableObject.h"

namespace dlv {

STDMETHODIMP DataItemObject::get_Table(BSTR name, _QZWebTable** value) {
    return GiveObject<TableObject>(value, [&] { return data_->Table(Narrow(name)); });
}

STDMETHODIMP DataItemObject::get_TableCount(LONG* value) {
    return GiveCount(value, [&] { return data_->TableCount(); });
}

STDMETHODIMP DataItemObject::AddTable(BSTR name, _QZWebTable** value) {
    return GiveObject<TableObject>(value, [&] { return data_->AddTable(Narrow(name)); });
}

STDMETHODIMP DataItemObject::LoadText(BSTR text) {
    return Own([&] { data_->LoadText(Narrow(text)); });
}

STDMETHODIMP DataItemObject::get_Text(BSTR* value) {
    return GiveText(value, [&] { return data_->Text(); });
}

}  // namespace dlv
