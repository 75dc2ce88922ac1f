// A message of the host: a name, properties, and data items, of which the first carries the tables
// that the control loads.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "webdata/MessageSource.h"
#include "webdata/QZWebData.h"

namespace dlv {

class QZWebMessage : public MessageSource {
public:
    explicit QZWebMessage(std::string name = {}) : name_(std::move(name)) {}

    std::string Name() const override { return name_; }
    void SetName(std::string name) { name_ = std::move(name); }

    std::string Property(std::string_view key) const override;
    void SetProperty(std::string_view key, std::string_view value);

    /// A data item, from 1 to DataCount; item 1 is made when it is first asked for. Else error 9.
    std::shared_ptr<QZWebData> Data(std::size_t index);
    std::size_t DataCount() const { return data_.size(); }

    std::shared_ptr<const RowTable> Table(std::string_view name) const override;

    /// Replaces everything by the content of a <WebMessage> document. The text is kept as long as
    /// one of its tables lives. Error 1003 changes nothing.
    void LoadText(std::string text);
    /// The message as a document; error 1003 when it holds what XML cannot.
    std::string Text() const;

private:
    struct KeyHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };

    void Read(XmlReader& reader, const std::shared_ptr<const std::string>& source);

    std::string name_;
    /// In the order in which they came.
    std::vector<std::pair<std::string, std::string>> properties_;
    std::unordered_map<std::string, std::size_t, KeyHash, std::equal_to<>> propertyPlaces_;
    std::vector<std::shared_ptr<QZWebData>> data_;
};

}  // namespace dlv
