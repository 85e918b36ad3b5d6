#pragma once

#include "console/windows.h"
#include "shell/main_commands.h"

namespace voltaro {

// A window, what opens it (a command or a button), its help page, the sum of how it looks then, how many requests its
// opening and F5 make, the key that closes it and whether its work is a worker's. Count stands for the about box.
struct Opening {
    WindowId window, opener;
    int command;
    const wchar_t *button, *page;
    std::uint32_t look;
    std::size_t reads, requests = 0;
    WORD closes = VK_ESCAPE;
    bool works = false;
};
// clang-format off
inline constexpr Opening kOpenings[] = {
    {WindowId::Main,          WindowId::Main,            0,              nullptr,       L"Main Window.htm", 0xB75421DA, 0, 6, 0},
    {WindowId::SystemInfo,    WindowId::Main,            kSystemInfo,    nullptr,       L"System Info.htm", 0xE0A47117, 0, 1, VK_ESCAPE, true},
    {WindowId::Scheme,        WindowId::Main,            kPowerScheme,   nullptr,       L"advanced.htm", 0x79FE605B, 3, 3, VK_ESCAPE, true},
    {WindowId::Policy,        WindowId::Scheme,          0,              L"New ..",     L"advanced.htm", 0x4C376B41, 0},
    {WindowId::Rule,          WindowId::Policy,          0,              L"Add Rule..", L"advanced.htm", 0x663F4EC3, 0},
    {WindowId::JobList,       WindowId::Main,            kJobScheduler,  nullptr,       L"Job Scheduler.htm", 0x855811FD, 1},
    {WindowId::JobEditor,     WindowId::JobList,         0,              L"Add Job..",  L"Job Scheduler.htm", 0x85EF449F, 0},
    {WindowId::DeviceControl, WindowId::Main,            kSecurity,      nullptr,       L"system security.htm", 0xD9A8BAEA, 1, 1},
    {WindowId::AccessControl, WindowId::Main,            kPorts,         nullptr,       L"access control.htm", 0x8BDDAEE2, 1, 1},
    {WindowId::Snooze,        WindowId::Main,            kSnooze,        nullptr,       L"snooze.htm", 0x460CBB79, 1, 1},
    {WindowId::Proxy,         WindowId::Main,            kProxy,         nullptr,       L"proxy settings.htm", 0xA44E1425, 1, 1},
    {WindowId::Battery,       WindowId::Main,            kBatteryInfo,   nullptr,       L"battery info.htm", 0xCAE6F241, 1, 1},
    {WindowId::Savings,       WindowId::Main,            kSavingsReport, nullptr,       L"powercalculations.htm", 0x89FCE152, 0, 2},
    {WindowId::Profile,       WindowId::Savings,         0,              L"&Power Consumption Settings", L"powercalculations.htm", 0x7AFED59A, 1, 1},
    {WindowId::Activation,    WindowId::Main,            kActivate,      nullptr,       L"activation.htm", 0x9854E740, 2},
    {WindowId::Update,        WindowId::Main,            kUpdate,        nullptr,       L"update.htm", 0x561FB272, 1, 0, VK_RETURN, true},
    {WindowId::Count,         WindowId::Main,            kAbout,         nullptr,       L"Main Window.htm", 0x0C3473C8, 3},
};
// clang-format on

} // namespace voltaro
