#include "power/timeouts.h"

#include "power/levels.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace voltaro {
namespace {

struct List {
    Choices choices;
    std::vector<int> minutes; // without the closing "Never"
};

const List kLists[] = {
    {kDimChoices, {2, 3, 5, 10, 15, 20, 25, 30, 45, 60, 120, 180, 240, 300, 360}},
    {kMonitorOffChoices, {3, 5, 10, 15, 20, 25, 30, 45, 60, 120, 180, 240, 300, 360, 420}},
    {kLockChoices, {1, 2, 3, 5, 10, 15, 20, 25, 30}},
    {kHardDiskChoices, {3, 5, 10, 15, 20, 25, 30, 45, 60, 120, 180, 240, 300}},
    {kLogOffChoices, {3, 5, 10, 15, 20, 25, 30, 45, 60, 120, 180, 240, 300, 360, 420, 480, 540, 600, 660, 720, 780}},
    {kStandbyChoices, {5, 10, 15, 20, 25, 30, 45, 60, 120, 180, 240, 300, 360, 420, 480, 540, 600, 660, 720, 780, 840}},
    {kHibernateChoices,
        {10, 15, 20, 25, 30, 45, 60, 120, 180, 240, 300, 360, 420, 480, 540, 600, 660, 720, 780, 840, 900}},
};

std::wstring TextFor(int minutes)
{
    const int count = minutes < 60 ? minutes : minutes / 60;
    return L"After " + std::to_wstring(count) + (minutes < 60 ? L" Min" : L" Hr") + (count == 1 ? L"" : L"s");
}

TEST(TimeoutsTest, EveryChoiceOfEveryListBothWays)
{
    for (const List& list : kLists) {
        ASSERT_EQ(list.choices.size(), list.minutes.size() + 1);
        for (std::size_t i = 0; i < list.minutes.size(); ++i) {
            const std::wstring minutes = std::to_wstring(list.minutes[i]);
            EXPECT_EQ(list.choices[i].text, TextFor(list.minutes[i]));
            EXPECT_EQ(ShownText(list.choices, minutes), TextFor(list.minutes[i]));
            EXPECT_EQ(ChosenText(list.choices, TextFor(list.minutes[i])), minutes);
        }
        EXPECT_STREQ(ShownText(list.choices, L"0"), L"Never");
        EXPECT_EQ(ChosenText(list.choices, L"Never"), L"0");
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

} // namespace
} // namespace voltaro
