#include "power/names.h"

#include "power/capabilities.h"
#include "power/policy.h"
#include "power/timeouts.h"
#include "support/expectations.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace voltaro {

TEST(NamesTest, WhileTyping)
{
    std::vector<std::wstring> refused = {L" ", L"a ", L"_ ", L"pasted-name"};
    for (const wchar_t unit : std::wstring_view(L"\"`~!@#$%^&*()-+=[]{};:'|\\<>/?.,"))
        refused.push_back({L'a', unit, L'b'});
    for (const std::wstring& name : refused)
        EXPECT_TRUE(CheckTypedSchemeName(name) && CheckTypedPolicyName(name)) << name;
    // An emptied edit must not be refused again; a blank inside can only be pasted.
    for (const wchar_t* name : {L"", L"_", L"__a", L"Office_2", L"a b", L" a", L"\x00E9t\x00E9"})
        EXPECT_FALSE(CheckTypedSchemeName(name) || CheckTypedPolicyName(name)) << name;
}

TEST(NamesTest, OnSave)
{
    const std::vector<std::wstring> taken = {L"Day", L"Night_Shift"};
    const RefusalRow kSchemes[] = {
        {L"a_b", L"", L""},
        {L"", L"Blank Input ", L"'Power Scheme Name' cannot be blank."},
        {L"____", L"Invalid scheme name ", L"'Power Scheme Name' cannot be only"},
        {L"_a_", L"Invalid scheme name ", L"'Power Scheme Name' cannot begin"},
        {L"a_", L"Invalid scheme name ", L"'Power Scheme Name' cannot end"},
        {L"nIGHT_shift", L"Scheme name already present ", L"Cannot use an already existing scheme name."},
    };
    ExpectRefusals(kSchemes, [&](std::wstring_view name) { return CheckNewSchemeName(name, taken); });
    const RefusalRow kPolicies[] = {
        {L"a_b", L"", L""},
        {L"", L"Blank Input ", L"'Policy Name' cannot be blank."},
        {L"_", L"Invalid Policy name ", L"'Policy Name' cannot begin"},
        {L"a_", L"Invalid Policy name ", L"'Policy Name' cannot end"},
        {L"DAY", L"Policy name already present ", L"Cannot use an already existing policy name."},
    };
    ExpectRefusals(kPolicies, [&](std::wstring_view name) { return CheckNewPolicyName(name, taken); });
}

TEST(PolicyTest, RuleNames)
{
    std::vector<ApplicationRule> rules(3);
    rules[1].applicationName = L"Player.exe";
    constexpr wchar_t kTitle[] = L"Application exe name, not valid";
    constexpr wchar_t kOwn[]
        = L"Voltaro Application\x2019s Executable cannot be mentioned for tracking.\nPlease mention";
    const RefusalRow kRows[] = {
        {L"VoltaroAgentSe.exe", kTitle, kOwn},
        {L"voltaroconsolewe.Exe", kTitle, kOwn},
        {L"my player.EXE", L"", L""},
        {L"Voltaro.exe", L"", L""},
        {L"", L"No Application name ", L"Please mention an application's"},
        {L"voltaro", L"Process name, not valid", L"Voltaro process cannot be mentioned"},
        {L" player.exe ", kTitle, L"Application\x2019s executable name cannot begin"},
        {L"player.exe ", kTitle, L"Application\x2019s executable name cannot end"},
        {L"player.Exe", kTitle, L"Application\x2019s executable name should be"},
        {L"PLAYER.exe", L"Application name already in the list ", L"Application ' PLAYER.exe ' already exists"},
    };
    ExpectRefusals(kRows, [&](std::wstring_view name) { return CheckRuleName(name, rules); });
    for (const wchar_t* part : {L"AgentSe", L"AgentWe", L"Diagnostic", L"ServiceSe", L"ServiceWe", L"UserInteract"})
        EXPECT_EQ(CheckRuleName(Format(L"voltaro%ls.exe", part), rules), CheckRuleName(L"VoltaroConsoleSE.exe", {}))
            << part;
    EXPECT_STREQ(CheckRules(std::vector<ApplicationRule>(51), EditMode::Add)->text,
        L"Application's list cann't contain more than 50 application names.");
}

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
