// The reader against an independent XML library, on generated documents and on mutations of them.
// What both accept must hold the same; the reader may be the stricter one only for the reasons
// listed, and never the more lenient one.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <pugixml.hpp>
#include <random>

#include "Transcript.h"
#include "webdata/XmlReader.h"

namespace dlv::test {
namespace {

using Random = std::mt19937;

// What that library lets pass.
constexpr std::array kStricter{
    // It takes any byte beyond ASCII for part of a name, and any other byte for part of a text.
    "a character that XML does not allow",
    "the text is not valid UTF-8",
    "a name is expected",
    "'=' is expected",
    "a blank is expected",
    // What it cannot expand stays as it is.
    "'&' that starts no reference",
    "bad character reference",
    "is unknown",
    // It does not look into the declaration.
    "bad XML declaration",
    "an XML declaration that is not at the start",
    "the document ends too early",
    // It takes fragments for documents.
    "text outside the root element",
    "a second root element",
    // Rules that it does not check.
    "'<' in a value",
    "']]>' in text",
    "'--' in a comment",
    "occurs twice",
    "a blank or the end of the tag is expected",
};

/// Adjacent texts as one, like the reader's events put together.
std::string Outline(const pugi::xml_node& root) {
    std::string out;
    for (pugi::xml_node node = root; node;) {
        if (node.type() == pugi::node_element) {
            out.append("(").append(node.name());
            for (const pugi::xml_attribute& attribute : node.attributes()) {
                out.append(" ").append(attribute.name()).append("=[").append(attribute.value()) += ']';
            }
            out += '>';
        } else if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
            out += node.value();
        }
        if (node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node && !(node.type() != pugi::node_element && node.next_sibling())) {
            if (node.type() == pugi::node_element) out += ')';
            if (node == root) return out;
            if (node.next_sibling()) break;
            node = node.parent();
        }
        node = node.next_sibling();
    }
    return out;
}

std::string Outline(std::string_view document) {
    XmlReader reader(document);
    std::string out;
    for (;;) {
        switch (reader.Next()) {
            case XmlReader::Event::StartElement:
                out.append("(").append(reader.Name());
                for (const XmlReader::Attribute& attribute : reader.Attributes()) {
                    out.append(" ").append(attribute.name).append("=[").append(reader.Value(attribute)) +=
                        ']';
                }
                out += '>';
                break;
            case XmlReader::Event::EndElement: out += ')'; break;
            case XmlReader::Event::Text: out += reader.Text(); break;
            case XmlReader::Event::EndOfDocument: return out;
        }
    }
}

template <std::size_t Size>
const char* Any(Random& random, const std::array<const char*, Size>& choices) {
    return choices[random() % Size];
}

std::string RandomText(Random& random, char quote) {
    static constexpr std::array kPieces{"x",
                                        "word ",
                                        "12",
                                        "\xC3\xA9",
                                        "\xE2\x82\xAC",
                                        "\xF0\x9F\x98\x80",
                                        "&amp;",
                                        "&lt;",
                                        "&#65;",
                                        "&#x20AC;",
                                        "&#10;",
                                        "&#13;",
                                        "\n",
                                        "\r\n",
                                        "\r",
                                        "\t",
                                        " ",
                                        "]",
                                        ">",
                                        "/",
                                        "&quot;"};
    std::string text;
    for (auto count = random() % 5; count > 0; --count) text += Any(random, kPieces);
    if (quote == '\0') std::replace(text.begin(), text.end(), '>', '.');
    if (quote == '"' && random() % 3 == 0) text += '\'';
    return text;
}

std::string RandomDocument(Random& random) {
    static constexpr std::array kNames{"row", "a", "WebTable", "b-c", "d.e", "_f", "\xC3\xA9", "g1"};
    static constexpr std::array kMisc{"<!-- c -->", "<?p i?>", "<!---->", "\n"};
    std::string text = random() % 2 ? "<?xml version=\"1.0\"?>\n" : "";
    std::vector<std::string> open;
    const auto steps = random() % 40;
    for (unsigned step = 0; step <= steps; ++step) {
        const auto choice = step == 0 ? 0 : random() % 8;
        if (choice < 3) {
            const std::string name = Any(random, kNames);
            text += "<" + name;
            for (unsigned i = 0; i < random() % 4; ++i) {
                const char quote = random() % 3 ? '"' : '\'';
                text += std::string(random() % 4 ? " " : "\n ") + Any(random, kNames) + std::to_string(i) +
                        (random() % 5 ? "=" : " = ");
                text += quote + RandomText(random, quote) + quote;
            }
            if (step > 0 && random() % 2) {
                text += random() % 2 ? "/>" : " />";
            } else {
                text += '>';
                open.push_back(name);
            }
        } else if (choice == 3 && open.size() > 1) {
            text += "</" + open.back() + ">";
            open.pop_back();
        } else if (choice == 4) {
            text += Any(random, kMisc);
        } else if (choice == 5) {
            text += "<![CDATA[" + RandomText(random, '\0') + "<&]]>";
        } else {
            text += RandomText(random, '\0');
        }
    }
    for (; !open.empty(); open.pop_back()) text += "</" + open.back() + ">";
    return text;
}

std::string Mutated(std::string text, Random& random) {
    static constexpr std::array kPieces{"<",   ">",         "&",         ";",    "\"",   "'",
                                        "=",   "/",         " ",         "]]>",  "--",   "<!--",
                                        "-->", "<![CDATA[", "?>",        "<?",   "a",    "</",
                                        "/>",  "&#x",       "&amp;",     "\x01", "\xC3", "\xED\xA0\x80",
                                        "<a>", "</a>",      "<a b='1'/>"};
    for (auto count = 1 + random() % 3; count > 0 && !text.empty(); --count) {
        const std::size_t at = random() % text.size();
        const std::size_t length = std::min<std::size_t>(random() % 6, text.size() - at);
        switch (random() % 4) {
            case 0: text.erase(at, length); break;
            case 1: text.insert(at, Any(random, kPieces)); break;
            case 2: text.insert(random() % text.size(), text.substr(at, random() % 20)); break;
            default: text.replace(at, length, Any(random, kPieces));
        }
    }
    return text;
}

struct Tally {
    unsigned both = 0;
    unsigned neither = 0;
    unsigned stricter = 0;
};

void Compare(const std::string& text, Tally& tally) {
    constexpr unsigned kFlags = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_eol |
                                pugi::parse_wconv_attribute | pugi::parse_ws_pcdata | pugi::parse_comments |
                                pugi::parse_pi;
    pugi::xml_document other;
    const bool accepted =
        static_cast<bool>(other.load_buffer(text.data(), text.size(), kFlags, pugi::encoding_utf8));
    std::string outline;
    const std::string error = ErrorOf([&] { outline = Outline(text); });
    if (error.empty()) {
        ASSERT_TRUE(accepted) << "more lenient: " << text;
        ++tally.both;
        ASSERT_EQ(outline, Outline(other.document_element())) << text;
    } else if (accepted) {
        ++tally.stricter;
        const bool listed = std::any_of(kStricter.begin(), kStricter.end(), [&](const char* reason) {
            return error.find(reason) != std::string::npos;
        });
        ASSERT_TRUE(listed) << error << ": " << text;
    } else {
        ++tally.neither;
    }
}

TEST(Differential, GeneratedDocumentsAreAcceptedAndHoldTheSame) {
    Tally tally;
    for (unsigned seed = 0; seed < 20000; ++seed) {
        Random random(seed);
        Compare(RandomDocument(random), tally);
        if (HasFatalFailure()) return;
    }
    EXPECT_EQ(tally.both, 20000u);
}

TEST(Differential, MutatedDocumentsAreNeverAcceptedAgainstTheOther) {
    Tally tally;
    for (unsigned seed = 0; seed < 40000; ++seed) {
        Random random(seed);
        Compare(Mutated(RandomDocument(random), random), tally);
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(tally.both, 2000u);
    EXPECT_GT(tally.neither, 2000u);
    EXPECT_GT(tally.stricter, 400u);
}

}  // namespace
}  // namespace dlv::test
