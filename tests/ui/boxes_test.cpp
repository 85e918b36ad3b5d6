#include "ui/boxes.h"

#include "support/box_script.h"
#include "support/test_window.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <utility>

namespace voltaro {
namespace {

constexpr Box kQuestion{L"Close ?", L"Do you want to close?", BoxIcon::Information, BoxButtons::YesNo};

// The door as the program has it; the test program's own stands in front of it by the time a test runs.
const BoxDoor realDoor = boxDoor;

class RealBox : public testing::Test {
protected:
    RealBox() { boxDoor = realDoor; }
    ~RealBox() override { boxDoor = &FailOnBox; }

    // Presses a button of the box as soon as it is there.
    static void PressLater(int button)
    {
        static int pressed;
        pressed = button;
        SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR timer, DWORD) {
            const HWND box = FindWindowW(nullptr, kQuestion.caption);
            if (box == nullptr)
                return;
            KillTimer(nullptr, timer);
            SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(pressed), 0);
        });
    }

    TestWindow m_owner;
};

TEST_F(RealBox, ClosesItselfTakesTheQuitBackAndFreesItsOwner)
{
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(AskFor(m_owner.Get(), kQuestion, 300), Answer::TimedOut);
    const ULONGLONG taken = GetTickCount64() - start;
    EXPECT_GE(taken, 250u);
    EXPECT_LT(taken, 3000u);
    EXPECT_TRUE(IsWindowEnabled(m_owner.Get()));
    EXPECT_EQ(FindWindowW(nullptr, kQuestion.caption), nullptr);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(RealBox, LeavesADisabledOwnerDisabled)
{
    EnableWindow(m_owner.Get(), FALSE);
    EXPECT_EQ(AskFor(m_owner.Get(), kQuestion, 100), Answer::TimedOut);
    EXPECT_FALSE(IsWindowEnabled(m_owner.Get()));
}

TEST_F(RealBox, AnAnswerInTimeStopsTheTimer)
{
    PressLater(IDYES);
    EXPECT_EQ(AskFor(m_owner.Get(), kQuestion, 2000), Answer::Yes);
    PressLater(IDNO);
    EXPECT_EQ(AskFor(m_owner.Get(), kQuestion, 2000), Answer::No);
    PressLater(IDYES);
    EXPECT_TRUE(Ask(m_owner.Get(), kQuestion));
    Sleep(50);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(RealBox, TheEndOfTheProgramIsNotTakenForATimeOut)
{
    SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        PostQuitMessage(7);
    });
    EXPECT_EQ(AskFor(m_owner.Get(), kQuestion, 2000), Answer::No);
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(RealBox, AClosedDoorAnswersUnseen)
{
    CloseDoor();
    Tell(nullptr, {L"Failed", L"Never shown."});
    EXPECT_FALSE(Ask(nullptr, kQuestion));
    EXPECT_EQ(AskFor(nullptr, kQuestion, 5000), Answer::TimedOut);
}

TEST(BoxScript, AnswersInOrderAndFailsOnAnythingElse)
{
    BoxScript script{{L"Close ?", L"want to close", Answer::Yes}, {L"Failed", L"for Balanced."}};
    EXPECT_TRUE(Ask(nullptr, kQuestion));
    Tell(nullptr, {L"Failed", L""}, L"Unable for Balanced.");
    script.ExpectAllSeen();
    EXPECT_NONFATAL_FAILURE(Tell(nullptr, kQuestion), "unexpected box");
    script.Expect({{L"Other", L""}});
    EXPECT_NONFATAL_FAILURE(Tell(nullptr, kQuestion), "in the place of");
    EXPECT_NONFATAL_FAILURE(script.ExpectAllSeen(), "no box");
}

} // namespace
} // namespace voltaro
