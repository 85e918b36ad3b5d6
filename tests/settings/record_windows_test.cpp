#include "base/text.h"
#include "settings/settings_rules.h"
#include "simulator/xml.h"
#include "support/program.h"
#include "ui/navigation.h"

#include <functional>

namespace voltaro {
namespace {

// The windows that edit a record, and what they say.
struct Editor {
    WindowId window;
    int command;
    const wchar_t *read, *apply, *button, *done, *failed, *failure;
};
// clang-format off
constexpr Editor kEditors[] = {
    {WindowId::AccessControl, kPorts,    L"GetCurrenthostsettings",   L"ApplyHostSettings",   L"Change", L"Restart Voltaro",           L"Unable to Set", L"Unable to set access control settings"},
    {WindowId::Proxy,         kProxy,    L"GetCurrentProxySettings",  L"ApplyProxySettings",  L"Change", L"Proxy Connection Settings", L"Error",         L"Unable to Set"},
    {WindowId::Snooze,        kSnooze,   L"GetSnoozeSettings",        L"ApplySnoozeSettings", L"Change", L"Snooze Settings",           L"Error",         L"Unable to Set"},
    {WindowId::DeviceControl, kSecurity, L"GetCurrentDeviceSettings", L"ApplyDeviceSettings", L"Apply",  L"System Security Settings",  L"Error",         L"Unable to Set"},
};
// clang-format on

class RecordWindows : public testing::Test {
protected:
    void Open(const Editor& editor)
    {
        m_editor = &editor;
        m_program.Command(WindowId::Main, editor.command);
        m_program.TakeOperations();
    }
    // What follows is done in the window opened last.
    HWND Field(const wchar_t* label) { return Labelled(WindowOf(m_editor->window), label); }
    int IdOf(const wchar_t* label) { return GetDlgCtrlID(Field(label)); }
    bool IsOn(const wchar_t* label) { return IsWindowEnabled(Field(label)) != FALSE; }
    std::wstring Shown(const wchar_t* label) { return WindowText(Field(label)); }
    void Type(const wchar_t* label, const wchar_t* text) { m_program.Type(m_editor->window, IdOf(label), text); }
    void Check(const wchar_t* label, bool checked)
    {
        SetChecked(WindowOf(m_editor->window), IdOf(label), checked);
        m_program.Command(m_editor->window, IdOf(label));
    }
    void Apply(const ExpectedBox& box)
    {
        const BoxScript boxes{box};
        m_program.Command(m_editor->window, IdOf(m_editor->button));
    }
    void ExpectSent(const std::wstring& details)
    {
        m_program.ExpectSent(m_editor->apply, L"<details>" + details + L"</details>");
    }

    // The record as the agent sends it and gets it back when nobody edits it.
    template <class Record>
    void ExpectUnchanged(
        const Editor& editor, const Record& record, const std::function<void()>& touch = [] {})
    {
        const Element details = ElementOf(L"details", record);
        m_program.Agent().ScriptReply(editor.read, simulator::ReplyText({L"response", {}, {details}}));
        m_program.Agent().SetFault(editor.apply, {FaultKind::Status, L"Success"});
        Open(editor);
        touch();
        Apply({editor.done, {}});
        std::wstring texts;
        for (const Element& field : details.children)
            texts += L"|<" + field.name
                + (field.text.empty() ? L"/>" : L">" + std::wstring(field.text) + L"</" + field.name + L">");
        ExpectSent(texts);
    }

    LoadedProgram m_program;
    const Editor* m_editor = nullptr;
};

TEST_F(RecordWindows, PortsTravelWhole)
{
    Open(kEditors[0]);
    EXPECT_EQ(Shown(L"Remote Manager 1 address"), L"192.168.20.11");
    EXPECT_FALSE(IsOn(L"Local Host address"));
    SendMessageW(Field(L"Remote Manager 1 address"), IPM_CLEARADDRESS, 0, 0);
    SendMessageW(Field(L"Remote Manager 2 address"), IPM_SETADDRESS, 0, MAKEIPADDRESS(10, 0, 7, 1));
    Check(L"Local Host", false);
    Check(L"Remote Manager 2", true);
    Type(L"TCP Port :", L"00080 tcp");
    Apply({L"Restart Voltaro",
        L"Please restart Voltaro for the new settings to take effect.\n(both Voltaro service and Voltaro console.)"});
    ExpectSent(L"|<Localhost>No</Localhost>|<TCPPort>80</TCPPort>|<UDPPort>4917</UDPPort>"
               L"|<MonitoringIP>192.168.20.5</MonitoringIP>|<MonitoringTCPPort>4920</MonitoringTCPPort>"
               L"|<RemoteManager1>0.0.0.0</RemoteManager1>|<RemoteManager1Enable>Yes</RemoteManager1Enable>"
               L"|<RemoteManager2>10.0.7.1</RemoteManager2>|<RemoteManager2Enable>Yes</RemoteManager2Enable>"
               L"|<MonitoringURL>http://monitor.office.example/voltaro?site=3&amp;unit=12</MonitoringURL>"
               L"|<MonitoringURLEnable>No</MonitoringURLEnable>|<MonitoringIPEnable>Yes</MonitoringIPEnable>");
    EXPECT_EQ(Shown(L"TCP Port :"), L"80"); // read again
}

TEST_F(RecordWindows, ProxyTravelsWholeAndItsFieldsFollowTheirSwitches)
{
    Open(kEditors[1]);
    Check(L"Save Password", true);
    Type(L"Proxy Server :", L"gate.example");
    Type(L"Port No      :", L"3128");
    Type(L"User Name   :", L"eva.lind");
    Type(L"Password     :", L"a<b & \"c\"");
    Apply({m_editor->done, {}});
    const std::wstring before
        = L"|<UseProxy>Yes</UseProxy>|<ProxyServer>gate.example</ProxyServer>|<ProxyPort>3128</ProxyPort>"
          L"|<UseAuthentication>Yes</UseAuthentication>|<UserName>eva.lind</UserName>";
    ExpectSent(before + L"|<Password>a&lt;b &amp; \"c\"</Password>|<SavePassword>Yes</SavePassword>");
    EXPECT_EQ(Shown(L"Password     :"), L"a<b & \"c\"");
    Check(L"Save Password", false);
    EXPECT_EQ(Shown(L"Password     :"), L"");
    Apply({m_editor->done, {}});
    ExpectSent(before + L"|<Password/>|<SavePassword>No</SavePassword>");

    const auto expectEnabled = [&](bool proxy, bool authentication) {
        for (const wchar_t* label : {L"Proxy Server :", L"Port No      :", L"Use Authentication"})
            EXPECT_EQ(IsOn(label), proxy) << label;
        for (const wchar_t* label : {L"User Name   :", L"Password     :", L"Save Password"})
            EXPECT_EQ(IsOn(label), authentication) << label;
    };
    expectEnabled(true, true);
    Check(L"Use Authentication", false);
    expectEnabled(true, false);
    Apply({m_editor->done, {}});
    ExpectSent(Replaced(before, L"Authentication>Yes", L"Authentication>No")
        + L"|<Password/>|<SavePassword>No</SavePassword>");
    Check(L"Use Authentication", true);
    Check(L"Connect Via Proxy Server", false);
    expectEnabled(false, false);
}

TEST_F(RecordWindows, F5AsksBeforeItOverwritesWhatWasTyped)
{
    constexpr const wchar_t* kLabels[]
        = {L"TCP Port :", L"Port No      :", L"Enable snooze alert for Scheduled Power OFFs :", L"Disable Wake On LAN"};
    for (std::size_t i = 0; i < std::size(kLabels); ++i) {
        Open(kEditors[i]);
        const Operations read{m_editor->read};
        const auto shown = [&] {
            return Shown(kLabels[i]) + (IsChecked(WindowOf(m_editor->window), IdOf(kLabels[i])) ? L"+" : L"");
        };
        const std::wstring before = shown();
        const auto press = [&] { m_program.Command(m_editor->window, kRefreshKey); };
        if (ClassOf(Field(kLabels[i])) == WC_BUTTONW)
            Check(kLabels[i], !before.ends_with(L'+'));
        else
            Type(kLabels[i], L"9");
        const std::wstring edited = shown();
        BoxScript boxes{{L"Refresh", {}, Answer::No}};
        press();
        EXPECT_TRUE(m_program.TakeOperations().empty());
        EXPECT_EQ(shown(), edited);
        boxes.Expect({{L"Refresh", {}, Answer::Yes}});
        press();
        EXPECT_EQ(m_program.TakeOperations(), read);
        EXPECT_EQ(shown(), before);
    }
}

TEST_F(RecordWindows, EverySnoozeChoiceGoesOutAndComesBack)
{
    const wchar_t* const kLabels[]
        = {L"Notification Alert Time :", L"Snooze Alert Time       :", L"Snooze Duration         :"};
    constexpr const wchar_t* kMinutes[][3]
        = {{L"1", L"5", L"10"}, {L"2", L"10", L"20"}, {L"3", L"15", L"30"}, {L"4", L"20", L"45"}, {L"5", L"30", L"60"}};
    constexpr wchar_t kSent[]
        = L"|<SnoozeForIdlePwrAction>%ls</SnoozeForIdlePwrAction>"
          L"|<SnoozeForSchedulerPwrAction>%ls</SnoozeForSchedulerPwrAction>"
          L"|<SnoozeNotifiTimeoutForIdlePwrAction>%ls</SnoozeNotifiTimeoutForIdlePwrAction>"
          L"|<SnoozeNotifiTimeoutForSchedulerPwrAction>%ls</SnoozeNotifiTimeoutForSchedulerPwrAction>"
          L"|<SnoozeTimeout>%ls</SnoozeTimeout>";
    Open(kEditors[2]);
    for (std::size_t i = 0; i < 5; ++i) {
        const Choice choices[] = {kNotificationTimes[i], kSnoozeAlertTimes[i], kSnoozeDurations[i]};
        for (std::size_t k = 0; k < 3; ++k)
            m_program.Choose(WindowId::Snooze, IdOf(kLabels[k]), choices[k].text);
        Apply({m_editor->done, {}});
        ExpectSent(Format(kSent, L"Yes", L"Yes", kMinutes[i][0], kMinutes[i][1], kMinutes[i][2]));
        m_program.Command(m_editor->window, IDCANCEL);
        Open(kEditors[2]);
        for (std::size_t k = 0; k < 3; ++k)
            EXPECT_EQ(Shown(kLabels[k]), choices[k].text);
    }
    Check(L"Enable notification alert for Power OFFs done upon idle :", false);
    Check(L"Enable snooze alert for Scheduled Power OFFs :", false);
    EXPECT_FALSE(IsOn(kLabels[2]));
    Apply({m_editor->done, {}});
    ExpectSent(Format(kSent, L"No", L"No", L"5", L"10", L"20"));
}

TEST_F(RecordWindows, FeaturesThatCannotBeControlledStay)
{
    Open(kEditors[3]);
    EXPECT_FALSE(IsOn(L"Disable CD/DVD Rom"));
    EXPECT_TRUE(IsChecked(WindowOf(WindowId::DeviceControl), IdOf(L"Disable USB Storage")));
    Check(L"Disable CD/DVD Rom", true);
    Check(L"Disable USB Storage", false);
    Check(L"Disable Wake On LAN", true);
    Apply({m_editor->done, {}});
    ExpectSent(L"|<FireWall>NO</FireWall>|<UsbStorage>NO</UsbStorage>|<CDDVDRom>NA</CDDVDRom>|<BlueTooth>NO</BlueTooth>"
               L"|<WIFI>NO</WIFI>|<WebCam>YES</WebCam>|<RegistryEdit>NO</RegistryEdit>"
               L"|<BiosSettingsPassword>NO</BiosSettingsPassword>|<BiosPassWord/>|<WLAN>YES</WLAN>");
    EXPECT_FALSE(IsChecked(WindowOf(WindowId::DeviceControl), IdOf(L"Disable CD/DVD Rom")));
}

TEST_F(RecordWindows, WhatTheUserLeavesGoesBackAsItCame)
{
    const std::wstring longText(300, L'x');
    const wchar_t* const kLong = longText.c_str();
    ExpectUnchanged(kEditors[0],
        HostSettings{L"maybe", L"04916", L"4917 udp", kLong, L"", L"manager.office.example", L"YES", L"10.0.7.1", L"",
            kLong, L"on", L"off"},
        [this] {
            const HWND address = Field(L"Remote Manager 2 address");
            SendMessageW(address, IPM_CLEARADDRESS, 0, 0);
            SetWindowTextW(GetWindow(address, GW_CHILD), L"99"); // one number of four is no address
        });
    ExpectUnchanged(kEditors[1], ProxySettings{L"yes", kLong, L"08080", L"On", kLong, L"kept", L"Always"});
    ExpectUnchanged(kEditors[2], SnoozeSettings{L"Yes", L"perhaps", L"7", L"05", L""});
    ExpectUnchanged(kEditors[3], DeviceSettings{L"yes", L"na", L"", L"off", L"NO", L"YES", L"NA", L"", kLong, L"On"});
}

TEST_F(RecordWindows, TheRecordIsReadBeforeTheBoxButForThePorts)
{
    for (const Editor& editor : kEditors) {
        Open(editor);
        m_program.Agent().SetFault(editor.read, {FaultKind::CloseAtOnce, {}});
        const ExpectedBox done{editor.done, {}}, lost{L"Connection Issue", {}};
        const bool toldFirst = editor.window == WindowId::AccessControl;
        const BoxScript boxes{toldFirst ? done : lost, toldFirst ? lost : done};
        m_program.Command(editor.window, IdOf(editor.button));
        EXPECT_FALSE(IsOn(editor.button)) << editor.read;
        m_program.Agent().ClearFaults();
        m_program.Command(WindowId::Main, kReinitialize);
    }
}

TEST_F(RecordWindows, ARefusedInputIsEmptiedAndNothingIsSent)
{
    constexpr const wchar_t* kPort = L"Invalid Port Number";
    constexpr const wchar_t* kRange = L"Please enter an integer value in the range (1024 – 65535) as the port number.";
    // clang-format off
    const struct { std::size_t editor; const wchar_t *label, *text; ExpectedBox box; } kRows[] = {
        {0, L"UDP Port :", L"", {kPort, L"UDP port cannot be blank."}},
        {0, L"UDP Port :", L"65536", {kPort, kRange}},
        {0, L"TCP Port :", L"", {kPort, L"TCP port cannot be blank."}},
        {0, L"TCP Port :", L"0", {kPort, kRange}},
        {1, L"User Name   :", L"", {L"Blank Username ", L"Username cannot be blank."}},
        {1, L"Port No      :", L"", {kPort, L"Proxy port cannot be blank."}},
        {1, L"Port No      :", L"99999999999",
            {kPort, L"Proxy port should be a non zero numeric value in range ( 1 - 65535 ) ."}},
        {1, L"Proxy Server :", L"", {L"Blank Proxy Server ", L"Proxy Server name cannot be blank."}},
    };
    // clang-format on
    for (const auto& row : kRows) {
        Open(kEditors[row.editor]);
        Type(row.label, row.text);
        const BoxScript boxes{row.box};
        m_program.Command(m_editor->window, IDOK);
        EXPECT_EQ(Shown(row.label), L"");
        EXPECT_EQ(GetFocus(), Field(row.label)) << row.box.text;
        EXPECT_EQ(m_program.TakeOperations(), Operations{});
    }
}

TEST_F(RecordWindows, TellWhatTheAgentAnswered)
{
    for (const Editor& editor : kEditors) {
        const Change change = {.operation = editor.apply,
            .question = nullptr,
            .failed = {editor.failed, editor.failure},
            .readAfterSuccess = {editor.read},
            .done = {editor.done, {}},
            .unlicensed = L"Unable to Set"};
        m_program.ExpectAnswers(change, [&] {
            Open(editor);
            m_program.Command(editor.window, IdOf(editor.button));
            EXPECT_TRUE(IsOn(editor.button));
        });
        m_program.Command(WindowId::Main, kReinitialize);
    }
}

TEST_F(RecordWindows, ShowWhatTheyHaveWhateverTheAgentSends)
{
    const std::wstring many = Replaced(std::wstring(60, L'x'), L"x", L"<a>7</a>");
    const std::wstring kTexts[]
        = {L"<vltp><response><details><a>" + std::wstring(400, L'7') + L"</a>" + many + L"</details></response></vltp>",
            L"<vltp version=\"1.0\"><response/></vltp>", L"garbage"};
    for (const Editor& editor : kEditors) {
        SCOPED_TRACE(editor.read);
        for (const std::wstring& text : kTexts) {
            m_program.Agent().ScriptReply(editor.read, text);
            Open(editor);
            EXPECT_TRUE(IsWindowVisible(WindowOf(editor.window))) << text;
            EXPECT_EQ(IsOn(editor.button), text == kTexts[0]) << text;
            if (text != kTexts[0]) { // what is not known is not sent
                m_program.Command(editor.window, IDOK);
                EXPECT_EQ(m_program.TakeOperations(), Operations{});
            }
            m_program.Command(editor.window, IDCANCEL);
            EXPECT_FALSE(IsWindowVisible(WindowOf(editor.window)));
        }
        m_program.Agent().ClearScripts();
        m_program.Agent().SetFault(editor.read, {FaultKind::CloseMidFrame, {}});
        BoxScript boxes{{L"Connection Issue", {}}};
        Open(editor);
        EXPECT_FALSE(IsWindowVisible(WindowOf(editor.window)));
        m_program.Agent().ClearFaults();
        m_program.Command(WindowId::Main, kReinitialize);
    }
}

} // namespace
} // namespace voltaro
