#include "simulator/options.h"

#include <gtest/gtest.h>

namespace voltaro::simulator {
namespace {

std::optional<Options> Parsed(const std::vector<const wchar_t*>& arguments)
{
    return ParseOptions(arguments);
}

TEST(AgentOptionsTest, ReadsEveryOption)
{
    const std::optional<Options> all = Parsed({L"--port", L"65535", L"--log", L"a.log", L"--scenario", L"Desktop",
        L"--fault", L"*=late:30", L"--fault", L"Pause=status:a=b"});
    ASSERT_TRUE(all);
    EXPECT_EQ(std::tuple(all->port, all->log, std::wstring(all->scenario->name)),
        std::tuple(65535, std::wstring(L"a.log"), std::wstring(L"desktop")));
    ASSERT_EQ(all->faults.size(), 2u);
    EXPECT_EQ(all->faults[0].operation + all->faults[0].fault.argument, L"*30");
    EXPECT_EQ(all->faults[1].operation + all->faults[1].fault.argument, L"Pausea=b");
    const std::vector<const wchar_t*> kWrong[] = {{L"--help"}, {L"--port"}, {L"--port", L"0"}, {L"--port", L"65536"},
        {L"--port", L"80x"}, {L"--log", L""}, {L"--scenario", L"none"}, {L"--fault", L"*"}, {L"--fault", L"*=explode"},
        {L"--fault", L"pause=late"}, {L"--other", L"1"}};
    for (const auto& wrong : kWrong)
        EXPECT_FALSE(Parsed(wrong)) << wrong.back();
}

} // namespace
} // namespace voltaro::simulator
