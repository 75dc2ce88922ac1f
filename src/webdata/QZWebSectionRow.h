// A row of a profile section: one text for each field of the section. An empty text means that the
// value is not set. Attributes and elements that the section does not know are kept with the row.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "webdata/Documents.h"
#include "webdata/SectionFields.h"

namespace dlv {

class XmlReader;
class XmlWriter;

class QZWebSectionRow {
public:
    /// `fields` are the section's.
    explicit QZWebSectionRow(std::shared_ptr<const SectionFields> fields) : fields_(std::move(fields)) {}

    /// The value of a field; empty when it is not set or the section has no such field.
    std::string Field(std::string_view name) const;
    /// Error 9 when the section has no such field.
    void SetField(std::string_view name, std::string_view value);

    /// Reads the <row> element that the reader, whose text is `text`, has just started.
    void Read(XmlReader& reader, std::string_view text);
    void Write(XmlWriter& writer) const;

private:
    /// The place of an attribute; their number when it is not set.
    std::size_t PlaceOf(std::string_view name) const;

    std::shared_ptr<const SectionFields> fields_;
    /// Fields that are set, and unknown attributes.
    KeptAttributes attributes_;
    NamePlaces places_;
    KeptElements keptElements_;
};

}  // namespace dlv
