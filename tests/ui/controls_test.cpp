#include "ui/controls.h"

#include "support/test_window.h"
#include "ui/theme.h"
#include "ui/tooltip.h"

#include <gtest/gtest.h>

#include <iterator>

namespace voltaro {
namespace {

// clang-format off
constexpr Control kOfEveryKind[] = {
    {Kind::GroupBox,          100, L"Frame",    5,   5, 290, 40},
    {Kind::TabStopGroupBox,   101, L"Frame",    5,  50, 290, 40},
    {Kind::Label,             102, L"A & B",   10,  20, 100, 16},
    {Kind::CentredLabel,      103, L"Middle", 120,  20, 100, 16},
    {Kind::Edit,              104, L"one",     10, 100, 100, 20, kPlain, L"Edit"},
    {Kind::NumberEdit,        105, L"2",      120, 100, 100, 20, kPlain, L"Number"},
    {Kind::PasswordEdit,      106, L"three",  230, 100, 100, 20, kPlain, L"Password"},
    {Kind::PlainEdit,         107, L"plain",   10, 125, 100, 16, kPlain, L"Plain"},
    {Kind::CentredPlainEdit,  108, L"plain",  120, 125, 100, 16, kPlain, L"Centred"},
    {Kind::MultiLineText,     109, L"a\r\nb", 230, 125, 100, 40, kPlain, L"Text"},
    {Kind::Combo,             110, L"",        10, 170, 100, 90, kPlain, L"Combo"},
    {Kind::SortedCombo,       111, L"",       120, 170, 100, 90, kPlain, L"Sorted"},
    {Kind::CheckBox,          112, L"Check",   10, 200, 100, 20},
    {Kind::Radio,             113, L"Radio",  120, 200, 100, 20, kGroup},
    {Kind::Push,              114, L"Push",    10, 230, 100, 25},
    {Kind::DefaultPush,       115, L"Push",   120, 230, 100, 25},
    {Kind::BitmapPush,        116, L"Lock",   230, 230,  41, 41},
    {Kind::DefaultBitmapPush, 117, L"Lock",   280, 230,  41, 41},
    {Kind::Trackbar,          118, L"",        10, 280, 100, 30, kPlain, L"Brightness"},
    {Kind::Progress,          119, L"",       120, 280, 100, 20, kPlain, L"Progress"},
    {Kind::SmoothProgress,    120, L"",       230, 280, 100, 20, kPlain, L"Progress"},
    {Kind::BusyBar,           127, L"",       340, 280,  80, 20, kPlain, L"Busy"},
    {Kind::ListView,          121, L"List",    10, 320, 150, 80, kPlain, L"Rows"},
    {Kind::Tab,               122, L"",       170, 320, 150, 80, kPlain, L"Pages"},
    {Kind::TimePicker,        123, L"",        10, 410, 100, 22, kPlain, L"Time"},
    {Kind::DatePicker,        124, L"",       120, 410, 100, 22, kPlain, L"Date"},
    {Kind::IpAddress,         125, L"",       230, 410, 120, 22, kPlain, L"Address"},
    {Kind::Link,              126, L"<a>Go</a>", 360, 410, 60, 22},
};
// clang-format on
static_assert(std::size(kOfEveryKind) == static_cast<std::size_t>(Kind::Link) + 1);
static_assert(IdsAreUnique(kOfEveryKind) && FitInside(kOfEveryKind, 430, 440));

std::wstring TextOfWindow(HWND window)
{
    wchar_t text[100] = L"";
    GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    return text;
}

TEST(Controls, EveryKindStandsWhereItsRowSays)
{
    const TestWindow window;
    CreateControls(window.Get(), kOfEveryKind, WindowFont());
    for (const Control& row : kOfEveryKind) {
        SCOPED_TRACE(row.id);
        const HWND control = ControlOf(window.Get(), row.id);
        ASSERT_NE(control, nullptr);
        RECT place;
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, window.Get(), reinterpret_cast<POINT*>(&place), 2);
        EXPECT_EQ(place.left, row.x);
        EXPECT_EQ(place.top, row.y);
        EXPECT_EQ(place.right - place.left, row.width);
        const bool combo = row.kind == Kind::Combo || row.kind == Kind::SortedCombo;
        EXPECT_TRUE(combo ? place.bottom - place.top <= 24 : place.bottom - place.top == row.height);
        EXPECT_TRUE(IsWindowVisible(control));
        if (*row.text != L'\0' && row.kind != Kind::Link) {
            EXPECT_EQ(TextOf(window.Get(), row.id), row.text);
        }
        if (row.name != nullptr) {
            EXPECT_EQ(TextOfWindow(GetWindow(control, GW_HWNDPREV)), row.name);
        }
    }
}

TEST(Controls, TabKeyStopsWhereAUserExpects)
{
    const TestWindow window;
    CreateControls(window.Get(), kOfEveryKind, WindowFont());
    const int stops[] = {101, 104, 105, 106, 110, 111, 112, 113, 114, 115, 116, 117, 118, 121, 122, 123, 124, 125, 126};
    HWND at = ControlOf(window.Get(), 126);
    for (const int id : stops) {
        at = GetNextDlgTabItem(window.Get(), at, FALSE);
        EXPECT_EQ(GetDlgCtrlID(at), id);
    }
}

TEST(Controls, AChosenRadioClearsItsOwnGroupOnly)
{
    constexpr Control kRows[] = {
        {Kind::Radio, 1, L"a", 0, 0, 50, 20, kGroup},
        {Kind::Radio, 2, L"b", 0, 30, 50, 20},
        {Kind::CheckBox, 3, L"c", 0, 60, 50, 20},
        {Kind::Radio, 4, L"d", 0, 90, 50, 20, kGroup},
        {Kind::Radio, 5, L"e", 0, 120, 50, 20},
    };
    const TestWindow window;
    CreateControls(window.Get(), kRows, WindowFont());
    for (const int id : {1, 3, 5, 2})
        SetChecked(window.Get(), id, true);
    const bool expected[] = {false, true, true, false, true};
    for (int id = 1; id <= 5; ++id)
        EXPECT_EQ(IsChecked(window.Get(), id), expected[id - 1]) << id;
}

TEST(Controls, ComboSelectsTheExactEntryOnly)
{
    constexpr Control kRows[] = {
        {Kind::SortedCombo, 1, L"", 0, 0, 150, 100},
        {Kind::Combo, 2, L"", 0, 30, 150, 100},
    };
    const TestWindow window;
    CreateControls(window.Get(), kRows, WindowFont());
    const std::wstring entries[] = {L"Minimum", L"balanced", L"Balanced", L"Balanced & more", L""};
    for (const int id : {1, 2})
        FillCombo(window.Get(), id, entries);
    EXPECT_EQ(SelectExact(window.Get(), 2, L"Balanced"), 2);
    EXPECT_EQ(SelectedText(window.Get(), 2), L"Balanced");
    EXPECT_EQ(SelectExact(window.Get(), 2, L"Balanced "), -1);
    EXPECT_EQ(SelectedIndex(window.Get(), 2), -1);
    EXPECT_EQ(SelectedText(window.Get(), 2), L"");
    EXPECT_EQ(SelectExact(window.Get(), 1, L"Minimum"), 4) << "sorted: empty, the three B, Minimum";
    FillCombo(window.Get(), 1, {});
    EXPECT_EQ(SelectExact(window.Get(), 1, L"Minimum"), -1);
    EXPECT_EQ(SelectExact(window.Get(), 99, L"Minimum"), -1) << "no such control";
}

TEST(Controls, FocusLeavesAControlThatIsDisabledOrHidden)
{
    const TestWindow window;
    CreateControls(window.Get(), kOfEveryKind, WindowFont());
    SetForegroundWindow(window.Get());
    FocusOn(window.Get(), 104);
    const LRESULT selection = SendMessageW(ControlOf(window.Get(), 104), EM_GETSEL, 0, 0);
    EXPECT_EQ(selection, MAKELONG(0, 3)) << "the refused text is selected";
    Enable(window.Get(), 104, false);
    EXPECT_EQ(GetFocus(), ControlOf(window.Get(), 105));
    Show(window.Get(), 105, false);
    EXPECT_EQ(GetFocus(), ControlOf(window.Get(), 106));
}

TEST(Controls, TooltipTextFollowsAndIsFreedWithTheControl)
{
    const TestWindow window;
    CreateControls(window.Get(), kOfEveryKind, WindowFont());
    const HWND button = ControlOf(window.Get(), 116);
    SetTooltip(button, L"Lock Screen");
    SetTooltip(button, std::wstring(500, L'x'));
    EXPECT_EQ(TooltipOf(button), std::wstring(500, L'x'));
    SetTooltip(button, L"");
    EXPECT_STREQ(TooltipOf(button), L"");
    SetTooltip(button, L"Again");
    DestroyWindow(button);
    EXPECT_STREQ(TooltipOf(button), L"");
}

} // namespace
} // namespace voltaro
