#include "simulator/uncommon.h"

#include "base/text.h"

namespace voltaro::simulator {
namespace {

using State = MachineState;

constexpr int kCrowdedNames = 200; // beside those of the usual machine
constexpr int kCrowdedRules = 52;
constexpr int kCrowdedTasks = 9;
constexpr int kCrowdedBatteryRows = 30;
constexpr std::size_t kLongDescription = 2'400; // an answer of 52 such rules is a little shorter than 300,000 bytes
constexpr std::size_t kLongParameters = 4'100;  // and one of nine such tasks than 90,000

constexpr std::wstring_view kPair = L"\xD83D\xDD0B"; // one character beyond the first plane

// The entry again under names of two units: only then do so many fit the answer that lists them.
void Repeat(std::vector<Element>& entries)
{
    for (int i = 0; i < kCrowdedNames; ++i) {
        Element entry = entries.back();
        entry.children[0].text = Format(L"%c%c", L'A' + i / 10, L'0' + i % 10);
        entries.push_back(std::move(entry));
    }
}

// Elements that end in their number, up to so many of them.
void RepeatNumbered(Element& list, const wchar_t* stem, int count)
{
    const Element first = list.children.back();
    for (int number = static_cast<int>(list.children.size()); number < count; ++number) {
        list.children.push_back(first);
        list.children.back().name = stem + NumberText(number + 1);
        Element& name = list.children.back().children[0];
        name.text = NumberText(number + 1) + std::wstring(name.text);
    }
}

std::wstring Long(std::wstring_view text, std::size_t units)
{
    std::wstring grown;
    while (grown.size() < units)
        grown += std::wstring(text) + L' ';
    return grown;
}

// One text of a record.
struct OddText {
    Element State::*record;
    std::size_t position;
    const wchar_t* text;
};
constexpr OddText kOddTexts[] = {
    {&State::snooze, 0, L"Perhaps"},
    {&State::snooze, 2, L"05"},
    {&State::snooze, 4, L"7"},
    {&State::proxy, 1, L"\x043F\x0440\x043E\x043A\x0441\x0438.example"},
    {&State::proxy, 2, L"eighty"},
    {&State::host, 3, L"monitor.office.example"},
    {&State::host, 5, L"192.168.."},
    {&State::host, 6, L"on"},
    {&State::device, 1, L"MAYBE"},
    {&State::consumption, 1, L"OLED"},
    {&State::consumption, 3, L"21,23 W"},
    {&State::consumption, 12, L"\x6771\x4EAC \xD83D\xDCBB"},
};
// Of the schemes, by number.
constexpr struct {
    std::size_t scheme, position;
    const wchar_t* text;
} kOddSchemes[] = {
    {0, 0,
        L"B\x00FCro \x2013 Stra\x00DF"
        L"e"},
    {0, 1, L"Turbo"},
    {0, 6, L"07"},
    {0, 7, L"11"},
    {0, 13, L"Perhaps"},
    {0, 18, L"101"},
    {1, 0, L"\x6771\x4EAC \xD83D\xDD0B"},
    {2, 0, L"\x05D7\x05E9\x05DE\x05DC"},
    {3, 0, L"I\x0307stanbul \x0130\x0131"},
};

} // namespace

void Crowd(State& state)
{
    Repeat(state.schemes);
    Element& policy = state.policies.front();
    policy.children.erase(policy.children.begin() + 2, policy.children.end());
    RepeatNumbered(policy, L"AppNo_", kCrowdedRules + 1);
    for (std::size_t rule = 1; rule < policy.children.size(); ++rule) {
        policy.children[rule].name = L"AppNo_" + NumberText(static_cast<int>(rule));
        policy.children[rule].children.back().text = Long(L"Full-screen slides", kLongDescription);
    }
    Repeat(state.policies);
    Element& tasks = state.jobs.children[1].children[4].children.back(); // of the second job's action
    RepeatNumbered(tasks, L"APP_2", kCrowdedTasks);
    for (Element& task : tasks.children)
        task.children[1].text = Long(L"/all", kLongParameters);
    for (int row = static_cast<int>(state.battery.children.size()); row < kCrowdedBatteryRows; ++row)
        state.battery.children.push_back(TextElement(Format(L"Cell%d", row), L"3.81 V of 4.20 V, 71 %, 31.4 deg C"));
}

void MakeOdd(State& state)
{
    for (const OddText& row : kOddTexts)
        (state.*row.record).children[row.position].text = row.text;
    for (const auto& row : kOddSchemes)
        state.schemes[row.scheme].children[row.position].text = row.text;
    state.schemes[4].children[0].text = Long(kPair, 300);
    state.schemes[4].children.resize(12);
    state.device.children.resize(6);
    Element& policy = state.policies.front();
    policy.children[0].text = std::wstring(kPair) + L"\x30D7\x30EC\x30BC\x30F3";
    policy.children[1].children[1].text = L"Sometimes";
    policy.children[2].children[0].text = L"\x0420\x0430\x0431\x043E\x0442\x0430.Exe";
    policy.children[3].children.back().text = Long(L"a description longer than its field", 600);
    Element& job = state.jobs.children[0];
    job.children[0].text = L"\x65E9\x4E0A " + std::wstring(kPair);
    job.children[1].text = Long(kPair, 400);
    job.children[3].children[3].children[0].text = L"Fortnightly";
    state.jobs.children[1].children[4].children.back().children[0].children[0].text = Long(L"C:\\Tools", 400) + L".exe";
    if (state.battery.children.size() > 4) {
        state.battery.children[1].text = L"Resting";
        state.battery.children[4].text = Long(kPair, 200);
    }
}

} // namespace voltaro::simulator
