#include "power/names.h"

#include <algorithm>

namespace voltaro {
namespace {

constexpr wchar_t kForbiddenCharacters[] = L"\""
                                           L"`~!@#$%^&*()-+=[]{};:'|\\<>/?.,";

// The program's own executables, which no rule may name.
constexpr const wchar_t* kOwnExecutables[]
    = {L"VoltaroAgentSe.exe", L"VoltaroAgentWe.exe", L"VoltaroDiagnostic.exe", L"VoltaroServiceSe.exe",
        L"VoltaroServiceWe.exe", L"VoltaroUserInteract.exe", L"VoltaroConsoleSE.exe", L"VoltaroConsoleWE.exe"};

// A blank inside passes: users paste such names. Typed, it is refused while it is the last character.
bool BreaksTypingRule(std::wstring_view name)
{
    return name.find_first_of(kForbiddenCharacters) != name.npos || EndsWithBlank(name);
}

bool IsOnlyUnderscores(std::wstring_view name)
{
    return name.find_first_not_of(L'_') == name.npos;
}

bool IsOwnExecutable(std::wstring_view name)
{
    return std::ranges::any_of(kOwnExecutables, SameNameAs(name));
}

bool IsOwnProcess(std::wstring_view name)
{
    return EqualsIgnoreCase(name, L"Voltaro");
}

// Only these two spellings: users know that a new rule "x.Exe" is refused.
bool LacksExecutableExtension(std::wstring_view name)
{
    return !name.ends_with(L".exe") && !name.ends_with(L".EXE");
}

// clang-format off
constexpr TextRule kSchemeTypingRules[] = {
    {BreaksTypingRule, {L"Invalid Scheme Name ",
        L"Please follow the rules listed below while entering a 'Scheme Name':\n\n"
        L" (1) Only alphanumeric and underscore characters are allowed.\n"
        L" (2) Name cannot begin or end with an Underscore ('_').\n"
        L" (3) Can have up to 32 characters."}},
};
constexpr TextRule kPolicyTypingRules[] = {
    {BreaksTypingRule, {L"Invalid policy name ",
        L"Please follow the rules listed below while entering a 'Policy Name':\n\n"
        L" (1) Only alphanumeric and underscore ('_') characters are allowed.\n"
        L" (2) Name cannot begin or end with an Underscore.\n"
        L" (3) Can have up to 32 characters."}},
};

constexpr TextRule kNewSchemeRules[] = {
    {IsEmpty, {L"Blank Input ",
        L"'Power Scheme Name' cannot be blank.\nPlease enter a valid name."}},
    {IsOnlyUnderscores, {L"Invalid scheme name ",
        L"'Power Scheme Name' cannot be only underscore.\nPlease enter a valid name."}},
    {BeginsWithUnderscore, {L"Invalid scheme name ",
        L"'Power Scheme Name' cannot begin with underscore.\nPlease enter a valid name."}},
    {EndsWithUnderscore, {L"Invalid scheme name ",
        L"'Power Scheme Name' cannot end with underscore.\nPlease enter a valid name."}},
};
constexpr Refusal kSchemeTaken = {L"Scheme name already present ",
    L"Cannot use an already existing scheme name.\nPlease try some other name."};

constexpr TextRule kNewPolicyRules[] = {
    {IsEmpty, {L"Blank Input ",
        L"'Policy Name' cannot be blank.\nPlease enter a valid name."}},
    {BeginsWithUnderscore, {L"Invalid Policy name ",
        L"'Policy Name' cannot begin with underscore.\nPlease enter a valid name."}},
    {EndsWithUnderscore, {L"Invalid Policy name ",
        L"'Policy Name' cannot end with underscore.\nPlease enter a valid name."}},
};
constexpr Refusal kPolicyTaken = {L"Policy name already present ",
    L"Cannot use an already existing policy name.\nPlease try some other name."};

constexpr TextRule kExecutableRules[] = {
    {IsEmpty, {L"No Application name ",
        L"Please mention an application's executable file name."}},
    {IsOwnExecutable, {L"Application exe name, not valid",
        L"Voltaro Application’s Executable cannot be mentioned for tracking.\n"
        L"Please mention executable files other than Voltaro."}},
    {IsOwnProcess, {L"Process name, not valid",
        L"Voltaro process cannot be mentioned for tracking.\nPlease mention process other than Voltaro."}},
    {BeginsWithBlank, {L"Application exe name, not valid",
        L"Application’s executable name cannot begin with space.\nPlease enter a valid name."}},
    {EndsWithBlank, {L"Application exe name, not valid",
        L"Application’s executable name cannot end with space.\nPlease enter a valid name."}},
    {LacksExecutableExtension, {L"Application exe name, not valid",
        L"Application’s executable name should be mentioned along with an '.exe' extension."}},
};
// clang-format on

const Refusal* CheckNewName(
    std::wstring_view name, std::span<const TextRule> rules, std::span<const std::wstring> others, const Refusal& taken)
{
    if (const Refusal* refusal = FirstBroken(rules, name))
        return refusal;
    return std::ranges::any_of(others, SameNameAs(name)) ? &taken : nullptr;
}

} // namespace

const Refusal* CheckTypedSchemeName(std::wstring_view name)
{
    return FirstBroken(kSchemeTypingRules, name);
}

const Refusal* CheckTypedPolicyName(std::wstring_view name)
{
    return FirstBroken(kPolicyTypingRules, name);
}

const Refusal* CheckNewSchemeName(std::wstring_view name, std::span<const std::wstring> schemes)
{
    return CheckNewName(name, kNewSchemeRules, schemes, kSchemeTaken);
}

const Refusal* CheckNewPolicyName(std::wstring_view name, std::span<const std::wstring> policies)
{
    return CheckNewName(name, kNewPolicyRules, policies, kPolicyTaken);
}

const Refusal* CheckExecutableName(std::wstring_view name)
{
    return FirstBroken(kExecutableRules, name);
}

} // namespace voltaro
