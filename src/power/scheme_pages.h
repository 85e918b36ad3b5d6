#pragma once

#include "base/windows_api.h"
#include "link/records.h"

namespace voltaro {

// The controls that show a setting.
enum SchemeControl : int {
    kWorkingBrightness = 4101,
    kIdleBrightness,
    kDim,
    kMonitorOff,
    kLock,
    kScreenSaverOff,
    kHardDisk = 4121,
    kSchemeLogOff,
    kSleepChoice,
    kShutdownChoice,
    kStandbyTime,
    kHibernateTime,
    kShutdownTime,
    kResumePassword,
    kScript,
    kDownloads,
    kPrinter,
    kCpuLoadCheck,
    kCpuLoad,
    kProcessorSpeed = 4141,
    kPolicyList,
};

inline constexpr const wchar_t* kNoPolicy = L"(None)"; // the first entry of the policy list; stored as an empty name

// The messages of the pages "Display Control" and "Poweroff Options".
LRESULT CALLBACK SchemeDisplayProc(HWND window, UINT message, WPARAM w, LPARAM l);
LRESULT CALLBACK SchemePowerOffProc(HWND window, UINT message, WPARAM w, LPARAM l);

// The editor's three child windows have one rectangle. The two pages are clipped to its upper part, the processor strip
// to the lower one, so that none paints over another.
inline constexpr int kSchemePageWidth = 532;
inline constexpr int kSchemePageBottom = 312;
inline constexpr int kStripTop = 317;
inline constexpr int kStripBottom = 365;
// Clips a child window to the rows from `top` to `bottom`, pixels of its client area.
void ClipToRows(HWND page, int top, int bottom);

// Shows a scheme's settings in the controls of the pages and the strip.
void ShowSettings(const PowerSchemeSettings& settings);

// The settings shown last, with what the user changed since. What was empty is what its control shows, and so is a time
// shown as "Disabled".
[[nodiscard]] PowerSchemeSettings EditedSettings();

// Enables or greys the controls that show a setting; the CPU load only while its condition is checked.
void EnableSettings(bool enabled);

} // namespace voltaro
