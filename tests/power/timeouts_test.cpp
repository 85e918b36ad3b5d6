#include "power/timeouts.h"

#include "power/levels.h"
#include "power/scheme_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>

namespace voltaro {

static std::wstring TextFor(int minutes)
{
    const int count = minutes < 60 ? minutes : minutes / 60;
    return L"After " + std::to_wstring(count) + (minutes < 60 ? L" Min" : L" Hr") + (count == 1 ? L"" : L"s");
}

TEST(TimeoutsTest, EveryChoiceOfEveryListBothWays)
{
    // The list, how many time-outs it has before the closing "Never", the first and the last of them in minutes.
    const std::tuple<Choices, std::size_t, int, int> kLists[] = {{kDimChoices, 15, 2, 360},
        {kMonitorOffChoices, 15, 3, 420}, {kLockChoices, 9, 1, 30}, {kHardDiskChoices, 13, 3, 300},
        {kLogOffChoices, 21, 3, 780}, {kStandbyChoices, 21, 5, 840}, {kHibernateChoices, 21, 10, 900}};
    for (const auto& [list, count, first, last] : kLists) {
        ASSERT_EQ(list.size(), count + 1);
        EXPECT_TRUE(list[0].number == first && list[count - 1].number == last) << last;
        for (const Choice& choice : list.first(count)) {
            EXPECT_EQ(choice.text, TextFor(choice.number));
            EXPECT_EQ(ShownText(list, std::to_wstring(choice.number)), TextFor(choice.number));
            EXPECT_EQ(ChosenText(list, choice.text), std::to_wstring(choice.number));
        }
        EXPECT_STREQ(ShownText(list, L"0"), L"Never");
        EXPECT_EQ(ChosenText(list, L"Never"), L"0");
    }
}

TEST(TimeoutsTest, NumbersThatNoChoiceHas)
{
    const std::tuple<Choices, const wchar_t*, const wchar_t*> kRows[] = {{kDimChoices, L"1", L"After 2 Mins"},
        {kDimChoices, L"4", L"After 5 Mins"}, {kDimChoices, L"90", L"After 2 Hrs"}, {kDimChoices, L"361", L"Never"},
        {kLockChoices, L"45", L"Never"}, {kHibernateChoices, L"005", L"After 10 Mins"},
        {kBrightnessSteps, L"120", L"128"}, {kBrightnessSteps, L"255", L"128"}, {kCpuLoads, L"150", L"99"}};
    for (const auto& [choices, stored, shown] : kRows)
        EXPECT_STREQ(ShownText(choices, stored), shown);
}

TEST(SchemeFormTest, WhatIsStoredForWhatIsShown)
{
    const struct {
        int control;
        const wchar_t *shown, *loaded, *stored, *result;
    } kRows[] = {
        {kDim, L"After 5 Mins", L"After 5 Mins", L"05", L"05"},       // untouched, however it is spelt
        {kMonitorOff, L"After 2 Hrs", L"After 2 Hrs", L"10", L"10"},  // the linked list does not hold it
        {kMonitorOff, L"After 10 Mins", L"After 2 Hrs", L"7", L"10"}, // chosen, or moved by the link
        {kScript, L"No", L"No", L"maybe", L"maybe"},
        {kScript, L"Yes", L"No", L"maybe", L"Yes"},
        {kProcessorSpeed, L"", L"", L"Turbo", L"Turbo"},
        {kPolicyList, L"Talks", L"Talks", L"talks", L"talks"},
        {kPolicyList, L"(None)", L"Talks", L"talks", L""},
        {kStandbyTime, L"Disabled", L"Disabled", L"30", L"0"},
        {kLock, L"Never", L"Never", L"", L"0"}, // the answer had no such field
        {kPolicyList, L"(None)", L"(None)", L"", L""},
    };
    for (const auto& row : kRows) {
        const SchemeField& field = *std::ranges::find(kSchemeForm, row.control, &SchemeField::control);
        EXPECT_EQ(StoredSetting(field, row.shown, {row.loaded, row.stored}), row.result) << row.control << row.stored;
    }
}

TEST(LevelsTest, BrightnessSteps)
{
    for (std::size_t i = 0; const int step : {0, 15, 30, 45, 60, 75, 90, 105, 128})
        EXPECT_EQ(ShownChoice(kBrightnessSteps, step), i++);
}

TEST(LinkedListsTest, WhatTheSecondListHoldsAndSelects)
{
    // The list, how many choices it has, the first and which one is selected.
    const std::tuple<ComboList, std::size_t, const wchar_t*, std::size_t> kRows[]
        = {{MonitorOffList(L"After 45 Mins", L"After 3 Mins"), 8, L"After 1 Hr", 0},
            {MonitorOffList(L"After 10 Mins", L"After 45 Mins"), 13, L"After 15 Mins", 4},
            {MonitorOffList(L"Never", L"After 10 Mins"), 16, L"After 3 Mins", 2},
            {HibernateList(true, L"After 10 Mins", L"After 20 Mins"), 21, L"After 15 Mins", 1},
            {LockList(L"Never", L"After 5 Mins"), 1, L"Never", 0},
            {LockList(L"After 7 Hrs", L"After 5 Mins"), 10, L"After 1 Min", 3},
            {StandbyList(true, L"After 10 Mins"), 22, L"After 5 Mins", 1},
            {StandbyList(false, L"After 10 Mins"), 1, L"Disabled", 0},
            {HibernateList(false, L"After 10 Mins", L"Never"), 1, L"Disabled", 0},
            {HibernateList(true, L"Disabled", L"After 20 Mins"), 22, L"After 10 Mins", 2},
            {HibernateList(true, L"Never", L"Disabled"), 22, L"After 10 Mins", 0},
            {HibernateList(true, L"After 14 Hrs", L"Never"), 2, L"After 15 Hrs", 1}};
    for (const auto& [list, size, first, selected] : kRows) {
        EXPECT_EQ(list.choices.size(), size);
        EXPECT_STREQ(list.choices[0].text, first);
        EXPECT_EQ(list.selected, selected);
    }
}

} // namespace voltaro
