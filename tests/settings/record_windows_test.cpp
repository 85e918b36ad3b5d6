#include "support/program.h"

namespace voltaro {

// The windows that edit a record, and what they say.
struct Editor {
    WindowId window;
    int command;
    const wchar_t *read, *apply, *button, *done;
};
// clang-format off
constexpr Editor kEditors[] = {
    {WindowId::AccessControl, kPorts,    L"GetCurrenthostsettings",   L"ApplyHostSettings",   L"Change", L"Restart Voltaro"},
    {WindowId::Proxy,         kProxy,    L"GetCurrentProxySettings",  L"ApplyProxySettings",  L"Change", L"Proxy Connection Settings"},
    {WindowId::Snooze,        kSnooze,   L"GetSnoozeSettings",        L"ApplySnoozeSettings", L"Change", L"Snooze Settings"},
    {WindowId::DeviceControl, kSecurity, L"GetCurrentDeviceSettings", L"ApplyDeviceSettings", L"Apply",  L"System Security Settings"},
};
// clang-format on

struct RecordWindows : testing::Test, LoadedProgram {
    void Open(const Editor& editor)
    {
        if (const Editor* before = std::exchange(m_editor, &editor))
            Command(before->window, IDCANCEL);
        MainCommand(editor.command);
        TakeOperations();
    }
    bool IsTicked(const wchar_t* label) { return Button_GetCheck(Find(label)) != 0; }
    void Set(const wchar_t* label, const wchar_t* text = nullptr) { Do({{label, text}}); }
    void Apply() { Set(m_editor->button); }
    void ApplyAndExpect(const std::wstring& fields)
    {
        boxes.Expect({{m_editor->done, {}}});
        Apply();
        ExpectSent(m_editor->apply, L"details[" + fields + L"]");
    }
    // The agent has its faults behind it, and the console has heard of it.
    void Reconnect()
    {
        Agent().ClearFaults();
        Agent().ClearScripts();
        MainCommand(kReinitialize);
    }
    // Opens on a record that the agent sends like that.
    template <class Record>
    std::wstring OpenWith(const Editor& editor, const Record& record)
    {
        const Element details = ElementOf(L"details", record);
        Agent().ScriptReply(editor.read, simulator::ReplyText({L"response", {}, {details}}));
        Agent().SetFault(editor.apply, {FaultKind::Status, L"Success"});
        Open(editor);
        const std::wstring line = Line(details);
        return line.substr(8, line.size() - 9); // inside "details[]"
    }
    const Editor* m_editor = nullptr;
};

TEST_F(RecordWindows, PortsTravelWhole)
{
    Open(kEditors[0]);
    EXPECT_TRUE(Shown(L"Remote Manager 1 address") == L"192.168.20.11" && !IsOn(L"Local Host address"));
    SendMessageW(Find(L"Remote Manager 1 address"), IPM_CLEARADDRESS, 0, 0);
    SendMessageW(Find(L"Remote Manager 2 address"), IPM_SETADDRESS, 0, MAKEIPADDRESS(10, 0, 7, 1));
    Set(L"Local Host");
    Set(L"Remote Manager 2");
    Set(L"TCP Port :", L" 0001 tcp"); // the lowest and the highest
    Set(L"UDP Port :", L"65535");
    ApplyAndExpect(L"Localhost=No TCPPort=1 UDPPort=65535 MonitoringIP=192.168.20.5 MonitoringTCPPort=4920 "
                   L"RemoteManager1=0.0.0.0 RemoteManager1Enable=Yes RemoteManager2=10.0.7.1 RemoteManager2Enable=Yes "
                   L"MonitoringURL=http://monitor.office.example/voltaro?site=3&unit=12 MonitoringURLEnable=No "
                   L"MonitoringIPEnable=Yes");
    EXPECT_EQ(Shown(L"TCP Port :"), L"1"); // read again
}

TEST_F(RecordWindows, ProxyTravelsWholeAndItsFieldsFollowTheirSwitches)
{
    Open(kEditors[1]);
    Set(L"Save Password");
    for (const auto& [label, text] : {std::pair(L"Proxy Server :", L"gate.example"), {L"Port No      :", L"3128"},
             {L"User Name   :", L"eva.lind"}, {L"Password     :", L"a<b & \"c\""}})
        Set(label, text);
    const std::wstring before
        = L"UseProxy=Yes ProxyServer=gate.example ProxyPort=3128 UseAuthentication=Yes UserName=eva.lind ";
    ApplyAndExpect(before + L"Password=a<b & \"c\" SavePassword=Yes");
    EXPECT_EQ(Shown(L"Password     :"), L"a<b & \"c\"");
    Set(L"Save Password");
    EXPECT_EQ(Shown(L"Password     :"), L"");
    ApplyAndExpect(before + L"Password= SavePassword=No");
    const auto expectEnabled = [&](bool proxy, bool authentication) {
        for (const wchar_t* label : {L"Proxy Server :", L"Port No      :", L"Use Authentication"})
            EXPECT_EQ(IsOn(label), proxy) << label;
        for (const wchar_t* label : {L"User Name   :", L"Password     :", L"Save Password"})
            EXPECT_EQ(IsOn(label), authentication) << label;
    };
    expectEnabled(true, true);
    Set(L"Use Authentication");
    expectEnabled(true, false);
    ApplyAndExpect(Replaced(before, L"Authentication=Yes", L"Authentication=No") + L"Password= SavePassword=No");
    Set(L"Use Authentication");
    Set(L"Port No      :", L"");
    Set(L"Connect Via Proxy Server");
    expectEnabled(false, false);
    ApplyAndExpect(
        Replaced(Replaced(before, L"UseProxy=Yes", L"UseProxy=No"), L"3128", L"") + L"Password= SavePassword=No");
}

TEST_F(RecordWindows, SnoozeTimesGoOutAndComeBack)
{
    const std::pair<const wchar_t*, const wchar_t*> kTimes[] = {{L"Notification Alert Time :", L"4 Mins"},
        {L"Snooze Alert Time       :", L"15 Mins"}, {L"Snooze Duration         :", L"1 Hour"}};
    constexpr wchar_t kSent[] = L"SnoozeForIdlePwrAction=%ls SnoozeForSchedulerPwrAction=%ls "
                                L"SnoozeNotifiTimeoutForIdlePwrAction=%ls SnoozeNotifiTimeoutForSchedulerPwrAction=%ls "
                                L"SnoozeTimeout=%ls";
    Open(kEditors[2]);
    for (const auto& [label, text] : kTimes)
        Set(label, text);
    ApplyAndExpect(Format(kSent, L"Yes", L"Yes", L"4", L"15", L"60"));
    for (const auto& [label, text] : kTimes)
        EXPECT_EQ(Shown(label), text); // read again
    Set(L"Enable notification alert for Power OFFs done upon idle :");
    EXPECT_TRUE(!IsOn(kTimes[0].first) && IsOn(kTimes[1].first) && IsOn(kTimes[2].first));
    Set(L"Enable snooze alert for Scheduled Power OFFs :");
    EXPECT_FALSE(IsOn(kTimes[0].first) || IsOn(kTimes[1].first) || IsOn(kTimes[2].first));
    ApplyAndExpect(Format(kSent, L"No", L"No", L"5", L"10", L"20"));
}

TEST_F(RecordWindows, FeaturesThatCannotBeControlledStay)
{
    Open(kEditors[3]);
    EXPECT_FALSE(IsOn(L"Disable CD/DVD Rom") || IsTicked(L"Disable CD/DVD Rom"));
    EXPECT_TRUE(IsTicked(L"Disable USB Storage") && IsTicked(L"Disable Web Cam") && !IsTicked(L"Disable Blue Tooth"));
    Set(L"Disable USB Storage");
    Set(L"Disable Wake On LAN");
    SetChecked(WindowOf(m_editor->window), GetDlgCtrlID(Find(L"Disable CD/DVD Rom")), true);
    ApplyAndExpect(L"FireWall=NO UsbStorage=NO CDDVDRom=NA BlueTooth=NO WIFI=NO WebCam=YES RegistryEdit=NO "
                   L"BiosSettingsPassword=NO BiosPassWord= WLAN=YES");
    EXPECT_FALSE(IsTicked(L"Disable CD/DVD Rom"));
}

TEST_F(RecordWindows, WhatTheUserLeavesGoesBackAsItCame)
{
    const std::wstring longText(300, L'x');
    const wchar_t* const kLong = longText.c_str();
    const std::wstring host = OpenWith(kEditors[0],
        HostSettings{L"maybe", L"04916", L"4917 udp", kLong, L"", L"manager.office.example", L"YES", L"10.0.7.1", L"",
            kLong, L"on", L"off"});
    EXPECT_TRUE(SendMessageW(Find(L"Remote Manager 1 address"), IPM_ISBLANK, 0, 0)) << "a name is no address";
    const HWND address = Find(L"Remote Manager 2 address");
    SendMessageW(address, IPM_CLEARADDRESS, 0, 0);
    SetWindowTextW(GetWindow(address, GW_CHILD), L"99"); // one number of four is no address
    ApplyAndExpect(host);
    ApplyAndExpect(OpenWith(kEditors[1], ProxySettings{L"yes", kLong, L"08080", L"On", kLong, L"kept", L"Always"}));
    ApplyAndExpect(
        Replaced(OpenWith(kEditors[1], ProxySettings{L"No", L"proxy", L"80", L"Yes", L"user", L"secret", L"No"}),
            L"secret", L""));
    ApplyAndExpect(OpenWith(kEditors[2], SnoozeSettings{L"Yes", L"perhaps", L"7", L"05", L""}));
    ApplyAndExpect(
        OpenWith(kEditors[3], DeviceSettings{L"yes", L"na", L"", L"off", L"NO", L"YES", L"NA", L"", kLong, L"On"}));
}

TEST_F(RecordWindows, ARefusedInputIsEmptiedAndNothingIsSent)
{
    constexpr const wchar_t* kPort = L"Invalid Port Number";
    constexpr const wchar_t* kRange = L"Please enter an integer value in the range (1024 – 65535) as the port number.";
    // clang-format off
    const struct { std::size_t editor; const wchar_t *label, *text; ExpectedBox box; } kRows[] = {
        {0, L"UDP Port :", L"", {kPort, L"UDP port cannot be blank."}},
        {0, L"UDP Port :", L"65536", {kPort, kRange}},
        {0, L"UDP Port :", L"4294967297", {kPort, kRange}}, // 1 in 32 bits
        {0, L"TCP Port :", L"tcp", {kPort, kRange}},
        {0, L"TCP Port :", L"", {kPort, L"TCP port cannot be blank."}},
        {0, L"TCP Port :", L"0", {kPort, kRange}},
        {1, L"User Name   :", L"", {L"Blank Username ", L"Username cannot be blank."}},
        {1, L"Port No      :", L"", {kPort, L"Proxy port cannot be blank."}},
        {1, L"Port No      :", L"99999999999", {kPort, L"Proxy port should be a non zero numeric value in range ( 1 - 65535 ) ."}},
        {1, L"Proxy Server :", L"", {L"Blank Proxy Server ", L"Proxy Server name cannot be blank."}},
    };
    // clang-format on
    for (const auto& row : kRows) {
        Open(kEditors[row.editor]);
        ExpectRefused(row.box, {{row.label, row.text}, {L"Change"}});
    }
}

TEST_F(RecordWindows, F5AsksBeforeItOverwritesWhatWasTyped)
{
    constexpr const wchar_t* kLabels[]
        = {L"TCP Port :", L"Port No      :", L"Enable snooze alert for Scheduled Power OFFs :", L"Disable Wake On LAN"};
    for (std::size_t i = 0; i < std::size(kLabels); ++i) {
        Open(kEditors[i]);
        const auto shown = [&] { return Shown(kLabels[i]) + (IsTicked(kLabels[i]) ? L"+" : L""); };
        const std::wstring before = shown();
        Set(kLabels[i], L"9"); // or click it
        const std::wstring edited = shown();
        boxes.Expect({{L"Refresh", {}, Answer::No}, {L"Refresh", {}, Answer::Yes}});
        for (const bool again : {false, true}) {
            Command(m_editor->window, kRefreshKey);
            EXPECT_EQ(TakeOperations(), again ? Operations{m_editor->read} : Operations{});
            EXPECT_EQ(shown(), again ? before : edited);
        }
    }
}

TEST_F(RecordWindows, TakeNoInputDuringAChangeAndReadAgainBeforeTheyTellOfIt)
{
    static HWND button;
    for (const Editor& editor : kEditors) {
        Open(editor);
        button = Find(editor.button);
        const auto script = std::exchange(platformCalls.showMessageBox, [](const BoxCall& call) {
            const bool ended = call.caption != L"Unable to Set" || call.text.starts_with(L"Unable");
            EXPECT_EQ(IsEnabled(button) && IsEnabled(GetWindow(button, GW_HWNDNEXT)), ended) << call.text;
            return Answer::Ok;
        });
        for (const wchar_t* answer : {L"Not Activated", L"Failure"}) { // the first box belongs to the change
            AnswerWith(editor.apply, answer);
            Apply();
        }
        platformCalls.showMessageBox = script;
        Reconnect();
        Open(editor);
        Agent().SetFault(editor.read, {FaultKind::CloseAtOnce, {}});
        const ExpectedBox told[] = {{L"Connection Issue", {}}, {editor.done, {}}, {L"Connection Issue", {}}};
        const bool later = editor.window == WindowId::AccessControl;
        boxes.Expect({told[later], told[later + 1]});
        Apply();
        EXPECT_FALSE(IsOn(editor.button)) << editor.read;
        Reconnect();
    }
}

TEST_F(RecordWindows, ShowWhatTheyHaveWhateverTheAgentSends)
{
    const std::wstring longText
        = L"<vltp><response><details><a>" + std::wstring(400, L'7') + L"</a></details></response></vltp>";
    for (const Editor& editor : kEditors) {
        SCOPED_TRACE(editor.read);
        for (const std::wstring& text :
            {longText, std::wstring(L"<vltp><response/></vltp>"), std::wstring(L"garbage")}) {
            Agent().ScriptReply(editor.read, text);
            SetWindowTextW(Find(L"UDP Port :", WindowId::AccessControl), L"9");
            Open(editor);
            EXPECT_TRUE(IsOpen(editor.window)) << text;
            EXPECT_EQ(IsOn(editor.button), text == longText) << text;
            Command(editor.window, text == longText ? IDCANCEL : IDOK); // what is not known is not sent
            EXPECT_EQ(TakeOperations(), Operations{});
            EXPECT_NE(Shown(L"UDP Port :", WindowId::AccessControl) == L"9", editor.window == WindowId::AccessControl)
                << "left unsent";
            Command(editor.window, IDCANCEL);
        }
        Agent().ClearScripts();
        Agent().SetFault(editor.read, {FaultKind::CloseMidFrame, {}});
        boxes.Expect({{L"Connection Issue", {}}});
        Open(editor);
        EXPECT_FALSE(IsOpen(editor.window));
        Reconnect();
    }
}

} // namespace voltaro
