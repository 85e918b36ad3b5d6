#include "power/scheme_pages.h"
#include "power/scheme_window.h"
#include "support/program.h"

namespace voltaro {

TEST(NavigationTest, KeysTurnThePagesOfTheWindowInFront)
{
    LoadedProgram program;
    program.MainCommand(kSavingsReport);
    const HWND tab = FindWindowExW(WindowOf(WindowId::Savings), nullptr, WC_TABCONTROLW, nullptr);
    SetFocus(tab);
    Press(VK_TAB, VK_CONTROL, VK_SHIFT);
    EXPECT_EQ(SelectedTab(tab), 2) << "round the other way";
    program.MainCommand(kPowerScheme);
    const HWND window = WindowOf(WindowId::Scheme);
    const HWND first = WindowOf(WindowId::SchemeDisplay), second = WindowOf(WindowId::SchemePowerOff);
    SetFocus(ControlOf(first, kDim));
    Press(VK_TAB, VK_CONTROL);
    EXPECT_TRUE(IsWindowVisible(second) && !IsWindowVisible(first));
    EXPECT_EQ(GetFocus(), GetNextDlgTabItem(second, nullptr, FALSE));
    SendMessageW(WindowOf(WindowId::Snooze), WM_NULL, 0, 0); // hidden: it does not take the keyboard
    const HWND before = GetFocus();
    Press(VK_TAB);
    EXPECT_TRUE(GetFocus() != before && IsChild(window, GetFocus()));
    EnableWindow(window, FALSE);
    Press(VK_TAB, VK_CONTROL);
    EXPECT_EQ(SelectedTab(ControlOf(window, kSchemeTab)), 1) << "a box lies over it";
}

} // namespace voltaro
