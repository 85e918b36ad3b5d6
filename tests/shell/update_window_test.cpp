#include "shell/update_window.h"

#include "link/exchange.h"
#include "support/program.h"

namespace voltaro {

constexpr int kBar = 6016, kTitle = 8501, kDetail = 8502, kCloseVoltaro = 8504, kOk = 8505;
constexpr const wchar_t* kWait = L"Please wait, Voltaro is checking for updates...||";

struct UpdateTest : testing::Test, LoadedProgram {
    UpdateTest() { EXPECT_TRUE(StartWorkers()); }
    ~UpdateTest() override { StopWorkers(StopOrder::MainWindowDestroyed); }

    bool Visible(int id) const { return IsWindowVisible(ControlOf(window, id)) != FALSE; }
    // The two texts and the buttons.
    std::wstring Shown() const
    {
        return TextOf(window, kTitle) + L"|" + TextOf(window, kDetail) + L"|"
            + (Visible(kCloseVoltaro) ? L"close" : L"") + (Visible(kOk) ? L"ok" : L"");
    }
    bool WaitForOutcome() const
    {
        return WaitFor([this] { return !Visible(kBar) && !updateBusy; });
    }
    void Script(const wchar_t* status, const wchar_t* message)
    {
        AnswerWith(
            L"CheckForUpdates", Format(L"<vltp><response><s>%ls</s><m>%ls</m></response></vltp>", status, message));
    }
    void ExpectChecking() const
    {
        EXPECT_TRUE(IsWindowVisible(window) && Visible(kBar));
        EXPECT_EQ(Shown(), kWait);
        EXPECT_FALSE(IsEnabled(main) || IsConsoleReady());
    }
    void ExpectIdle() const
    {
        EXPECT_FALSE(IsWindowVisible(window));
        EXPECT_EQ(Shown().substr(0, std::wstring_view(kWait).size()), kWait);
        EXPECT_TRUE(IsMainFree());
    }

    const HWND window = WindowOf(WindowId::Update);
};

TEST_F(UpdateTest, ShowsTheOutcomeOfEveryAnswer)
{
    constexpr wchar_t kLatest[] = L"You are already using the latest version of Voltaro.";
    constexpr wchar_t kNetwork[] = L"Please check your network connection and try again.";
    constexpr wchar_t kLater[] = L"VOLTARO update failed, please try after some time.";
    constexpr wchar_t kDownloaded[] = L"New updates were successfully downloaded.|"
                                      L"Voltaro needs to be closed for applying new updates.|close";
    const struct {
        const wchar_t *status, *message; // no status: the agent closes without an answer
        const wchar_t* shown;            // "*" for the message
    } kRows[] = {
        {L"Failure", kLatest, L"*||ok"},
        {L"Failure", kNetwork, L"Could not update, connection closed.|*|ok"},
        {L"", kLater, L"Could not update, connection failed.|*|ok"},
        {L"success", L"", kDownloaded},
        {L"Success", kLatest, kDownloaded},
        {nullptr, L"",
            L"Could not update, service not responding.|Please check if service is running and try again.|ok"},
    };
    for (const auto& row : kRows) {
        if (row.status)
            Script(row.status, row.message);
        else
            AnswerWith(L"CheckForUpdates", kNoAnswer);
        MainCommand(kUpdate);
        EXPECT_FALSE(IsEnabled(main));
        ASSERT_TRUE(WaitForOutcome()) << row.shown;
        EXPECT_EQ(Shown(), Replaced(row.shown, L"*", row.message));
        EXPECT_FALSE(IsEnabled(main));
        Command(WindowId::Update, kOk);
        ExpectIdle();
    }
}

TEST_F(UpdateTest, GoesOnWaitingAfterAnAnswerThatItDoesNotKnow)
{
    for (const wchar_t* message : {L"Come back tomorrow.", L"", L"</m>"}) { // the last is no document
        Script(L"Failure", message);
        MainCommand(kUpdate);
        EXPECT_TRUE(WaitFor([this] {
            return !Agent().Requests().empty() && !IsHeld(Operation::CheckForUpdates)
                && SendDlgItemMessageW(window, kBar, PBM_GETPOS, 0, 0) > 0;
        }));
        static_cast<void>(WaitServingWindows(nullptr, 100)); // what would follow the answer
        ExpectChecking();
        EXPECT_TRUE(updateBusy);
        SendMessageW(window, WM_CLOSE, 0, 0);
        Command(WindowId::Update, IDOK);
        Command(WindowId::Update, IDCANCEL);
        ExpectChecking();
        EXPECT_EQ(TakeOperations(), Operations{L"CheckForUpdates"});
    }
    EXPECT_EQ(SendDlgItemMessageW(window, kBar, PBM_GETBARCOLOR, 0, 0), RGB(0, 0, 192));
}

TEST_F(UpdateTest, TheTrayMenuWorksWhileItChecks)
{
    timing.transportSecond = 10'000; // the check hangs until the agent ends
    Agent().SetFault(L"CheckForUpdates", {FaultKind::Silent, {}});
    MainCommand(kUpdate);
    MainCommand(kTrayAbout);
    ASSERT_NE(AboutWindow(), nullptr);
    SendMessageW(AboutWindow(), WM_COMMAND, IDCANCEL, 0);
    ExpectChecking();
    MainCommand(kPauseOneHour); // sends the console to the tray, this window too
    EXPECT_TRUE(!IsWindowVisible(window) && !IsWindowVisible(main) && IsEnabled(main));
    TakeOperations();
    MainCommand(kTrayVoltaro);
    MainCommand(kUpdate); // the check that still runs is not made twice
    ExpectChecking();
    EXPECT_TRUE(TakeOperations().empty());
    Agent().Stop();
    ASSERT_TRUE(WaitForOutcome());
    EXPECT_TRUE(Visible(kOk));
    Command(WindowId::Update, IDOK);
    ExpectIdle();
}

TEST_F(UpdateTest, ClosesTheProgramForAnUpdate)
{
    Script(L"Success", L"");
    MainCommand(kUpdate);
    ASSERT_TRUE(WaitForOutcome());
    boxes.Expect({{L"Close Voltaro Console",
        L"Voltaro Console needs to be closed for applying update\n\nVoltaro will automatically close in 5 Seconds.",
        Answer::TimedOut}});
    SendMessageW(window, WM_COMMAND, kCloseVoltaro, 0);
    EXPECT_FALSE(IsWindow(main));
    MSG quit{};
    EXPECT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(quit.wParam, 0U);
}

} // namespace voltaro
