// Proxy connection: whether and how the agent goes out through a proxy server. Opened from the main menu.
#include "settings/proxy_window.h"

#include "console/windows.h"
#include "resources/resource_ids.h"
#include "settings/record_window.h"
#include "settings/settings_rules.h"

namespace voltaro {
namespace {

enum Id : int {
    kUseProxy = 101,
    kServer,
    kPort,
    kUseAuthentication,
    kUserName,
    kPassword,
    kSavePassword,
    kChange,
    kCancel,
};

// The labels keep their padding blanks.
// clang-format off
constexpr Control kControls[] = {
    {Kind::GroupBox,     kNoId,              L"",                          14,   8, 366, 142},
    {Kind::CheckBox,     kUseProxy,          L"Connect Via Proxy Server",  30,  28, 330,  22},
    {Kind::Label,        kNoId,              L"Proxy Server :",            30,  70,  95,  18},
    {Kind::Edit,         kServer,            L"",                         132,  67, 228,  24},
    {Kind::Label,        kNoId,              L"Port No      :",            30, 106,  95,  18},
    {Kind::NumberEdit,   kPort,              L"",                         132, 103,  80,  24},
    {Kind::GroupBox,     kNoId,              L"",                          14, 160, 366, 178},
    {Kind::CheckBox,     kUseAuthentication, L"Use Authentication",        30, 180, 330,  22},
    {Kind::Label,        kNoId,              L"User Name   :",             30, 222,  95,  18},
    {Kind::Edit,         kUserName,          L"",                         132, 219, 228,  24},
    {Kind::Label,        kNoId,              L"Password     :",            30, 258,  95,  18},
    {Kind::PasswordEdit, kPassword,          L"",                         132, 255, 228,  24},
    {Kind::CheckBox,     kSavePassword,      L"Save Password",            132, 294, 228,  22},
    {Kind::DefaultPush,  kChange,            L"Change",                   202, 358,  85,  25, kDisabled},
    {Kind::Push,         kCancel,            L"Cancel",                   295, 358,  85,  25},
};

constexpr Binding<ProxySettings> kBindings[] = {
    {kUseProxy,          Shown::YesNo, &ProxySettings::useProxy},
    {kServer,            Shown::Text,  &ProxySettings::server},
    {kPort,              Shown::Text,  &ProxySettings::port},
    {kUseAuthentication, Shown::YesNo, &ProxySettings::useAuthentication},
    {kUserName,          Shown::Text,  &ProxySettings::userName},
    {kPassword,          Shown::Text,  &ProxySettings::password},
    {kSavePassword,      Shown::YesNo, &ProxySettings::savePassword},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 394, 406));

constexpr const wchar_t* kInvalidPort = L"Invalid Port Number";

// In the order of ProxyFault. The captions end in a blank, as users and their scripts know them.
constexpr RefusedField kRefusals[] = {
    {kServer, {L"Blank Proxy Server ", L"Proxy Server name cannot be blank."}},
    {kPort, {kInvalidPort, L"Proxy port cannot be blank."}},
    {kPort, {kInvalidPort, L"Proxy port should be a non zero numeric value in range ( 1 - 65535 ) ."}},
    {kUserName, {L"Blank Username ", L"Username cannot be blank."}},
};

constexpr int kProxyFields[] = {kServer, kPort, kUseAuthentication};
constexpr int kAuthenticationFields[] = {kUserName, kPassword, kSavePassword};

// A password that is not to be saved does not stay in the window.
void EnableFields(HWND window)
{
    const bool proxy = IsChecked(window, kUseProxy);
    Enable(window, kProxyFields, proxy);
    Enable(window, kAuthenticationFields, proxy && IsChecked(window, kUseAuthentication));
    if (!IsChecked(window, kSavePassword))
        SetText(window, kPassword, L"");
}

constexpr RecordForm<ProxySettings> kForm = {
    .read = Operation::GetProxySettings,
    .apply = Operation::ApplyProxySettings,
    .record = &proxySettings,
    .bindings = kBindings,
    .applyButton = kChange,
    .applied
    = {L"Proxy Connection Settings", L"Proxy connection settings have been set successfully.", BoxIcon::Information},
    .failed = {L"Error", L"Unable to Set"},
    .complete = CheckProxySettings,
    .refusals = kRefusals,
    .enable = EnableFields,
};

constexpr Command kCommands[] = {
    {kUseProxy, EnableFields},
    {kUseAuthentication, EnableFields},
    {kSavePassword, EnableFields},
    {kChange, ApplyRecord<&kForm>},
    {kCancel, HideWindow},
    {ID_PROXY_REFRESH, RefreshRecord<&kForm>},
    {ID_PROXY_HELP, ShowHelp},
    {kRefreshKey, RefreshRecordByKey<&kForm>},
    {IDOK, ApplyRecord<&kForm>},
    {IDCANCEL, HideWindow},
};

constexpr WindowTables kTables = {kControls, kCommands, L"proxy settings.htm", EnableFields};

} // namespace

LRESULT CALLBACK ProxyWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

void OpenProxyWindow(HWND)
{
    OpenRecord<&kForm>(WindowOf(WindowId::Proxy));
}

ReadResult ReadProxySettings()
{
    return ReadRecordInto(Operation::GetProxySettings, proxySettings);
}

} // namespace voltaro
