#pragma once

#include <span>
#include <string_view>

namespace voltaro::simulator {

enum class License { Activated, NotActivated, Expired };
enum class Updates { Latest, Downloaded, Offline, Failed };
// What the machine's records and lists hold.
enum class Content {
    Usual,
    Large,       // system details of about 280 kB, as many rows as the tables hold
    Crowded,     // more of everything than there may be, in answers that just fit
    ThisMachine, // the battery, the system details and the host name of the computer that the agent runs on
    Odd,         // names in every script, words that nobody knows, texts too long, elements and sections missing
};

// What kind of machine is simulated. Everything else about it is the same in every scenario.
struct Scenario {
    const wchar_t* name;
    const wchar_t* what; // one line for the usage text
    bool battery;
    bool sleeps; // standby and hibernate are supported
    bool busy;   // power actions are refused with a list of running activities
    Content content;
    int pausedHours; // 0: not paused
    int jobs;        // scheduled jobs
    License license;
    Updates updates;
};

[[nodiscard]] std::span<const Scenario> Scenarios();
// The first scenario: a notebook on mains, activated, three jobs.
[[nodiscard]] const Scenario& DefaultScenario();
// Null for an unknown name; names are compared without case.
[[nodiscard]] const Scenario* FindScenario(std::wstring_view name);

} // namespace voltaro::simulator
