#include "webdata/QZWebSection.h"

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "webdata/Documents.h"
#include "webdata/XmlWriter.h"

namespace dlv {

QZWebSection::QZWebSection(std::string name, std::string fields)
    : name_(std::move(name)),
      fields_(std::move(fields)),
      fieldNames_(std::make_shared<const std::vector<std::string>>(
          fields_.empty() ? std::vector<std::string>() : Split(fields_, ','))) {}

std::shared_ptr<QZWebSectionRow> QZWebSection::Row(std::size_t index) const {
    if (index < 1 || index > rows_.size()) RaiseSubscript();
    return rows_[index - 1].row;
}

std::shared_ptr<QZWebSectionRow> QZWebSection::AddRow() {
    auto row = std::make_shared<QZWebSectionRow>(fieldNames_);
    rows_.push_back({std::exchange(keptAtEnd_, {}), row});
    return row;
}

void QZWebSection::RemoveRow(std::size_t index) {
    if (index < 1 || index > rows_.size()) RaiseSubscript();
    const auto removed = rows_.begin() + static_cast<std::ptrdiff_t>(index - 1);
    KeptElements& next = index < rows_.size() ? rows_[index].kept : keptAtEnd_;
    next.insert(next.begin(), removed->kept.begin(), removed->kept.end());
    rows_.erase(removed);
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
    writer.Attribute(kFieldsAttribute, fields_);
    for (const auto& [name, value] : keptAttributes_) writer.Attribute(name, value);
    for (const Entry& entry : rows_) {
        writer.Kept(entry.kept);
        entry.row->Write(writer);
    }
    writer.Kept(keptAtEnd_);
    writer.EndElement();
}

}  // namespace dlv
