#include "simulator/this_machine.h"

#include <gtest/gtest.h>

namespace voltaro::simulator {

TEST(AgentThisMachineTest, TellsOfTheComputerItRunsOn)
{
    const Element details = ThisMachine().details();
    ASSERT_EQ(details.children.size(), 6u);
    EXPECT_EQ(details.children[0].children[4], TextElement(L"SystemState", L"On")); // the console reads it by position
    EXPECT_EQ(ChildText(details.children[5].children.at(0), 0), L"C:");
}

} // namespace voltaro::simulator
