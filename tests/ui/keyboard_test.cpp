#include "shell/window_table.h"
#include "support/program.h"
#include "ui/tabs.h"

#include <algorithm>

namespace voltaro {
namespace {

// A window and the main window's command that opens it; 0: it is shown as it is.
struct Opened {
    WindowId window;
    int command;
};
// clang-format off
constexpr Opened kOpened[] = {
    {WindowId::SystemInfo, kSystemInfo}, {WindowId::Scheme, kPowerScheme}, {WindowId::Policy, 0}, {WindowId::Rule, 0},
    {WindowId::JobList, kJobScheduler}, {WindowId::JobEditor, 0}, {WindowId::DeviceControl, kSecurity},
    {WindowId::AccessControl, kPorts}, {WindowId::Snooze, kSnooze}, {WindowId::Proxy, kProxy},
    {WindowId::Battery, kBatteryInfo}, {WindowId::Savings, kSavingsReport}, {WindowId::Profile, 0},
    {WindowId::Activation, kActivate},
};
// clang-format on

bool IsStop(HWND control)
{
    return IsWindowVisible(control) && IsWindowEnabled(control)
        && (GetWindowLongW(control, GWL_STYLE) & WS_TABSTOP) != 0;
}

std::vector<HWND> StopsOf(HWND window)
{
    std::vector<HWND> stops;
    const auto add = [](HWND child, LPARAM list) -> BOOL {
        if (IsStop(child) && ClassOf(GetParent(child)) != WC_IPADDRESSW)
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
    };
    EnumChildWindows(window, add, reinterpret_cast<LPARAM>(&stops));
    return stops;
}

// What a screen reader says for a control: the text of a button, else the label right before the field.
std::wstring NameOf(HWND control)
{
    const std::wstring text = WindowText(control);
    const bool speaks = ClassOf(control) == WC_BUTTONW || ClassOf(control) == WC_LINK;
    if (speaks && text != L"...")
        return text;
    const HWND before = GetWindow(control, GW_HWNDPREV);
    return before != nullptr && ClassOf(before) == WC_STATICW ? WindowText(before) : std::wstring();
}

// The control that is reached: the focus, or what holds it.
HWND Reached(const std::vector<HWND>& stops)
{
    const HWND focus = GetFocus();
    const auto at = std::ranges::find_if(stops, [&](HWND stop) { return stop == focus || IsChild(stop, focus); });
    return at != stops.end() ? *at : nullptr;
}

class EveryWindow : public testing::TestWithParam<Opened> { };

TEST_P(EveryWindow, IsWalkedByTabKnowsItsNamesAndClosesByEsc)
{
    LoadedProgram program;
    const HWND main = WindowOf(WindowId::Main), window = WindowOf(GetParam().window);
    ShowWindow(main, SW_SHOW);
    if (GetParam().command != 0)
        program.Command(WindowId::Main, GetParam().command);
    else
        ShowWindow(window, SW_SHOW);
    SetForegroundWindow(window);
    Pump();
    const std::vector<HWND> stops = StopsOf(window);
    ASSERT_FALSE(stops.empty());
    const HWND first = Reached(stops);
    ASSERT_NE(first, nullptr) << "the focus opens on a control, not on " << ClassOf(GetFocus());
    std::vector<HWND> walked;
    do {
        walked.push_back(Reached(stops));
        Press(VK_TAB);
    } while (Reached(stops) != first && walked.size() <= stops.size());
    EXPECT_EQ(Reached(stops), first) << "no trap";
    EXPECT_EQ(walked.size(), stops.size());
    const auto placeOf = [&](HWND control) { return std::ranges::find(walked, control) - walked.begin(); };
    for (const HWND stop : stops) {
        EXPECT_EQ(std::ranges::count(walked, stop), 1) << NameOf(stop) << " " << ClassOf(stop);
        EXPECT_FALSE(NameOf(stop).empty()) << ClassOf(stop) << GetDlgCtrlID(stop);
        for (const HWND page : PagesOf(stop)) {
            const HWND field = GetNextDlgTabItem(page, nullptr, FALSE);
            const auto after = (placeOf(field) - placeOf(stop) + std::ssize(walked)) % std::ssize(walked);
            EXPECT_TRUE(!IsWindowVisible(page) || !IsStop(field) || after == 1) << "tab control, then its page";
        }
    }
    if (GetParam().command == 0)
        return;
    Press(VK_ESCAPE);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_TRUE(IsWindowEnabled(main));
}

INSTANTIATE_TEST_SUITE_P(Keyboard, EveryWindow, testing::ValuesIn(kOpened),
    [](const auto& row) { return "Window" + std::to_string(static_cast<int>(row.param.window)); });

} // namespace
} // namespace voltaro
