#include "ui/menus.h"

#include <gtest/gtest.h>

#include <iterator>

namespace voltaro {
namespace {

constexpr MenuItem kPauseRows[] = {{L"For &1 Hour", 31}, {L"For &2 Hours", 32}};
constexpr MenuItem kFileRows[] = {{L"&Open", 11}, SharedPopup(L"&Pause"), kSeparator, {L"&Close", 12}};
constexpr MenuItem kBarRows[] = {Popup(L"&File", kFileRows), {L"&Refresh", 20}};
constexpr MenuItem kTrayRows[] = {{L"Close", 41}, SharedPopup(L"Pause")};

TEST(Menus, ASharedPopupOutlivesTheMenusThatShowIt)
{
    const UniqueMenu pause = BuildPopup(kPauseRows, std::size(kPauseRows));
    {
        const UniqueMenu bar = BuildMenuBar(kBarRows, std::size(kBarRows), pause.Get());
        const UniqueMenu tray = BuildPopup(kTrayRows, std::size(kTrayRows), pause.Get());
        ASSERT_EQ(GetMenuItemCount(bar.Get()), 2);
        const HMENU file = GetSubMenu(bar.Get(), 0);
        EXPECT_EQ(GetSubMenu(file, 1), pause.Get());
        EXPECT_NE(GetMenuState(file, 2, MF_BYPOSITION) & MF_SEPARATOR, 0u);
        EnableItem(bar.Get(), 31, false);
        EXPECT_FALSE(IsItemEnabled(tray.Get(), 31)) << "one menu shown in two places";
        EXPECT_TRUE(IsItemEnabled(tray.Get(), 32));
        EnableItem(bar.Get(), 99, true);
        EXPECT_FALSE(IsItemEnabled(bar.Get(), 99));
        RemoveShared(bar.Get(), pause.Get());
        RemoveShared(tray.Get(), pause.Get());
        EXPECT_EQ(GetMenuItemCount(file), 3);
    }
    EXPECT_EQ(GetMenuItemCount(pause.Get()), 2);
}

} // namespace
} // namespace voltaro
