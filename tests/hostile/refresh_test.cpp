#include "console/agent_records.h"
#include "console/background_refresh.h"
#include "settings/machine_texts.h"
#include "soak/held.h"
#include "support/program.h"

namespace voltaro {
namespace {

auto Records()
{
    return std::tuple(
        DetailsText(agentRecords.details), agentRecords.schemes, agentRecords.policies, agentRecords.currentScheme);
}

TEST(RefreshTest, RefreshesAgainstThePollerReadWhatOneReads)
{
    LoadedProgram program;
    const auto expected = Records();
    timing.pollerPeriod = 1;
    ASSERT_TRUE(StartWorkers());
    for (int i = 0; i < (IsLongRun() ? 200 : 40); ++i) {
        RequestBackgroundRefresh(i % 2 ? kRefreshSystemDetails : kRefreshPowerData);
        ASSERT_TRUE(WaitFor([] { return refreshRequests == 0; }));
    }
    StopWorkers(StopOrder::MainWindowDestroyed);
    EXPECT_EQ(Records(), expected);
    EXPECT_TRUE(connection.connected);
    const Operations asked = program.TakeOperations();
    EXPECT_GT(std::count(asked.begin(), asked.end(), L"PauseStatus"), 5);
}

} // namespace
} // namespace voltaro
