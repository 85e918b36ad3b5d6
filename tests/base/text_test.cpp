#include "base/text.h"

#include "base/fixed_text.h"
#include "power/levels.h"
#include "power/timeouts.h"
#include "scheduler/job.h"
#include "settings/settings_rules.h"

#include <gtest/gtest.h>

namespace voltaro {

TEST(FixedTextTest, CutsBetweenCharactersAndLeavesNothingBehind)
{
    FixedText<4> slot(L"abcdef");
    EXPECT_EQ(slot.view(), L"abc");
    slot = L"x";
    EXPECT_EQ(std::wstring_view(slot.data(), 4), std::wstring_view(L"x\0\0", 4));
    const wchar_t pair[] = {L'a', L'b', 0xD83D, 0xDE00, L'\0'};
    EXPECT_TRUE(FixedText<4>(pair).view() == L"ab" && FixedText<5>(pair).view() == pair);
}

TEST(TextTest, LeadingNumbers)
{
    const std::pair<const wchar_t*, std::int32_t> kCases[]
        = {{L"4916", 4916}, {L"  4916", 4916}, {L"4916x", 4916}, {L"x4916", 0}, {L"", 0}, {L"   ", 0}, {L"-7", -7},
            {L"00000218", 218}, {L"99999999999999999999", 2147483647}, {L"-99999999999", -2147483647 - 1}, {L"+5", 5}};
    for (const auto& [text, number] : kCases)
        EXPECT_EQ(LeadingNumber(text), number) << text;
}

TEST(TextTest, ComparesWithoutCase)
{
    EXPECT_TRUE(EqualsIgnoreCase(L"Success B\u00DCRO \u0416", L"sUCCESS b\u00FCro \u0436"));
    EXPECT_FALSE(EqualsIgnoreCase(L"Success", L"Success "));
    EXPECT_FALSE(EqualsIgnoreCase(L"[", L"{")); // 0x20 apart, yet no letters
}

TEST(TextTest, FormatsOfAnyLength)
{
    EXPECT_EQ(Format(L"%02d:%ls|%.3f", 7, L"wide", 1.5), L"07:wide|1.500");
    const std::wstring longText(5000, L'x');
    EXPECT_TRUE(Format(L"%ls", longText.c_str()) == longText && WithName(L"%ls%ls", L"a") == L"aa");
}

TEST(TextTest, DottedAddresses)
{
    EXPECT_EQ(AddressOf(L"192.168.20.11"), 0xC0A8140BU);
    EXPECT_TRUE(AddressOf(L"0.0.0.0") == 0U && AddressOf(L"255.255.255.255") == 0xFFFFFFFFU);
    for (const wchar_t* none : {L"", L"1.2.3", L"1.2.3.", L"1.2.3.4.5", L"1.2.3.4 ", L" 1.2.3.4", L"1..3.4",
             L"1.2.3.256", L"1.2.3.-4", L"1.2.3.99999999999", L"host.example"})
        EXPECT_EQ(AddressOf(none), std::nullopt) << none;
    EXPECT_EQ(DottedAddress(0xC0A8140BU), L"192.168.20.11");
}

TEST(ChoicesTest, EveryListOfMinutesBothWays)
{
    for (const Choices list : {Choices(kDimChoices), Choices(kMonitorOffChoices), Choices(kLockChoices),
             Choices(kHardDiskChoices), Choices(kLogOffChoices), Choices(kStandbyChoices), Choices(kHibernateChoices),
             Choices(kIdlenessChoices), Choices(kRepeatChoices), Choices(kNotificationTimes),
             Choices(kSnoozeAlertTimes), Choices(kSnoozeDurations)}) {
        for (const auto& [text, minutes] : list) {
            const std::wstring time = Replaced(text, L"After ", L"");
            const int count = LeadingNumber(time); // of "Never" 0
            EXPECT_EQ(minutes, time.find(L'H') != time.npos ? 60 * count : count) << text;
            EXPECT_EQ(time.ends_with(L's'), count > 1) << text;
            EXPECT_STREQ(ShownText(list, std::to_wstring(minutes)), text);
            EXPECT_EQ(ChosenText(list, text), std::to_wstring(minutes));
        }
    }
}

TEST(ChoicesTest, NumbersThatNoChoiceHas)
{
    const std::tuple<Choices, const wchar_t*, const wchar_t*> kRows[] = {{kDimChoices, L"1", L"After 2 Mins"},
        {kDimChoices, L"4", L"After 5 Mins"}, {kDimChoices, L"90", L"After 2 Hrs"}, {kDimChoices, L"361", L"Never"},
        {kLockChoices, L"45", L"Never"}, {kHibernateChoices, L"005", L"After 10 Mins"},
        {kBrightnessSteps, L"120", L"128"}, {kBrightnessSteps, L"255", L"128"}, {kCpuLoads, L"150", L"99"}};
    for (const auto& [choices, stored, shown] : kRows)
        EXPECT_STREQ(ShownText(choices, stored), shown);
}

} // namespace voltaro
