#include "settings/record_window.h"

#include "console/change.h"

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

} // namespace

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
