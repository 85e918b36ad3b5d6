#include "settings/record_window.h"

#include "base/text.h"
#include "console/change.h"
#include "settings/settings_rules.h"
#include "ui/combo_box.h"
#include "ui/secret_text.h"

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

std::optional<FieldText> EnteredAddress(HWND control)
{
    DWORD address = 0;
    switch (SendMessageW(control, IPM_GETADDRESS, 0, reinterpret_cast<LPARAM>(&address))) {
    case 0:
    case 4: return DottedAddress(address);
    default: return std::nullopt; // it counts the fields that are filled in
    }
}

void ShowAddress(HWND control, const FieldText& value)
{
    const std::optional<std::uint32_t> address = AddressOf(value);
    SendMessageW(control, address ? IPM_SETADDRESS : IPM_CLEARADDRESS, 0, address.value_or(0));
}

} // namespace

void ShowField(HWND window, int id, Form form, Choices choices, const FieldText& value)
{
    switch (form) {
    case Form::Text:
        LimitText(window, id, FieldText::kEditLimit); // of what is typed; a longer text is shown whole
        SetText(window, id, value);
        break;
    case Form::YesNo: SetChecked(window, id, IsYes(value)); break;
    case Form::Address: ShowAddress(ControlOf(window, id), value); break;
    case Form::List: FillChoices(window, id, choices, ShownChoice(choices, LeadingNumber(value))); break;
    case Form::Feature:
        SetChecked(window, id, IsFeatureDisabled(value));
        Enable(window, id, IsControllable(value));
        break;
    }
}

std::optional<FieldText> EnteredText(HWND window, int id, Form form, Choices choices)
{
    const HWND control = ControlOf(window, id);
    switch (form) {
    case Form::Text: return SecretTextOf(control);
    case Form::YesNo: return YesNo(IsChecked(window, id));
    case Form::Address: return EnteredAddress(control);
    case Form::List: return NumberText(choices[static_cast<std::size_t>(SelectedIndex(window, id))].number);
    case Form::Feature:
        return IsWindowEnabled(control) ? std::optional<FieldText>(FeatureText(IsChecked(window, id))) : std::nullopt;
    }
    return std::nullopt;
}

void RefuseField(HWND window, const RefusedField& refusal)
{
    ShowMessage(window, refusal.box);
    SetText(window, refusal.id, L"");
    FocusOn(window, refusal.id);
}

bool ChangeRecord(HWND window, const Request& request, const Box& failed)
{
    const ChangeTexts texts{kRefusalCaption, failed};
    std::optional<std::wstring> status;
    {
        const ControlsOff off(window);
        status = SendChange(window, texts, request);
    }
    return status && TellOutcome(window, texts, *status) == ChangeResult::Done;
}

} // namespace voltaro
