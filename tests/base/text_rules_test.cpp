// What may be typed as a name or a path, and in which words the rest is refused.
#include "base/text_rules.h"

#include "power/names.h"
#include "power/policy.h"
#include "scheduler/job_rules.h"

#include <gtest/gtest.h>

namespace voltaro {

static ScheduledJobs OneJob()
{
    ScheduledJobs jobs(1);
    jobs[0].name = L"Night Backup";
    jobs[0].tasks.push_back({L"C:\\Tools\\clean.exe"});
    return jobs;
}

using Check = const Refusal* (*)(std::wstring_view input);
static const std::wstring kTaken[] = {L"Day", L"Night_Shift"};
static std::vector<ApplicationRule> rules(3);
// clang-format off
constexpr Check kScheme = [](auto name) { return CheckNewSchemeName(name, kTaken); },
    kPolicy = [](auto name) { return CheckNewPolicyName(name, kTaken); },
    kRule = [](auto name) { return CheckRuleName(name, rules); },
    kNewJob = [](auto name) { return CheckJobName(name, OneJob(), EditMode::Add); },
    kOldJob = [](auto name) { return CheckJobName(name, OneJob(), EditMode::Update); },
    kNewTask = [](auto path) { return CheckTaskPath(path, OneJob()[0], EditMode::Add); },
    kOldTask = [](auto path) { return CheckTaskPath(path, OneJob()[0], EditMode::Update); };

// An input, and the title and the beginning of the text that refuse it; neither for an input that passes.
constexpr struct { Check check; const wchar_t *input, *title = L"", *text = L""; } kRows[] = {
    {kScheme, L"a_b"}, {kPolicy, L"a_b"}, {kRule, L"my player.EXE"}, {kRule, L"Voltaro.exe"},
    {kScheme, L"", L"Blank Input ", L"'Power Scheme Name' cannot be blank."},
    {kScheme, L"____", L"Invalid scheme name ", L"'Power Scheme Name' cannot be only"},
    {kScheme, L"_a_", L"Invalid scheme name ", L"'Power Scheme Name' cannot begin"},
    {kScheme, L"a_", L"Invalid scheme name ", L"'Power Scheme Name' cannot end"},
    {kScheme, L"nIGHT_shift", L"Scheme name already present ", L"Cannot use an already existing scheme name."},
    {kPolicy, L"", L"Blank Input ", L"'Policy Name' cannot be blank."},
    {kPolicy, L"_", L"Invalid Policy name ", L"'Policy Name' cannot begin"},
    {kPolicy, L"a_", L"Invalid Policy name ", L"'Policy Name' cannot end"},
    {kPolicy, L"DAY", L"Policy name already present ", L"Cannot use an already existing policy name."},
    {kRule, L"voltaroconsolewe.Exe", L"Application exe name, not valid", L"Voltaro Application\x2019s Executable cannot be mentioned for tracking.\nPlease mention"},
    {kRule, L"", L"No Application name ", L"Please mention an application's"},
    {kRule, L"voltaro", L"Process name, not valid", L"Voltaro process cannot be mentioned"},
    {kRule, L" player.exe ", L"Application exe name, not valid", L"Application\x2019s executable name cannot begin"},
    {kRule, L"player.exe ", L"Application exe name, not valid", L"Application\x2019s executable name cannot end"},
    {kRule, L"player.Exe", L"Application exe name, not valid", L"Application\x2019s executable name should be"},
    {kRule, L"PLAYER.exe", L"Application name already in the list ", L"Application ' PLAYER.exe ' already exists"},
    {kNewJob, L"Day Backup"}, {kNewJob, L"_x9_"}, {kOldJob, L"Night Backup"}, {kOldTask, L"C:\\Tools\\clean.exe"},
    {kNewJob, L"", L"No Job Name", L"Please enter a Job Name."},
    {kNewJob, L" a- ", L"Invalid Job Name", L"Job Name cannot begin"},
    {kNewJob, L"a- ", L"Invalid Job Name", L"Job Name cannot end"},
    {kOldJob, L"a-b", L"Invalid Job Name", L"Job Name can contain only"},
    {kNewJob, L"\x00E9", L"Invalid Job Name", L"Job Name can contain only"},
    {kNewJob, L"night backuP", L"Job with name already in the list ", L"Job with name ' night backuP ' already exists"},
    {kNewTask, L"C:\\Program Files (x86)\\a_b-c++\\run.exe"}, {kNewTask, L"RUN.EXE"}, {kNewTask, L"run.BAT"},
    {kNewTask, L" run.bat"}, // a blank in front is let pass
    {kNewTask, L"", L"No File Path", L"File Path input field is empty."},
    {kNewTask, L"run%.exe ", L"Invalid File Path", L".exe/.bat File Path cannot end"},
    {kNewTask, L"C:/run.exe", L"Invalid File Path", L".exe/.bat File Path can contain only"},
    {kNewTask, L"run.Exe", L"Invalid File Path", L".exe/.bat File Path should end"},
    {kNewTask, L"exe", L"Invalid File Path", L".exe/.bat File Path should end"},
    {kNewTask, L"c:\\TOOLS\\clean.EXE", L"Application exe already in the list ", L"Application ' c:\\TOOLS\\clean.EXE ' already exists"},
};
// clang-format on

TEST(TextRulesTest, NamesAndPaths)
{
    rules[1].applicationName = L"Player.exe";
    for (const auto& [check, input, title, text] : kRows) {
        const Refusal* refusal = check(input);
        EXPECT_STREQ(refusal ? refusal->title : L"", title) << input;
        EXPECT_TRUE((refusal ? RefusalText(*refusal, input) : L"").starts_with(text)) << input;
    }
    for (const wchar_t* part : {L"AgentSe", L"AgentWe", L"Diagnostic", L"ServiceSe", L"ServiceWe", L"UserInteract"})
        EXPECT_EQ(kRule(Format(L"voltaro%ls.exe", part)), kRule(L"VoltaroConsoleSE.exe")) << part;
    EXPECT_STREQ(CheckRules(std::vector<ApplicationRule>(51), EditMode::Add)->text,
        L"Application's list cann't contain more than 50 application names.");
}

TEST(TextRulesTest, NamesWhileTheyAreTyped)
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

} // namespace voltaro
