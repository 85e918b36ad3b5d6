#include "link/document.h"

#include "base/installation.h"
#include "link/host_config.h"
#include "support/installation.h"

#include <gtest/gtest.h>

namespace voltaro {

TEST(DocumentTest, ReadsElementsAndLeafTexts)
{
    const auto root = ParseAnswer(
        L"<?xml version=\"1.0\"?><!-- c --><vltp version=\"1.0\">\n <response><!-- c -->\n  <status>Success"
        L"</status><empty/><m>a &lt; \x20AC<![CDATA[<b>]]></m><t> two blanks  </t><u>b </u></response></vltp>");
    ASSERT_TRUE(root && NewMessageId() != NewMessageId());
    const Element& response = root->children.at(0);
    EXPECT_TRUE(response.name == L"response" && ChildText(response, 0) == L"Success" && ChildText(response, 1).empty());
    EXPECT_EQ(ChildText(response, 2), L"a < \x20AC<b>");
    EXPECT_TRUE(ChildText(response, 3) == L"two blanks" && ChildText(response, 4) == L"b");
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

TEST(HostConfigTest, ChoosesTheElementsByPosition)
{
    const std::string large = "<!--" + std::string(1'000'000, ' ') + "--><Hostsettings><a/><b>1</b></Hostsettings>";
    const struct {
        const char* configuration;
        const wchar_t *port, *second;
    } kCases[] = {
        {"<c><Hostsettings><a>1</a><b>4916</b><c>3</c><d>4</d><e>five</e></Hostsettings></c>", L"4916", L"five"},
        {"<Hostsettings><a/><x> 4917x</x></Hostsettings>", L"4917x", L""},
        {"<Other><a>1</a><b>4916</b></Other>", L"", L""},
        {"<Hostsettings><a/><b>49169999999999999</b></Hostsettings>", L"491699999", L""},
        {"<Hostsettings><a/><b>4916</b>", L"", L""},
        {"<c><Hostsettings><a/></Hostsettings><Hostsettings><b>4916</b></Hostsettings></c>", L"4916", L""},
        {large.c_str(), L"", L""},
        {nullptr, L"", L""},
        {"<!DOCTYPE h [<!ENTITY p \"4916\">]><Hostsettings><a/><b>&p;</b></Hostsettings>", L"", L""},
        {"\xFF\xFE<\0!\0", L"", L""},
    };
    for (const auto& row : kCases) {
        Install(L"voltaro_conf", row.configuration);
        HostConfigText port, second;
        EXPECT_TRUE(TcpPortGetter(port, second));
        EXPECT_EQ(port, row.port) << (row.configuration ? row.configuration : "missing");
        EXPECT_EQ(second, row.second);
    }
}

TEST(InstallationTest, TheEnvironmentIsCutAt99Characters)
{
    SetEnvironmentVariableW(L"VOLTARO_HOME", std::wstring(300, L'h').c_str());
    InstallDirectory directory{};
    EXPECT_TRUE(ReadInstallPath(directory) && std::string(directory.data()) == std::string(99, 'h'));
    EXPECT_EQ(HostConfigPath(directory.data()), std::wstring(99, L'h') + L"conf\\hconfig.xml");
    EXPECT_EQ(HostConfigPath(std::string(400, 'h').c_str()).size(), 256U);
}

class InstallationTest : public testing::TestWithParam<REGSAM> { };
INSTANTIATE_TEST_SUITE_P(Views, InstallationTest, testing::Values(KEY_WOW64_64KEY, KEY_WOW64_32KEY));

TEST_P(InstallationTest, TheMachineKeyWinsAndFallsBackWhenEmpty)
{
    HKEY key = nullptr;
    constexpr const wchar_t* kPath = L"SOFTWARE\\Kestrelfen\\VOLTARO";
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, kPath, 0, nullptr, 0, KEY_ALL_ACCESS | GetParam(), nullptr, &key, nullptr),
        ERROR_SUCCESS);
    SetEnvironmentVariableW(L"VOLTARO_HOME", L"C:\\env\\");
    const auto read = [] {
        InstallDirectory directory{};
        return ReadInstallPath(directory) ? std::string(directory.data()) : std::string("none");
    };
    EXPECT_EQ(read(), "C:\\env\\"); // the key without the value
    RegSetValueExW(key, L"InstallPath", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"C:\\reg\\"), 16);
    EXPECT_EQ(read(), "C:\\reg\\");
    RegSetValueExW(key, L"InstallPath", 0, REG_SZ, reinterpret_cast<const BYTE*>(L""), 2);
    EXPECT_EQ(read(), "C:\\env\\");
    SetEnvironmentVariableW(L"VOLTARO_HOME", nullptr);
    EXPECT_EQ(read(), "none");
    RegCloseKey(key);
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kPath, GetParam(), 0);
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Kestrelfen", GetParam(), 0);
}

} // namespace voltaro
