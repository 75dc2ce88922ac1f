// A section of a profile, as hosts see it.
#pragma once

#include "webdata/QZWebSection.h"
#include "windows/webdata/DataObject.h"

namespace dlv {

class SectionObject final : public DataObject<::QZWebSection, _QZWebSection> {
public:
    explicit SectionObject(std::shared_ptr<QZWebSection> section) : section_(std::move(section)) {}

    STDMETHODIMP get_Name(BSTR* value) override;
    STDMETHODIMP get_Fields(BSTR* value) override;
    STDMETHODIMP get_RowCount(LONG* value) override;
    STDMETHODIMP get_Row(LONG index, _QZWebRow** value) override;
    STDMETHODIMP AddRow(_QZWebRow** value) override;
    STDMETHODIMP RemoveRow(LONG index) override;

private:
    std::shared_ptr<QZWebSection> section_;
};

}  // namespace dlv
