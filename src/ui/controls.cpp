#include "ui/controls.h"

#include "base/com_apartment.h"
#include "base/error_log.h"
#include "ui/list_view.h"
#include "ui/secret_text.h"
#include "ui/theme.h"
#include "ui/whole_pairs.h"
#include "ui/window_class.h"

#include <oleacc.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace voltaro {
namespace {

// What Windows makes of a kind. Every control is a visible child besides.
struct Shape {
    Kind kind;
    const wchar_t* className;
    DWORD style;
    DWORD extendedStyle;
};

constexpr DWORD kStatic = SS_NOPREFIX; // texts may carry names, in which an ampersand is a character
constexpr DWORD kPlainText = ES_READONLY | ES_AUTOHSCROLL;
constexpr DWORD kField = WS_TABSTOP | ES_AUTOHSCROLL;
constexpr DWORD kCombo = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS | CBS_AUTOHSCROLL;
constexpr DWORD kList = WS_TABSTOP | WS_BORDER | LVS_REPORT | LVS_SHOWSELALWAYS;

// clang-format off
constexpr Shape kShapes[] = {
    {Kind::GroupBox,          WC_BUTTONW,         BS_GROUPBOX,                                      0},
    {Kind::TabStopGroupBox,   WC_BUTTONW,         BS_GROUPBOX | WS_TABSTOP,                         0},
    {Kind::Label,             WC_STATICW,         kStatic | SS_LEFT,                                0},
    {Kind::Edit,              WC_EDITW,           kField,                                           WS_EX_CLIENTEDGE},
    {Kind::NumberEdit,        WC_EDITW,           kField | ES_NUMBER,                               WS_EX_CLIENTEDGE},
    {Kind::PasswordEdit,      WC_EDITW,           kField | ES_PASSWORD,                             WS_EX_CLIENTEDGE},
    {Kind::PlainEdit,         WC_EDITW,           kPlainText,                                       0},
    {Kind::CentredPlainEdit,  WC_EDITW,           kPlainText | ES_CENTER,                           0},
    {Kind::Combo,             WC_COMBOBOXW,       kCombo,                                           0},
    {Kind::SortedCombo,       WC_COMBOBOXW,       kCombo | CBS_SORT | CBS_NOINTEGRALHEIGHT,         0},
    {Kind::CheckBox,          WC_BUTTONW,         WS_TABSTOP | BS_AUTOCHECKBOX,                     0},
    {Kind::Radio,             WC_BUTTONW,         BS_AUTORADIOBUTTON,                               0},
    {Kind::Push,              WC_BUTTONW,         WS_TABSTOP | BS_PUSHBUTTON,                       0},
    {Kind::DefaultPush,       WC_BUTTONW,         WS_TABSTOP | BS_DEFPUSHBUTTON,                    0},
    {Kind::BitmapPush,        WC_BUTTONW,         WS_TABSTOP | BS_PUSHBUTTON | BS_PUSHLIKE | BS_BITMAP, 0},
    {Kind::DefaultBitmapPush, WC_BUTTONW,         WS_TABSTOP | BS_DEFPUSHBUTTON | BS_BITMAP,        0},
    {Kind::Trackbar,          TRACKBAR_CLASSW,    WS_TABSTOP | TBS_HORZ | TBS_AUTOTICKS,            0},
    {Kind::Progress,          PROGRESS_CLASSW,    0,                                                0},
    {Kind::SmoothProgress,    PROGRESS_CLASSW,    PBS_SMOOTH,                                       0},
    {Kind::BusyBar,           PROGRESS_CLASSW,    PBS_MARQUEE,                                      0},
    {Kind::ListView,          WC_LISTVIEWW,       kList,                                            0},
    {Kind::Tab,               WC_TABCONTROLW,     WS_TABSTOP | WS_CLIPSIBLINGS,                     0},
    {Kind::TimePicker,        DATETIMEPICK_CLASSW, WS_TABSTOP | DTS_TIMEFORMAT,                     0},
    {Kind::DatePicker,        DATETIMEPICK_CLASSW, WS_TABSTOP | DTS_SHORTDATECENTURYFORMAT,         0},
    {Kind::IpAddress,         WC_IPADDRESSW,      WS_TABSTOP,                                       0},
    {Kind::Link,              WC_LINK,            WS_TABSTOP,                                       0},
};
// clang-format on

consteval bool ShapesInOrder()
{
    for (std::size_t i = 0; i < std::size(kShapes); ++i) {
        if (kShapes[i].kind != static_cast<Kind>(i))
            return false;
    }
    return std::size(kShapes) == static_cast<std::size_t>(Kind::Link) + 1;
}
static_assert(ShapesInOrder(), "a shape is found by its kind");

const Shape& ShapeOf(const Control& row)
{
    return kShapes[static_cast<std::size_t>(row.kind)];
}

void InitialiseClasses()
{
    static const bool done = [] {
        const INITCOMMONCONTROLSEX classes{sizeof classes,
            ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES | ICC_DATE_CLASSES | ICC_INTERNET_CLASSES | ICC_LINK_CLASS};
        InitCommonControlsEx(&classes);
        return true;
    }();
    static_cast<void>(done);
}

bool IsPush(const Control& row)
{
    return row.kind >= Kind::Push && row.kind <= Kind::DefaultBitmapPush;
}

// The arrow keys move within a group: the radios up to the next group, and buttons that stand in a row.
DWORD StyleOf(const Control& row, const Control* before)
{
    DWORD style = WS_CHILD | ShapeOf(row).style;
    if ((row.flags & kHidden) == 0)
        style |= WS_VISIBLE;
    if ((row.flags & kDisabled) != 0)
        style |= WS_DISABLED;
    if ((row.flags & kWrapped) != 0)
        style |= BS_MULTILINE;
    if (row.kind == Kind::Radio && (row.flags & kGroup) != 0)
        style |= WS_TABSTOP; // Windows moves it on to the radio that is chosen
    const bool follows = row.kind == Kind::Radio || (before != nullptr && IsPush(row) && IsPush(*before));
    if ((row.flags & kGroup) != 0 || ((style & WS_TABSTOP) != 0 && !follows))
        style |= WS_GROUP;
    if ((row.flags & kNoTabStop) != 0)
        style &= ~static_cast<DWORD>(WS_TABSTOP);
    return style;
}

// A link may destroy its font with itself; that one belongs to the program, so the link gives it back first.
LRESULT CALLBACK LinkSubclassProc(HWND link, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR)
{
    if (message == WM_DESTROY)
        SendMessageW(link, WM_SETFONT, 0, FALSE);
    else if (message == WM_NCDESTROY)
        RemoveWindowSubclass(link, &LinkSubclassProc, id);
    return DefSubclassProc(link, message, w, l);
}

void SetStyles(HWND control, Kind kind)
{
    if (kind == Kind::ListView) {
        const DWORD styles = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
        ListView_SetExtendedListViewStyleEx(control, styles, styles);
        AddListSubclass(control);
    } else if (kind == Kind::Link) {
        Checked(SetWindowSubclass(control, &LinkSubclassProc, 0, 0), "SetWindowSubclass");
    }
}

// A button is read out by its text, not by the label before it: one whose text says nothing is given its name. The
// thread's apartment holds it.
void NameForScreenReader(HWND control, const wchar_t* name)
{
    IAccPropServices* services = nullptr;
    if (!EnterComApartment()
        || FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
            reinterpret_cast<void**>(&services))))
        return;
    services->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME, name);
    services->Release();
}

HWND Create(HWND window, const Shape& shape, DWORD style, const wchar_t* text, const RECT& place, int id, HFONT font)
{
    const HWND made = Checked(CreateWindowExW(shape.extendedStyle, shape.className, text, style, place.left, place.top,
                                  place.right - place.left, place.bottom - place.top, window,
                                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), Instance(), nullptr),
        "CreateWindowExW");
    if (made)
        SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return made;
}

bool IsRadio(HWND control)
{
    return (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

bool StartsGroup(HWND control)
{
    return (GetWindowLongW(control, GWL_STYLE) & WS_GROUP) != 0;
}

std::vector<HWND> RadiosOfGroup(HWND radio)
{
    HWND control = radio;
    while (!StartsGroup(control) && GetWindow(control, GW_HWNDPREV) != nullptr)
        control = GetWindow(control, GW_HWNDPREV);
    std::vector<HWND> radios;
    do {
        if (IsRadio(control))
            radios.push_back(control);
        control = GetWindow(control, GW_HWNDNEXT);
    } while (control != nullptr && !StartsGroup(control));
    return radios;
}

void Check(HWND button, bool checked)
{
    SendMessageW(button, BM_SETCHECK, static_cast<WPARAM>(checked ? BST_CHECKED : BST_UNCHECKED), 0);
}

// A click clears the other radios of a group by itself, a choice made by the program does not. A cleared radio may lose
// its tab stop: where none is left, the first one gets it, or Tab would never reach the group again.
void CheckRadio(HWND radio, bool checked)
{
    const std::vector<HWND> group = RadiosOfGroup(radio);
    if (checked)
        std::ranges::for_each(group, [](HWND other) { Check(other, false); });
    Check(radio, checked);
    const auto style = [](HWND button) { return GetWindowLongPtrW(button, GWL_STYLE); };
    if (std::ranges::none_of(group, [&](HWND other) { return (style(other) & WS_TABSTOP) != 0; }))
        SetWindowLongPtrW(group.front(), GWL_STYLE, style(group.front()) | WS_TABSTOP);
}

// The control that lost the focus by being disabled or hidden, and the one that has it meanwhile.
struct LostFocus {
    HWND control = nullptr;
    HWND standIn = nullptr;
};
LostFocus lostFocus;

// Windows leaves the focus on a control that is disabled or hidden, and the keyboard is dead then: move it on first.
// Where several are disabled one after the other, the first one is remembered.
void MoveFocusFrom(HWND window, HWND control)
{
    if (GetFocus() != control || control == nullptr)
        return;
    if (lostFocus.standIn != control)
        lostFocus.control = control;
    const HWND next = GetNextDlgTabItem(window, control, FALSE);
    lostFocus.standIn = next != nullptr && next != control ? next : window;
    GiveFocus(lostFocus.standIn);
}

// Unless the user has gone elsewhere since.
void ReturnFocusTo(HWND control)
{
    if (control == nullptr || control != lostFocus.control)
        return;
    if (GetFocus() == lostFocus.standIn && IsWindowVisible(control) && IsWindowEnabled(control))
        GiveFocus(control);
    if (GetFocus() != lostFocus.standIn)
        lostFocus = {};
}

} // namespace

bool CreateControls(HWND window, std::span<const Control> rows, HFONT font)
{
    constexpr Shape kName{Kind::Label, WC_STATICW, kStatic, 0};
    InitialiseClasses();
    const Control* before = nullptr;
    for (const Control& row : rows) {
        // A label of no size: a screen reader reads the static text right before a field as the field's name.
        if (row.name != nullptr)
            Create(window, kName, WS_CHILD | WS_VISIBLE | kStatic, row.name, {row.x, row.y, row.x, row.y}, kNoId, font);
        const RECT place{row.x, row.y, row.x + row.width, row.y + row.height};
        const HWND made = Create(window, ShapeOf(row), StyleOf(row, before), row.text, place, row.id, font);
        if (!made)
            return false;
        SetStyles(made, row.kind);
        if (row.kind >= Kind::Edit && row.kind <= Kind::PasswordEdit)
            LimitText(window, row.id, FieldText::kEditLimit);
        if (row.name != nullptr && (IsPush(row) || row.kind == Kind::TabStopGroupBox))
            NameForScreenReader(made, row.name);
        before = &row;
    }
    if (HasHighContrast())
        RenewColours(window);
    return true;
}

HWND ControlOf(HWND window, int id)
{
    return GetDlgItem(window, id);
}

std::wstring TextOf(HWND window, int id)
{
    const HWND control = ControlOf(window, id);
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

void SetText(HWND window, int id, std::wstring_view text)
{
    const HWND control = ControlOf(window, id);
    if (SecretTextOf(control) != text) // an unchanged text does not flicker
        SetWindowTextW(control, FieldText(text).c_str());
}

bool IsChecked(HWND window, int id)
{
    return SendMessageW(ControlOf(window, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void SetChecked(HWND window, int id, bool checked)
{
    const HWND control = ControlOf(window, id);
    if (control == nullptr)
        return;
    if (IsRadio(control))
        CheckRadio(control, checked);
    else
        Check(control, checked);
}

void Enable(HWND window, int id, bool enabled)
{
    const HWND control = ControlOf(window, id);
    if (!enabled)
        MoveFocusFrom(window, control);
    EnableWindow(control, enabled);
    if (enabled)
        ReturnFocusTo(control);
}

void Enable(HWND window, std::span<const int> ids, bool enabled)
{
    for (const int id : ids)
        Enable(window, id, enabled);
}

void Show(HWND window, int id, bool visible)
{
    const HWND control = ControlOf(window, id);
    if (!visible)
        MoveFocusFrom(window, control);
    ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE);
    if (visible)
        ReturnFocusTo(control);
}

void Show(HWND window, std::span<const int> ids, bool visible)
{
    for (const int id : ids)
        Show(window, id, visible);
}

void LimitText(HWND window, int id, std::size_t units)
{
    SendMessageW(ControlOf(window, id), EM_SETLIMITTEXT, units, 0);
    KeepPairsWhole(ControlOf(window, id));
}

void GiveFocus(HWND control)
{
    const bool radio = IsRadio(control);
    if (radio)
        SendMessageW(control, BM_SETDONTCLICK, TRUE, 0);
    SetFocus(control);
    if (radio)
        SendMessageW(control, BM_SETDONTCLICK, FALSE, 0);
}

void FocusOn(HWND window, int id)
{
    const HWND control = ControlOf(window, id);
    if (control == nullptr)
        return;
    GiveFocus(control);
    if ((SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0)
        SendMessageW(control, EM_SETSEL, 0, -1);
}

} // namespace voltaro
