#include "simulator/xml.h"

#include "base/text.h"

#include <gtest/gtest.h>

namespace voltaro::simulator {
namespace {

TEST(AgentXmlTest, ReadsElementsAndTexts)
{
    const XmlDocument document = ParseXml(L"<?xml version=\"1.0\" encoding=\"utf-16\"?>\r\n"
                                          L"<vltp version='1.0'>\n\t<a>\r\n\t\t<b> x &amp;&lt;&gt;&quot;&apos; </b>\n"
                                          L"<c/><d></d><e>\r\n</e><f>&#65;&#x1F600;\r</f></a></vltp>\n");
    EXPECT_EQ(document.error, L"");
    EXPECT_TRUE(document.declared);
    EXPECT_EQ(document.version, L"1.0");
    ASSERT_EQ(document.root.children.size(), 1u);
    const Element& a = document.root.children[0];
    EXPECT_EQ(a.text, L""); // the indentation is gone
    const wchar_t pair[] = {L'A', 0xD83D, 0xDE00, L'\n', 0};
    const wchar_t* const kTexts[] = {L" x &<>\"' ", L"", L"", L"\n", pair}; // a text of blanks alone is kept
    ASSERT_EQ(a.children.size(), std::size(kTexts));
    for (std::size_t i = 0; i < std::size(kTexts); ++i)
        EXPECT_EQ(ChildText(a, i), kTexts[i]);
}

TEST(AgentXmlTest, RefusesWhatNoRequestNeeds)
{
    // clang-format off
    const struct { const wchar_t *text, *why; } kCases[] = {
        {L"text", L"an element is missing at unit 0"}, {L"<a", L"the tag is not closed at unit 2"},
        {L"<a>", L"the document breaks off at unit 3"}, {L"<a></b>", L"the end tag does not match at unit 6"},
        {L"<a></a><b/>", L"something follows the root element at unit 7"},
        {L"<a>x<b/></a>", L"there is text beside elements at unit 12"},
        {L"<a><b x='1'/></a>", L"only the root has attributes at unit 6"},
        {L"<a version='1' version='1'/>", L"only one attribute, version, is known at unit 26"},
        {L"<a version=1/>", L"an attribute has no value at unit 10"},
        {L"<a>\x01</a>", L"there is a character that must not be here at unit 3"},
        {L"<a><![CDATA[x]]></a>", L"a name is missing at unit 4"},
        {L"<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>", L"a name is missing at unit 1"},
        {L"<a>&e;</a>", L"the entity is not known at unit 3"},
        {L"<a>&#0;</a>", L"the reference is no character at unit 7"},
        {L"<a>&#x110000;</a>", L"the reference is no character at unit 13"},
        {L"<a>&#99999999999999;</a>", L"the reference is no character at unit 12"},
    };
    // clang-format on
    for (const auto& row : kCases)
        EXPECT_EQ(ParseXml(row.text).error, row.why) << row.text;
    const wchar_t half[] = {L'<', L'a', L'>', 0xD83D, L'<', L'/', L'a', L'>', 0};
    EXPECT_NE(ParseXml(half).error, L"");

    const std::wstring deep = Replaced(std::wstring(100'000, L'a'), L"a", L"<a>");
    EXPECT_EQ(ParseXml(deep).error, L"the elements are nested too deeply at unit 51");
}

TEST(AgentXmlTest, WritesWhatADocumentMayHold)
{
    const wchar_t text[] = {L'<', L'&', L'>', 0x01, L'\t', L'\r', 0xD83D, 0xDE00, 0xD83D, L'x', 0xFFFF, 0xE9, 0};
    EXPECT_EQ(EscapedText(text), L"&lt;&amp;&gt;\t&#13;\xD83D\xDE00x\xE9");
    const Element response{L"response", {}, {TextElement(L"status", L"a & b"), {L"details", {}, {}}}};
    EXPECT_EQ(ReplyText(response),
        L"<?xml version=\"1.0\"?><vltp version=\"1.0\"><response><status>a &amp; b</status><details></details>"
        L"</response></vltp>");
}

} // namespace
} // namespace voltaro::simulator
