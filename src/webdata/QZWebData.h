// A data item: tables, found by name. Of several tables with one name the first is found.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "webdata/QZWebTable.h"

namespace dlv {

class QZWebData {
public:
    /// The table of an exact name; error 1001 when there is none.
    std::shared_ptr<QZWebTable> Table(std::string_view name) const;
    bool HasTable(std::string_view name) const { return Find(name) != nullptr; }
    std::size_t TableCount() const { return tables_.size(); }
    /// Error 457 when there is a table of that name.
    std::shared_ptr<QZWebTable> AddTable(std::string_view name);

    /// Replaces the tables by those of a <WebData> document. Error 1003 changes nothing.
    void LoadText(std::string text);
    /// The tables as a document; error 1003 when they hold what XML cannot.
    std::string Text() const;

    /// Reads the <WebData> element that the reader has just started. `source` is the reader's text.
    void Read(XmlReader& reader, const std::shared_ptr<const std::string>& source);
    void Write(XmlWriter& writer) const;

private:
    std::shared_ptr<QZWebTable> Find(std::string_view name) const;

    std::vector<std::shared_ptr<QZWebTable>> tables_;
};

}  // namespace dlv
