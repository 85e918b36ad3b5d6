#include "shell/tray.h"

#include "support/fake_tray.h"
#include "support/program.h"

#include <thread>

namespace voltaro {

static void LeftClick()
{
    SendMessageW(WindowOf(WindowId::Main), kTrayMessage, 9013, WM_LBUTTONUP);
    Pump();
}

struct LoadedTrayTest : testing::Test, LoadedProgram { };

TEST(TrayTest, CallsTheShellWithOneRecord)
{
    FakeTray tray;
    ConsoleProgram program;
    const HWND main = WindowOf(WindowId::Main);
    ChangeTrayIcon(1002, L"Voltaro Paused"); // not there yet: nothing to change
    EXPECT_TRUE(tray.Calls().empty());
    AddTrayIcon(main);
    ChangeTrayIcon(1002, std::wstring(300, L'x'));
    SendMessageW(main, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    Pump();
    RemoveTrayIcon();
    RemoveTrayIcon();
    std::vector<ULONG_PTR> made;
    for (const TrayCall& call : tray.Calls()) {
        made.push_back(call.what);
        EXPECT_EQ(call.window, static_cast<DWORD>(reinterpret_cast<DWORD_PTR>(main)));
        EXPECT_TRUE(call.id == 9013 && call.callback == 1025);
    }
    ASSERT_EQ(made, (std::vector<ULONG_PTR>{NIM_ADD, NIM_MODIFY, NIM_ADD, NIM_DELETE}));
    EXPECT_EQ(tray.Calls()[0].tooltip, L"Voltaro - Standard Edition  \n[ Version : 1.06.006.000 ]");
    EXPECT_EQ(tray.Calls()[2].tooltip, std::wstring(127, L'x'));
    EXPECT_EQ(tray.Calls()[2].icon, tray.Calls()[1].icon);
    EXPECT_NE(tray.Calls()[1].icon, tray.Calls()[0].icon);
}

TEST(TrayTest, ALeftClickRestoresOnceTheConsoleWasLoaded)
{
    ConsoleProgram program;
    for (const bool loaded : {false, true}) {
        if (loaded)
            program.Load();
        program.MainCommand(kMenuExitToTray);
        program.TakeOperations();
        LeftClick();
        EXPECT_EQ(program.IsOpen(WindowId::Main), loaded);
        EXPECT_EQ(program.TakeOperations(), Operations(loaded, L"GetBatteryInfo"));
    }
}

// The shell reports clicks, and Windows a change of the power source, also while a request waits for its answer.
TEST_F(LoadedTrayTest, WhatComesDuringARequestFollowsItOnce)
{
    Agent().SetFault(L"GetBatteryInfo", {FaultKind::Late, L"200"});
    std::thread shell([this] {
        Sleep(50);
        for (int i = 0; i < 10; ++i) {
            SendNotifyMessageW(main, kTrayMessage, 9013, WM_LBUTTONUP);
            SendNotifyMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
        }
    });
    LeftClick(); // asks for the battery itself, and nobody calls the agent lost
    shell.join();
    Pump();
    EXPECT_EQ(TakeOperations(), Operations(3, L"GetBatteryInfo"));
    EXPECT_TRUE(connection.connected);
}

// A box is open for a while, as a message loop of its own, in which the shell reports all it can.
TEST_F(LoadedTrayTest, WhatComesWhileABoxIsOpenFollowsItOnce)
{
    static int messages;
    static LoadedProgram* program;
    messages = 0;
    program = this;
    platformCalls.showMessageBox = [](const BoxCall&) {
        for (const LPARAM mouse : {WM_MOUSEMOVE, WM_LBUTTONUP, WM_MOUSEMOVE, WM_LBUTTONUP})
            PostMessageW(program->main, kTrayMessage, 9013, mouse);
        for (int i = 0; i < 10; ++i)
            SendMessageW(program->main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
        MSG message;
        for (const ULONGLONG end = GetTickCount64() + 200; GetTickCount64() < end; Sleep(1)) {
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                DispatchMessageW(&message);
                ++messages;
            }
        }
        EXPECT_EQ(program->TakeOperations(), Operations{}) << "no request under an open box";
        return Answer::No;
    };
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0); // served when the box is open already
    MainCommand(kTrayClose);
    EXPECT_LT(messages, 100);
    EXPECT_EQ(TakeOperations(), Operations(2, L"GetBatteryInfo")); // one for the clicks, one for the power
}

TEST_F(LoadedTrayTest, AnIconThatIsNotTakenIsTriedAgain)
{
    FakeTray tray;
    timing.trayRetry = 20;
    tray.RefuseIcons(true);
    AddTrayIcon(main);
    MainCommand(kExitToTray);
    EXPECT_TRUE(IsWindowVisible(main) && IsIconic(main)); // where else would the user find it
    tray.RefuseIcons(false);
    EXPECT_TRUE(WaitFor([&] { return !tray.Calls().empty(); }, 3'000));
    MainCommand(kExitToTray);
    EXPECT_FALSE(IsWindowVisible(main));
    RemoveTrayIcon();
}

} // namespace voltaro
