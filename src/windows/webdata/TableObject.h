// A table of texts, as hosts see it.
#pragma once

#include "webdata/QZWebTable.h"
#include "windows/webdata/DataObject.h"

namespace dlv {

class TableObject final : public DataObject<::QZWebTable, _QZWebTable> {
public:
    explicit TableObject(std::shared_ptr<QZWebTable> table = std::make_shared<QZWebTable>())
        : table_(std::move(table)) {}

    STDMETHODIMP get_Name(BSTR* value) override;
    STDMETHODIMP put_Name(BSTR value) override;
    STDMETHODIMP get_RowCount(LONG* value) override;
    STDMETHODIMP get_Row(LONG index, _QZWebRow** value) override;
    STDMETHODIMP AddRow(_QZWebRow** value) override;
    STDMETHODIMP Fill(VARIANT columns, VARIANT values) override;
    STDMETHODIMP LoadText(BSTR text) override;
    STDMETHODIMP get_Text(BSTR* value) override;

private:
    std::shared_ptr<QZWebTable> table_;
};

}  // namespace dlv
