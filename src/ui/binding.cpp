#include "ui/binding.h"

#include "base/text.h"
#include "ui/combo_box.h"
#include "ui/controls.h"
#include "ui/secret_text.h"

namespace voltaro {
namespace {

constexpr const wchar_t* kNotControllable = L"NA";

// The words of a check box.
struct CheckWords {
    const wchar_t* set;
    const wchar_t* clear;
    bool anyCase; // when they are read
};

CheckWords WordsOf(Shown shown)
{
    switch (shown) {
    case Shown::Feature: return {L"YES", L"NO", true};
    case Shown::Status: return {L"Enabled", L"Disabled", false};
    case Shown::Activity: return {L"Yes", L"No", false};
    default: return {L"Yes", L"No", true};
    }
}

void ShowCheck(HWND window, int id, const CheckWords& words, std::wstring_view stored)
{
    SetChecked(window, id, words.anyCase ? EqualsIgnoreCase(stored, words.set) : stored == words.set);
}

void ShowAddress(HWND control, std::wstring_view stored)
{
    const std::optional<std::uint32_t> address = AddressOf(stored);
    SendMessageW(control, address ? IPM_SETADDRESS : IPM_CLEARADDRESS, 0, address.value_or(0));
}

std::optional<FieldText> EnteredAddress(HWND control)
{
    DWORD address = 0;
    switch (SendMessageW(control, IPM_GETADDRESS, 0, reinterpret_cast<LPARAM>(&address))) {
    case 0:
    case 4: return DottedAddress(address);
    default: return std::nullopt; // it counts the fields that are filled in
    }
}

void ShowStep(HWND slider, Choices choices, std::size_t step)
{
    SendMessageW(slider, TBM_SETRANGE, FALSE, MAKELPARAM(0, choices.size() - 1));
    SendMessageW(slider, TBM_SETPAGESIZE, 0, 1);
    SendMessageW(slider, TBM_SETPOS, TRUE, static_cast<LPARAM>(step));
}

std::optional<FieldText> EnteredName(HWND window, int id, bool optional)
{
    const int index = SelectedIndex(window, id);
    if (index < 0)
        return std::nullopt;
    return optional && index == 0 ? FieldText() : FieldText(SelectedText(window, id));
}

} // namespace

void ShowField(HWND window, int id, Shown shown, Choices choices, std::wstring_view stored)
{
    const auto choice = [&] { return ShownChoice(choices, LeadingNumber(stored)); };
    switch (shown) {
    case Shown::Text: return SetText(window, id, stored);
    case Shown::Address: return ShowAddress(ControlOf(window, id), stored);
    case Shown::Step: return ShowStep(ControlOf(window, id), choices, choice());
    case Shown::List: return FillChoices(window, id, choices, choice());
    case Shown::OptionalName:
        if (stored.empty())
            return SelectIndex(window, id, 0);
        [[fallthrough]];
    case Shown::Name: SelectName(window, id, stored); return;
    case Shown::Feature: Enable(window, id, !EqualsIgnoreCase(stored, kNotControllable)); break;
    default: break;
    }
    ShowCheck(window, id, WordsOf(shown), stored);
}

std::optional<FieldText> EnteredText(HWND window, int id, Shown shown, Choices choices)
{
    const HWND control = ControlOf(window, id);
    switch (shown) {
    case Shown::Text: return SecretTextOf(control);
    case Shown::Address: return EnteredAddress(control);
    case Shown::Step:
        return NumberText(choices[static_cast<std::size_t>(SendMessageW(control, TBM_GETPOS, 0, 0))].number);
    case Shown::List: return ChosenText(choices, SelectedText(window, id));
    case Shown::Name:
    case Shown::OptionalName: return EnteredName(window, id, shown == Shown::OptionalName);
    case Shown::Feature:
        if (!IsWindowEnabled(control))
            return std::nullopt;
        break;
    default: break;
    }
    const CheckWords words = WordsOf(shown);
    return IsChecked(window, id) ? words.set : words.clear;
}

} // namespace voltaro
