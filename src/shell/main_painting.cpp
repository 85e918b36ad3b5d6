#include "base/computer_name.h"
#include "base/text.h"
#include "console/activation.h"
#include "console/agent_records.h"
#include "console/connection_state.h"
#include "resources/resource_ids.h"
#include "shell/main_window.h"
#include "ui/canvas.h"
#include "ui/theme.h"

namespace voltaro {
namespace {

struct PaintedBitmap {
    int resource;
    int x;
    int y;
    int width;
    int height;
};

struct PaintedText {
    int x;
    int y;
    const wchar_t* text;
};

// clang-format off
constexpr PaintedBitmap kPictures[] = {
    {IDB_WORDMARK, 19,   5,  69,  20},
    {IDB_EMBLEM,   20,  35,  65,  65},
};
// Lies under the notice, whose colour with high contrast is not made for it.
constexpr PaintedBitmap kBanner = {IDB_BANNER, 0, 420, 510, 100};

constexpr PaintedText kTexts[] = {
    {515, 110, L"Connected to :"}, // both stand outside the window and never show
    {515, 130, L"Connect to :"},
    {165, 470, kNoticeLine},
    {255, 485, kRightsLine},
};
// clang-format on

constexpr PaintedBitmap kLicensePicture = {0, 255, 6, 125, 16};

// The indicators: a picture and a text for the power source and for the battery.
constexpr PaintedBitmap kBatteryPlace = {0, 184, 112, 32, 32};
constexpr POINT kBatteryText = {229, 128};
constexpr POINT kRemainingText = {229, 146};
constexpr PaintedBitmap kSourcePlace = {0, 352, 112, 32, 32};
constexpr POINT kSourceText = {392, 121};

struct Indicator {
    const wchar_t* text; // null: any other text that is not empty
    int resource;
};

constexpr Indicator kSources[] = {{L"On AC", IDB_SOURCE_AC}, {nullptr, IDB_SOURCE_BATTERY}};
constexpr Indicator kBatteryStates[] = {
    {kNoBattery, IDB_BATTERY_NONE},
    {L"Charging", IDB_BATTERY_CHARGING},
    {L"Unknown status", IDB_BATTERY_UNKNOWN},
    {nullptr, IDB_BATTERY_DISCHARGING},
};

void DrawPicture(HDC dc, int resource, const PaintedBitmap& place)
{
    DrawTransparentBitmap(dc, resource, place.x, place.y, place.width, place.height);
}

void DrawIndicator(HDC dc, std::wstring_view text, const Indicator* rows, const PaintedBitmap& place, POINT textPlace)
{
    if (text.empty())
        return;
    while (rows->text && !EqualsIgnoreCase(rows->text, text))
        ++rows;
    DrawPicture(dc, rows->resource, place);
    DrawTextAt(dc, textPlace.x, textPlace.y, text, FontOf(15, 400), kTextGreen);
}

int LicensePicture()
{
    switch (LicenseOf(agentRecords.activationStatus)) {
    case License::NotActivated: return IDB_LICENSE_INACTIVE;
    case License::Expired: return IDB_LICENSE_EXPIRED;
    case License::Active: break;
    }
    return IDB_LICENSE_ACTIVE;
}

} // namespace

std::wstring HostLineText()
{
    if (connection.connected)
        return L"Hostname :" + ComputerName();
    return connection.detailsAnswered ? L"Initializing, please wait .." : L"Not initialized.";
}

void DrawMainWindow(HDC dc)
{
    for (const PaintedBitmap& picture : kPictures)
        DrawPicture(dc, picture.resource, picture);
    if (!HasHighContrast())
        DrawPicture(dc, kBanner.resource, kBanner);
    if (!agentRecords.activationStatus.empty())
        DrawPicture(dc, LicensePicture(), kLicensePicture);
    if (connection.connected) {
        DrawIndicator(dc, agentRecords.battery.PowerSource(), kSources, kSourcePlace, kSourceText);
        DrawIndicator(dc, agentRecords.battery.Status(), kBatteryStates, kBatteryPlace, kBatteryText);
        DrawTextAt(
            dc, kRemainingText.x, kRemainingText.y, agentRecords.battery.RemainingTime(), FontOf(15, 400), kTextGreen);
    }
    for (const PaintedText& text : kTexts)
        DrawTextAt(dc, text.x, text.y, text.text, FontOf(15, 400), kTextGreen);
}

} // namespace voltaro
