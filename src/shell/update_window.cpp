#include "shell/update_window.h"

#include "console/state.h"

namespace voltaro {
namespace {

constexpr int kBar = 6016;
constexpr int kBarEnd = 200;
constexpr int kBarStep = 10;
constexpr DWORD kBarStepMs = 250;

void SetBar(int position)
{
    SendDlgItemMessageW(WindowOf(WindowId::Update), kBar, PBM_SETPOS, static_cast<WPARAM>(position), 0);
}

} // namespace

void RunUpdateCheck() { }

void AnimateUpdateBar()
{
    if (state.busyAnimation != 1)
        return;
    state.busyAnimation = 0;
    for (int position = 0; state.updateBusy; position = position == kBarEnd ? 0 : position + kBarStep) {
        SetBar(position);
        Sleep(kBarStepMs);
    }
    SetBar(kBarEnd);
}

} // namespace voltaro
