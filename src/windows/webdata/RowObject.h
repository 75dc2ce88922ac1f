// A row of a table or of a profile's section, as hosts see it.
#pragma once

#include "windows/com/PlainWindows.h"

#include "webdata/QZWebSectionRow.h"
#include "webdata/QZWebTable.h"
#include "windows/webdata/DataObject.h"

namespace dlv {

class RowObject : public DataObject<::QZWebRow, _QZWebRow> {
public:
    STDMETHODIMP get_Field(BSTR name, BSTR* value) override;
    STDMETHODIMP put_Field(BSTR name, BSTR value) override;
    STDMETHODIMP get__Default(BSTR name, BSTR* value) override { return get_Field(name, value); }
    STDMETHODIMP put__Default(BSTR name, BSTR value) override { return put_Field(name, value); }

protected:
    virtual std::string Read(std::string_view name) const = 0;
    virtual void Write(std::string_view name, std::string_view value) = 0;
};

/// A row of a table, by its number: it is the row that has this number now.
struct TableRow {
    std::shared_ptr<QZWebTable> table;
    std::size_t number = 0;
};

class TableRowObject final : public RowObject {
public:
    explicit TableRowObject(TableRow row) : row_(std::move(row)) {}

private:
    std::string Read(std::string_view name) const override { return row_.table->Field(row_.number, name); }
    void Write(std::string_view name, std::string_view value) override {
        row_.table->SetField(row_.number, name, value);
    }

    TableRow row_;
};

class SectionRowObject final : public RowObject {
public:
    explicit SectionRowObject(std::shared_ptr<QZWebSectionRow> row) : row_(std::move(row)) {}

private:
    std::string Read(std::string_view name) const override { return row_->Field(name); }
    void Write(std::string_view name, std::string_view value) override { row_->SetField(name, value); }

    std::shared_ptr<QZWebSectionRow> row_;
};

}  // namespace dlv
