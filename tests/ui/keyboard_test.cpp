#include "base/computer_name.h"
#include "power/scheme_pages.h"
#include "power/scheme_window.h"
#include "support/openings.h"
#include "support/program.h"

#include <numeric>

namespace voltaro {

static std::vector<HWND> StopsOf(HWND window)
{
    std::vector<HWND> stops;
    const auto add = [](HWND child, LPARAM list) -> BOOL {
        const bool isStop = (GetWindowLongW(child, GWL_STYLE) & (WS_TABSTOP | WS_DISABLED)) == WS_TABSTOP;
        if (isStop && IsWindowVisible(child) && ClassOf(GetParent(child)) != WC_IPADDRESSW)
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
    };
    EnumChildWindows(window, add, reinterpret_cast<LPARAM>(&stops));
    return stops;
}

// What a screen reader says for a control: the text of a button, else the label right before the field.
static std::wstring NameOf(HWND control)
{
    const std::wstring text = WindowText(control);
    const bool speaks = ClassOf(control) == WC_BUTTONW || ClassOf(control) == WC_LINK;
    if (speaks && !text.empty() && text != L"...")
        return text;
    const HWND before = GetWindow(control, GW_HWNDPREV);
    return before != nullptr && ClassOf(before) == WC_STATICW ? WindowText(before) : std::wstring();
}

// The control that is reached: the focus, or what holds it.
static HWND Reached(const std::vector<HWND>& stops)
{
    const HWND focus = GetFocus();
    const auto at = std::ranges::find_if(stops, [&](HWND stop) { return stop == focus || IsChild(stop, focus); });
    return at != stops.end() ? *at : nullptr;
}

// By Tab through all stops and back to the first, then the other way round.
static void WalkStops(HWND window)
{
    const std::vector<HWND> stops = StopsOf(window);
    const HWND first = Reached(stops);
    ASSERT_NE(first, nullptr) << "the focus opens on a control, not on " << ClassOf(GetFocus());
    std::vector<HWND> walked;
    do {
        walked.push_back(Reached(stops));
        Press(VK_TAB);
    } while (Reached(stops) != first && walked.size() <= stops.size());
    EXPECT_EQ(Reached(stops), first) << "no trap";
    EXPECT_EQ(walked.size(), stops.size());
    for (auto last = walked.rbegin(); last != walked.rend(); ++last) {
        Press(VK_TAB, VK_SHIFT);
        EXPECT_EQ(Reached(stops), *last) << NameOf(*last);
    }
    for (const HWND stop : stops) {
        EXPECT_EQ(std::ranges::count(walked, stop), 1) << NameOf(stop) << " " << ClassOf(stop);
        EXPECT_FALSE(NameOf(stop).empty()) << ClassOf(stop) << GetDlgCtrlID(stop);
    }
}

static std::wstring MenuLook(HMENU menu)
{
    std::wstring look;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[100] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), text, 100, MF_BYPOSITION);
        look += Format(L"%ls %u %x\n", text, GetMenuItemID(menu, i),
                    GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION))
            + MenuLook(GetSubMenu(menu, i));
    }
    return look;
}

// A line without what is not the program's: texts in fields and lists, the height of a closed combo box.
static std::wstring ControlLook(HWND control, LONG ignoredStyles)
{
    const std::wstring kind = ClassOf(control);
    const bool isField = kind == WC_EDITW, isCombo = kind == WC_COMBOBOXW;
    const bool isText = kind == WC_BUTTONW || kind == WC_STATICW || kind == WC_LINK;
    if (kind == PROGRESS_CLASSW)
        ignoredStyles |= WS_VISIBLE; // as long as work lasts
    RECT at;
    GetWindowRect(control, &at);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&at), 2);
    std::wstring look = Format(L"%ls %ld %ld %ld %ld %lx %d ", kind.c_str(), at.left, at.top, at.right,
        isCombo ? 0 : at.bottom, GetWindowLongW(control, GWL_STYLE) & ~ignoredStyles,
        isField ? static_cast<int>(SendMessageW(control, EM_GETLIMITTEXT, 0, 0)) : 0);
    look += (isText ? Replaced(WindowText(control), ComputerName(), L"*") : L"") + L"|" + TooltipOf(control);
    wchar_t entry[100] = L"";
    for (int i = 0; isCombo && i < ComboBox_GetCount(control); ++i) {
        ComboBox_GetLBText(control, i, entry);
        look.append(L"|").append(entry);
    }
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = entry;
    column.cchTextMax = 100;
    for (int i = 0; kind == WC_LISTVIEWW && ListView_GetColumn(control, i, &column); ++i)
        look += Format(L"|%ls %d", entry, column.cx);
    TCITEMW tab{TCIF_TEXT, 0, 0, entry, 100, 0, 0};
    for (int i = 0; kind == WC_TABCONTROLW && TabCtrl_GetItem(control, i, &tab); ++i)
        look.append(L"|").append(entry);
    return look + L"\n";
}

static std::wstring LookOf(HWND window, LONG ignoredStyles)
{
    std::wstring look = WindowText(window) + L"\n" + MenuLook(GetMenu(window)) + MenuLook(TrayMenu());
    for (const HWND holder : WithPages(window)) {
        for (HWND child = GetTopWindow(holder); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
            look += ControlLook(child, ignoredStyles);
    }
    return look;
}

struct EveryWindow : testing::TestWithParam<Opening>, LoadedProgram {
    EveryWindow()
    {
        EXPECT_TRUE(!GetParam().works || StartWorkers());
        topic.clear();
        platformCalls.showHelp = [](HWND, const std::wstring& shown) { topic = shown; };
        SetForegroundWindow(main);
        FocusOn(main, kChange);
    }
    ~EveryWindow() override
    {
        if (GetParam().works)
            StopWorkers(StopOrder::MainWindowDestroyed);
    }

    static HWND HandleOf(WindowId window) { return window != WindowId::Count ? WindowOf(window) : AboutWindow(); }

    // Opens it by the keyboard where a button does; gives where the focus was.
    HWND Open(const Opening& row)
    {
        if (row.button != nullptr) {
            Open(*std::ranges::find(kOpenings, row.opener, &Opening::window));
            for (const HWND stop : StopsOf(HandleOf(row.opener))) {
                if (NameOf(stop) == row.button)
                    GiveFocus(stop);
            }
        }
        const HWND from = GetFocus();
        TakeOperations();
        row.button != nullptr ? Press(VK_RETURN) : MainCommand(row.command);
        EXPECT_TRUE(WaitFor([] { return !updateBusy; }) && IsWindowVisible(HandleOf(row.window)));
        EXPECT_EQ(TakeOperations().size(), row.reads);
        const bool isOwned = GetWindow(HandleOf(row.window), GW_OWNER) == HandleOf(row.opener);
        EXPECT_TRUE(isOwned || !row.button || row.window == WindowId::Profile); // that stays when the report closes
        return from;
    }

    static inline std::wstring topic;
};

TEST_P(EveryWindow, IsDrivenByTheKeyboardAlone)
{
    const HWND from = Open(GetParam());
    const HWND window = HandleOf(GetParam().window), tab = FindWindowExW(window, nullptr, WC_TABCONTROLW, nullptr);
    constexpr LONG kScrollBars = WS_VSCROLL | WS_HSCROLL;
    const std::wstring look = LookOf(window, kScrollBars), again = LookOf(window, kScrollBars | BS_DEFPUSHBUTTON);
    const auto sum = std::accumulate(look.begin(), look.end(), 2'166'136'261U, // FNV-1a
        [](std::uint32_t hash, wchar_t unit) { return (hash ^ unit) * 16'777'619U; });
    EXPECT_EQ(sum, GetParam().look) << look;
    const int pages = tab != nullptr ? TabCtrl_GetItemCount(tab) : 1;
    for (int page = 0; page < pages; ++page) {
        EXPECT_TRUE(tab == nullptr || SelectedTab(tab) == page) << page;
        WalkStops(window);
        Press(VK_TAB, VK_CONTROL);
    }
    for (const DWORD up : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}})
        keybd_event(VK_F1, 0, up, 0);
    Pump();
    const std::wstring help = std::wstring(L"\\docs\\help\\Voltaro_Help_SE.chm::/") + GetParam().page;
    EXPECT_TRUE(topic.ends_with(help)) << topic;
    Press(VK_F5);
    WaitFor([&] { return Agent().Requests().size() >= GetParam().requests; });
    EXPECT_EQ(TakeOperations().size(), GetParam().requests);
    const bool changes = GetParam().window == WindowId::Savings; // it shows a day then
    EXPECT_TRUE(changes || WaitFor([&] { return LookOf(window, kScrollBars | BS_DEFPUSHBUTTON) == again; }, 2'000));
    if (GetParam().closes == 0)
        return;
    Press(GetParam().closes);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(GetFocus(), from) << "back where it was opened";
    if (changes || GetParam().button != nullptr)
        return;
    Open(GetParam());
    EXPECT_EQ(LookOf(HandleOf(GetParam().window), kScrollBars | BS_DEFPUSHBUTTON), again);
}

INSTANTIATE_TEST_SUITE_P(Keyboard, EveryWindow, testing::ValuesIn(kOpenings),
    [](const auto& row) { return "Window" + std::to_string(static_cast<int>(row.param.window)); });

TEST(NavigationTest, KeysTurnThePagesOfTheWindowInFront)
{
    LoadedProgram program;
    program.MainCommand(kPowerScheme);
    const HWND window = WindowOf(WindowId::Scheme), tab = ControlOf(window, kSchemeTab);
    const HWND first = WindowOf(WindowId::SchemeDisplay), second = WindowOf(WindowId::SchemePowerOff);
    SetFocus(ControlOf(first, kDim));
    Press(VK_TAB, VK_CONTROL);
    EXPECT_TRUE(IsWindowVisible(second) && !IsWindowVisible(first));
    const HWND reached = GetFocus();
    EXPECT_EQ(reached, GetNextDlgTabItem(second, nullptr, FALSE));
    SendMessageW(WindowOf(WindowId::Snooze), WM_NULL, 0, 0); // hidden: it does not take the keyboard
    Press(VK_TAB);
    EXPECT_TRUE(GetFocus() != reached && IsChild(window, GetFocus()));
    EnableWindow(window, FALSE);
    Press(VK_TAB, VK_CONTROL);
    EXPECT_EQ(SelectedTab(tab), 1) << "a box lies over it";
    program.MainCommand(kSavingsReport);
    const HWND three = FindWindowExW(WindowOf(WindowId::Savings), nullptr, WC_TABCONTROLW, nullptr);
    SetFocus(three);
    Press(VK_TAB, VK_CONTROL, VK_SHIFT);
    EXPECT_EQ(SelectedTab(three), 2) << "round the other way";
}

} // namespace voltaro
