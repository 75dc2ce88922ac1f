#include "webdata/XmlReader.h"

#include <gtest/gtest.h>

#include "Transcript.h"

namespace dlv::test {
namespace {

struct GoodCase {
    const char* name;
    std::string document;
    std::string events;
};

class GoodDocument : public testing::TestWithParam<GoodCase> {};

TEST_P(GoodDocument, GivesItsEvents) { EXPECT_EQ(EventsOf(GetParam().document), GetParam().events); }

INSTANTIATE_TEST_SUITE_P(
    Documents, GoodDocument,
    testing::Values(
        GoodCase{"empty_element", "<a/>", "(a)"}, GoodCase{"start_and_end", "<a></a >", "(a)"},
        GoodCase{"blanks_around_root", " \t\r\n<a/>\n\n", "(a)"},
        GoodCase{"byte_order_mark", "\xEF\xBB\xBF<a/>", "(a)"},
        GoodCase{"declaration", "<?xml version=\"1.0\"?><a/>", "(a)"},
        GoodCase{"whole_declaration", "<?xml version='1.0' encoding='UTF-16' standalone=\"yes\" ?>\n<a/>",
                 "(a)"},
        GoodCase{"declaration_without_encoding", "<?xml version = \"1.1\"  standalone='no'?><a/>", "(a)"},
        GoodCase{"instruction_like_a_declaration", "<?xml-stylesheet href='x'?><a/>", "(a)"},
        GoodCase{"attributes", "<a b=\"1\" c = '2'\n d='\"'/>", "(a b=[1] c=[2] d=[\"])"},
        GoodCase{"greater_than_in_a_value", "<a b='>]]>'/>", "(a b=[>]]>])"},
        GoodCase{"predefined_entities", "<a b='&amp;&lt;&gt;&quot;&apos;'>&lt;&amp;&gt;&quot;&apos;</a>",
                 "(a b=[&<>\"']'<&>\"'')"},
        GoodCase{"entities_are_expanded_once", "<a b='&amp;lt;'>&amp;amp;</a>", "(a b=[&lt;]'&amp;')"},
        GoodCase{"character_references", "<a b='&#65;&#x42;&#x20ac;&#x1F600;&#0000000067;'/>",
                 "(a b=[AB\xE2\x82\xAC\xF0\x9F\x98\x80"
                 "C])"},
        GoodCase{"blanks_in_values_become_spaces", "<a b='1\t2\n3\r4\r\n5'/>", "(a b=[1 2 3 4 5])"},
        GoodCase{"referenced_blanks_stay", "<a b='&#9;&#10;&#13;'/>", "(a b=[\t\n\r])"},
        GoodCase{"line_ends_in_text", "<a>1\r\n2\r3\n4&#13;</a>", "(a'1\n2\n3\n4\r')"},
        GoodCase{"character_data", "<a><![CDATA[<&]]]]>]<![CDATA[>\r\n]]></a>", "(a'<&]]'']''>\n')"},
        GoodCase{"text_pieces_around_comments", "<a>x<!-- - -->y<?p ?>z</a>", "(a'x''y''z')"},
        GoodCase{"comments_outside", "<!----><a/><!--<b>&--><?p?>", "(a)"},
        GoodCase{"nested", "<a><b><c/>t</b><b/></a>", "(a(b(c)'t')(b))"},
        GoodCase{"names", "<_:a-.1 \xC3\xA9='' xml:lang=''/>", "(_:a-.1 \xC3\xA9=[] xml:lang=[])"},
        GoodCase{"all_lengths_of_characters",
                 "<a>\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF</a>",
                 "(a'\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF')"},
        GoodCase{"brackets_in_text", "<a>]] ]>]</a>", "(a']] ]>]')"}),
    [](const auto& test) { return test.param.name; });

struct BadCase {
    const char* name;
    std::string document;
    std::string error;
};

class BadDocument : public testing::TestWithParam<BadCase> {};

TEST_P(BadDocument, IsRefusedWithPlaceAndReason) {
    EXPECT_EQ(ErrorOf([] { EventsOf(GetParam().document); }), "1003 Document error at " + GetParam().error);
}

using namespace std::string_literals;

INSTANTIATE_TEST_SUITE_P(
    Structure, BadDocument,
    testing::Values(
        BadCase{"empty", "", "line 1, column 1: the document has no element"},
        BadCase{"only_blanks", " \n ", "line 2, column 2: the document has no element"},
        BadCase{"only_a_comment", "<!-- -->", "line 1, column 9: the document has no element"},
        BadCase{"text_before_root", "x<a/>", "line 1, column 1: text outside the root element"},
        BadCase{"text_after_root", "<a/>\nx", "line 2, column 1: text outside the root element"},
        BadCase{"reference_after_root", "<a/>&#32;", "line 1, column 5: text outside the root element"},
        BadCase{"data_after_root", "<a/><![CDATA[]]>", "line 1, column 5: unknown markup"},
        BadCase{"two_roots", "<a/><b/>", "line 1, column 5: a second root element"},
        BadCase{"not_closed", "<a><b></b>", "line 1, column 11: the element a is not closed"},
        BadCase{"wrong_end", "<a>\n <b></a>", "line 2, column 7: the end tag a does not close the element b"},
        BadCase{"end_of_a_longer_name", "<a></ab>",
                "line 1, column 6: the end tag ab does not close the element a"},
        BadCase{"end_without_start", "</a>", "line 1, column 1: the end tag a closes nothing"},
        BadCase{"end_with_attribute", "<a></a b='1'>", "line 1, column 8: '>' is expected"},
        BadCase{"empty_element_broken", "<a/ >", "line 1, column 4: '>' is expected"},
        BadCase{"document_type", "<?xml version='1.0'?>\n<!DOCTYPE a>\n<a/>",
                "line 2, column 1: document types are not accepted"},
        BadCase{"entity_definition", "<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>",
                "line 1, column 1: document types are not accepted"},
        BadCase{"other_declaration", "<a><!ELEMENT a ANY></a>", "line 1, column 4: unknown markup"},
        BadCase{"late_declaration", "<a/><?xml version='1.0'?>",
                "line 1, column 5: an XML declaration that is not at the start"},
        BadCase{"declaration_after_blank", " <?XML version='1.0'?><a/>",
                "line 1, column 2: an XML declaration that is not at the start"},
        BadCase{"declaration_without_version", "<?xml encoding='UTF-8'?><a/>",
                "line 1, column 7: bad XML declaration"},
        BadCase{"version_2", "<?xml version='2.0'?><a/>", "line 1, column 16: bad XML declaration"},
        BadCase{"declaration_order", "<?xml version='1.0' standalone='yes' encoding='UTF-8'?><a/>",
                "line 1, column 38: bad XML declaration"},
        BadCase{"standalone_maybe", "<?xml version='1.0' standalone='maybe'?><a/>",
                "line 1, column 33: bad XML declaration"},
        BadCase{"declaration_without_blank", "<?xml version='1.0'encoding='UTF-8'?><a/>",
                "line 1, column 20: bad XML declaration"},
        BadCase{"instruction_without_target", "<? a?><a/>", "line 1, column 3: a name is expected"},
        BadCase{"instruction_target_runs_on", "<?a+b?><a/>", "line 1, column 4: a blank is expected"},
        BadCase{"dashes_in_comment", "<a><!-- -- --></a>", "line 1, column 11: '--' in a comment"},
        BadCase{"comment_with_three_dashes", "<!-- ---><a/>", "line 1, column 8: '--' in a comment"}),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Tags, BadDocument,
    testing::Values(
        BadCase{"blank_before_name", "< a/>", "line 1, column 2: a name is expected"},
        BadCase{"digit_starts_name", "<1a/>", "line 1, column 2: a name is expected"},
        BadCase{"name_start_beyond_ascii", "<\xC3\x97/>", "line 1, column 2: a name is expected"},
        BadCase{"name_with_a_bad_byte", "<a\xC3/>", "line 1, column 3: the text is not valid UTF-8"},
        BadCase{"no_value", "<a b/>", "line 1, column 5: '=' is expected"},
        BadCase{"no_quotes", "<a b=1/>", "line 1, column 6: a value in quotes is expected"},
        BadCase{"no_blank_between", "<a b='1'c='2'/>",
                "line 1, column 9: a blank or the end of the tag is expected"},
        BadCase{"twice", "<a b='1'\n c='' b='2'/>", "line 2, column 7: the attribute b occurs twice"},
        BadCase{"less_than_in_value", "<a b='<'/>", "line 1, column 7: '<' in a value"},
        BadCase{"value_not_closed", "<a b='1/>", "line 1, column 10: the document ends too early"},
        BadCase{"data_end_in_text", "<a>\xC3\xA9]]></a>", "line 1, column 5: ']]>' in text"},
        BadCase{
            "long_name_is_cut", "<" + std::string(70, 'x') + "></y>",
            "line 1, column 75: the end tag y does not close the element " + std::string(60, 'x') + "..."}),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(
    CharactersAndReferences, BadDocument,
    testing::Values(
        BadCase{"unknown_entity", "<a>\r\n&nbsp;</a>", "line 2, column 1: the entity nbsp is unknown"},
        BadCase{"unknown_entity_in_value", "<a b='&x;'/>", "line 1, column 7: the entity x is unknown"},
        BadCase{"entity_in_other_case", "<a>&AMP;</a>", "line 1, column 4: the entity AMP is unknown"},
        BadCase{"bare_ampersand", "<a> & b; more</a>", "line 1, column 5: '&' that starts no reference"},
        BadCase{"reference_without_digits", "<a>&#;</a>", "line 1, column 4: bad character reference"},
        BadCase{"reference_with_a_letter", "<a>&#6a;</a>", "line 1, column 7: bad character reference"},
        BadCase{"reference_in_capital_x", "<a>&#X41;</a>", "line 1, column 6: bad character reference"},
        BadCase{"reference_to_0", "<a>&#0;</a>", "line 1, column 4: a character that XML does not allow"},
        BadCase{"reference_to_a_control", "<a>&#x1F;</a>",
                "line 1, column 4: a character that XML does not allow"},
        BadCase{"reference_to_a_surrogate", "<a>&#xD800;</a>",
                "line 1, column 4: a character that XML does not allow"},
        BadCase{"reference_to_ffff", "<a>&#xFFFF;</a>",
                "line 1, column 4: a character that XML does not allow"},
        BadCase{"reference_beyond", "<a>&#x110000;</a>",
                "line 1, column 4: a character that XML does not allow"},
        BadCase{"reference_that_wraps", "<a>&#4294967361;</a>",
                "line 1, column 4: a character that XML does not allow"},
        BadCase{"null", "<a>\0</a>"s, "line 1, column 4: a character that XML does not allow"},
        BadCase{"control_in_value", "<a b='\x01'/>", "line 1, column 7: a character that XML does not allow"},
        BadCase{"control_in_comment", "<!--\x0B--><a/>",
                "line 1, column 5: a character that XML does not allow"},
        BadCase{"control_in_data", "<a><![CDATA[\x1B]]></a>",
                "line 1, column 13: a character that XML does not allow"},
        BadCase{"control_in_instruction", "<?p \x02?><a/>",
                "line 1, column 5: a character that XML does not allow"},
        BadCase{"ffff", "<a>\xEF\xBF\xBF</a>", "line 1, column 4: a character that XML does not allow"},
        BadCase{"high_surrogate", "<a>x\xED\xA0\x80</a>",
                "line 1, column 5: a character that XML does not allow"},
        BadCase{"low_surrogate_in_value", "<a b='\xED\xBF\xBF'/>",
                "line 1, column 7: a character that XML does not allow"},
        BadCase{"overlong_two", "<a>\xC0\xAF</a>", "line 1, column 4: the text is not valid UTF-8"},
        BadCase{"overlong_three", "<a>\xE0\x9F\xBF</a>", "line 1, column 4: the text is not valid UTF-8"},
        BadCase{"overlong_four", "<a>\xF0\x8F\xBF\xBF</a>", "line 1, column 4: the text is not valid UTF-8"},
        BadCase{"beyond_unicode", "<a>\xF4\x90\x80\x80</a>", "line 1, column 4: the text is not valid UTF-8"},
        BadCase{"lone_continuation", "<a>\xE2\x82\xAC\xBF</a>",
                "line 1, column 5: the text is not valid UTF-8"},
        BadCase{"cut_sequence", "<a>\xE2\x82</a>", "line 1, column 4: the text is not valid UTF-8"},
        BadCase{"cut_at_the_end", "<a>\xF0\x9F\x98", "line 1, column 4: the text is not valid UTF-8"}),
    [](const auto& test) { return test.param.name; });

TEST(ErrorPlace, CountsEveryKindOfLineEndAndWholeCharacters) {
    EXPECT_EQ(ErrorOf([] { EventsOf("\xEF\xBB\xBF<a>\r\n\r\n\n\xE2\x82\xAC\xF0\x9F\x98\x80<</a>"); }),
              "1003 Document error at line 4, column 4: a name is expected");
    EXPECT_EQ(ErrorOf([] { EventsOf("<a>\r\r&"); }),
              "1003 Document error at line 3, column 2: the document ends too early");
}

}  // namespace
}  // namespace dlv::test
