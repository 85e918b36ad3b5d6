#include "ui/boxes.h"

namespace voltaro {
namespace {

// A self-closing box that is being shown; boxes may nest.
struct TimedBox {
    UINT_PTR timer;
    bool timedOut;
    TimedBox* outer;
};
thread_local TimedBox* innermost = nullptr;
int openBoxes = 0;

// Exit code of the quit message that ends a timed box, to tell it from one that ends the program.
constexpr int kTimeOutQuit = 0x56544F;

void CALLBACK OnTimeOut(HWND, UINT, UINT_PTR timer, DWORD)
{
    for (TimedBox* box = innermost; box != nullptr; box = box->outer) {
        if (box->timer != timer || box->timedOut)
            continue;
        box->timedOut = true;
        PostQuitMessage(kTimeOutQuit);
    }
}

void TakeBackQuit()
{
    MSG message;
    if (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && message.wParam != kTimeOutQuit)
        PostQuitMessage(static_cast<int>(message.wParam)); // the program's own
}

UINT FlagsOf(const BoxCall& call)
{
    constexpr UINT kIcons[] = {0, MB_ICONINFORMATION, MB_ICONEXCLAMATION, MB_ICONQUESTION};
    const UINT buttons = call.buttons == BoxButtons::YesNo ? MB_YESNO : MB_OK;
    return buttons | kIcons[static_cast<std::size_t>(call.icon)] | MB_SETFOREGROUND;
}

Answer ShowPlain(const BoxCall& call)
{
    const HCURSOR cursor = SetCursor(LoadCursorW(nullptr, IDC_ARROW)); // no hourglass over a box
    const int pressed = MessageBoxW(call.owner, call.text.c_str(), call.caption.c_str(), FlagsOf(call));
    SetCursor(cursor);
    if (call.buttons == BoxButtons::Ok)
        return Answer::Ok;
    return pressed == IDYES ? Answer::Yes : Answer::No;
}

// A thread timer whose callback ends the box's own message loop with a quit message, which is then taken back. A box
// that ends so leaves its owner disabled.
Answer ShowTimed(const BoxCall& call)
{
    const bool ownerWasEnabled = call.owner != nullptr && IsWindowEnabled(call.owner);
    TimedBox box{SetTimer(nullptr, 0, call.milliseconds, &OnTimeOut), false, innermost};
    innermost = &box;
    const Answer answer = ShowPlain(call);
    KillTimer(nullptr, box.timer);
    innermost = box.outer;
    if (box.timedOut)
        TakeBackQuit();
    if (ownerWasEnabled)
        EnableWindow(call.owner, TRUE);
    return box.timedOut ? Answer::TimedOut : answer;
}

Answer ShowBox(const BoxCall& call)
{
    return call.milliseconds == 0 ? ShowPlain(call) : ShowTimed(call);
}

Answer AnswerUnseen(const BoxCall& call)
{
    if (call.milliseconds != 0)
        return Answer::TimedOut;
    return call.buttons == BoxButtons::Ok ? Answer::Ok : Answer::No;
}

Answer Open(HWND owner, const Box& box, const std::wstring& text, BoxButtons buttons, unsigned milliseconds)
{
    const HWND shownOwner = owner && IsWindowVisible(owner) && !IsIconic(owner) ? owner : nullptr;
    ++openBoxes;
    const Answer answer = (platformCalls.showMessageBox ? platformCalls.showMessageBox : ShowBox)(
        {shownOwner, box.caption, text, box.icon, buttons, milliseconds});
    --openBoxes;
    if (boxClosed)
        boxClosed();
    return answer;
}

} // namespace

int OpenBoxes()
{
    return openBoxes;
}

void SuppressMessageBoxes()
{
    platformCalls.showMessageBox = &AnswerUnseen;
}

void ShowMessage(HWND owner, const Box& box)
{
    ShowMessage(owner, box, box.text);
}

void ShowMessage(HWND owner, const Box& box, const std::wstring& text)
{
    Open(owner, box, text, BoxButtons::Ok, 0);
}

bool AskQuestion(HWND owner, const Box& box)
{
    return AskQuestion(owner, box, box.text);
}

bool AskQuestion(HWND owner, const Box& box, const std::wstring& text)
{
    return Open(owner, box, text, BoxButtons::YesNo, 0) == Answer::Yes;
}

Answer AskWithTimeout(HWND owner, const Box& box, unsigned milliseconds)
{
    return Open(owner, box, box.text, box.buttons, milliseconds);
}

} // namespace voltaro
