#include "webdata/XmlWriter.h"

#include <algorithm>

#include "base/RunTimeError.h"
#include "webdata/XmlChars.h"

namespace dlv {

namespace {

/// The reference that a character needs; empty when it stands for itself.
std::string_view ReferenceFor(char c, bool inValue) {
    switch (c) {
        case '&': return "&amp;";
        case '<': return "&lt;";
        case '>': return inValue ? "" : "&gt;";
        case '"': return inValue ? "&quot;" : "";
        case '\t': return inValue ? "&#9;" : "";
        case '\n': return inValue ? "&#10;" : "";
        case '\r': return "&#13;";
        default: return "";
    }
}

}  // namespace

void XmlWriter::NewLine() {
    if (!out_.empty()) out_ += '\n';
    out_.append(2 * open_.size(), ' ');
}

/// Before something that goes into the innermost open element.
void XmlWriter::StartContent(Content content) {
    if (open_.empty()) return;
    Content& current = open_.back().content;
    if (current == Content::None) out_ += '>';
    // Blanks beside text would become part of it.
    if (current != Content::Text) current = content;
}

void XmlWriter::StartElement(std::string_view name) {
    StartContent(Content::Elements);
    if (open_.empty() || open_.back().content != Content::Text) NewLine();
    out_ += '<';
    AppendName(name);
    open_.push_back({std::string(name)});
}

void XmlWriter::Attribute(std::string_view name, std::string_view value) {
    out_ += ' ';
    AppendName(name);
    out_ += "=\"";
    AppendEscaped(value, Place::Value);
    out_ += '"';
}

void XmlWriter::Text(std::string_view text) {
    StartContent(Content::Text);
    AppendEscaped(text, Place::Text);
}

void XmlWriter::Kept(std::string_view element) {
    StartContent(Content::Elements);
    if (open_.back().content != Content::Text) NewLine();
    out_ += element;
}

void XmlWriter::Kept(const std::list<std::string>& elements) {
    for (const std::string& element : elements) Kept(element);
}

void XmlWriter::EndElement() {
    const Open element = std::move(open_.back());
    open_.pop_back();
    if (element.content == Content::None && !open_.empty()) {
        out_ += "/>";
        return;
    }
    if (element.content == Content::None) out_ += '>';
    if (element.content == Content::Elements) NewLine();
    out_ += "</";
    out_ += element.name;
    out_ += '>';
}

void XmlWriter::AppendName(std::string_view name) {
    if (!IsXmlName(name)) Fail("a name that XML does not allow");
    out_ += name;
}

void XmlWriter::AppendEscaped(std::string_view text, Place place) {
    for (std::size_t position = 0; position < text.size();) {
        const char c = text[position];
        const XmlCharacter character = DecodeXmlCharacter(text, position);
        if (character.length == 0 || !IsXmlChar(character.code)) Fail("a character that XML does not allow");
        const std::string_view reference = ReferenceFor(c, place == Place::Value);
        out_ += reference.empty() ? text.substr(position, character.length) : reference;
        position += character.length;
    }
}

void XmlWriter::Fail(std::string_view what) const {
    const std::size_t lastBreak = out_.rfind('\n');
    const std::size_t lineStart = lastBreak == std::string::npos ? 0 : lastBreak + 1;
    const auto line = std::count(out_.begin(), out_.end(), '\n') + 1;
    const auto column = std::count_if(out_.begin() + static_cast<std::ptrdiff_t>(lineStart), out_.end(),
                                      [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
    RaiseDocument(static_cast<std::size_t>(line), static_cast<std::size_t>(column) + 1, what);
}

}  // namespace dlv
