// A data item of a message, as hosts see it: tables by name.
#pragma once

#include "webdata/QZWebData.h"
#include "windows/webdata/DataObject.h"

namespace dlv {

class DataItemObject final : public DataObject<::QZWebData, _QZWebData> {
public:
    explicit DataItemObject(std::shared_ptr<QZWebData> data = std::make_shared<QZWebData>())
        : data_(std::move(data)) {}

    STDMETHODIMP get_Table(BSTR name, _QZWebTable** value) override;
    STDMETHODIMP get_TableCount(LONG* value) override;
    STDMETHODIMP AddTable(BSTR name, _QZWebTable** value) override;
    STDMETHODIMP LoadText(BSTR text) override;
    STDMETHODIMP get_Text(BSTR* value) override;

private:
    std::shared_ptr<QZWebData> data_;
};

}  // namespace dlv
