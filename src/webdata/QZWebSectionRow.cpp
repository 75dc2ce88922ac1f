#include "webdata/QZWebSectionRow.h"

#include "base/RunTimeError.h"
#include "webdata/Documents.h"
#include "webdata/XmlWriter.h"

namespace dlv {

std::size_t QZWebSectionRow::PlaceOf(std::string_view name) const {
    return places_.Find(name, attributes_.size(),
                        [this](std::size_t place) -> std::string_view { return attributes_[place].first; });
}

std::string QZWebSectionRow::Field(std::string_view name) const {
    const std::size_t place = PlaceOf(name);
    return place < attributes_.size() && fields_->Has(name) ? attributes_[place].second : std::string();
}

void QZWebSectionRow::SetField(std::string_view name, std::string_view value) {
    if (!fields_->Has(name)) RaiseSubscript();
    const std::size_t place = PlaceOf(name);
    if (place == attributes_.size())
        attributes_.emplace_back(name, value);
    else
        attributes_[place].second = value;
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
