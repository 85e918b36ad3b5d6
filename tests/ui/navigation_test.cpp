#include "ui/navigation.h"

#include "support/labelled.h"
#include "support/test_window.h"
#include "ui/controls.h"
#include "ui/tabs.h"
#include "ui/theme.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

// A window with a tab control and two pages beside it, as the program's windows have them.
class Pages : public testing::Test {
protected:
    Pages()
        : m_window([this](HWND, UINT message, WPARAM w, LPARAM l) -> std::optional<LRESULT> {
            if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(l)->code == static_cast<UINT>(TCN_SELCHANGE))
                ++m_changes;
            if (message == WM_COMMAND)
                m_command = LOWORD(w);
            if (message == WM_HELP)
                ++m_helps;
            return std::nullopt;
        })
        , m_first(OnPageCommand(), m_window.Get())
        , m_second(OnPageCommand(), m_window.Get())
    {
        constexpr Control kRows[] = {{Kind::Push, 1, L"Before", 0, 0, 80, 25},
            {Kind::Tab, 2, L"", 0, 30, 400, 300, kPlain, L"Pages"}, {Kind::Push, 3, L"After", 0, 340, 80, 25}};
        constexpr Control kPageRows[]
            = {{Kind::Edit, 11, L"text", 10, 10, 80, 20}, {Kind::Push, 12, L"On page", 10, 40, 80, 25}};
        CreateControls(m_window.Get(), kRows, WindowFont());
        for (const HWND page : {m_first.Get(), m_second.Get()}) {
            SetWindowPos(page, nullptr, 5, 60, 380, 260, SWP_NOZORDER);
            CreateControls(page, kPageRows, WindowFont());
        }
        m_tab = ControlOf(m_window.Get(), 2);
        const TabPage pages[] = {{L"One", m_first.Get()}, {L"Two", m_second.Get()}};
        SetTabs(m_tab, pages);
        SetForegroundWindow(m_window.Get());
    }

    TestWindow::Handler OnPageCommand()
    {
        return [this](HWND, UINT message, WPARAM w, LPARAM) -> std::optional<LRESULT> {
            if (message == WM_COMMAND && HIWORD(w) == BN_CLICKED)
                m_pageCommand = LOWORD(w);
            return std::nullopt;
        };
    }

    int m_changes = 0, m_command = 0, m_pageCommand = 0, m_helps = 0;
    TestWindow m_window, m_first, m_second;
    HWND m_tab = nullptr;
};

TEST_F(Pages, CtrlTabTurnsThePagesAndWraps)
{
    EXPECT_TRUE(IsWindowVisible(m_first.Get()));
    EXPECT_FALSE(IsWindowVisible(m_second.Get()));
    EXPECT_EQ(ChildWindowFromPoint(m_window.Get(), {20, 80}), m_first.Get()) << "above the tab control";
    EXPECT_EQ(WindowText(GetWindow(m_tab, GW_HWNDPREV)), L"Pages") << "its name stays right before it";
    SetFocus(ControlOf(m_first.Get(), 12));
    Press(VK_TAB, VK_CONTROL);
    EXPECT_EQ(SelectedTab(m_tab), 1);
    EXPECT_FALSE(IsWindowVisible(m_first.Get()));
    EXPECT_TRUE(IsWindowVisible(m_second.Get()));
    EXPECT_EQ(GetFocus(), ControlOf(m_second.Get(), 11));
    EXPECT_EQ(m_changes, 1);
    Press(VK_TAB, VK_CONTROL);
    EXPECT_EQ(SelectedTab(m_tab), 0);
    Press(VK_TAB, VK_CONTROL, VK_SHIFT);
    EXPECT_EQ(SelectedTab(m_tab), 1);
}

TEST_F(Pages, TabReachesTheStripThenTheShownPageOnly)
{
    SetFocus(ControlOf(m_window.Get(), 1));
    const HWND expected[] = {ControlOf(m_window.Get(), 1), m_tab, ControlOf(m_first.Get(), 11),
        ControlOf(m_first.Get(), 12), ControlOf(m_window.Get(), 3)};
    for (const WORD shift : {WORD{0}, WORD{VK_SHIFT}}) {
        for (std::size_t step = 1; step <= std::size(expected); ++step) {
            Press(VK_TAB, shift);
            EXPECT_EQ(GetFocus(), expected[(shift != 0 ? 5 - step : step) % 5]) << step;
        }
    }
}

TEST_F(Pages, DialogKeysPushAndCancelAndHelpReachesTheTopLevelWindow)
{
    HELPINFO help{};
    help.cbSize = sizeof help;
    SendMessageW(ControlOf(m_first.Get(), 11), WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
    EXPECT_EQ(m_helps, 1);
    SetFocus(ControlOf(m_first.Get(), 12));
    Press(VK_RETURN);
    EXPECT_EQ(m_pageCommand, 12) << "the focused button, told to the page that holds it";
    SetFocus(ControlOf(m_window.Get(), 3));
    Press(VK_RETURN);
    EXPECT_EQ(m_command, 3);
    SetFocus(ControlOf(m_first.Get(), 11));
    Press(VK_RETURN);
    EXPECT_EQ(m_command, IDOK);
    Press(VK_ESCAPE);
    EXPECT_EQ(m_command, IDCANCEL);
}

TEST_F(Pages, AMessageToAHiddenWindowDoesNotTakeTheKeyboard)
{
    const TestWindow other;
    SetForegroundWindow(m_window.Get());
    SetFocus(ControlOf(m_window.Get(), 3));
    ShowWindow(other.Get(), SW_HIDE);
    SendMessageW(other.Get(), WM_NULL, 0, 0);
    EXPECT_EQ(NavigationWindow(), other.Get());
    Press(VK_TAB);
    EXPECT_EQ(GetFocus(), ControlOf(m_window.Get(), 1));
}

} // namespace
} // namespace voltaro
