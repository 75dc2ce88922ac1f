// A set of profiles, in their order. The root element of its document stands bare. Elements that it
// does not know survive loading and saving; attributes of the root do not. The error table of a
// loaded document can be read but is not written back.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "webdata/Documents.h"
#include "webdata/ProfileNames.h"
#include "webdata/QZWebProfile.h"

namespace dlv {

class QZWebProfiles {
public:
    std::size_t Count() const { return profiles_.size(); }
    /// From 1 to Count; outside error 9.
    std::shared_ptr<QZWebProfile> Item(std::size_t index) const;
    /// Error 457 when there is a profile of that name.
    std::shared_ptr<QZWebProfile> Add(const std::string& name);
    /// Letter case counts.
    bool Exists(const std::string& name) const { return names_->Has(name); }

    /// The table "Error" of the document that was loaded, or null.
    std::shared_ptr<QZWebTable> ErrorTable() const { return errorTable_; }

    /// Replaces everything by the content of a <WebProfiles> document, or by the one profile of a
    /// <WebProfile> document. Error 1003 changes nothing.
    void LoadText(const std::string& text);
    /// The set as a document; error 1003 when it holds what XML cannot.
    std::string Text() const;

private:
    struct Entry {
        /// Unknown elements before the profile.
        KeptElements kept;
        std::shared_ptr<QZWebProfile> profile;
    };

    void Read(XmlReader& reader, std::string_view text);
    QZWebProfile& ReadProfile(XmlReader& reader, std::string_view text);

    std::vector<Entry> profiles_;
    std::shared_ptr<ProfileNames> names_ = std::make_shared<ProfileNames>();
    KeptElements keptAtEnd_;
    std::shared_ptr<QZWebTable> errorTable_;
};

}  // namespace dlv
