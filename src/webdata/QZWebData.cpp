#include "webdata/QZWebData.h"

#include <algorithm>

#include "base/RunTimeError.h"
#include "webdata/Documents.h"
#include "webdata/XmlReader.h"
#include "webdata/XmlWriter.h"

namespace dlv {

std::shared_ptr<QZWebTable> QZWebData::Find(std::string_view name) const {
    const auto found = std::find_if(tables_.begin(), tables_.end(),
                                    [name](const auto& table) { return table->Name() == name; });
    return found == tables_.end() ? nullptr : *found;
}

std::shared_ptr<QZWebTable> QZWebData::Table(std::string_view name) const {
    std::shared_ptr<QZWebTable> table = Find(name);
    if (!table) RaiseTableMissing(name);
    return table;
}

std::shared_ptr<QZWebTable> QZWebData::AddTable(std::string_view name) {
    if (HasTable(name)) RaiseDuplicateKey();
    return tables_.emplace_back(std::make_shared<QZWebTable>(std::string(name)));
}

void QZWebData::LoadText(std::string text) {
    const auto source = std::make_shared<const std::string>(std::move(text));
    XmlReader reader(*source);
    QZWebData loaded;
    StartDocument(reader, kDataElement);
    loaded.Read(reader, source);
    EndDocument(reader);
    *this = std::move(loaded);
}

void QZWebData::Read(XmlReader& reader, const std::shared_ptr<const std::string>& source) {
    tables_.clear();
    while (NextChild(reader)) {
        if (reader.Name() == kTableElement) {
            tables_.emplace_back(std::make_shared<QZWebTable>())->Read(reader, source);
        } else {
            reader.SkipElement();
        }
    }
}

std::string QZWebData::Text() const {
    XmlWriter writer;
    Write(writer);
    return writer.Take();
}

void QZWebData::Write(XmlWriter& writer) const {
    writer.StartElement(kDataElement);
    for (const auto& table : tables_) table->Write(writer);
    writer.EndElement();
}

}  // namespace dlv
