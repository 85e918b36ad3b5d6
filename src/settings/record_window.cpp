#include "settings/record_window.h"

#include "console/change.h"
#include "settings/settings_rules.h"

#include <vector>

namespace voltaro {
namespace {

constexpr const wchar_t* kRefusalCaption = L"Unable to Set";

// Disables the children of a window for the guard's life and gives the focus back to where it was.
class ControlsOff {
public:
    explicit ControlsOff(HWND window)
        : m_window(window)
        , m_focus(GetFocus())
    {
        for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            if (IsWindowEnabled(child))
                m_disabled.push_back(child);
        }
        Switch(FALSE);
    }
    ~ControlsOff()
    {
        Switch(TRUE);
        if (GetActiveWindow() == m_window && IsChild(m_window, m_focus))
            SetFocus(m_focus);
    }
    ControlsOff(const ControlsOff&) = delete;
    ControlsOff& operator=(const ControlsOff&) = delete;

private:
    void Switch(BOOL enabled)
    {
        for (const HWND child : m_disabled)
            EnableWindow(child, enabled);
    }

    HWND m_window;
    HWND m_focus;
    std::vector<HWND> m_disabled;
};

FieldText AddressShown(HWND control)
{
    DWORD address = 0;
    SendMessageW(control, IPM_GETADDRESS, 0, reinterpret_cast<LPARAM>(&address));
    return DottedAddress(address);
}

void ShowAddress(HWND control, const FieldText& value)
{
    const std::optional<std::uint32_t> address = AddressOf(value);
    SendMessageW(control, address ? IPM_SETADDRESS : IPM_CLEARADDRESS, 0, address.value_or(0));
}

void ShowMinutes(HWND window, int id, const FieldText& value)
{
    const LRESULT count = SendMessageW(ControlOf(window, id), CB_GETCOUNT, 0, 0);
    for (int index = 0; index < count; ++index) {
        SelectIndex(window, id, index);
        if (value == MinutesOf(SelectedText(window, id)))
            return;
    }
    SelectIndex(window, id, 0);
}

} // namespace

void ShowField(HWND window, int id, Form form, const FieldText& value)
{
    switch (form) {
    case Form::Text:
        LimitText(window, id, FieldText::kCapacity);
        SetText(window, id, value);
        break;
    case Form::YesNo: SetChecked(window, id, IsYes(value)); break;
    case Form::Address: ShowAddress(ControlOf(window, id), value); break;
    case Form::Minutes: ShowMinutes(window, id, value); break;
    case Form::Feature:
        SetChecked(window, id, IsFeatureDisabled(value));
        Enable(window, id, IsControllable(value));
        break;
    }
}

FieldText FieldShown(HWND window, int id, Form form, const FieldText& asRead)
{
    switch (form) {
    case Form::Text: return FieldText(TextOf(window, id));
    case Form::YesNo: return YesNo(IsChecked(window, id));
    case Form::Address: return AddressShown(ControlOf(window, id));
    case Form::Minutes: return MinutesOf(SelectedText(window, id));
    case Form::Feature: return FeatureValue(asRead, IsChecked(window, id));
    }
    return asRead;
}

void Refuse(HWND window, const RefusedField& refusal)
{
    Tell(window, refusal.box);
    SetText(window, refusal.id, L"");
    FocusOn(window, refusal.id);
}

bool SendChange(HWND window, const Request& request, const Box& applied, const Box& failed)
{
    std::optional<std::wstring> word;
    {
        const ControlsOff off(window);
        word = AnswerToChange(window, kRefusalCaption, request);
    }
    if (!word)
        return false;
    const bool success = IsWord(*word, kSuccess);
    Tell(window, success ? applied : failed);
    return success;
}

} // namespace voltaro
