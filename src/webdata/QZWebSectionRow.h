// A row of a profile section: one text for each field of the section. An empty text means that the
// value is not set. Attributes and elements that the section does not know are kept with the row.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "webdata/Documents.h"

namespace dlv {

class XmlReader;
class XmlWriter;

class QZWebSectionRow {
public:
    using FieldNames = std::shared_ptr<const std::vector<std::string>>;

    /// `fields` are the section's.
    explicit QZWebSectionRow(FieldNames fields) : fields_(std::move(fields)) {}

    /// The value of a field; empty when it is not set or the section has no such field.
    std::string Field(std::string_view name) const;
    /// Error 9 when the section has no such field.
    void SetField(std::string_view name, std::string_view value);

    /// Reads the <row> element that the reader, whose text is `text`, has just started.
    void Read(XmlReader& reader, std::string_view text);
    void Write(XmlWriter& writer) const;

private:
    bool HasField(std::string_view name) const;

    FieldNames fields_;
    /// Fields that are set, and unknown attributes.
    KeptAttributes attributes_;
    KeptElements keptElements_;
};

}  // namespace dlv
