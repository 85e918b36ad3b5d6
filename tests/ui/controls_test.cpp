#include "ui/controls.h"

#include "support/test_window.h"
#include "ui/combo_box.h"
#include "ui/list_view.h"
#include "ui/menus.h"
#include "ui/row_tips.h"
#include "ui/theme.h"

#include <gtest/gtest.h>

namespace voltaro {

using enum Kind;

constexpr int kEdit = 1, kNumber = 2, kPassword = 3, kCombo = 4, kSorted = 5, kFirst = 6, kSecond = 7, kCheck = 8,
              kThird = 9, kFourth = 10;

struct Controls : testing::Test {
    Controls()
    {
        constexpr Control kRows[] = {{Edit, kEdit, L"one", 10, 0, 90, 20}, {NumberEdit, kNumber, L"2", 10, 30, 90, 20},
            {PasswordEdit, kPassword, L"three", 10, 60, 90, 20}, {Combo, kCombo, L"", 10, 90, 90, 90},
            {SortedCombo, kSorted, L"", 10, 120, 90, 90}, {Radio, kFirst, L"a", 10, 150, 90, 20, kGroup},
            {Radio, kSecond, L"b", 10, 180, 90, 20}, {CheckBox, kCheck, L"c", 10, 210, 90, 20},
            {Radio, kThird, L"d", 10, 240, 90, 20, kGroup}, {Radio, kFourth, L"e", 10, 270, 90, 20}};
        CreateControls(m_window.Get(), kRows, WindowFont());
        SetForegroundWindow(window);
    }
    HWND Of(int id) const { return ControlOf(window, id); }

    TestWindow m_window;
    const HWND window = m_window.Get();
};

TEST_F(Controls, ALimitedEditKeepsNoHalfOfAPair)
{
    constexpr std::wstring_view kPair = L"\xD83D\xDE00";
    LimitText(window, kEdit, 3);
    for (const std::wstring before : {L"a", L"ab", L"abc"}) {
        for (const bool typed : {false, true}) {
            SetText(window, kEdit, before);
            SendMessageW(Of(kEdit), EM_SETSEL, before.size(), static_cast<LPARAM>(before.size()));
            if (!typed)
                SendMessageW(Of(kEdit), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(kPair.data()));
            for (const wchar_t unit : typed ? kPair : L"")
                SendMessageW(Of(kEdit), WM_CHAR, unit, 0);
            EXPECT_EQ(TextOf(window, kEdit), before + std::wstring(before.size() == 1 ? kPair : L"")) << typed;
        }
    }
}

TEST_F(Controls, FocusLeavesAControlThatIsDisabledOrHiddenAndComesBack)
{
    FocusOn(window, kEdit);
    EXPECT_EQ(SendMessageW(Of(kEdit), EM_GETSEL, 0, 0), MAKELONG(0, 3)) << "the refused text is selected";
    Enable(window, kEdit, false);
    EXPECT_EQ(GetFocus(), Of(kNumber));
    Show(window, kNumber, false);
    EXPECT_EQ(GetFocus(), Of(kPassword));
    Show(window, kNumber, true);
    EXPECT_EQ(GetFocus(), Of(kPassword)) << "only for the time being";
    Enable(window, kEdit, true);
    EXPECT_EQ(GetFocus(), Of(kEdit));
    Enable(window, kEdit, false);
    FocusOn(window, kCheck);
    Enable(window, kEdit, true);
    EXPECT_EQ(GetFocus(), Of(kCheck)) << "the user has gone elsewhere";
    FocusOn(window, kNumber);
    Enable(window, kEdit, true);
    EXPECT_EQ(GetFocus(), Of(kNumber)) << "for good";
    FocusOn(window, kCheck);
    for (const WPARAM how : {WA_ACTIVE, WA_CLICKACTIVE}) {
        SetForegroundWindow(GetDesktopWindow());
        SendMessageW(window, WM_ACTIVATE, WA_INACTIVE, 0);
        SetFocus(window);
        SendMessageW(window, WM_ACTIVATE, how, 0);
        EXPECT_EQ(GetFocus(), Of(kCheck)) << how;
    }
}

TEST_F(Controls, AChosenRadioClearsItsOwnGroupAndTheFocusChoosesNone)
{
    for (const int id : {kFirst, kCheck, kFourth, kSecond})
        SetChecked(window, id, true);
    for (int id = kFirst; id <= kFourth; ++id)
        EXPECT_EQ(IsChecked(window, id), id == kSecond || id == kCheck || id == kFourth) << id;
    EXPECT_EQ(GetNextDlgTabItem(window, Of(kSorted), FALSE), Of(kSecond));
    SetChecked(window, kSecond, false);
    EXPECT_EQ(GetNextDlgTabItem(window, Of(kSorted), FALSE), Of(kFirst)) << "a group without a choice is reached too";
    static bool clicks;
    clicks = true;
    const auto observe = [](HWND radio, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR) {
        clicks = message == BM_SETDONTCLICK ? w == FALSE : clicks;
        EXPECT_FALSE(message == WM_SETFOCUS && clicks);
        return DefSubclassProc(radio, message, w, l);
    };
    SetWindowSubclass(Of(kSecond), observe, 1, 0);
    FocusOn(window, kSecond);
    EXPECT_TRUE(clicks) << "the user's own";
}

TEST_F(Controls, ComboSelectsTheExactEntryOnly)
{
    const std::wstring entries[] = {L"Minimum", L"balanced", L"Balanced", L"Balanced & more", L""};
    for (const int id : {kCombo, kSorted})
        FillCombo(window, id, entries);
    EXPECT_TRUE(SelectExact(window, kCombo, L"Balanced") == 2 && SelectedText(window, kCombo) == L"Balanced");
    EXPECT_TRUE(SelectExact(window, kCombo, L"Balanced ") == -1 && SelectedText(window, kCombo).empty());
    EXPECT_EQ(SelectedIndex(window, kCombo), -1);
    EXPECT_EQ(SelectExact(window, kSorted, L"Minimum"), 4) << "sorted: empty, the three B, Minimum";
    const std::wstring wide[] = {std::wstring(60, L'W'), L"short"};
    FillCombo(window, kCombo, wide);
    EXPECT_GT(SendMessageW(Of(kCombo), CB_GETDROPPEDWIDTH, 0, 0), 500) << "the list shows its longest entry whole";
    FillCombo(window, kSorted, {});
    EXPECT_EQ(SelectExact(window, kSorted, L"Minimum"), -1);
}

TEST(Menus, ASharedPopupOutlivesItsBars)
{
    static constexpr MenuItem kItems[] = {{L"Item", 1}}, kInner[] = {SharedPopup(L"Shared")};
    static constexpr MenuItem kBar[] = {Popup(L"Popup", kInner)};
    const UniqueMenu shared = BuildPopup(kItems, 1);
    const UniqueMenu bar = BuildMenuBar(kBar, 1, shared.Get());
    RemoveShared(bar.Get(), shared.Get());
    EXPECT_EQ(GetMenuItemCount(GetSubMenu(bar.Get(), 0)), 0);
}

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
    EXPECT_TRUE(ListView_GetSelectedCount(m_list) == 3 && OnlySelectedRow(m_list) == -1);
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
