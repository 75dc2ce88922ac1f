#include "webdata/QZWebProfile.h"

#include "base/RunTimeError.h"
#include "webdata/Documents.h"
#include "webdata/XmlWriter.h"

namespace dlv {

std::shared_ptr<QZWebTable> ReadOwnTable(XmlReader& reader, std::string_view text) {
    auto table = std::make_shared<QZWebTable>();
    table->LoadText(KeepElement(reader, text));
    return table;
}

void QZWebProfile::SetName(std::string name) {
    if (listedIn_) {
        listedIn_->Remove(name_);
        listedIn_->Add(name);
    }
    name_ = std::move(name);
}

void QZWebProfile::ListIn(std::shared_ptr<ProfileNames> names) {
    names->Add(name_);
    listedIn_ = std::move(names);
}

std::size_t QZWebProfile::PlaceOf(std::string_view name) const {
    return sectionPlaces_.Find(name, sections_.size(), [this](std::size_t place) -> std::string_view {
        return sections_[place].section->Name();
    });
}

std::shared_ptr<QZWebSection> QZWebProfile::SectionAt(std::size_t index) const {
    if (index < 1 || index > sections_.size()) RaiseSubscript();
    return sections_[index - 1].section;
}

std::shared_ptr<QZWebSection> QZWebProfile::Section(std::string_view name) const {
    return SectionAt(PlaceOf(name) + 1);
}

std::shared_ptr<QZWebSection> QZWebProfile::AddSection(std::string_view name, std::string_view fields) {
    if (HasSection(name)) RaiseDuplicateKey();
    auto section = std::make_shared<QZWebSection>(std::string(name), std::string(fields));
    sections_.push_back({std::exchange(keptAtEnd_, {}), section});
    return section;
}

void QZWebProfile::LoadText(const std::string& text) {
    XmlReader reader(text);
    QZWebProfile loaded;
    StartDocument(reader, kProfileElement);
    loaded.Read(reader, text);
    EndDocument(reader);
    SetName(loaded.name_);
    loaded.listedIn_ = std::move(listedIn_);
    *this = std::move(loaded);
}

void QZWebProfile::Read(XmlReader& reader, std::string_view text) {
    keptAttributes_ = KeepAttributes(reader, {});
    bool named = false;
    while (NextChild(reader)) {
        if (reader.Name() == kNameElement && !named) {
            named = true;
            namePlace_ = sections_.size();
            keptBeforeName_ = std::exchange(keptAtEnd_, {});
            ReadName(reader, text);
        } else if (reader.Name() == kSectionElement) {
            sections_.push_back({std::exchange(keptAtEnd_, {}), QZWebSection::Read(reader, text)});
        } else if (reader.Name() == kTableElement && reader.Value(kNameAttribute) == kErrorTable) {
            errorTable_ = ReadOwnTable(reader, text);
        } else {
            keptAtEnd_.push_back(KeepElement(reader, text));
        }
    }
}

void QZWebProfile::ReadName(XmlReader& reader, std::string_view text) {
    keptNameAttributes_ = KeepAttributes(reader, {});
    for (;;) {
        const XmlReader::Event event = reader.Next();
        if (event == XmlReader::Event::EndElement) return;
        if (event == XmlReader::Event::Text) {
            name_ += reader.Text();
        } else {
            keptInName_.push_back(KeepElement(reader, text));
        }
    }
}

std::string QZWebProfile::Text() const {
    XmlWriter writer;
    writer.StartElement(kProfileElement);
    WriteContent(writer);
    writer.EndElement();
    return writer.Take();
}

void QZWebProfile::Write(XmlWriter& writer) const {
    writer.StartElement(kProfileElement);
    for (const auto& [name, value] : keptAttributes_) writer.Attribute(name, value);
    WriteContent(writer);
    writer.EndElement();
}

void QZWebProfile::WriteContent(XmlWriter& writer) const {
    for (std::size_t i = 0; i < sections_.size(); ++i) {
        if (i == namePlace_) WriteName(writer);
        writer.Kept(sections_[i].kept);
        sections_[i].section->Write(writer);
    }
    if (namePlace_ >= sections_.size()) WriteName(writer);
    writer.Kept(keptAtEnd_);
}

void QZWebProfile::WriteName(XmlWriter& writer) const {
    writer.Kept(keptBeforeName_);
    writer.StartElement(kNameElement);
    for (const auto& [name, value] : keptNameAttributes_) writer.Attribute(name, value);
    writer.Text(name_);
    writer.Kept(keptInName_);
    writer.EndElement();
}

}  // namespace dlv
