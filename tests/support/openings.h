#pragma once

#include "console/windows.h"
#include "shell/main_commands.h"

namespace voltaro {

// A window, what opens it (a command of the main window, a button of another one), its help page, how many requests its
// opening makes and how many tab stops its pages have then, how many requests F5 makes, the key that closes it and
// whether its work is a worker's. Count stands for the about box.
struct Opening {
    WindowId window, opener;
    int command;
    const wchar_t *button, *page;
    std::size_t reads, stops, requests = 0;
    WORD closes = VK_ESCAPE;
    bool works = false;
};
// clang-format off
inline constexpr Opening kOpenings[] = {
    {WindowId::Main,          WindowId::Main,            0,              nullptr,       L"Main Window.htm", 0, 12, 6, 0},
    {WindowId::SystemInfo,    WindowId::Main,            kSystemInfo,    nullptr,       L"System Info.htm", 0, 21, 1, VK_ESCAPE, true},
    {WindowId::Scheme,        WindowId::Main,            kPowerScheme,   nullptr,       L"advanced.htm", 3, 37, 3, VK_ESCAPE, true},
    {WindowId::Policy,        WindowId::Scheme,          0,              L"New ..",     L"advanced.htm", 0, 5},
    {WindowId::Rule,          WindowId::Policy,          0,              L"Add Rule..", L"advanced.htm", 0, 14},
    {WindowId::JobList,       WindowId::Main,            kJobScheduler,  nullptr,       L"Job Scheduler.htm", 1, 6},
    {WindowId::JobEditor,     WindowId::JobList,         0,              L"Add Job..",  L"Job Scheduler.htm", 0, 26},
    {WindowId::DeviceControl, WindowId::Main,            kSecurity,      nullptr,       L"system security.htm", 1, 9, 1},
    {WindowId::AccessControl, WindowId::Main,            kPorts,         nullptr,       L"access control.htm", 1, 9, 1},
    {WindowId::Snooze,        WindowId::Main,            kSnooze,        nullptr,       L"snooze.htm", 1, 7, 1},
    {WindowId::Proxy,         WindowId::Main,            kProxy,         nullptr,       L"proxy settings.htm", 1, 9, 1},
    {WindowId::Battery,       WindowId::Main,            kBatteryInfo,   nullptr,       L"battery info.htm", 1, 1, 1},
    {WindowId::Savings,       WindowId::Main,            kSavingsReport, nullptr,       L"powercalculations.htm", 0, 12, 2},
    {WindowId::Profile,       WindowId::Savings,         0,              L"&Power Consumption Settings", L"powercalculations.htm", 1, 5, 1},
    {WindowId::Activation,    WindowId::Main,            kActivate,      nullptr,       L"activation.htm", 2, 4},
    {WindowId::Update,        WindowId::Main,            kUpdate,        nullptr,       L"update.htm", 1, 1, 0, VK_RETURN, true},
    {WindowId::Count,         WindowId::Main,            kAbout,         nullptr,       L"Main Window.htm", 3, 2},
};
// clang-format on

} // namespace voltaro
