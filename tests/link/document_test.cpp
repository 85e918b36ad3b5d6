#include "link/document.h"

#include "base/text.h"
#include "link/requests.h"

#include <gtest/gtest.h>

namespace voltaro {

TEST(DocumentTest, IdentifiersAreFresh)
{
    EXPECT_NE(NewMessageId(), NewMessageId());
}

TEST(DocumentTest, ReadsElementsAndLeafTexts)
{
    const auto root = ParseAnswer(
        L"<?xml version=\"1.0\"?><!-- c --><vltp version=\"1.0\">\n <response><!-- c -->\n  <status>Success"
        L"</status><empty/><m>a &lt; \x20AC<![CDATA[<b>]]></m><t> two blanks  </t></response></vltp>");
    ASSERT_TRUE(root);
    const Element& response = root->children.at(0);
    EXPECT_TRUE(response.name == L"response" && ChildText(response, 0) == L"Success" && ChildText(response, 1).empty());
    EXPECT_EQ(ChildText(response, 2), L"a < \x20AC<b>");
    EXPECT_EQ(ChildText(response, 3), L"two blanks");
}

TEST(DocumentTest, RefusesWhatIsNoAnswer)
{
    const std::wstring deep = Replaced(std::wstring(20'000, L'a'), L"a", L"<a>");
    const std::wstring kCases[] = {L"", L" ", L"garbage", L"<a>", L"<a><b></a></b>", L"<a>\x01</a>", L"<a></a><b></b>",
        deep, L"<!DOCTYPE a [<!ENTITY x \"y\">]><a>&x;</a>", L"<a>&x;</a>"};
    for (const std::wstring& text : kCases) {
        testing::internal::CaptureStdout();
        EXPECT_FALSE(ParseAnswer(text.c_str())) << text.substr(0, 40).c_str();
        const std::string log = testing::internal::GetCapturedStdout();
        EXPECT_TRUE(text.empty() || log.find("  HRCALL Failed: ") != std::string::npos) << log;
    }
}

TEST(DocumentTest, LeavesOutWhatIsNestedTooDeep)
{
    const std::wstring a(200, L'a'), text = Replaced(a, L"a", L"<a>") + Replaced(a, L"a", L"</a>");
    int depth = 0;
    const auto root = ParseAnswer(text.c_str());
    ASSERT_TRUE(root);
    for (const Element* at = &*root; !at->children.empty(); at = &at->children[0])
        ++depth;
    EXPECT_EQ(depth, kMaxDepth);
}

} // namespace voltaro
