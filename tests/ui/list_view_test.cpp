#include "ui/list_view.h"

#include "support/labelled.h"
#include "support/test_window.h"
#include "ui/controls.h"
#include "ui/row_tips.h"
#include "ui/theme.h"

#include <gtest/gtest.h>

namespace voltaro {

struct List : testing::Test {
    List()
    {
        constexpr Control kRows[] = {{Kind::ListView, 1, L"Rows", 0, 0, 200, 120}};
        constexpr Column kColumns[] = {{L"Name", 150}, {L"Value", 150}};
        CreateControls(m_window.Get(), kRows, WindowFont());
        m_list = ControlOf(m_window.Get(), 1);
        SetColumns(m_list, kColumns);
    }

    void Fill(std::size_t rows)
    {
        std::wstring text;
        FillList(m_list, rows, [&](std::size_t row, std::size_t column) {
            text = (column == 0 ? L"n" : L"v") + std::to_wstring(row);
            return text.c_str();
        });
    }

    TestWindow m_window;
    HWND m_list;
};

// What Windows' own list does and Wine's does not.
static LRESULT CALLBACK DoAsWindows(HWND list, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR)
{
    if (message == LVM_DELETEALLITEMS)
        ListView_Scroll(list, -GetScrollPos(list, SB_HORZ), 0);
    return message == WM_SETREDRAW ? DefWindowProcW(list, message, w, l) : DefSubclassProc(list, message, w, l);
}

TEST_F(List, RefillKeepsSelectionFocusAndScroll)
{
    SetWindowSubclass(m_list, DoAsWindows, 1, 0);
    Fill(500);
    EXPECT_EQ(CellOf(m_list, 499, 1), L"v499");
    SelectRow(m_list, 350);
    ListView_EnsureVisible(m_list, 499, FALSE);
    ListView_EnsureVisible(m_list, 300, FALSE);
    ListView_Scroll(m_list, 40, 0);
    ASSERT_EQ(ListView_GetTopIndex(m_list), 300);
    Fill(400);
    EXPECT_TRUE(SelectedRow(m_list) == 350 && ListView_GetTopIndex(m_list) == 300);
    EXPECT_EQ(GetScrollPos(m_list, SB_HORZ), 40);
    Fill(3);
    EXPECT_TRUE(SelectedRow(m_list) == -1 && ListView_GetTopIndex(m_list) == 0);
    Show(m_window.Get(), 1, false);
    Fill(5);
    EXPECT_FALSE(IsWindowVisible(m_list)) << "filling does not show it";
}

TEST_F(List, TextKeepsRowsAndColumnsWhateverTheCellsHold)
{
    const std::wstring longText(5000, L'x');
    const std::vector<std::wstring> rows[] = {{L"a\tb", L"c\r\nd"}, {longText, L"%s \xD83D\xDE00", L"third"}, {}};
    FillList(m_list, rows);
    EXPECT_EQ(ListText(m_list, false), L"Name\tValue\r\na b\tc  d\r\n" + longText + L"\t%s \xD83D\xDE00\r\n\t\r\n");
    SelectRow(m_list, 0);
    EXPECT_EQ(ListText(m_list, true), L"a b\tc  d\r\n");
}

TEST_F(List, KeysCopyTheChosenRowAndAllRowsAndAClickChoosesOne)
{
    Fill(3);
    SelectRow(m_list, 1);
    SetForegroundWindow(m_window.Get());
    SetFocus(m_list);
    Press('C', VK_CONTROL);
    EXPECT_EQ(ClipboardText(), L"n1\tv1\r\n");
    Press('A', VK_CONTROL);
    Press('C', VK_CONTROL);
    EXPECT_EQ(ClipboardText(), L"n0\tv0\r\nn1\tv1\r\nn2\tv2\r\n");
    RECT row;
    ListView_GetItemRect(m_list, 2, &row, LVIR_LABEL);
    ClickAt(m_list, row.left + 2, row.top + 2);
    EXPECT_EQ(OnlySelectedRow(m_list), 2) << "a click chooses one again";
    PostMessageW(m_list, WM_CHAR, L's', 0); // the letter of "Select all", for the menu
    PostMessageW(m_list, WM_KEYDOWN, VK_ESCAPE, 0);
    SendMessageW(m_list, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_list), -1);
    EXPECT_EQ(ListView_GetSelectedCount(m_list), 3U);
}

TEST_F(List, ACellThatIsCutOffShowsItsWholeTextAboveTheRowsOwn)
{
    const std::wstring longText(40, L'W');
    const std::vector<std::wstring> rows[] = {{longText, L"v"}, {L"n", longText}};
    FillList(m_list, rows);
    SetRowTips(m_list, [](HWND, int) { return std::wstring(); });
    EXPECT_EQ(TipOver(m_list, 0, 0) + L"|" + TipOver(m_list, 1, 0) + L"|" + TipOver(m_list, 1, 1),
        longText + L"||" + longText);
    SetRowTips(m_list, [](HWND, int) { return std::wstring(L"why"); });
    EXPECT_EQ(TipOver(m_list, 0, 0) + L"|" + TipOver(m_list, 1, 0), longText + L"\r\nwhy|why");
}

} // namespace voltaro
