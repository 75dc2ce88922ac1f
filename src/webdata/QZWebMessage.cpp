#include "webdata/QZWebMessage.h"

#include "base/RunTimeError.h"
#include "webdata/Documents.h"
#include "webdata/XmlReader.h"
#include "webdata/XmlWriter.h"

namespace dlv {

std::string QZWebMessage::Property(std::string_view key) const {
    const auto found = propertyPlaces_.find(key);
    return found == propertyPlaces_.end() ? std::string() : properties_[found->second].second;
}

void QZWebMessage::SetProperty(std::string_view key, std::string_view value) {
    const auto [place, isNew] = propertyPlaces_.try_emplace(std::string(key), properties_.size());
    if (isNew) {
        properties_.emplace_back(key, value);
    } else {
        properties_[place->second].second = value;
    }
}

std::shared_ptr<QZWebData> QZWebMessage::Data(std::size_t index) {
    if (index == 1 && data_.empty()) data_.push_back(std::make_shared<QZWebData>());
    if (index < 1 || index > data_.size()) RaiseSubscript();
    return data_[index - 1];
}

std::shared_ptr<const RowTable> QZWebMessage::Table(std::string_view name) const {
    if (data_.empty()) RaiseTableMissing(name);
    return data_.front()->Table(name);
}

void QZWebMessage::LoadText(std::string text) {
    const auto source = std::make_shared<const std::string>(std::move(text));
    XmlReader reader(*source);
    QZWebMessage loaded;
    StartDocument(reader, kMessageElement);
    loaded.Read(reader, source);
    EndDocument(reader);
    *this = std::move(loaded);
}

void QZWebMessage::Read(XmlReader& reader, const std::shared_ptr<const std::string>& source) {
    name_ = reader.Value(kNameAttribute);
    while (NextChild(reader)) {
        if (reader.Name() == kDataElement) {
            data_.emplace_back(std::make_shared<QZWebData>())->Read(reader, source);
            continue;
        }
        if (reader.Name() == kPropertyElement) {
            SetProperty(reader.Value(kNameAttribute), reader.Value(kValueAttribute));
        }
        reader.SkipElement();
    }
}

std::string QZWebMessage::Text() const {
    XmlWriter writer;
    writer.StartElement(kMessageElement);
    writer.Attribute(kNameAttribute, name_);
    for (const auto& [key, value] : properties_) {
        writer.StartElement(kPropertyElement);
        writer.Attribute(kNameAttribute, key);
        writer.Attribute(kValueAttribute, value);
        writer.EndElement();
    }
    for (const auto& data : data_) data->Write(writer);
    writer.EndElement();
    return writer.Take();
}

}  // namespace dlv
