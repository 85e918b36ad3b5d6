#include "link/host_config.h"

#include "base/installation.h"
#include "base/text.h"
#include "support/installation.h"

#include <gtest/gtest.h>

namespace voltaro {

TEST(HostConfigTest, ChoosesTheElementsByPosition)
{
    const std::string farTooLarge
        = "<!--" + std::string(1'000'000, ' ') + "--><Hostsettings><a/><b>1</b></Hostsettings>";
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
        {farTooLarge.c_str(), L"", L""},
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
    EXPECT_TRUE(ReadInstallPath(directory));
    EXPECT_EQ(std::string(directory.data()), std::string(99, 'h'));
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
