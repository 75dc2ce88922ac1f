#include "webdata/Documents.h"

#include <algorithm>

namespace dlv {

void StartDocument(XmlReader& reader, std::string_view root) {
    reader.Next();
    if (reader.Name() != root)
        reader.Fail(reader.Start(), "the element " + std::string(root) + " is expected");
}

void EndDocument(XmlReader& reader) { reader.Next(); }

bool NextChild(XmlReader& reader) {
    for (;;) {
        const XmlReader::Event event = reader.Next();
        if (event == XmlReader::Event::StartElement) return true;
        if (event == XmlReader::Event::EndElement) return false;
    }
}

KeptAttributes KeepAttributes(const XmlReader& reader, std::initializer_list<std::string_view> known) {
    KeptAttributes kept;
    for (const XmlReader::Attribute& attribute : reader.Attributes()) {
        if (std::find(known.begin(), known.end(), attribute.name) != known.end()) continue;
        kept.emplace_back(attribute.name, reader.Value(attribute));
    }
    return kept;
}

std::string KeepElement(XmlReader& reader, std::string_view text) {
    const std::size_t start = reader.Start();
    reader.SkipElement();
    return std::string(text.substr(start, reader.Position() - start));
}

}  // namespace dlv
