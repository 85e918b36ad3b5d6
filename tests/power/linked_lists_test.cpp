#include "power/capabilities.h"
#include "power/timeouts.h"

#include <gtest/gtest.h>

namespace voltaro {

TEST(CapabilitiesTest, ThereUnlessEveryFieldDenies)
{
    const struct {
        std::vector<std::pair<std::wstring_view, std::wstring_view>> fields;
        bool standby, hibernate;
    } kRows[] = {
        {{}, true, true},
        {{{L"Standby", L"No"}}, false, true},
        {{{L"SystemHibernate", L"Not Supported"}, {L"Standby_S1", L"false"}, {L"Standby_S3", L"Yes"}}, true, false},
        {{{L"StandBy1", L"NO"}, {L"StandBy2", L"False"}, {L"Hibernate", L"not supported"}}, false, false},
        {{{L"Standby", L""}, {L"Hibernate", L"None"}, {L"Battery", L"No"}}, true, true},
    };
    for (const auto& row : kRows) {
        const PowerCapabilities read = ReadPowerCapabilities(row.fields);
        EXPECT_TRUE(read.standby == row.standby && read.hibernate == row.hibernate) << row.fields.size();
    }
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
