#include "ui/waiting.h"

#include "base/handles.h"
#include "support/test_window.h"
#include "ui/ui_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace voltaro {

TEST(WaitingTest, AWaitAnswersProbesAndPaintsWithoutSpinningButLeavesInput)
{
    int paints = 0, keys = 0;
    const TestWindow window([&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        keys += message == WM_KEYDOWN;
        if (message != WM_PAINT)
            return std::nullopt;
        ++paints;
        return 0; // not validated: it never stops asking
    });
    paints = 0;
    PostMessageW(window.Get(), WM_KEYDOWN, 'X', 0);
    std::atomic<int> answered = 0;
    std::thread prober([&] {
        for (int i = 0; i < 20; ++i) {
            DWORD_PTR result = 0;
            answered += SendMessageTimeoutW(window.Get(), WM_NULL, 0, 0, SMTO_BLOCK, 50, &result) != 0;
            Sleep(5);
        }
    });
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(WaitServingWindows(nullptr, 500), Waited::TimedOut);
    EXPECT_LT(GetTickCount64() - start, 700U);
    prober.join();
    EXPECT_EQ(answered, 20);
    EXPECT_TRUE(paints > 5 && paints < 250) << paints;
    EXPECT_EQ(keys, 0) << "input waits for the message loop";
    ValidateRect(window.Get(), nullptr);
    Pump();
    EXPECT_EQ(keys, 1);
}

TEST(WaitingTest, EndsAtOnceForItsHandleOrTheProgramAndLeavesTheQuitMessage)
{
    const UniqueHandle event(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    PostQuitMessage(5);
    const ULONGLONG start = GetTickCount64();
    std::thread setter([&] {
        Sleep(50);
        SetEvent(event.Get());
    });
    EXPECT_EQ(WaitServingWindows(event.Get(), 5'000), Waited::Signalled);
    setter.join();
    EXPECT_EQ(WaitServingWindows(event.Get(), 50), Waited::TimedOut);
    EndWaits();
    EXPECT_EQ(WaitServingWindows(event.Get(), 5'000), Waited::Ending);
    SetEvent(event.Get());
    EXPECT_EQ(WaitServingSentMessages(event.Get(), 5'000), Waited::Signalled);
    AllowWaits();
    EXPECT_LT(GetTickCount64() - start, 1'000u);
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 5u);
}

} // namespace voltaro
