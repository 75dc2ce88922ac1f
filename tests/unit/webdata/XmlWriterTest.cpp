#include "webdata/XmlWriter.h"

#include <gtest/gtest.h>

#include "Transcript.h"
#include "base/Text.h"
#include "webdata/XmlChars.h"
#include "webdata/XmlReader.h"

namespace dlv::test {
namespace {

TEST(XmlWriter, WritesOneElementALineAndNeverClosesTheRootByItself) {
    XmlWriter writer;
    writer.StartElement("WebData");
    writer.EndElement();
    EXPECT_EQ(writer.Take(), "<WebData></WebData>");

    writer.StartElement("a");
    writer.StartElement("b");
    writer.Attribute("x", "1");
    writer.EndElement();
    writer.StartElement("c");
    writer.Text("text");
    writer.EndElement();
    writer.Kept(std::list<std::string>{"<d><e/></d>", "<f/>"});
    writer.EndElement();
    EXPECT_EQ(writer.Take(), "<a>\n  <b x=\"1\"/>\n  <c>text</c>\n  <d><e/></d>\n  <f/>\n</a>");
}

TEST(XmlWriter, EveryCharacterComesBackFromValueAndText) {
    std::string all;
    for (char32_t code = 0; code < 0x110000; ++code) {
        if (!IsXmlChar(code)) continue;
        AppendCharacter(all, code);
    }
    XmlWriter writer;
    writer.StartElement("a");
    writer.Attribute("b", all);
    writer.Text(all);
    writer.EndElement();
    const std::string document = writer.Take();

    XmlReader reader(document);
    ASSERT_EQ(reader.Next(), XmlReader::Event::StartElement);
    EXPECT_TRUE(reader.Value("b") == all);
    ASSERT_EQ(reader.Next(), XmlReader::Event::Text);
    EXPECT_TRUE(reader.Text() == all);
}

TEST(XmlWriter, RefusesEveryCharacterThatXmlCannotHold) {
    for (char32_t code = 0; code < 0x10000; ++code) {
        if (IsXmlChar(code)) continue;
        std::string text = "x";
        AppendCharacter(text, code);
        XmlWriter writer;
        writer.StartElement("a");
        writer.StartElement("b");
        EXPECT_EQ(ErrorOf([&] { writer.Attribute("c", text); }),
                  "1003 Document error at line 2, column 10: a character that XML does not allow");
    }
}

TEST(XmlWriter, RefusesNamesThatAreNone) {
    for (const char* name : {"", "1a", "a b", "-", "a<", "\xED\xA0\x80", "\xC3"}) {
        XmlWriter writer;
        EXPECT_EQ(ErrorOf([&] { writer.StartElement(name); }),
                  "1003 Document error at line 1, column 2: a name that XML does not allow")
            << name;
    }
}

}  // namespace
}  // namespace dlv::test
