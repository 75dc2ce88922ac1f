// A section of a profile: a name, a list of fields, and rows with a text for each field. Elements
// and attributes that it does not know are kept.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "webdata/Documents.h"
#include "webdata/QZWebSectionRow.h"

namespace dlv {

class QZWebSection {
public:
    /// `fields` are names joined by ",".
    QZWebSection(std::string name, std::string fields);

    const std::string& Name() const { return name_; }
    /// The list of fields as it was given.
    const std::string& Fields() const { return fields_->List(); }
    const std::vector<std::string>& FieldNames() const { return fields_->Names(); }
    /// Adds a field at the end of the list, for all rows, unless the section has it.
    void AddField(std::string_view name) { fields_->Add(name); }

    std::size_t RowCount() const { return rows_.size() - firstRow_; }
    /// From 1 to RowCount; outside error 9. A row stays the same whatever is removed before it.
    std::shared_ptr<QZWebSectionRow> Row(std::size_t index) const;
    /// Adds a row in which no value is set.
    std::shared_ptr<QZWebSectionRow> AddRow();
    void RemoveRow(std::size_t index);

    /// Reads the <Section> element that the reader, whose text is `text`, has just started.
    static std::shared_ptr<QZWebSection> Read(XmlReader& reader, std::string_view text);
    void Write(XmlWriter& writer) const;

private:
    struct Entry {
        /// Unknown elements before the row.
        KeptElements kept;
        std::shared_ptr<QZWebSectionRow> row;
    };

    /// The place of a row in `rows_`; outside error 9.
    std::size_t PlaceOf(std::size_t index) const;

    std::string name_;
    std::shared_ptr<SectionFields> fields_;
    KeptAttributes keptAttributes_;
    std::vector<Entry> rows_;
    /// Rows before this place were removed; taking all rows from the front takes linear time.
    std::size_t firstRow_ = 0;
    KeptElements keptAtEnd_;
};

}  // namespace dlv
