// The activation window: the license as the agent tells it, and a field for an activation key. Opened by
// "Activate now...".
#include "shell/activation_window.h"

#include "base/text.h"
#include "console/activation.h"
#include "console/agent_records.h"
#include "console/agent_state.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "shell/console_hold.h"
#include "shell/window_header.h"
#include "ui/boxes.h"
#include "ui/list_view.h"
#include "ui/secret_text.h"
#include "ui/window_class.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace voltaro {
namespace {

enum ActivationControl : int { kStateLine = 8601, kFields, kKey, kActivateButton, kCloseButton };

// clang-format off
constexpr Control kControls[] = {
    // kind             id               text                                                     x    y    w    h
    {Kind::PlainEdit,   kStateLine,      L"",                                                     20,  94, 534,  18, kPlain, L"License"},
    {Kind::ListView,    kFields,         L"",                                                     20, 118, 534, 190, kPlain, L"License details"},
    {Kind::Label,       kNoId,           L"Activation key :",                                     20, 327, 105,  18},
    {Kind::Edit,        kKey,            L"",                                                    130, 324, 424,  24},
    {Kind::Label,       kNoId,           L"Letters and digits, with or without dashes between",  130, 353, 424,  18},
    {Kind::DefaultPush, kActivateButton, L"Activate",                                            352, 397,  97,  25},
    {Kind::Push,        kCloseButton,    L"Close",                                               457, 397,  97,  25},
};
// clang-format on
static_assert(IdsAreUnique(kControls));
static_assert(FitInside(kControls, 574, 438)); // of 580 x 470, less the frame and the caption

constexpr Column kColumns[] = {{L"License", 180}, {L"Value", 330}};
constexpr std::size_t kMaxFields = 25;
constexpr WPARAM kMaxKeyUnits = 90; // dashes included; a slot holds 99

constexpr Box kNoKey = {L"Invalid activation key", L"Please enter the activation key."};
constexpr Box kBadKey
    = {L"Invalid activation key", L"The activation key holds letters and digits, and dashes between them."};
constexpr Box kActivated = {L"Voltaro activated", L"Voltaro is activated now.", BoxIcon::Information};
constexpr Box kFailed
    = {L"Activation Failed", L"Could not activate Voltaro.\nPlease check the activation key and try again."};
constexpr Box kNotActivated
    = {L"Activation Failed", L"Voltaro is still not activated.\nPlease check the activation key and try again."};
constexpr Box kExpired = {L"Activation Failed", L"The license of this activation key has expired."};

HWND Window()
{
    return WindowOf(WindowId::Activation);
}

bool IsLetterOrDigit(wchar_t unit)
{
    return (unit >= L'0' && unit <= L'9') || (unit >= L'A' && unit <= L'Z') || (unit >= L'a' && unit <= L'z');
}

// The key as it is sent: letters and digits alone, whatever divided the groups when it was pasted.
FieldText KeyOf(const FieldText& typed)
{
    WipedUnits units;
    std::ranges::copy_if(typed.view(), std::back_inserter(units), [](wchar_t unit) {
        const bool dash = unit == L'-' || (unit >= 0x2010 && unit <= 0x2015); // as word processors make them
        return !dash && unit != L' ' && unit != L'\t' && unit != 0x00A0;
    });
    return FieldText(std::move(units));
}

const wchar_t* StateText()
{
    if (agentRecords.activationStatus.empty())
        return L"The state of the license is not known.";
    switch (LicenseOf(agentRecords.activationStatus)) {
    case License::NotActivated: return L"Voltaro on '%ls' is not activated.";
    case License::Expired: return L"The license of Voltaro on '%ls' has expired.";
    case License::Active: break;
    }
    return L"Voltaro on '%ls' is activated.";
}

void ShowFields(const Element* root)
{
    std::vector<std::vector<std::wstring>> rows;
    if (root) {
        const std::span<const Element> fields = DetailsOrResponseFields(*root);
        for (const Element& field : fields.first(std::min(kMaxFields, fields.size())))
            rows.push_back({std::wstring(FixedText<50>(field.name)), std::wstring(FixedText<120>(field.text))});
    }
    FillList(ControlOf(Window(), kFields), rows);
}

// Reads state and fields and shows them; false when the agent is lost, which is reported.
bool ReadLicense()
{
    if (ReadOrLose(ReadActivationStatus) == ReadResult::Lost)
        return false;
    SetText(Window(), kStateLine, Format(StateText(), HostName().c_str()));
    Reply reply = SendOrLose(Plain(Operation::GetLicenseInfo));
    if (reply.Lost())
        return false;
    ShowFields(reply.Root());
    return true;
}

const Box& BoxOf(const std::wstring& status)
{
    if (IsWord(status, kSuccess))
        return kActivated;
    switch (LicenseOf(status)) {
    case License::NotActivated: return kNotActivated;
    case License::Expired: return kExpired;
    case License::Active: break;
    }
    return kFailed; // an answer that cannot be read too
}

void RefuseKey(HWND window, const Box& box)
{
    ShowMessage(window, box);
    SetText(window, kKey, {});
    FocusOn(window, kKey);
}

// --- handlers ---

void OnCreate(HWND window)
{
    SetColumns(ControlOf(window, kFields), kColumns);
    LimitText(window, kKey, kMaxKeyUnits);
}

void OnActivate(HWND window)
{
    const FieldText key = KeyOf(SecretTextOf(ControlOf(window, kKey)));
    if (key.empty())
        return RefuseKey(window, kNoKey);
    if (!std::ranges::all_of(key.view(), IsLetterOrDigit))
        return RefuseKey(window, kBadKey);
    std::wstring status;
    {
        Reply reply = SendOrLose(WithText(Operation::ActivateLicense, L"ActivationKey", key));
        if (reply.Lost())
            return;
        status = reply.Status(); // empty when it could not be sent: the activation has failed
    }
    ShowMessage(window, BoxOf(status));
    if (IsWord(status, kSuccess))
        SetText(window, kKey, {});
    FocusOn(window, kKey);
    ReadLicense();
    Repaint(WindowOf(WindowId::Main)); // its license picture, although the console is held
}

void OnClose(HWND window)
{
    HideHolding(window, HoldReason::Activation);
}

constexpr Command kCommands[] = {
    {kActivateButton, OnActivate},
    {kCloseButton, OnClose},
    {IDOK, OnActivate},
    {IDCANCEL, OnClose},
};

constexpr WindowTables kTables = {kControls, kCommands, L"activation.htm", OnCreate, AnswerHeader};

} // namespace

void OpenActivationWindow(HWND)
{
    if (!ReadLicense())
        return;
    SetText(Window(), kKey, {});
    ShowHolding(Window(), HoldReason::Activation);
    FocusOn(Window(), kKey);
}

LRESULT CALLBACK ActivationWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
