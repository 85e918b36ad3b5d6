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
    SendMessageW(main, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    Pump();
    RemoveTrayIcon();
    const ULONG_PTR expected[] = {NIM_ADD, NIM_MODIFY, NIM_ADD, NIM_DELETE};
    ASSERT_EQ(tray.Calls().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const TrayCall& call = tray.Calls()[i];
        EXPECT_EQ(call.what, expected[i]);
        EXPECT_EQ(call.window, static_cast<DWORD>(reinterpret_cast<DWORD_PTR>(main)));
        EXPECT_EQ(call.id, 9013U);
        EXPECT_EQ(call.callback, 1025U);
    }
    EXPECT_EQ(tray.Calls()[0].tooltip, L"Voltaro - Standard Edition  \n[ Version : 1.06.006.000 ]");
    EXPECT_EQ(tray.Calls()[2].tooltip, std::wstring(127, L'x'));
    EXPECT_EQ(tray.Calls()[2].icon, tray.Calls()[1].icon);
    EXPECT_NE(tray.Calls()[1].icon, tray.Calls()[0].icon);
}

TEST(TrayTest, ALeftClickRestoresOnceTheConsoleWasLoaded)
{
    ConsoleProgram program;
    const HWND main = WindowOf(WindowId::Main);
    LeftClick();
    EXPECT_FALSE(IsWindowVisible(main));
    EXPECT_TRUE(program.TakeOperations().empty());
    program.Load();
    program.MainCommand(kMenuExitToTray);
    EXPECT_FALSE(IsWindowVisible(main));
    program.TakeOperations();
    LeftClick();
    EXPECT_TRUE(IsWindowVisible(main));
    EXPECT_EQ(program.TakeOperations(), std::vector<std::wstring>{L"GetBatteryInfo"});
    program.Agent().Stop();
    program.boxes.Expect({{L"Connection Issue", {}}});
    LeftClick();
    LeftClick(); // told once
    EXPECT_TRUE(IsWindowVisible(main));
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

static int messagesDuringBox = 0;
static ConsoleProgram* programOfBox = nullptr;

// A box that is open for a while, as a message loop of its own, in which the shell reports all it can.
static Answer OpenForAWhile(const BoxCall& call)
{
    const HWND main = WindowOf(WindowId::Main);
    programOfBox->TakeOperations();
    for (const LPARAM mouse : {WM_MOUSEMOVE, WM_LBUTTONUP, WM_MOUSEMOVE, WM_LBUTTONUP})
        PostMessageW(main, kTrayMessage, 9013, mouse);
    for (int i = 0; i < 10; ++i)
        SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    MSG message;
    for (const ULONGLONG end = GetTickCount64() + 200; GetTickCount64() < end; Sleep(1)) {
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
            ++messagesDuringBox;
        }
    }
    EXPECT_EQ(programOfBox->TakeOperations(), Operations{}) << "no request under an open box";
    return call.buttons == BoxButtons::Ok ? Answer::Ok : Answer::No;
}

TEST_F(LoadedTrayTest, WhatComesWhileABoxIsOpenFollowsItOnce)
{
    programOfBox = this;
    messagesDuringBox = 0;
    platformCalls.showMessageBox = OpenForAWhile;
    MainCommand(kTrayClose);
    EXPECT_LT(messagesDuringBox, 100);
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
    EXPECT_EQ(tray.Last().what, static_cast<ULONG_PTR>(NIM_DELETE));
}

} // namespace voltaro
