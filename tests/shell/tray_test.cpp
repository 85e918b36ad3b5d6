#include "shell/tray.h"

#include "console/ui_calls.h"
#include "shell/main_commands.h"
#include "support/box_script.h"
#include "support/fake_tray.h"
#include "support/program.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

#include <thread>

namespace voltaro {
namespace {

void LeftClick()
{
    SendMessageW(WindowOf(WindowId::Main), kTrayMessage, 9013, WM_LBUTTONUP);
    Pump();
}

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
    RemoveTrayIcon();
    SendMessageW(main, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
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
    program.Command(WindowId::Main, kMenuExitToTray);
    EXPECT_FALSE(IsWindowVisible(main));
    program.TakeOperations();
    LeftClick();
    EXPECT_TRUE(IsWindowVisible(main));
    EXPECT_EQ(program.TakeOperations(), std::vector<std::wstring>{L"GetBatteryInfo"});
    program.Agent().Stop();
    BoxScript boxes{{L"Connection Issue", {}}};
    LeftClick();
    LeftClick(); // told once
    EXPECT_TRUE(IsWindowVisible(main));
}

// The shell sends its news, and Windows a change of the power source, also while a request waits for its answer.
TEST(TrayTest, NewsInTheMidstOfARequestFollowIt)
{
    LoadedProgram program;
    const HWND main = WindowOf(WindowId::Main);
    program.Agent().SetFault(L"GetBatteryInfo", {simulator::FaultKind::Late, L"200"});
    std::thread shell([main] {
        Sleep(50);
        SendNotifyMessageW(main, kTrayMessage, 9013, WM_LBUTTONUP);
        SendNotifyMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    });
    LeftClick(); // asks for the battery itself, and nobody calls the agent lost
    shell.join();
    Pump();
    EXPECT_EQ(program.TakeOperations(), Operations(3, L"GetBatteryInfo"));
    EXPECT_TRUE(state.connected);
}

} // namespace
} // namespace voltaro
