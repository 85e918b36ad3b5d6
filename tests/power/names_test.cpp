#include "power/names.h"

#include "power/capabilities.h"
#include "power/policy.h"
#include "support/refusals.h"

#include <vector>

namespace voltaro {
namespace {

TEST(NamesTest, WhileTyping)
{
    std::vector<std::wstring> refused = {L" ", L"a ", L"_ ", L"pasted-name"};
    for (const wchar_t unit : std::wstring_view(L"\"`~!@#$%^&*()-+=[]{};:'|\\<>/?.,"))
        refused.push_back(std::wstring(L"a") + unit + L"b");
    for (const std::wstring& name : refused) {
        const RefusalRow scheme[] = {{name.c_str(), L"Invalid Scheme Name ", L"Please follow the rules"}};
        const RefusalRow policy[] = {{name.c_str(), L"Invalid policy name ", L"Please follow the rules"}};
        ExpectRefusals(scheme, CheckTypedSchemeName);
        ExpectRefusals(policy, CheckTypedPolicyName);
    }
    // An emptied edit must not be refused again; a blank inside can only be pasted.
    for (const wchar_t* name : {L"", L"_", L"__a", L"Office_2", L"a b", L" a", L"\x00E9t\x00E9"}) {
        EXPECT_EQ(CheckTypedSchemeName(name), nullptr) << name;
        EXPECT_EQ(CheckTypedPolicyName(name), nullptr) << name;
    }
}

TEST(NamesTest, OnSave)
{
    const std::vector<std::wstring> taken = {L"Day", L"Night_Shift"};
    const RefusalRow kSchemes[] = {
        {L"a_b", L"", L""},
        {L"", L"Blank Input ", L"'Power Scheme Name' cannot be blank."},
        {L"_", L"Invalid scheme name ", L"'Power Scheme Name' cannot be only"},
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
        {L"my player.EXE", L"", L""},
        {L"Voltaro.exe", L"", L""},
        {L"", L"No Application name ", L"Please mention an application's"},
        {L"VoltaroAgentSe.exe", kTitle, kOwn},
        {L"VoltaroAgentWe.exe", kTitle, kOwn},
        {L"VoltaroDiagnostic.exe", kTitle, kOwn},
        {L"VoltaroServiceSe.exe", kTitle, kOwn},
        {L"VoltaroServiceWe.exe", kTitle, kOwn},
        {L"VoltaroUserInteract.exe", kTitle, kOwn},
        {L"VoltaroConsoleSE.exe", kTitle, kOwn},
        {L"voltaroconsolewe.Exe", kTitle, kOwn},
        {L"voltaro", L"Process name, not valid", L"Voltaro process cannot be mentioned"},
        {L" player.exe ", kTitle, L"Application\x2019s executable name cannot begin"},
        {L"player.exe ", kTitle, L"Application\x2019s executable name cannot end"},
        {L"player.Exe", kTitle, L"Application\x2019s executable name should be"},
        {L"PLAYER.exe", L"Application name already in the list ", L"Application ' PLAYER.exe ' already exists"},
    };
    ExpectRefusals(kRows, [&](std::wstring_view name) { return CheckRuleName(name, rules, std::nullopt); });
    EXPECT_EQ(CheckRuleName(L"player.exe", rules, 1), nullptr); // its own name
    EXPECT_NE(CheckRuleName(L"player.exe", rules, 0), nullptr);
}

TEST(PolicyTest, CheckBoxes)
{
    ApplicationRule rule;
    rule.ruleStatus = L"Enabled";
    rule.dimMonitor = L"Yes";
    rule.monitorOff = L"No";
    EXPECT_TRUE(IsRuleChecked(rule, 0) && IsRuleChecked(rule, 1) && !IsRuleChecked(rule, 2));
    SetRuleChecked(rule, 0, false);
    SetRuleChecked(rule, 8, false);
    SetRuleChecked(rule, 7, true);
    EXPECT_EQ(rule.ruleStatus, L"Disabled");
    EXPECT_EQ(rule.shutdown, L"No");
    EXPECT_EQ(rule.hibernate, L"Yes");
}

TEST(PolicyTest, NumberOfRules)
{
    const struct {
        std::size_t count;
        const wchar_t* room;
        const wchar_t* existing;
        const wchar_t* added;
    } kRows[] = {
        {0, L"", L"Application's list cannot be blank!", L"Application's list cann't be blank!"},
        {1, L"", L"", L""},
        {49, L"", L"", L""},
        {50, L"Applications limit per policy name is 50 applications .", L"", L""},
        {51, L"Applications limit per policy name", L"Application's list cannot contain more than 50",
            L"Application's list cann't contain more than 50"},
    };
    for (const auto& row : kRows) {
        const std::vector<ApplicationRule> rules(row.count);
        const auto begins = [](const Refusal* refusal, std::wstring_view text) {
            return refusal == nullptr ? text.empty()
                                      : !text.empty() && std::wstring_view(refusal->text).starts_with(text);
        };
        EXPECT_TRUE(begins(CheckRoomForRule(rules), row.room)) << row.count;
        EXPECT_TRUE(begins(CheckRules(rules, PolicyMode::Existing), row.existing)) << row.count;
        EXPECT_TRUE(begins(CheckRules(rules, PolicyMode::New), row.added)) << row.count;
    }
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
        EXPECT_EQ(read.standby, row.standby) << row.fields.size();
        EXPECT_EQ(read.hibernate, row.hibernate) << row.fields.size();
    }
}

} // namespace
} // namespace voltaro
