#include "ui/boxes.h"

#include "support/box_script.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

#include <optional>

namespace voltaro {

constexpr Box kQuestion{L"Close ?", L"Do you want to close?", BoxIcon::Information, BoxButtons::YesNo};

// Boxes as the program shows them, without the test program's own function in front.
struct RealBox : testing::Test {
    RealBox() { platformCalls.showMessageBox = nullptr; }
    ~RealBox() override { platformCalls.showMessageBox = &FailOnBox; }

    // Takes the quit message, if there is one.
    static std::optional<int> QuitCode()
    {
        MSG message;
        const bool quit = PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE;
        return quit ? std::optional(static_cast<int>(message.wParam)) : std::nullopt;
    }

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
        EXPECT_EQ(IsWindowEnabled(m_owner.Get()), enabled);
        EXPECT_EQ(FindWindowW(nullptr, kQuestion.caption), nullptr);
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
    EXPECT_EQ(AskWithTimeout(m_owner.Get(), kQuestion, 2000), Answer::Yes);
    EXPECT_EQ(QuitCode(), std::nullopt);
    SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        PostQuitMessage(7);
    });
    EXPECT_EQ(AskWithTimeout(m_owner.Get(), kQuestion, 2000), Answer::No);
    EXPECT_EQ(QuitCode(), 7);
}

TEST_F(RealBox, SuppressedBoxesAnswerUnseen)
{
    SuppressMessageBoxes();
    ShowMessage(nullptr, {L"Failed", L"Never shown."});
    EXPECT_FALSE(AskQuestion(nullptr, kQuestion));
    EXPECT_EQ(AskWithTimeout(nullptr, kQuestion, 5000), Answer::TimedOut);
}

} // namespace voltaro
