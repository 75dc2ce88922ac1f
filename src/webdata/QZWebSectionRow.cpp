#include "webdata/QZWebSectionRow.h"

#include <algorithm>

#include "base/RunTimeError.h"
#include "webdata/Documents.h"
#include "webdata/XmlWriter.h"

namespace dlv {

bool QZWebSectionRow::HasField(std::string_view name) const {
    return std::find(fields_->begin(), fields_->end(), name) != fields_->end();
}

std::string QZWebSectionRow::Field(std::string_view name) const {
    const auto found = std::find_if(attributes_.begin(), attributes_.end(),
                                    [name](const auto& attribute) { return attribute.first == name; });
    return found != attributes_.end() && HasField(name) ? found->second : std::string();
}

void QZWebSectionRow::SetField(std::string_view name, std::string_view value) {
    if (!HasField(name)) RaiseSubscript();
    const auto found = std::find_if(attributes_.begin(), attributes_.end(),
                                    [name](const auto& attribute) { return attribute.first == name; });
    if (found == attributes_.end()) {
        attributes_.emplace_back(name, value);
    } else {
        found->second = value;
    }
}

void QZWebSectionRow::Read(XmlReader& reader, std::string_view text) {
    attributes_ = KeepAttributes(reader, {});
    while (NextChild(reader)) keptElements_.push_back(KeepElement(reader, text));
}

void QZWebSectionRow::Write(XmlWriter& writer) const {
    writer.StartElement(kRowElement);
    for (const auto& [name, value] : attributes_) writer.Attribute(name, value);
    writer.Kept(keptElements_);
    writer.EndElement();
}

}  // namespace dlv
