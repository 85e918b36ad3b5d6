#include "power/scheme_pages.h"
#include "power/scheme_window.h"
#include "support/program.h"
#include "ui/navigation.h"

namespace voltaro {

struct NavigationTest : testing::Test, LoadedProgram {
    NavigationTest() { MainCommand(kPowerScheme); }

    const HWND m_window = WindowOf(WindowId::Scheme), m_tab = ControlOf(m_window, kSchemeTab);
};

TEST_F(NavigationTest, CtrlTabTurnsThePagesAndTakesTheFocusAlong)
{
    const HWND first = WindowOf(WindowId::SchemeDisplay), second = WindowOf(WindowId::SchemePowerOff);
    POINT inside{300, 200};
    ClientToScreen(first, &inside);
    ScreenToClient(m_window, &inside);
    EXPECT_EQ(ChildWindowFromPoint(m_window, inside), first) << "above the tab control";
    boxes.Expect({{L"Voltaro Help", {}}});
    HELPINFO help{};
    help.cbSize = sizeof help;
    SendMessageW(ControlOf(first, kDim), WM_HELP, 0, reinterpret_cast<LPARAM>(&help)); // of its window
    SetFocus(ControlOf(first, kDim));
    Press(VK_TAB, VK_CONTROL);
    EXPECT_TRUE(IsWindowVisible(second) && !IsWindowVisible(first));
    EXPECT_EQ(GetFocus(), GetNextDlgTabItem(second, nullptr, FALSE));
    Press(VK_TAB, VK_CONTROL, VK_SHIFT);
    EXPECT_EQ(SelectedTab(m_tab), 0);
    Press(VK_TAB, VK_CONTROL, VK_SHIFT);
    EXPECT_EQ(SelectedTab(m_tab), 1) << "round the other way";
    EnableWindow(m_window, FALSE);
    Press(VK_TAB, VK_CONTROL);
    EXPECT_EQ(SelectedTab(m_tab), 1) << "a box lies over it";
}

TEST_F(NavigationTest, AMessageToAHiddenWindowDoesNotTakeTheKeyboard)
{
    const HWND snooze = WindowOf(WindowId::Snooze);
    SetFocus(ControlOf(m_window, kEditorScheme));
    const HWND before = GetFocus();
    SendMessageW(snooze, WM_NULL, 0, 0);
    EXPECT_EQ(NavigationWindow(), snooze);
    Press(VK_TAB);
    EXPECT_TRUE(GetFocus() != before && IsChild(m_window, GetFocus()));
}

} // namespace voltaro
