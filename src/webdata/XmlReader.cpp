#include "webdata/XmlReader.h"

#include <algorithm>
#include <cstdint>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "webdata/XmlBytes.h"
#include "webdata/XmlChars.h"

namespace dlv {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kRefusedCharacter = "a character that XML does not allow";
constexpr std::string_view kBadDeclaration = "bad XML declaration";

/// A name as messages show it: not longer than a line.
std::string Shown(std::string_view name) {
    constexpr std::size_t kMost = 60;
    if (name.size() <= kMost) return std::string(name);
    std::size_t length = kMost;
    while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80) --length;
    return std::string(name.substr(0, length)) + "...";
}

}  // namespace

XmlReader::XmlReader(std::string_view text) : text_(text) {
    if (text_.starts_with(kByteOrderMark)) position_ = kByteOrderMark.size();
    if (StartsWith("<?xml") && text_.size() > position_ + 5 && IsXmlBlank(text_[position_ + 5]))
        ReadDeclaration();
}

void XmlReader::Fail(std::size_t offset, std::string_view what) const {
    std::size_t line = 1;
    std::size_t column = 1;
    for (std::size_t i = text_.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0; i < offset; ++i) {
        const char c = text_[i];
        if (c == '\n' || (c == '\r' && !(i + 1 < text_.size() && text_[i + 1] == '\n'))) {
            ++line;
            column = 1;
        } else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) {
            ++column;
        }
    }
    RaiseDocument(line, column, what);
}

void XmlReader::FailAtEnd() const { Fail(text_.size(), "the document ends too early"); }

char XmlReader::Peek() const {
    if (AtEnd()) FailAtEnd();
    return text_[position_];
}

bool XmlReader::SkipBlanks() {
    const std::size_t before = position_;
    while (!AtEnd() && IsXmlBlank(text_[position_])) ++position_;
    return position_ != before;
}

void XmlReader::Expect(std::string_view piece, std::string_view what) {
    for (const char c : piece) {
        if (Peek() != c) Fail(position_, what);
        ++position_;
    }
}

void XmlReader::PassCharacter() {
    const XmlCharacter character = DecodeXmlCharacter(text_, position_);
    if (character.length == 0) Fail(position_, "the text is not valid UTF-8");
    if (!IsXmlChar(character.code)) Fail(position_, kRefusedCharacter);
    position_ += character.length;
}

std::string_view XmlReader::ReadName() {
    const std::size_t begin = position_;
    while (!AtEnd()) {
        const char c = text_[position_];
        const unsigned kind = XmlByte::ClassOf(c);
        if (kind == XmlByte::kNameByte &&
            (position_ > begin || IsXmlNameStart(static_cast<unsigned char>(c)))) {
            ++position_;
        } else if (kind == XmlByte::kBeyond) {
            const XmlCharacter character = DecodeXmlCharacter(text_, position_);
            if (character.length == 0) Fail(position_, "the text is not valid UTF-8");
            if (!(position_ == begin ? IsXmlNameStart(character.code) : IsXmlNameChar(character.code))) break;
            position_ += character.length;
        } else {
            break;
        }
    }
    if (position_ == begin) {
        if (AtEnd()) FailAtEnd();
        Fail(position_, "a name is expected");
    }
    return text_.substr(begin, position_ - begin);
}

XmlReader::Event XmlReader::Next() {
    if (endPending_) {
        endPending_ = false;
        name_ = open_.back();
        open_.pop_back();
        start_ = position_;
        return Event::EndElement;
    }
    for (;;) {
        if (open_.empty()) SkipBlanks();
        start_ = position_;
        if (AtEnd()) {
            if (!open_.empty()) Fail(position_, "the element " + Shown(open_.back()) + " is not closed");
            if (!rootSeen_) Fail(position_, "the document has no element");
            return Event::EndOfDocument;
        }
        if (text_[position_] != '<') {
            if (open_.empty()) Fail(position_, "text outside the root element");
            ReadText();
            return Event::Text;
        }
        Event event = Event::Text;
        if (ReadMarkup(event)) return event;
    }
}

/// Reads what starts with '<'; false when it gives no event.
bool XmlReader::ReadMarkup(Event& event) {
    ++position_;
    switch (Peek()) {
        case '/':
            ReadEndTag();
            event = Event::EndElement;
            return true;
        case '?': SkipInstruction(); return false;
        case '!':
            if (StartsWith("!--")) {
                SkipComment();
                return false;
            }
            if (StartsWith("![CDATA[") && !open_.empty()) {
                ReadCharacterData();
                event = Event::Text;
                return true;
            }
            if (StartsWith("!DOCTYPE")) Fail(start_, "document types are not accepted");
            Fail(start_, "unknown markup");
        default:
            ReadStartTag();
            event = Event::StartElement;
            return true;
    }
}

void XmlReader::ReadDeclaration() {
    position_ += 5;
    SkipBlanks();
    ReadDeclarationValue("version", IsXmlVersion);
    if (SkipBlanks() && StartsWith("e")) ReadDeclarationValue("encoding", IsXmlEncoding);
    // A blank stands before either of the two, whether the other is there or not.
    const bool blank = IsXmlBlank(text_[position_ - 1]) || SkipBlanks();
    if (blank && StartsWith("s")) ReadDeclarationValue("standalone", IsXmlStandalone);
    SkipBlanks();
    Expect("?>", kBadDeclaration);
}

void XmlReader::ReadDeclarationValue(std::string_view name, bool (*accept)(std::string_view)) {
    Expect(name, kBadDeclaration);
    SkipBlanks();
    Expect("=", kBadDeclaration);
    SkipBlanks();
    const char quote = Peek();
    if (quote != '"' && quote != '\'') Fail(position_, kBadDeclaration);
    const std::size_t begin = ++position_;
    const std::size_t end = text_.find(quote, begin);
    if (end == std::string_view::npos) FailAtEnd();
    if (!accept(text_.substr(begin, end - begin))) Fail(begin, kBadDeclaration);
    position_ = end + 1;
}

void XmlReader::ReadStartTag() {
    name_ = ReadName();
    if (open_.empty() && rootSeen_) Fail(start_, "a second root element");
    attributes_.clear();
    namesSeen_ = 0;
    if (!manyNames_.empty()) manyNames_.clear();
    for (;;) {
        const bool blank = SkipBlanks();
        const char c = Peek();
        if (c == '>') {
            ++position_;
            break;
        }
        if (c == '/') {
            Expect("/>", "'>' is expected");
            endPending_ = true;
            break;
        }
        if (!blank) Fail(position_, "a blank or the end of the tag is expected");
        ReadAttribute();
    }
    open_.push_back(name_);
    rootSeen_ = true;
}

void XmlReader::ReadAttribute() {
    Attribute& attribute = attributes_.emplace_back();
    attribute.name = ReadName();
    CheckUnique();
    SkipBlanks();
    Expect("=", "'=' is expected");
    SkipBlanks();
    const char quote = Peek();
    if (quote != '"' && quote != '\'') Fail(position_, "a value in quotes is expected");
    ReadValue(attribute);
}

void XmlReader::ReadValue(Attribute& attribute) {
    attribute.quote = position_;
    const char quote = text_[position_++];
    const unsigned stops = XmlByte::kRefused | XmlByte::kBlank | XmlByte::kMarkup | XmlByte::kBeyond |
                           (quote == '"' ? XmlByte::kDouble : XmlByte::kSingle);
    for (;;) {
        while (!AtEnd() && !(XmlByte::ClassOf(text_[position_]) & stops)) ++position_;
        const char c = Peek();
        if (c == quote) break;
        if (c == '<') Fail(position_, "'<' in a value");
        if (c == '&') {
            ReadReference(position_);
            attribute.plain = false;
        } else {
            if (XmlByte::ClassOf(c) == XmlByte::kBlank) attribute.plain = false;
            PassCharacter();
        }
    }
    attribute.raw = text_.substr(attribute.quote + 1, position_ - attribute.quote - 1);
    ++position_;
}

/// Few names are compared one by one, and only when a mark of theirs was seen before; many go into a set.
void XmlReader::CheckUnique() {
    constexpr std::size_t kFew = 32;
    const std::string_view name = attributes_.back().name;
    bool twice = false;
    if (attributes_.size() <= kFew) {
        const unsigned mark = static_cast<unsigned char>(name.back()) * 7u +
                              static_cast<unsigned char>(name[name.size() / 2]) * 3u +
                              static_cast<unsigned char>(name.front()) + static_cast<unsigned>(name.size());
        const std::uint64_t bit = std::uint64_t{1} << (mark & 63);
        if (namesSeen_ & bit) {
            twice = std::any_of(attributes_.begin(), attributes_.end() - 1,
                                [name](const Attribute& other) { return other.name == name; });
        }
        namesSeen_ |= bit;
    } else {
        if (manyNames_.empty()) {
            for (const Attribute& attribute : attributes_) manyNames_.insert(attribute.name);
            twice = manyNames_.size() != attributes_.size();
        } else {
            twice = !manyNames_.insert(name).second;
        }
    }
    if (twice) Fail(position_ - name.size(), "the attribute " + Shown(name) + " occurs twice");
}

void XmlReader::ReadEndTag() {
    const std::size_t begin = ++position_;
    name_ = ReadName();
    if (open_.empty()) Fail(start_, "the end tag " + Shown(name_) + " closes nothing");
    if (name_ != open_.back()) {
        Fail(begin, "the end tag " + Shown(name_) + " does not close the element " + Shown(open_.back()));
    }
    SkipBlanks();
    Expect(">", "'>' is expected");
    open_.pop_back();
}

void XmlReader::ReadText() {
    constexpr unsigned kStops =
        XmlByte::kRefused | XmlByte::kBlank | XmlByte::kMarkup | XmlByte::kBeyond | XmlByte::kBracket;
    const std::size_t begin = position_;
    bool plain = true;
    while (!AtEnd()) {
        const char c = text_[position_];
        if (!(XmlByte::ClassOf(c) & kStops)) {
            ++position_;
        } else if (c == '<') {
            break;
        } else if (c == '&') {
            ReadReference(position_);
            plain = false;
        } else if (StartsWith("]]>")) {
            Fail(position_, "']]>' in text");
        } else {
            if (c == '\r') plain = false;
            PassCharacter();
        }
    }
    textEvent_ = text_.substr(begin, position_ - begin);
    if (plain) return;
    decoded_.clear();
    AppendDecoded(textEvent_, Blanks::Keep, decoded_);
    textEvent_ = decoded_;
}

void XmlReader::ReadCharacterData() {
    position_ += std::string_view("![CDATA[").size();
    decoded_.clear();
    for (std::size_t begin = position_; !StartsWith("]]>"); begin = position_) {
        if (AtEnd()) FailAtEnd();
        if (text_[position_] == '\r') {
            position_ += StartsWith("\r\n") ? 2u : 1u;
            decoded_ += '\n';
        } else {
            PassCharacter();
            decoded_.append(text_, begin, position_ - begin);
        }
    }
    position_ += 3;
    textEvent_ = decoded_;
}

void XmlReader::SkipComment() {
    position_ += 3;
    while (!StartsWith("--")) {
        if (AtEnd()) FailAtEnd();
        PassCharacter();
    }
    position_ += 2;
    Expect(">", "'--' in a comment");
}

void XmlReader::SkipInstruction() {
    ++position_;
    const std::string_view target = ReadName();
    if (IsReservedXmlTarget(target)) Fail(start_, "an XML declaration that is not at the start");
    if (!StartsWith("?>") && !SkipBlanks()) {
        if (AtEnd()) FailAtEnd();
        Fail(position_, "a blank is expected");
    }
    while (!StartsWith("?>")) {
        if (AtEnd()) FailAtEnd();
        PassCharacter();
    }
    position_ += 2;
}

/// Reads "&...;" at `position`, which moves on behind it.
char32_t XmlReader::ReadReference(std::size_t& position) const {
    static constexpr std::pair<std::string_view, char> kEntities[] = {
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}};
    const std::string_view rest = text_.substr(position);
    for (const auto& [piece, character] : kEntities) {
        if (!rest.starts_with(piece)) continue;
        position += piece.size();
        return static_cast<unsigned char>(character);
    }
    if (rest.starts_with("&#")) return ReadCharacterReference(position);
    const std::size_t semicolon = rest.substr(0, 64).find(';');
    const bool cut = std::all_of(rest.begin() + 1, rest.end(),
                                 [](char c) { return XmlByte::ClassOf(c) == XmlByte::kNameByte; });
    if (cut) FailAtEnd();
    if (semicolon != std::string_view::npos && IsXmlName(rest.substr(1, semicolon - 1))) {
        Fail(position, "the entity " + std::string(rest.substr(1, semicolon - 1)) + " is unknown");
    }
    Fail(position, "'&' that starts no reference");
}

char32_t XmlReader::ReadCharacterReference(std::size_t& position) const {
    const bool hexadecimal = text_.substr(position).starts_with("&#x");
    const char32_t base = hexadecimal ? 16 : 10;
    const std::size_t begin = position + (hexadecimal ? 3 : 2);
    std::size_t at = begin;
    char32_t code = 0;
    for (; at < text_.size() && text_[at] != ';'; ++at) {
        const char c = text_[at];
        char32_t digit = 16;
        if (c >= '0' && c <= '9') digit = static_cast<char32_t>(c - '0');
        if (c >= 'a' && c <= 'f') digit = static_cast<char32_t>(c - 'a' + 10);
        if (c >= 'A' && c <= 'F') digit = static_cast<char32_t>(c - 'A' + 10);
        if (digit >= base) Fail(at, "bad character reference");
        code = std::min<char32_t>(code * base + digit, 0x110000);
    }
    if (at == text_.size()) FailAtEnd();
    if (at == begin) Fail(position, "bad character reference");
    if (!IsXmlChar(code)) Fail(position, kRefusedCharacter);
    position = at + 1;
    return code;
}

/// Appends a piece of the document, which has been checked, as the text that it stands for.
void XmlReader::AppendDecoded(std::string_view raw, Blanks blanks, std::string& out) const {
    const std::size_t end = static_cast<std::size_t>(raw.data() - text_.data()) + raw.size();
    for (std::size_t at = end - raw.size(); at < end;) {
        const char c = text_[at];
        if (c == '&') {
            AppendCharacter(out, ReadReference(at));
            continue;
        }
        ++at;
        if (c == '\r' && at < end && text_[at] == '\n') ++at;
        if (XmlByte::ClassOf(c) == XmlByte::kBlank && blanks == Blanks::Replace) {
            out += ' ';
        } else {
            out += c == '\r' ? '\n' : c;
        }
    }
}

const XmlReader::Attribute* XmlReader::Find(std::string_view name) const {
    const auto found = std::find_if(attributes_.begin(), attributes_.end(),
                                    [name](const Attribute& attribute) { return attribute.name == name; });
    return found == attributes_.end() ? nullptr : &*found;
}

std::string XmlReader::Value(const Attribute& attribute) const {
    if (attribute.plain) return std::string(attribute.raw);
    std::string value;
    AppendDecoded(attribute.raw, Blanks::Replace, value);
    return value;
}

std::string XmlReader::Value(std::string_view name) const {
    const Attribute* attribute = Find(name);
    return attribute ? Value(*attribute) : std::string();
}

void XmlReader::SkipElement() {
    const std::size_t outside = open_.size() - 1;
    while (Next() != Event::EndElement || open_.size() != outside) {
    }
}

}  // namespace dlv
