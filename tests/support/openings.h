#pragma once

#include "console/windows.h"
#include "shell/main_commands.h"

namespace voltaro {

// A window, what opens it (a command of the main window, a button of another one), its help page, the sum of how it
// looks then, how many requests its opening makes and how many F5 makes, the key that closes it and whether its work is
// a worker's. Count stands for the about box.
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
    {WindowId::Main,          WindowId::Main,            0,              nullptr,       L"Main Window.htm", 0x36390DB3, 0, 6, 0},
    {WindowId::SystemInfo,    WindowId::Main,            kSystemInfo,    nullptr,       L"System Info.htm", 0x236BDE48, 0, 1, VK_ESCAPE, true},
    {WindowId::Scheme,        WindowId::Main,            kPowerScheme,   nullptr,       L"advanced.htm", 0x0B0E5DB5, 3, 3, VK_ESCAPE, true},
    {WindowId::Policy,        WindowId::Scheme,          0,              L"New ..",     L"advanced.htm", 0x7F05FD4C, 0},
    {WindowId::Rule,          WindowId::Policy,          0,              L"Add Rule..", L"advanced.htm", 0x9B15E130, 0},
    {WindowId::JobList,       WindowId::Main,            kJobScheduler,  nullptr,       L"Job Scheduler.htm", 0xB7A310BE, 1},
    {WindowId::JobEditor,     WindowId::JobList,         0,              L"Add Job..",  L"Job Scheduler.htm", 0x53D3956B, 0},
    {WindowId::DeviceControl, WindowId::Main,            kSecurity,      nullptr,       L"system security.htm", 0x0FE3304D, 1, 1},
    {WindowId::AccessControl, WindowId::Main,            kPorts,         nullptr,       L"access control.htm", 0xF3052425, 1, 1},
    {WindowId::Snooze,        WindowId::Main,            kSnooze,        nullptr,       L"snooze.htm", 0x61A3F2AA, 1, 1},
    {WindowId::Proxy,         WindowId::Main,            kProxy,         nullptr,       L"proxy settings.htm", 0x756BBC2A, 1, 1},
    {WindowId::Battery,       WindowId::Main,            kBatteryInfo,   nullptr,       L"battery info.htm", 0xECCC805D, 1, 1},
    {WindowId::Savings,       WindowId::Main,            kSavingsReport, nullptr,       L"powercalculations.htm", 0x2781CB67, 0, 2},
    {WindowId::Profile,       WindowId::Savings,         0,              L"&Power Consumption Settings", L"powercalculations.htm", 0xBBE33463, 1, 1},
    {WindowId::Activation,    WindowId::Main,            kActivate,      nullptr,       L"activation.htm", 0x6B057929, 2},
    {WindowId::Update,        WindowId::Main,            kUpdate,        nullptr,       L"update.htm", 0x1E531CC4, 1, 0, VK_RETURN, true},
    {WindowId::Count,         WindowId::Main,            kAbout,         nullptr,       L"Main Window.htm", 0x31F71B0E, 3},
};
// clang-format on

} // namespace voltaro
