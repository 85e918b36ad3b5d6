#pragma once

#include "base/windows_api.h"
#include "power/scheme_form.h"

namespace voltaro {

// The messages of the pages "Display Control" and "Poweroff Options".
LRESULT CALLBACK SchemeDisplayProc(HWND window, UINT message, WPARAM w, LPARAM l);
LRESULT CALLBACK SchemePowerOffProc(HWND window, UINT message, WPARAM w, LPARAM l);

// The editor's three child windows lie one upon the other. The two pages keep to the upper part, the processor strip to
// the lower one, so that none paints over another.
inline constexpr int kSchemePageWidth = 532;
inline constexpr int kSchemePageFoot = 312;
inline constexpr int kStripTop = 317;
inline constexpr int kStripFoot = 365;
// Cuts a child window to the rows from `top` to `foot`, pixels of its client area.
void KeepTo(HWND page, int top, int foot);

// Shows a scheme's settings in the controls of the pages and the strip.
void ShowSettings(const PowerSchemeSettings& settings);

// The settings shown last, with what the user changed since.
[[nodiscard]] PowerSchemeSettings EditedSettings();

// Enables or greys the controls that show a setting; the CPU load only while its condition is checked.
void EnableSettings(bool enabled);

} // namespace voltaro
