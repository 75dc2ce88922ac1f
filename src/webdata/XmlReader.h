// A strict pull reader for XML 1.0 documents without DTD. It checks well-formedness completely:
// names, characters, UTF-8, references, unique attributes, one root. Comments, processing
// instructions and the XML declaration are passed over; the five predefined entities and character
// references are all that is expanded. Nothing recurses: depth is bounded by memory alone.
// Every fault is error 1003 with its line and column.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace dlv {

class XmlReader {
public:
    enum class Event { StartElement, EndElement, Text, EndOfDocument };

    struct Attribute {
        std::string_view name;
        /// What stands between the quotes.
        std::string_view raw;
        /// Offset of the opening quote in the document.
        std::size_t quote = 0;
        /// Whether `raw` is the value as it stands.
        bool plain = true;
    };

    /// The text must outlive the reader and every view that it gives.
    explicit XmlReader(std::string_view text);

    /// Goes on to the next event. Text comes in as many pieces as comments and CDATA sections cut it
    /// into. An empty-element tag gives a start and an end.
    Event Next();

    /// The name of the element that the last event started or ended.
    std::string_view Name() const { return name_; }
    /// The attributes of the element just started, in document order.
    std::span<const Attribute> Attributes() const { return attributes_; }
    const Attribute* Find(std::string_view name) const;
    /// The value as XML defines it: references expanded, tabs and line breaks as blanks.
    std::string Value(const Attribute& attribute) const;
    /// The value of an attribute of the element just started; empty when it has none of that name.
    std::string Value(std::string_view name) const;
    /// The text of a text event. Holds until the next event.
    std::string_view Text() const { return textEvent_; }

    /// Open elements, the one just started included and one just ended not.
    std::size_t Depth() const { return open_.size(); }
    /// Where the markup or text of the last event starts, and where it ends.
    std::size_t Start() const { return start_; }
    std::size_t Position() const { return position_; }

    /// After a start: goes on behind the end of that element.
    void SkipElement();
    /// Goes on at a later place of the same element's content. The caller answers for what lies
    /// between: complete, well-formed content of the element.
    void ContinueAt(std::size_t position) { position_ = position; }

    /// Raises error 1003 at a byte offset of the document.
    [[noreturn]] void Fail(std::size_t offset, std::string_view what) const;

private:
    enum class Blanks { Keep, Replace };

    bool AtEnd() const { return position_ == text_.size(); }
    bool StartsWith(std::string_view piece) const { return text_.substr(position_).starts_with(piece); }
    [[noreturn]] void FailAtEnd() const;
    char Peek() const;
    bool SkipBlanks();
    void Expect(std::string_view piece, std::string_view what);
    void PassCharacter();
    std::string_view ReadName();

    bool ReadMarkup(Event& event);
    void ReadDeclaration();
    void ReadDeclarationValue(std::string_view name, bool (*accept)(std::string_view));
    void ReadStartTag();
    void ReadAttribute();
    void ReadValue(Attribute& attribute);
    void CheckUnique();
    void ReadEndTag();
    void ReadText();
    void ReadCharacterData();
    void SkipComment();
    void SkipInstruction();
    char32_t ReadReference(std::size_t& position) const;
    char32_t ReadCharacterReference(std::size_t& position) const;
    void AppendDecoded(std::string_view raw, Blanks blanks, std::string& out) const;

    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t start_ = 0;
    bool rootSeen_ = false;
    bool endPending_ = false;
    std::string_view name_;
    std::vector<std::string_view> open_;
    std::vector<Attribute> attributes_;
    std::uint64_t namesSeen_ = 0;
    std::unordered_set<std::string_view> manyNames_;
    std::string_view textEvent_;
    std::string decoded_;
};

}  // namespace dlv
