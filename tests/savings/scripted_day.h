#pragma once

#include "link/records.h"
#include "support/pixels.h"
#include "support/program.h"

namespace voltaro {

// A day worked by hand. Off until 08:00; idle from 10:00 to 12:00, of it dim 30 min and monitor off 60 min; shut down
// from 20:00 to 22:00.
inline constexpr wchar_t kScriptedDay[]
    = L"<vltp><response><details><e>QUptme # 2024/02/29 08:00:00</e><e>Istime # 2024/02/29 10:00:00</e>"
      L"<e>Dstime # 2024/02/29 10:10:00</e><e>Detime # 2024/02/29 10:40:00</e><e>Mstime # 2024/02/29 10:40:00</e>"
      L"<e>Metime # 2024/02/29 11:40:00</e><e>Ietime # 2024/02/29 12:00:00</e><e>Sdtime # 2024/02/29 20:00:00</e>"
      L"<e>SUptme # 2024/02/29 22:00:00</e></details></response></vltp>";

// Round powers: 53.75 W with the usual load, 50 W idle.
inline PowerConsumptionData RoundProfile()
{
    return {{}, L"LCD", {}, L"20.00", L"1.00", L"60.00", L"30.00", L"2.00", L"1.00", {}, {}, {}, {}};
}

// The size of the pages, and how many pixels of one have that colour.
constexpr int kWidth = 670, kHeight = 497;
inline int InkOf(WindowId page, COLORREF colour)
{
    const auto print = [](HDC dc, void* window) {
        SendMessageW(static_cast<HWND>(window), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    };
    return Pixels(RenderBitmap(kWidth, kHeight, print, WindowOf(page)).Get()).CountIn(colour, {0, 0, kWidth, kHeight});
}

} // namespace voltaro
