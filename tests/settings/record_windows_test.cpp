#include "base/text.h"
#include "settings/settings_rules.h"
#include "shell/main_commands.h"
#include "support/box_script.h"
#include "support/program.h"
#include "tests/settings/fields.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

using simulator::FaultKind;
using Operations = std::vector<std::wstring>;

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
    RecordWindows() { m_program.Load(); }

    void Open(const Editor& editor)
    {
        static_cast<void>(m_program.TakeOperations());
        m_program.Command(WindowId::Main, editor.command);
    }
    void Apply(const Editor& editor) { m_program.Command(editor.window, IdOf(editor.window, editor.button)); }
    void Type(WindowId window, const wchar_t* label, const wchar_t* text)
    {
        m_program.Type(window, GetDlgCtrlID(FieldAfter(window, label)), text);
    }
    void Check(WindowId window, const wchar_t* box, bool checked)
    {
        SetChecked(WindowOf(window), IdOf(window, box), checked);
        m_program.Command(window, IdOf(window, box));
    }
    void Choose(const wchar_t* label, const wchar_t* entry)
    {
        m_program.Choose(WindowId::Snooze, GetDlgCtrlID(FieldAfter(WindowId::Snooze, label)), entry);
    }
    std::wstring Shown(WindowId window, const wchar_t* label)
    {
        return TextOf(WindowOf(window), GetDlgCtrlID(FieldAfter(window, label)));
    }
    // The platform's document writes each line end of the text as CR LF.
    void ExpectSent(const wchar_t* operation, const std::wstring& details)
    {
        const std::wstring expected = std::wstring(L"<?xml version='1.0'?>\n<vltp version=\"1.0\">\n\t<request>"
                                                   L"\n\t\t<MessageId>{ID}</MessageId>\n\t\t<operation>")
            + operation + L"</operation>\n\t\t<details>" + details + L"</details>\n\t</request>\n</vltp>\n";
        EXPECT_EQ(m_program.LastRequest(operation), Replaced(expected, L"\n", L"\r\n"));
    }

    ConsoleProgram m_program;
};

TEST_F(RecordWindows, PortsTravelWhole)
{
    const Editor& editor = kEditors[0];
    Open(editor);
    EXPECT_EQ(Shown(editor.window, L"Remote Manager 1 address"), L"192.168.20.11");
    EXPECT_FALSE(IsWindowEnabled(FieldAfter(editor.window, L"Local Host address")));
    SendMessageW(FieldAfter(editor.window, L"Remote Manager 1 address"), IPM_CLEARADDRESS, 0, 0);
    SendMessageW(FieldAfter(editor.window, L"Remote Manager 2 address"), IPM_SETADDRESS, 0, MAKEIPADDRESS(10, 0, 7, 1));
    Check(editor.window, L"Local Host", false);
    Check(editor.window, L"Remote Manager 2", true);
    Type(editor.window, L"TCP Port :", L"00080 tcp");
    BoxScript boxes{{L"Restart Voltaro",
        L"Please restart Voltaro for the new settings to take effect.\n(both Voltaro service and Voltaro console.)"}};
    Apply(editor);
    ExpectSent(editor.apply,
        L"\n\t\t\t<Localhost>No</Localhost>\n\t\t\t<TCPPort>80</TCPPort>\n\t\t\t<UDPPort>4917</UDPPort>"
        L"\n\t\t\t<MonitoringIP>192.168.20.5</MonitoringIP>\n\t\t\t<MonitoringTCPPort>4920</MonitoringTCPPort>"
        L"\n\t\t\t<RemoteManager1>0.0.0.0</RemoteManager1>\n\t\t\t<RemoteManager1Enable>Yes</RemoteManager1Enable>"
        L"\n\t\t\t<RemoteManager2>10.0.7.1</RemoteManager2>\n\t\t\t<RemoteManager2Enable>Yes</RemoteManager2Enable>"
        L"\n\t\t\t<MonitoringURL>http://monitor.office.example/voltaro?site=3&amp;unit=12</MonitoringURL>"
        L"\n\t\t\t<MonitoringURLEnable>No</MonitoringURLEnable>\n\t\t\t<MonitoringIPEnable>Yes</MonitoringIPEnable>");
    EXPECT_EQ(Shown(editor.window, L"TCP Port :"), L"80"); // read again
}

TEST_F(RecordWindows, ProxyTravelsWhole)
{
    const Editor& editor = kEditors[1];
    Open(editor);
    Check(editor.window, L"Save Password", true);
    Type(editor.window, L"Password     :", L"a<b & \"c\"");
    BoxScript boxes{{editor.done, {}}, {editor.done, {}}};
    Apply(editor);
    const std::wstring before
        = L"\n\t\t\t<UseProxy>Yes</UseProxy>\n\t\t\t<ProxyServer>proxy.office.example</ProxyServer>"
          L"\n\t\t\t<ProxyPort>8080</ProxyPort>\n\t\t\t<UseAuthentication>Yes</UseAuthentication>"
          L"\n\t\t\t<UserName>jan.berg</UserName>\n\t\t\t";
    ExpectSent(
        editor.apply, before + L"<Password>a&lt;b &amp; \"c\"</Password>\n\t\t\t<SavePassword>Yes</SavePassword>");
    EXPECT_EQ(Shown(editor.window, L"Password     :"), L"a<b & \"c\"");
    Check(editor.window, L"Save Password", false);
    EXPECT_EQ(Shown(editor.window, L"Password     :"), L"");
    Apply(editor);
    ExpectSent(editor.apply, before + L"<Password/>\n\t\t\t<SavePassword>No</SavePassword>");
}

TEST_F(RecordWindows, ProxyFieldsFollowTheirSwitches)
{
    const WindowId window = WindowId::Proxy;
    Open(kEditors[1]);
    const auto expectEnabled = [&](bool proxy, bool authentication) {
        for (const wchar_t* label : {L"Proxy Server :", L"Port No      :"})
            EXPECT_EQ(IsWindowEnabled(FieldAfter(window, label)) != FALSE, proxy) << label;
        EXPECT_EQ(IsWindowEnabled(Child(window, L"Use Authentication")) != FALSE, proxy);
        for (const wchar_t* label : {L"User Name   :", L"Password     :"})
            EXPECT_EQ(IsWindowEnabled(FieldAfter(window, label)) != FALSE, authentication) << label;
        EXPECT_EQ(IsWindowEnabled(Child(window, L"Save Password")) != FALSE, authentication);
    };
    expectEnabled(true, true);
    Check(window, L"Use Authentication", false);
    expectEnabled(true, false);
    Check(window, L"Use Authentication", true);
    Check(window, L"Connect Via Proxy Server", false);
    expectEnabled(false, false);
}

TEST_F(RecordWindows, EverySnoozeChoiceGoesOutAndComesBack)
{
    const Editor& editor = kEditors[2];
    constexpr const wchar_t* kLabels[]
        = {L"Notification Alert Time :", L"Snooze Alert Time       :", L"Snooze Duration         :"};
    constexpr const wchar_t* kMinutes[][3]
        = {{L"1", L"5", L"10"}, {L"2", L"10", L"20"}, {L"3", L"15", L"30"}, {L"4", L"20", L"45"}, {L"5", L"30", L"60"}};
    const auto expectSent = [&](const wchar_t* alerts, const wchar_t* const(&minutes)[3]) {
        constexpr const wchar_t* kDetails
            = L"\n\t\t\t<SnoozeForIdlePwrAction>%ls</SnoozeForIdlePwrAction>"
              L"\n\t\t\t<SnoozeForSchedulerPwrAction>%ls</SnoozeForSchedulerPwrAction>"
              L"\n\t\t\t<SnoozeNotifiTimeoutForIdlePwrAction>%ls</SnoozeNotifiTimeoutForIdlePwrAction>"
              L"\n\t\t\t<SnoozeNotifiTimeoutForSchedulerPwrAction>%ls</SnoozeNotifiTimeoutForSchedulerPwrAction>"
              L"\n\t\t\t<SnoozeTimeout>%ls</SnoozeTimeout>";
        ExpectSent(editor.apply, Format(kDetails, alerts, alerts, minutes[0], minutes[1], minutes[2]));
    };
    Open(editor);
    BoxScript boxes{};
    for (std::size_t i = 0; i < 5; ++i) {
        const wchar_t* const choices[] = {kNotificationTimes[i], kSnoozeAlertTimes[i], kSnoozeDurations[i]};
        for (std::size_t k = 0; k < 3; ++k)
            Choose(kLabels[k], choices[k]);
        boxes.Expect({{editor.done, {}}});
        Apply(editor);
        expectSent(L"Yes", kMinutes[i]);
        m_program.Command(editor.window, IDCANCEL);
        Open(editor);
        for (std::size_t k = 0; k < 3; ++k)
            EXPECT_EQ(Shown(editor.window, kLabels[k]), choices[k]);
    }
    Check(editor.window, L"Enable notification alert for Power OFFs done upon idle :", false);
    Check(editor.window, L"Enable snooze alert for Scheduled Power OFFs :", false);
    EXPECT_FALSE(IsWindowEnabled(FieldAfter(editor.window, kLabels[2])));
    boxes.Expect({{editor.done, {}}});
    Apply(editor);
    expectSent(L"No", {L"5", L"10", L"20"});
}

TEST_F(RecordWindows, FeaturesThatCannotBeControlledStay)
{
    const Editor& editor = kEditors[3];
    Open(editor);
    EXPECT_FALSE(IsWindowEnabled(Child(editor.window, L"Disable CD/DVD Rom")));
    EXPECT_TRUE(IsChecked(WindowOf(editor.window), IdOf(editor.window, L"Disable USB Storage")));
    Check(editor.window, L"Disable CD/DVD Rom", true);
    Check(editor.window, L"Disable USB Storage", false);
    Check(editor.window, L"Disable Wake On LAN", true);
    BoxScript boxes{{editor.done, {}}};
    Apply(editor);
    ExpectSent(editor.apply,
        L"\n\t\t\t<FireWall>NO</FireWall>\n\t\t\t<UsbStorage>NO</UsbStorage>\n\t\t\t<CDDVDRom>NA</CDDVDRom>"
        L"\n\t\t\t<BlueTooth>NO</BlueTooth>\n\t\t\t<WIFI>NO</WIFI>\n\t\t\t<WebCam>YES</WebCam>"
        L"\n\t\t\t<RegistryEdit>NO</RegistryEdit>\n\t\t\t<BiosSettingsPassword>NO</BiosSettingsPassword>"
        L"\n\t\t\t<BiosPassWord/>\n\t\t\t<WLAN>YES</WLAN>");
    EXPECT_FALSE(IsChecked(WindowOf(editor.window), IdOf(editor.window, L"Disable CD/DVD Rom")));
}

TEST_F(RecordWindows, ARefusedInputIsEmptiedAndNothingIsSent)
{
    constexpr const wchar_t* kRange = L"Please enter an integer value in the range (1024 – 65535) as the port number.";
    const struct {
        const Editor& editor;
        const wchar_t *label, *text, *caption, *message;
    } kRows[] = {
        {kEditors[0], L"UDP Port :", L"", L"Invalid Port Number", L"UDP port cannot be blank."},
        {kEditors[0], L"UDP Port :", L"65536", L"Invalid Port Number", kRange},
        {kEditors[0], L"TCP Port :", L"", L"Invalid Port Number", L"TCP port cannot be blank."},
        {kEditors[0], L"TCP Port :", L"0", L"Invalid Port Number", kRange},
        {kEditors[1], L"User Name   :", L"", L"Blank Username ", L"Username cannot be blank."},
        {kEditors[1], L"Port No      :", L"", L"Invalid Port Number", L"Proxy port cannot be blank."},
        {kEditors[1], L"Port No      :", L"99999999999", L"Invalid Port Number",
            L"Proxy port should be a non zero numeric value in range ( 1 - 65535 ) ."},
        {kEditors[1], L"Proxy Server :", L"", L"Blank Proxy Server ", L"Proxy Server name cannot be blank."},
    };
    BoxScript boxes{};
    for (const auto& row : kRows) {
        Open(row.editor);
        static_cast<void>(m_program.TakeOperations());
        Type(row.editor.window, row.label, row.text);
        boxes.Expect({{row.caption, row.message}});
        m_program.Command(row.editor.window, IDOK);
        boxes.ExpectAllSeen();
        EXPECT_EQ(Shown(row.editor.window, row.label), L"");
        EXPECT_EQ(GetFocus(), FieldAfter(row.editor.window, row.label)) << row.message;
        EXPECT_EQ(m_program.TakeOperations(), Operations{});
    }
}

TEST_F(RecordWindows, TellWhatTheAgentAnswered)
{
    constexpr const wchar_t* kGate = L"GetActivationstatus";
    for (const Editor& editor : kEditors) {
        SCOPED_TRACE(editor.apply);
        const Operations applied = {kGate, editor.apply, editor.read};
        const Operations refused = {kGate, editor.apply};
        const struct {
            const wchar_t* operation;
            simulator::Fault fault;
            const wchar_t *caption, *text;
            Operations sent;
        } kRows[] = {
            {editor.apply, {FaultKind::Status, L"Success"}, editor.done, L"", applied},
            {editor.apply, {FaultKind::Status, L"success"}, editor.done, L"", applied},
            {editor.apply, {FaultKind::Status, L"failure"}, editor.failed, editor.failure, refused},
            {editor.apply, {FaultKind::Status, L"Permission denied"}, editor.failed, editor.failure, refused},
            {editor.apply, {FaultKind::NotWellFormed, {}}, editor.failed, editor.failure, refused},
            {editor.apply, {FaultKind::Garbage, {}}, editor.failed, editor.failure, refused},
            {editor.apply, {FaultKind::Status, L"License Expired"}, L"Unable to Set", L"The license of Voltaro on",
                {kGate, editor.apply, kGate}},
            {kGate, {FaultKind::Status, L"Not Activated"}, L"Unable to Set", L"'Localhost' is not activated.", {kGate}},
            {kGate, {FaultKind::None, {}}, editor.done, L"", applied},
            {editor.apply, {FaultKind::CloseAtOnce, {}}, L"Connection Issue", L"", refused},
        };
        BoxScript boxes{};
        for (const auto& row : kRows) {
            m_program.Agent().ClearFaults();
            Open(editor);
            static_cast<void>(m_program.TakeOperations());
            m_program.Agent().SetFault(row.operation, row.fault);
            boxes.Expect({{row.caption, row.text}});
            Apply(editor);
            boxes.ExpectAllSeen();
            EXPECT_EQ(m_program.TakeOperations(), row.sent) << row.fault.argument;
            EXPECT_TRUE(IsWindowEnabled(Child(editor.window, editor.button)));
        }
        m_program.Agent().ClearFaults();
        m_program.Command(WindowId::Main, kReinitialize);
    }
}

TEST_F(RecordWindows, ShowWhatTheyHaveWhateverTheAgentSends)
{
    std::wstring many;
    for (int i = 0; i < 60; ++i)
        many += L"<a>7</a>";
    const std::wstring kTexts[] = {L"garbage", L"<vltp><response><details><a>", L"<vltp><response/></vltp>",
        L"<!DOCTYPE a [<!ENTITY b \"c\">]><vltp><response><details><a>&b;</a></details></response></vltp>",
        L"<vltp><response><details><a>" + std::wstring(400, L'7') + L"</a></details></response></vltp>",
        L"<vltp><response><details>" + many + L"</details></response></vltp>"};
    for (const Editor& editor : kEditors) {
        SCOPED_TRACE(editor.read);
        for (const std::wstring& text : kTexts) {
            m_program.Agent().ScriptReply(editor.read, text);
            Open(editor);
            EXPECT_TRUE(IsWindowVisible(WindowOf(editor.window))) << text;
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

TEST_F(RecordWindows, NothingIsSentBeforeARecordCame)
{
    const Editor& editor = kEditors[3];
    m_program.Agent().ScriptReply(editor.read, L"<vltp version=\"1.0\"><response/></vltp>");
    Open(editor);
    m_program.Command(editor.window, IDOK);
    EXPECT_EQ(m_program.TakeOperations(), Operations{editor.read});
    EXPECT_FALSE(IsWindowEnabled(Child(editor.window, editor.button)));
}

} // namespace
} // namespace voltaro
