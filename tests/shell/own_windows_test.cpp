// The windows about the program itself: its license, its updates and the about box.
#include "support/program.h"

namespace voltaro {

constexpr auto kWindow = WindowId::Activation;
constexpr int kStateLine = 8601, kFields = 8602, kKey = 8603, kActivateButton = 8604;

struct ActivationTest : testing::Test, LoadedProgram {
    ActivationTest()
        : LoadedProgram(L"notactivated")
    {
        MainCommand(kActivate);
        TakeOperations();
    }
    void Activate(const wchar_t* key, const ExpectedBox& box)
    {
        boxes.Expect({box});
        Do({{kKey, key}, {kActivateButton}});
    }
};

TEST_F(ActivationTest, SendsAKeyHoweverItWasPastedAndNothingElse)
{
    EXPECT_EQ(CellOf(Find(kFields), 0, 1), L"Not Activated");
    for (const wchar_t* key : {L"", L" - - ", L"abcd_EFGH", L"abcd\u00E9", L"<key>", L"a&b"}) {
        ExpectRefused({L"Invalid activation key", {}}, {{kKey, key}, {kActivateButton}});
    }
    for (const wchar_t* key : {L"abcd-EFGH-1234-5678", L"abcdEFGH12345678", L"  abcd EFGH 1234 5678 ",
             L"abcd\u2013EFGH\u20131234\u20135678"}) {
        Activate(key, {L"Voltaro activated", L"Voltaro is activated now."});
        EXPECT_EQ(TakeOperations(), (Operations{L"ActivateLicense", L"GetActivationstatus", L"GetLicenseInfo"}));
        EXPECT_EQ(Shown(kStateLine), L"Voltaro on 'Localhost' is activated.");
        EXPECT_TRUE(CellOf(Find(kFields), 3, 1) == L"abcdEFGH12345678" && Shown(kKey).empty());
        static_cast<void>(ExchangePrepared(Operation::ActivateLicense));
        EXPECT_EQ(Agent().Requests().back().text, L"") << "the key does not stay in its buffer";
        TakeOperations();
    }
    Command(kWindow, IDCANCEL);
    EXPECT_TRUE(!IsOpen(kWindow) && IsMainFree());
}

TEST_F(ActivationTest, TellsWhatTheAgentAnswers)
{
    for (const auto& [key, text, line] : {std::tuple(L"0000-0000-0000-0000", L"Could not activate Voltaro.",
                                              L"Voltaro on 'Localhost' is not activated."),
             {L"9999-9999-9999-9999", L"The license of this activation key has expired.",
                 L"The license of Voltaro on 'Localhost' has expired."}}) {
        Activate(key, {L"Activation Failed", text});
        EXPECT_EQ(Shown(kKey), key); // to be mended
        EXPECT_EQ(Shown(kStateLine), line);
    }
    Command(kWindow, IDCANCEL);
    MainCommand(kActivate);
    EXPECT_EQ(Shown(kKey), L"");
    for (const auto& [reply, box] :
        {std::pair(L"Not Activated", ExpectedBox{L"Activation Failed", L"Voltaro is still not activated."}),
            {L"SUCCESS", {L"Voltaro activated", L"Voltaro is activated now."}},
            {L"", {L"Activation Failed", L"Could not activate Voltaro."}}, {kNoAnswer, {L"Connection Issue", {}}}}) {
        AnswerWith(L"ActivateLicense", reply);
        Activate(L"abcdEFGH12345678", box);
    }
}

struct AboutTest : testing::Test, LoadedProgram { };

TEST_F(AboutTest, OpensWithAndWithoutAnAgent)
{
    constexpr int kHost = 8702, kService = 8704, kLicense = 8705, kLicensedTo = 8706;
    const auto text = [](int id) { return TextOf(AboutWindow(), id); };
    MainCommand(kTrayAbout);
    EXPECT_FALSE(IsItemEnabled(TrayMenu(), kTrayAbout) || IsMainFree());
    EXPECT_EQ(text(kHost) + text(kLicense) + text(kLicensedTo), L"FIELDBOOK-07ActivatedJan Berg & Partners");
    MainCommand(kAbout); // the one that is open
    SendMessageW(AboutWindow(), WM_CLOSE, 0, 0);
    SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(!AboutWindow() && IsItemEnabled(TrayMenu(), kTrayAbout) && IsMainFree());

    for (const bool aboutClosesFirst : {false, true}) {
        MainCommand(kSystemInfo);
        MainCommand(kTrayAbout);
        ClickTrayIcon();
        EXPECT_EQ(GetForegroundWindow(), AboutWindow()) << "the newest holder";
        for (const bool closesAbout : {aboutClosesFirst, !aboutClosesFirst}) {
            EXPECT_FALSE(IsEnabled(main));
            SendMessageW(closesAbout ? AboutWindow() : WindowOf(WindowId::SystemInfo), WM_COMMAND, IDCANCEL, 0);
        }
        EXPECT_TRUE(IsMainFree());
    }

    Agent().Stop();
    boxes.Expect({{L"Connection Issue", L"not responding"}});
    MainCommand(kAbout);
    EXPECT_EQ(text(kService) + L"|" + text(kLicensedTo), L"not responding|");
}

constexpr int kBar = 6016, kTitle = 8501, kDetail = 8502, kCloseVoltaro = 8504, kOk = 8505;
constexpr const wchar_t* kChecking = L"Please wait, Voltaro is checking for updates...||bar";

struct UpdateTest : testing::Test, LoadedProgram {
    UpdateTest() { EXPECT_TRUE(StartWorkers()); }
    ~UpdateTest() override { StopWorkers(StopOrder::MainWindowDestroyed); }

    // The two texts, then the bar or the buttons; "free" once the window is gone.
    std::wstring Shown() const
    {
        std::wstring shown = TextOf(window, kTitle) + L"|" + TextOf(window, kDetail) + L"|";
        const std::pair<int, const wchar_t*> kNames[] = {{kBar, L"bar"}, {kCloseVoltaro, L"close"}, {kOk, L"ok"}};
        for (const auto& [id, name] : kNames)
            shown += IsWindowVisible(ControlOf(window, id)) ? name : L"";
        EXPECT_FALSE(IsWindowVisible(window) && (IsEnabled(main) || IsConsoleReady()));
        return IsMainFree() && !IsWindowVisible(window) ? L"free" : shown;
    }
    bool WaitForOutcome() const
    {
        return WaitFor([this] { return !IsWindowVisible(ControlOf(window, kBar)) && !updateBusy; });
    }
    void Update(const wchar_t* status, const wchar_t* message)
    {
        AnswerWith(
            L"CheckForUpdates", Format(L"<vltp><response><s>%ls</s><m>%ls</m></response></vltp>", status, message));
        MainCommand(kUpdate);
    }

    const HWND window = WindowOf(WindowId::Update);
};

TEST_F(UpdateTest, ShowsTheOutcomeOfEveryAnswer)
{
    constexpr wchar_t kLatest[] = L"You are already using the latest version of Voltaro.",
                      kNetwork[] = L"Please check your network connection and try again.",
                      kLater[] = L"VOLTARO update failed, please try after some time.",
                      kDownloaded[] = L"New updates were successfully downloaded.|"
                                      L"Voltaro needs to be closed for applying new updates.|close";
    // What is answered, and what is shown of it; "*" for the message.
    for (const auto& [status, message, shown] : {std::tuple(L"Failure", kLatest, L"*||ok"),
             {L"Failure", kNetwork, L"Could not update, connection closed.|*|ok"},
             {L"", kLater, L"Could not update, connection failed.|*|ok"}, {L"success", L"", kDownloaded},
             {L"Success", kLatest, kDownloaded}}) {
        Update(status, message);
        ASSERT_TRUE(WaitForOutcome()) << shown;
        EXPECT_EQ(Shown(), Replaced(shown, L"*", message));
        Command(WindowId::Update, kOk);
        EXPECT_EQ(Shown(), L"free");
    }
    Update(L"Success", L"");
    ASSERT_TRUE(WaitForOutcome());
    boxes.Expect({{L"Close Voltaro Console",
        L"Voltaro Console needs to be closed for applying update\n\nVoltaro will automatically close in 5 Seconds.",
        Answer::TimedOut}});
    SendMessageW(window, WM_COMMAND, kCloseVoltaro, 0);
    EXPECT_TRUE(!IsWindow(main) && QuitCode() == 0);
}

TEST_F(UpdateTest, GoesOnWaitingAfterAnAnswerThatItDoesNotKnow)
{
    for (const wchar_t* message : {L"Come back tomorrow.", L"", L"</m>"}) { // the last is no document
        Update(L"Failure", message);
        EXPECT_TRUE(WaitFor([this] {
            return !Agent().Requests().empty() && !IsHeld(Operation::CheckForUpdates)
                && SendDlgItemMessageW(window, kBar, PBM_GETPOS, 0, 0) > 0;
        }));
        static_cast<void>(WaitServingWindows(nullptr, 100)); // what would follow the answer
        SendMessageW(window, WM_CLOSE, 0, 0);
        Command(WindowId::Update, IDOK);
        Command(WindowId::Update, IDCANCEL);
        EXPECT_TRUE(updateBusy && IsWindowVisible(window) && Shown() == kChecking);
        EXPECT_EQ(TakeOperations(), Operations{L"CheckForUpdates"});
    }
}

TEST_F(UpdateTest, TheTrayMenuWorksWhileItChecks)
{
    timing.transportSecond = 10'000; // the check hangs until the agent ends
    Agent().SetFault(L"CheckForUpdates", {FaultKind::Silent, {}});
    MainCommand(kUpdate);
    MainCommand(kTrayAbout);
    ASSERT_NE(AboutWindow(), nullptr);
    SendMessageW(AboutWindow(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(Shown(), kChecking);
    MainCommand(kPauseOneHour); // sends the console to the tray, this window too
    EXPECT_TRUE(!IsWindowVisible(window) && !IsWindowVisible(main) && IsEnabled(main));
    TakeOperations();
    MainCommand(kTrayVoltaro);
    MainCommand(kUpdate); // the check that still runs is not made twice
    EXPECT_EQ(Shown(), kChecking);
    Agent().Stop();
    ASSERT_TRUE(Agent().Start(Agent().Port()) && WaitForOutcome());
    static_cast<void>(WaitServingWindows(nullptr, 100));
    EXPECT_EQ(TakeOperations(), Operations{});
    EXPECT_EQ(
        Shown(), L"Could not update, service not responding.|Please check if service is running and try again.|ok");
    Command(WindowId::Update, IDOK);
    EXPECT_EQ(Shown(), L"free");
}

} // namespace voltaro
