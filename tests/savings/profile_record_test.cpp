#include "savings/profile_record.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

TEST(ProfileRecordTest, TypedPowersGetTwoDecimals)
{
    const struct {
        const wchar_t *read, *entered, *sent;
    } kRows[] = {
        {L"0.85", L"1", L"1.00"}, {L"0.85", L"007.5", L"7.50"}, {L"0.8", L"0.8", L"0.8"}, // as read
        {L"0.85", L"18.9", L"18.9"},                                                      // as in the table
    };
    for (const auto& row : kRows) {
        PowerConsumptionData read;
        read.monitorType = L"LED";
        read.monitorSize = L"24.00";
        read.monitorOnPower = row.read;
        PowerConsumptionData entered = read;
        entered.monitorOnPower = row.entered;
        const PowerConsumptionData sent = RecordToSend(read, entered, false);
        EXPECT_EQ(std::wstring(sent.monitorOnPower), row.sent);
        EXPECT_EQ(sent.manualSetFlag == L"Yes", std::wstring_view(row.read) != row.entered);
    }
    EXPECT_TRUE(RecordToSend({}, {}, true).manualSetFlag == L"Yes") << "an entry is manual even unchanged";
    EXPECT_EQ(ProfileOf({}).monitorOn, 21.23F) << "the default monitor";
}

} // namespace
} // namespace voltaro
