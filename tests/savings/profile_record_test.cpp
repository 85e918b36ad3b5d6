#include "savings/profile_record.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

TEST(ProfileRecordTest, TypedPowersGetTwoDecimals)
{
    // clang-format off
    const wchar_t* const kRows[][3] = { // read, entered, sent
        {L"0.85", L"1", L"1.00"}, {L"0.85", L"007.5", L"7.50"}, {L"0.8", L"0.8", L"0.8"}, // as read
        {L"0.85", L"18.9", L"18.9"}}; // as in the table
    // clang-format on
    for (const auto& [asRead, typed, expected] : kRows) {
        PowerConsumptionData read;
        read.monitorType = L"LED";
        read.monitorSize = L"24.00";
        read.monitorOnPower = asRead;
        PowerConsumptionData entered = read;
        entered.monitorOnPower = typed;
        const PowerConsumptionData sent = RecordToSend(read, entered, false);
        EXPECT_EQ(std::wstring(sent.monitorOnPower), expected);
        EXPECT_EQ(sent.manualSetFlag == L"Yes", std::wstring_view(asRead) != typed);
    }
    EXPECT_TRUE(RecordToSend({}, {}, true).manualSetFlag == L"Yes") << "an entry is manual even unchanged";
    EXPECT_EQ(ProfileOf({}).monitorOn, 21.23F) << "the default monitor";
}

} // namespace
} // namespace voltaro
