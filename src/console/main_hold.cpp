#include "console/main_hold.h"

#include "console/windows.h"
#include "ui/boxes.h"

#include <algorithm>
#include <vector>

namespace voltaro {
namespace {

struct Hold {
    HoldReason reason;
    HWND holder;
};
std::vector<Hold> holds; // the newest last

void Drop(HoldReason reason)
{
    std::erase_if(holds, [reason](const Hold& hold) { return hold.reason == reason; });
}

} // namespace

void HoldMainWindow(HoldReason reason, HWND holder)
{
    Drop(reason);
    holds.push_back({reason, holder});
    ApplyHolds();
}

void ReleaseMainWindow(HoldReason reason)
{
    Drop(reason);
    ApplyHolds();
}

void ReleaseAllHolders()
{
    std::erase_if(holds, [](const Hold& hold) { return hold.reason != HoldReason::Check; });
    ApplyHolds();
}

bool IsConsoleReady()
{
    return std::all_of(
        holds.begin(), holds.end(), [](const Hold& hold) { return hold.reason == HoldReason::SystemInfo; });
}

HWND FrontWindow()
{
    const auto newest
        = std::find_if(holds.rbegin(), holds.rend(), [](const Hold& hold) { return IsWindow(hold.holder) != FALSE; });
    return newest != holds.rend() ? newest->holder : WindowOf(WindowId::Main);
}

void ApplyHolds()
{
    if (!holds.empty())
        EnableWindow(WindowOf(WindowId::Main), FALSE);
    else if (OpenBoxes() == 0) // else a box may hold it too; its closing applies the holds again
        EnableWindow(WindowOf(WindowId::Main), TRUE);
}

} // namespace voltaro
