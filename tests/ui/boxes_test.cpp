#include "ui/boxes.h"

#include "base/handles.h"
#include "support/box_script.h"
#include "support/test_window.h"
#include "ui/ui_thread.h"
#include "ui/waiting.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>

namespace voltaro {

constexpr Box kQuestion{L"Close ?", L"Do you want to close?", BoxIcon::Information, BoxButtons::YesNo};

// Boxes as the program shows them, without the test program's own function in front.
struct RealBox : testing::Test {
    RealBox() { platformCalls.showMessageBox = nullptr; }
    ~RealBox() override { platformCalls.showMessageBox = &FailOnBox; }

    TestWindow m_owner;
};

TEST_F(RealBox, ClosesItselfTakesTheQuitBackAndLeavesItsOwnerAsItWas)
{
    for (const BOOL enabled : {TRUE, FALSE}) {
        EnableWindow(m_owner.Get(), enabled);
        const ULONGLONG start = GetTickCount64();
        EXPECT_EQ(AskWithTimeout(m_owner.Get(), kQuestion, 300), Answer::TimedOut);
        const ULONGLONG taken = GetTickCount64() - start;
        EXPECT_TRUE(taken >= 250 && taken < 3000) << taken;
        EXPECT_TRUE(IsWindowEnabled(m_owner.Get()) == enabled && FindWindowW(nullptr, kQuestion.caption) == nullptr);
        EXPECT_EQ(QuitCode(), std::nullopt);
    }
}

TEST_F(RealBox, AnAnswerInTimeStopsTheTimerAndTheEndOfTheProgramIsNoTimeOut)
{
    SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR timer, DWORD) {
        if (const HWND box = FindWindowW(nullptr, kQuestion.caption)) {
            KillTimer(nullptr, timer);
            SendMessageW(box, WM_COMMAND, IDYES, 0);
        }
    });
    EXPECT_TRUE(AskWithTimeout(m_owner.Get(), kQuestion, 2000) == Answer::Yes && QuitCode() == std::nullopt);
    SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        PostQuitMessage(7);
    });
    EXPECT_TRUE(AskWithTimeout(m_owner.Get(), kQuestion, 2000) == Answer::No && QuitCode() == 7);
}

TEST_F(RealBox, SuppressedBoxesAnswerUnseen)
{
    SuppressMessageBoxes();
    ShowMessage(nullptr, {L"Failed", L"Never shown."});
    EXPECT_TRUE(!AskQuestion(nullptr, kQuestion) && AskWithTimeout(nullptr, kQuestion, 5000) == Answer::TimedOut);
}

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
        for (int i = 0; i < 20; ++i, Sleep(5))
            answered += SendMessageTimeoutW(window.Get(), WM_NULL, 0, 0, SMTO_BLOCK, 50, nullptr) != 0;
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
    EXPECT_EQ(QuitCode(), 5);
}

} // namespace voltaro
