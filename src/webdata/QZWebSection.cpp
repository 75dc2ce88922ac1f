#include "webdata/QZWebSection.h"

#include "base/RunTimeError.h"
#include "webdata/Documents.h"
#include "webdata/XmlWriter.h"

namespace dlv {

QZWebSection::QZWebSection(std::string name, std::string fields)
    : name_(std::move(name)), fields_(std::make_shared<SectionFields>(std::move(fields))) {}

std::size_t QZWebSection::PlaceOf(std::size_t index) const {
    if (index < 1 || index > RowCount()) RaiseSubscript();
    return firstRow_ + index - 1;
}

std::shared_ptr<QZWebSectionRow> QZWebSection::Row(std::size_t index) const {
    return rows_[PlaceOf(index)].row;
}

std::shared_ptr<QZWebSectionRow> QZWebSection::AddRow() {
    auto row = std::make_shared<QZWebSectionRow>(fields_);
    rows_.push_back({std::exchange(keptAtEnd_, {}), row});
    return row;
}

void QZWebSection::RemoveRow(std::size_t index) {
    const std::size_t place = PlaceOf(index);
    KeptElements& next = index < RowCount() ? rows_[place + 1].kept : keptAtEnd_;
    next.splice(next.begin(), rows_[place].kept);
    if (index > 1) {
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(place));
        return;
    }
    rows_[firstRow_++].row.reset();
    if (2 * firstRow_ < rows_.size()) return;
    rows_.erase(rows_.begin(), rows_.begin() + static_cast<std::ptrdiff_t>(firstRow_));
    firstRow_ = 0;
}

std::shared_ptr<QZWebSection> QZWebSection::Read(XmlReader& reader, std::string_view text) {
    auto section =
        std::make_shared<QZWebSection>(reader.Value(kNameAttribute), reader.Value(kFieldsAttribute));
    section->keptAttributes_ = KeepAttributes(reader, {kNameAttribute, kFieldsAttribute});
    while (NextChild(reader)) {
        if (reader.Name() == kRowElement) {
            section->AddRow()->Read(reader, text);
        } else {
            section->keptAtEnd_.push_back(KeepElement(reader, text));
        }
    }
    return section;
}

void QZWebSection::Write(XmlWriter& writer) const {
    writer.StartElement(kSectionElement);
    writer.Attribute(kNameAttribute, name_);
    writer.Attribute(kFieldsAttribute, Fields());
    for (const auto& [name, value] : keptAttributes_) writer.Attribute(name, value);
    for (std::size_t place = firstRow_; place < rows_.size(); ++place) {
        writer.Kept(rows_[place].kept);
        rows_[place].row->Write(writer);
    }
    writer.Kept(keptAtEnd_);
    writer.EndElement();
}

}  // namespace dlv
