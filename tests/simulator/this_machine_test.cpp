#include "simulator/this_machine.h"

#include "base/windows_api.h"

#include <gtest/gtest.h>

namespace voltaro::simulator {

TEST(AgentThisMachineTest, TellsOfTheComputerItRunsOn)
{
    const Element details = ThisMachine().details();
    ASSERT_EQ(details.children.size(), 6u);
    const Element& processor = details.children[0];
    EXPECT_EQ(processor.children[4], TextElement(L"SystemState", L"On")); // the console reads it by position
    const Element* disk = FindChild(details.children[5], L"LogicalDisk");
    ASSERT_NE(disk, nullptr);
    EXPECT_EQ(ChildText(*disk, 0), L"C:");
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = std::size(name);
    GetComputerNameW(name, &size);
    EXPECT_EQ(ThisMachine().hostName(), name);
    SYSTEM_POWER_STATUS status{};
    GetSystemPowerStatus(&status);
    EXPECT_EQ(ChildText(ThisMachine().battery(), 0), status.ACLineStatus == 0 ? L"On Battery" : L"On AC");
}

} // namespace voltaro::simulator
