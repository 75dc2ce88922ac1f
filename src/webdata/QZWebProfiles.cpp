#include "webdata/QZWebProfiles.h"

#include "base/RunTimeError.h"
#include "webdata/Documents.h"
#include "webdata/XmlWriter.h"

namespace dlv {

std::shared_ptr<QZWebProfile> QZWebProfiles::Item(std::size_t index) const {
    if (index < 1 || index > profiles_.size()) RaiseSubscript();
    return profiles_[index - 1].profile;
}

std::shared_ptr<QZWebProfile> QZWebProfiles::Add(const std::string& name) {
    if (Exists(name)) RaiseDuplicateKey();
    auto profile = std::make_shared<QZWebProfile>(name);
    profile->ListIn(names_);
    profiles_.push_back({std::exchange(keptAtEnd_, {}), profile});
    return profile;
}

void QZWebProfiles::LoadText(const std::string& text) {
    XmlReader reader(text);
    QZWebProfiles loaded;
    reader.Next();
    if (reader.Name() == kProfileElement) {
        loaded.errorTable_ = loaded.ReadProfile(reader, text).ErrorTable();
    } else if (reader.Name() == kProfilesElement) {
        loaded.Read(reader, text);
    } else {
        reader.Fail(reader.Start(), "the element WebProfiles or WebProfile is expected");
    }
    EndDocument(reader);
    *this = std::move(loaded);
}

void QZWebProfiles::Read(XmlReader& reader, std::string_view text) {
    while (NextChild(reader)) {
        if (reader.Name() == kProfileElement) {
            ReadProfile(reader, text);
        } else if (reader.Name() == kTableElement && reader.Value(kNameAttribute) == kErrorTable) {
            errorTable_ = ReadOwnTable(reader, text);
        } else {
            keptAtEnd_.push_back(KeepElement(reader, text));
        }
    }
}

QZWebProfile& QZWebProfiles::ReadProfile(XmlReader& reader, std::string_view text) {
    Entry& entry =
        profiles_.emplace_back(Entry{std::exchange(keptAtEnd_, {}), std::make_shared<QZWebProfile>()});
    entry.profile->Read(reader, text);
    entry.profile->ListIn(names_);
    return *entry.profile;
}

std::string QZWebProfiles::Text() const {
    XmlWriter writer;
    writer.StartElement(kProfilesElement);
    for (const Entry& entry : profiles_) {
        writer.Kept(entry.kept);
        entry.profile->Write(writer);
    }
    writer.Kept(keptAtEnd_);
    writer.EndElement();
    return writer.Take();
}

}  // namespace dlv
