#include "windows/webdata/SectionObject.h"

#include "windows/webdata/RowObject.h"

namespace dlv {

STDMETHODIMP SectionObject::get_Name(BSTR* value) {
    return GiveText(value, [&] { return section_->Name(); });
}

STDMETHODIMP SectionObject::get_Fields(BSTR* value) {
    return GiveText(value, [&] { return section_->Fields(); });
}

STDMETHODIMP SectionObject::get_RowCount(LONG* value) {
    return GiveCount(value, [&] { return section_->RowCount(); });
}

STDMETHODIMP SectionObject::get_Row(LONG index, _QZWebRow** value) {
    return GiveObject<SectionRowObject>(value, [&] { return section_->Row(HostIndex(index)); });
}

STDMETHODIMP SectionObject::AddRow(_QZWebRow** value) {
    return GiveObject<SectionRowObject>(value, [&] { return section_->AddRow(); });
}

STDMETHODIMP SectionObject::RemoveRow(LONG index) {
    return Own([&] { section_->RemoveRow(HostIndex(index)); });
}

}  // namespace dlv
