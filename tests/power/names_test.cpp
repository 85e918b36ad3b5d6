#include "power/capabilities.h"
#include "power/names.h"

#include <gtest/gtest.h>

#include <vector>

namespace voltaro {
namespace {

struct Row {
    const wchar_t* name;
    const wchar_t* title; // empty: the name passes
    const wchar_t* text;  // the beginning
};

template <class Check>
void ExpectAll(std::span<const Row> rows, Check check)
{
    for (const Row& row : rows) {
        const Refusal* refusal = check(row.name);
        EXPECT_STREQ(refusal != nullptr ? refusal->title : L"", row.title) << row.name;
        const std::wstring shown = refusal != nullptr ? RefusalText(*refusal, row.name) : std::wstring();
        EXPECT_EQ(shown.substr(0, std::wcslen(row.text)), row.text) << row.name;
    }
}

TEST(NamesTest, WhileTyping)
{
    std::vector<std::wstring> refused = {L" ", L"a ", L"_ ", L"pasted-name", L"x\"y"};
    for (const wchar_t unit : std::wstring_view(L"\"`~!@#$%^&*()-+=[]{};:'|\\<>/?.,"))
        refused.push_back(std::wstring(L"a") + unit + L"b");
    for (const std::wstring& name : refused) {
        const Refusal* scheme = CheckTypedSchemeName(name);
        const Refusal* policy = CheckTypedPolicyName(name);
        ASSERT_TRUE(scheme != nullptr && policy != nullptr) << name;
        EXPECT_STREQ(scheme->title, L"Invalid Scheme Name ");
        EXPECT_STREQ(policy->title, L"Invalid policy name ");
    }
    // An emptied edit must not be refused again; a blank inside can only be pasted.
    for (const wchar_t* name : {L"", L"_", L"__a", L"Office_2", L"a b", L" a", L"\x00E9t\x00E9"}) {
        EXPECT_EQ(CheckTypedSchemeName(name), nullptr) << name;
        EXPECT_EQ(CheckTypedPolicyName(name), nullptr) << name;
    }
    EXPECT_STREQ(CheckTypedSchemeName(L"-")->text,
        L"Please follow the rules listed below while entering a 'Scheme Name':\n\n (1) Only alphanumeric and "
        L"underscore "
        L"characters are allowed.\n (2) Name cannot begin or end with an Underscore ('_').\n (3) Can have up to 32 "
        L"characters.");
    EXPECT_STREQ(CheckTypedPolicyName(L"-")->text,
        L"Please follow the rules listed below while entering a 'Policy Name':\n\n (1) Only alphanumeric and "
        L"underscore ('_') "
        L"characters are allowed.\n (2) Name cannot begin or end with an Underscore.\n (3) Can have up to 32 "
        L"characters.");
}

TEST(NamesTest, OnSave)
{
    const std::vector<std::wstring> taken = {L"Day", L"Night_Shift"};
    const Row kSchemes[] = {
        {L"Office", L"", L""},
        {L"a_b", L"", L""},
        {L"", L"Blank Input ", L"'Power Scheme Name' cannot be blank.\nPlease enter a valid name."},
        {L"_", L"Invalid scheme name ", L"'Power Scheme Name' cannot be only underscore.\nPlease enter"},
        {L"____", L"Invalid scheme name ", L"'Power Scheme Name' cannot be only underscore."},
        {L"_a_", L"Invalid scheme name ", L"'Power Scheme Name' cannot begin with underscore."},
        {L"a_", L"Invalid scheme name ", L"'Power Scheme Name' cannot end with underscore."},
        {L"nIGHT_shift", L"Scheme name already present ",
            L"Cannot use an already existing scheme name.\nPlease try some other name."},
    };
    ExpectAll(kSchemes, [&](std::wstring_view name) { return CheckNewSchemeName(name, taken); });
    const Row kPolicies[] = {
        {L"Office", L"", L""},
        {L"", L"Blank Input ", L"'Policy Name' cannot be blank.\nPlease enter a valid name."},
        {L"_", L"Invalid Policy name ", L"'Policy Name' cannot begin with underscore.\nPlease enter a valid name."},
        {L"a_", L"Invalid Policy name ", L"'Policy Name' cannot end with underscore.\nPlease enter a valid name."},
        {L"DAY", L"Policy name already present ",
            L"Cannot use an already existing policy name.\nPlease try some other name."},
    };
    ExpectAll(kPolicies, [&](std::wstring_view name) { return CheckNewPolicyName(name, taken); });
}

TEST(NamesTest, Executables)
{
    constexpr wchar_t kTitle[] = L"Application exe name, not valid";
    constexpr wchar_t kOwn[]
        = L"Voltaro Application\x2019s Executable cannot be mentioned for tracking.\nPlease mention "
          L"executable files other than Voltaro.";
    constexpr wchar_t kExtension[]
        = L"Application\x2019s executable name should be mentioned along with an '.exe' extension.";
    const Row kRows[] = {
        {L"player.exe", L"", L""},
        {L"my player.EXE", L"", L""},
        {L"", L"No Application name ", L"Please mention an application's executable file name."},
        {L"VoltaroAgentSe.exe", kTitle, kOwn},
        {L"VoltaroAgentWe.exe", kTitle, kOwn},
        {L"VoltaroDiagnostic.exe", kTitle, kOwn},
        {L"VoltaroServiceSe.exe", kTitle, kOwn},
        {L"VoltaroServiceWe.exe", kTitle, kOwn},
        {L"VoltaroUserInteract.exe", kTitle, kOwn},
        {L"VoltaroConsoleSE.exe", kTitle, kOwn},
        {L"voltaroconsolewe.Exe", kTitle, kOwn},
        {L"voltaro", L"Process name, not valid",
            L"Voltaro process cannot be mentioned for tracking.\nPlease mention process"},
        {L" player.exe", kTitle,
            L"Application\x2019s executable name cannot begin with space.\nPlease enter a valid name."},
        {L"player.exe ", kTitle,
            L"Application\x2019s executable name cannot end with space.\nPlease enter a valid name."},
        {L"player.Exe", kTitle, kExtension},
        {L"player", kTitle, kExtension},
        {L"Voltaro.exe", L"", L""},
    };
    ExpectAll(kRows, CheckExecutableName);
}

TEST(CapabilitiesTest, ThereUnlessEveryFieldDenies)
{
    using Fields = std::vector<std::pair<std::wstring_view, std::wstring_view>>;
    const struct {
        Fields fields;
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
