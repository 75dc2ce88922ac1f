// Writes a document: one element a line, indented by depth. Values come back from the reader
// exactly: line breaks and tabs are written as references. What XML cannot hold (control
// characters, lone surrogates, names that are none) is error 1003 at the place in the output.
#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace dlv {

class XmlWriter {
public:
    void StartElement(std::string_view name);
    /// Right after a start, before any content.
    void Attribute(std::string_view name, std::string_view value);
    void Text(std::string_view text);
    /// A whole element that was cut out of a document that has been read.
    void Kept(std::string_view element);
    void Kept(const std::list<std::string>& elements);
    /// Closes the innermost open element. An empty one closes itself unless it is the root.
    void EndElement();

    /// The document, once the root is closed.
    std::string Take() { return std::move(out_); }

private:
    enum class Content { None, Text, Elements };
    enum class Place { Value, Text };

    struct Open {
        std::string name;
        Content content = Content::None;
    };

    void NewLine();
    void StartContent(Content content);
    void AppendName(std::string_view name);
    void AppendEscaped(std::string_view text, Place place);
    [[noreturn]] void Fail(std::string_view what) const;

    std::string out_;
    std::vector<Open> open_;
};

}  // namespace dlv
