#include "shell/update_window.h"

#include "base/platform_calls.h"
#include "base/text.h"
#include "console/main_hold.h"
#include "link/exchange.h"
#include "shell/about.h"
#include "shell/main_menus.h"
#include "shell/workers.h"
#include "support/program.h"
#include "ui/menus.h"
#include "ui/waiting.h"

namespace voltaro {
namespace {

constexpr int kBar = 6016, kTitle = 8501, kDetail = 8502, kCloseVoltaro = 8504, kOk = 8505;
constexpr const wchar_t* kWait = L"Please wait, Voltaro is checking for updates...";

class UpdateTest : public testing::Test {
protected:
    UpdateTest() { EXPECT_TRUE(StartWorkers()); }
    ~UpdateTest() override { StopWorkers(StopOrder::MainWindowDestroyed); }

    bool Visible(int id) const { return IsWindowVisible(ControlOf(window, id)) != FALSE; }
    std::wstring Buttons() const
    {
        return std::wstring(Visible(kCloseVoltaro) ? L"close" : L"") + (Visible(kOk) ? L"ok" : L"");
    }
    bool WaitForOutcome() const
    {
        return WaitFor([this] { return !Visible(kBar) && !updateBusy; });
    }
    void Script(const wchar_t* status, const wchar_t* message)
    {
        program.AnswerWith(
            L"CheckForUpdates", Format(L"<vltp><response><s>%ls</s><m>%ls</m></response></vltp>", status, message));
    }
    void ExpectChecking() const
    {
        EXPECT_TRUE(IsWindowVisible(window));
        EXPECT_TRUE(Visible(kBar));
        EXPECT_EQ(Buttons(), L"");
        EXPECT_EQ(TextOf(window, kTitle), kWait);
        EXPECT_EQ(TextOf(window, kDetail), L"");
        EXPECT_FALSE(IsWindowEnabled(main));
        EXPECT_FALSE(IsConsoleReady());
    }
    void ExpectIdle() const
    {
        EXPECT_FALSE(IsWindowVisible(window));
        EXPECT_EQ(TextOf(window, kTitle), kWait);
        EXPECT_EQ(TextOf(window, kDetail), L"");
        EXPECT_TRUE(IsWindowEnabled(main));
        EXPECT_TRUE(IsConsoleReady());
    }

    LoadedProgram program;
    HWND main = WindowOf(WindowId::Main);
    HWND window = WindowOf(WindowId::Update);
};

TEST_F(UpdateTest, ShowsTheOutcomeOfEveryAnswer)
{
    constexpr const wchar_t* kLatest = L"You are already using the latest version of Voltaro.";
    constexpr const wchar_t* kNetwork = L"Please check your network connection and try again.";
    constexpr const wchar_t* kLater = L"VOLTARO update failed, please try after some time.";
    constexpr const wchar_t* kDownloaded = L"New updates were successfully downloaded.";
    constexpr const wchar_t* kNeedsClosing = L"Voltaro needs to be closed for applying new updates.";
    constexpr struct {
        const wchar_t *status, *message; // null: the agent closes without an answer
        const wchar_t *title, *detail, *buttons;
    } kRows[] = {
        {L"Failure", kLatest, kLatest, L"", L"ok"},
        {L"Failure", kNetwork, L"Could not update, connection closed.", kNetwork, L"ok"},
        {L"", kLater, L"Could not update, connection failed.", kLater, L"ok"},
        {L"success", L"", kDownloaded, kNeedsClosing, L"close"},
        {L"Success", kLatest, kDownloaded, kNeedsClosing, L"close"},
        {nullptr, nullptr, L"Could not update, service not responding.",
            L"Please check if service is running and try again.", L"ok"},
    };
    for (const auto& row : kRows) {
        if (row.status)
            Script(row.status, row.message);
        else
            program.Agent().SetFault(L"CheckForUpdates", {FaultKind::CloseAtOnce, {}});
        program.Command(WindowId::Main, kUpdate);
        EXPECT_FALSE(IsWindowEnabled(main));
        ASSERT_TRUE(WaitForOutcome()) << row.title;
        EXPECT_EQ(TextOf(window, kTitle), row.title);
        EXPECT_EQ(TextOf(window, kDetail), row.detail);
        EXPECT_EQ(Buttons(), row.buttons);
        EXPECT_FALSE(IsWindowEnabled(main));
        program.Command(WindowId::Update, kOk);
        ExpectIdle();
    }
}

TEST_F(UpdateTest, GoesOnWaitingAfterAnAnswerThatItDoesNotKnow)
{
    for (const wchar_t* message : {L"Come back tomorrow.", L"", L"</m>"}) { // the last is no document
        Script(L"Failure", message);
        program.Command(WindowId::Main, kUpdate);
        EXPECT_TRUE(WaitFor([this] {
            return !program.Agent().Requests().empty() && !IsHeld(Operation::CheckForUpdates)
                && SendDlgItemMessageW(window, kBar, PBM_GETPOS, 0, 0) > 0;
        }));
        static_cast<void>(WaitServingWindows(nullptr, 100)); // what would follow the answer
        ExpectChecking();
        EXPECT_TRUE(updateBusy);
        SendMessageW(window, WM_CLOSE, 0, 0);
        program.Command(WindowId::Update, IDOK);
        program.Command(WindowId::Update, IDCANCEL);
        ExpectChecking();
        EXPECT_EQ(program.TakeOperations(), Operations{L"CheckForUpdates"});
    }
    EXPECT_EQ(SendDlgItemMessageW(window, kBar, PBM_GETBARCOLOR, 0, 0), RGB(0, 0, 192));
}

TEST_F(UpdateTest, TheTrayMenuWorksWhileItChecks)
{
    timing.transportSecond = 10'000; // the check hangs until the agent ends
    program.Agent().SetFault(L"CheckForUpdates", {FaultKind::Silent, {}});
    program.Command(WindowId::Main, kUpdate);
    program.Command(WindowId::Main, kTrayAbout);
    ASSERT_NE(AboutWindow(), nullptr);
    SendMessageW(AboutWindow(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(AboutWindow(), nullptr);
    ExpectChecking();
    program.Command(WindowId::Main, kPauseOneHour); // sends the console to the tray, this window too
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_FALSE(IsWindowVisible(main));
    EXPECT_TRUE(IsWindowEnabled(main));
    program.TakeOperations();
    program.Command(WindowId::Main, kTrayVoltaro);
    program.Command(WindowId::Main, kUpdate); // the check that still runs is not made twice
    ExpectChecking();
    EXPECT_TRUE(program.TakeOperations().empty());
    program.Agent().Stop();
    ASSERT_TRUE(WaitForOutcome());
    EXPECT_EQ(Buttons(), L"ok");
    program.Command(WindowId::Update, IDOK);
    ExpectIdle();
}

TEST_F(UpdateTest, ClosesTheProgramForAnUpdate)
{
    Script(L"Success", L"");
    program.Command(WindowId::Main, kUpdate);
    ASSERT_TRUE(WaitForOutcome());
    BoxScript boxes{{L"Close Voltaro Console",
        L"Voltaro Console needs to be closed for applying update\n\nVoltaro will automatically close in 5 Seconds.",
        Answer::TimedOut}};
    SendMessageW(window, WM_COMMAND, kCloseVoltaro, 0);
    EXPECT_FALSE(IsWindow(main));
    MSG quit{};
    EXPECT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(quit.wParam, 0U);
}

} // namespace
} // namespace voltaro
