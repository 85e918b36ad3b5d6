#include "ui/controls.h"

#include "support/labelled.h"
#include "support/test_window.h"
#include "ui/combo_box.h"
#include "ui/theme.h"

#include <gtest/gtest.h>

#include <iterator>

namespace voltaro {

using enum Kind;

// clang-format off
constexpr Control kOfEveryKind[] = {
    {GroupBox, 100, L"Frame", 5, 5, 290, 40}, {TabStopGroupBox, 101, L"Frame", 5, 50, 290, 40},
    {Label, 102, L"A & B", 10, 20, 100, 16},
    {Edit, 104, L"one", 10, 100, 100, 20, kPlain, L"Edit"}, {NumberEdit, 105, L"2", 120, 100, 100, 20, kPlain, L"Number"},
    {PasswordEdit, 106, L"three", 230, 100, 100, 20, kPlain, L"Password"},
    {PlainEdit, 107, L"plain", 10, 125, 100, 16, kPlain, L"Plain"},
    {CentredPlainEdit, 108, L"plain", 120, 125, 100, 16, kPlain, L"Centred"},
    {Combo, 110, L"", 10, 170, 100, 90, kPlain, L"Combo"},
    {SortedCombo, 111, L"", 120, 170, 100, 90, kPlain, L"Sorted"}, {CheckBox, 112, L"Check", 10, 200, 100, 20},
    {Radio, 113, L"Radio", 120, 200, 100, 20, kGroup}, {Push, 114, L"Push", 10, 230, 100, 25},
    {DefaultPush, 115, L"Push", 120, 230, 100, 25}, {BitmapPush, 116, L"Lock", 230, 230, 41, 41},
    {DefaultBitmapPush, 117, L"Lock", 280, 230, 41, 41}, {Trackbar, 118, L"", 10, 280, 100, 30, kPlain, L"Brightness"},
    {Progress, 119, L"", 120, 280, 100, 20, kPlain, L"Progress"},
    {SmoothProgress, 120, L"", 230, 280, 100, 20, kPlain, L"Progress"}, {BusyBar, 127, L"", 340, 280, 80, 20, kPlain, L"Busy"},
    {ListView, 121, L"List", 10, 320, 150, 80, kPlain, L"Rows"}, {Tab, 122, L"", 170, 320, 150, 80, kPlain, L"Pages"},
    {TimePicker, 123, L"", 10, 410, 100, 22, kPlain, L"Time"}, {DatePicker, 124, L"", 120, 410, 100, 22, kPlain, L"Date"},
    {IpAddress, 125, L"", 230, 410, 120, 22, kPlain, L"Address"}, {Link, 126, L"<a>Go</a>", 360, 410, 60, 22},
};
// clang-format on
static_assert(std::size(kOfEveryKind) == static_cast<std::size_t>(Kind::Link) + 1);
static_assert(IdsAreUnique(kOfEveryKind) && FitInside(kOfEveryKind, 430, 440));

struct Controls : testing::Test {
    Controls() { CreateControls(m_all.Get(), kOfEveryKind, WindowFont()); }
    HWND Of(int id) { return ControlOf(m_all.Get(), id); }

    TestWindow m_all;
};

TEST_F(Controls, EveryKindStandsWhereItsRowSays)
{
    for (const Control& row : kOfEveryKind) {
        SCOPED_TRACE(row.id);
        ASSERT_NE(Of(row.id), nullptr);
        RECT place;
        GetWindowRect(Of(row.id), &place);
        MapWindowPoints(nullptr, m_all.Get(), reinterpret_cast<POINT*>(&place), 2);
        EXPECT_TRUE(place.left == row.x && place.top == row.y && place.right - place.left == row.width);
        const bool combo = row.kind == Combo || row.kind == SortedCombo;
        EXPECT_TRUE(combo ? place.bottom - place.top <= 24 : place.bottom - place.top == row.height);
        EXPECT_TRUE(IsWindowVisible(Of(row.id)));
        EXPECT_TRUE(*row.text == L'\0' || row.kind == Link || TextOf(m_all.Get(), row.id) == row.text);
        EXPECT_TRUE(row.name == nullptr || WindowText(GetWindow(Of(row.id), GW_HWNDPREV)) == row.name);
    }
}

TEST_F(Controls, TabKeyStopsWhereAUserExpects)
{
    HWND at = Of(126);
    for (const int id :
        {101, 104, 105, 106, 110, 111, 112, 113, 114, 115, 116, 117, 118, 121, 122, 123, 124, 125, 126}) {
        at = GetNextDlgTabItem(m_all.Get(), at, FALSE);
        EXPECT_EQ(GetDlgCtrlID(at), id);
    }
}

TEST_F(Controls, ALimitedEditKeepsNoHalfOfAPair)
{
    const struct {
        std::wstring_view before, added, after;
    } kRows[] = {
        {L"a", L"\xD83D\xDE00", L"a\xD83D\xDE00"}, {L"ab", L"\xD83D\xDE00", L"ab"}, {L"abc", L"\xD83D\xDE00", L"abc"}};
    LimitText(m_all.Get(), 104, 3);
    for (const auto& row : kRows) {
        for (const bool typed : {false, true}) {
            SetText(m_all.Get(), 104, row.before);
            SendMessageW(Of(104), EM_SETSEL, row.before.size(), static_cast<LPARAM>(row.before.size()));
            if (!typed)
                SendMessageW(Of(104), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(row.added.data()));
            for (const wchar_t unit : typed ? row.added : L"")
                SendMessageW(Of(104), WM_CHAR, unit, 0);
            EXPECT_EQ(TextOf(m_all.Get(), 104), row.after) << typed;
        }
    }
}

TEST_F(Controls, FocusLeavesAControlThatIsDisabledOrHiddenAndComesBack)
{
    SetForegroundWindow(m_all.Get());
    FocusOn(m_all.Get(), 104);
    EXPECT_EQ(SendMessageW(Of(104), EM_GETSEL, 0, 0), MAKELONG(0, 3)) << "the refused text is selected";
    Enable(m_all.Get(), 104, false);
    EXPECT_EQ(GetFocus(), Of(105));
    Show(m_all.Get(), 105, false);
    EXPECT_EQ(GetFocus(), Of(106));
    Show(m_all.Get(), 105, true);
    EXPECT_EQ(GetFocus(), Of(106)) << "it was lent only";
    Enable(m_all.Get(), 104, true);
    EXPECT_EQ(GetFocus(), Of(104));
    Enable(m_all.Get(), 104, false);
    FocusOn(m_all.Get(), 112);
    Enable(m_all.Get(), 104, true);
    EXPECT_EQ(GetFocus(), Of(112)) << "the user has gone elsewhere";
}

TEST_F(Controls, AChosenRadioClearsItsOwnGroupOnly)
{
    constexpr Control kRows[] = {{Radio, 1, L"a", 0, 0, 50, 20, kGroup}, {Radio, 2, L"b", 0, 30, 50, 20},
        {CheckBox, 3, L"c", 0, 60, 50, 20}, {Radio, 4, L"d", 0, 90, 50, 20, kGroup}, {Radio, 5, L"e", 0, 120, 50, 20}};
    const TestWindow window;
    CreateControls(window.Get(), kRows, WindowFont());
    for (const int id : {1, 3, 5, 2})
        SetChecked(window.Get(), id, true);
    for (int id = 1; id <= 5; ++id)
        EXPECT_EQ(IsChecked(window.Get(), id), id == 2 || id == 3 || id == 5) << id;
    const auto stopAfter
        = [&](int id) { return GetDlgCtrlID(GetNextDlgTabItem(window.Get(), ControlOf(window.Get(), id), FALSE)); };
    EXPECT_EQ(stopAfter(5), 2);
    SetChecked(window.Get(), 2, false);
    EXPECT_EQ(stopAfter(5), 1) << "a group without a choice is reached too";
}

TEST_F(Controls, ComboSelectsTheExactEntryOnly)
{
    const HWND window = m_all.Get();
    const std::wstring entries[] = {L"Minimum", L"balanced", L"Balanced", L"Balanced & more", L""};
    for (const int id : {110, 111})
        FillCombo(window, id, entries);
    EXPECT_TRUE(SelectExact(window, 110, L"Balanced") == 2 && SelectedText(window, 110) == L"Balanced");
    EXPECT_TRUE(SelectExact(window, 110, L"Balanced ") == -1 && SelectedText(window, 110).empty());
    EXPECT_EQ(SelectedIndex(window, 110), -1);
    EXPECT_EQ(SelectExact(window, 111, L"Minimum"), 4) << "sorted: empty, the three B, Minimum";
    const std::wstring wide[] = {std::wstring(60, L'W'), L"short"};
    FillCombo(window, 110, wide);
    EXPECT_GT(SendMessageW(Of(110), CB_GETDROPPEDWIDTH, 0, 0), 500) << "the list shows its longest entry whole";
    FillCombo(window, 111, {});
    EXPECT_EQ(SelectExact(window, 111, L"Minimum"), -1);
    EXPECT_EQ(SelectExact(window, 99, L"Minimum"), -1) << "no such control";
}

} // namespace voltaro
