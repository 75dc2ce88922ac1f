// A profile: a name and sections in their order. Elements and attributes that it does not know
// survive loading and saving where they stood. The error table of a loaded document can be read but
// is not written back. As a document of its own the root element stands bare: attributes that it
// was loaded with are written only within a set.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "webdata/Documents.h"
#include "webdata/NamePlaces.h"
#include "webdata/ProfileNames.h"
#include "webdata/QZWebSection.h"
#include "webdata/QZWebTable.h"

namespace dlv {

class QZWebProfile {
public:
    explicit QZWebProfile(std::string name = {}) : name_(std::move(name)) {}

    const std::string& Name() const { return name_; }
    void SetName(std::string name);

    std::size_t SectionCount() const { return sections_.size(); }
    /// From 1 to SectionCount, in order; outside error 9.
    std::shared_ptr<QZWebSection> SectionAt(std::size_t index) const;
    /// The section of an exact name; error 9 when there is none.
    std::shared_ptr<QZWebSection> Section(std::string_view name) const;
    bool HasSection(std::string_view name) const { return PlaceOf(name) < sections_.size(); }
    /// `fields` are names joined by ",". Error 457 when there is a section of that name.
    std::shared_ptr<QZWebSection> AddSection(std::string_view name, std::string_view fields);

    /// The table "Error" of the document that was loaded, or null.
    std::shared_ptr<QZWebTable> ErrorTable() const { return errorTable_; }

    /// Replaces everything by the content of a <WebProfile> document. Error 1003 changes nothing.
    void LoadText(const std::string& text);
    /// The profile as a document; error 1003 when it holds what XML cannot.
    std::string Text() const;

    /// Reads the <WebProfile> element that the reader, whose text is `text`, has just started.
    void Read(XmlReader& reader, std::string_view text);
    /// Keeps its name among those of the set that it belongs to.
    void ListIn(std::shared_ptr<ProfileNames> names);
    /// Writes the profile as one of a set.
    void Write(XmlWriter& writer) const;

private:
    struct Entry {
        /// Unknown elements before the section.
        KeptElements kept;
        std::shared_ptr<QZWebSection> section;
    };

    /// The place of the section of a name; their number when there is none.
    std::size_t PlaceOf(std::string_view name) const;
    void ReadName(XmlReader& reader, std::string_view text);
    void WriteContent(XmlWriter& writer) const;
    void WriteName(XmlWriter& writer) const;

    std::string name_;
    std::shared_ptr<ProfileNames> listedIn_;
    KeptAttributes keptAttributes_;
    KeptAttributes keptNameAttributes_;
    KeptElements keptInName_;
    KeptElements keptBeforeName_;
    /// The name's element stands before the section of this place.
    std::size_t namePlace_ = 0;
    std::vector<Entry> sections_;
    NamePlaces sectionPlaces_;
    KeptElements keptAtEnd_;
    std::shared_ptr<QZWebTable> errorTable_;
};

/// The <WebTable> element just started as a table of its own.
std::shared_ptr<QZWebTable> ReadOwnTable(XmlReader& reader, std::string_view text);

}  // namespace dlv
