#pragma once

#include "base/handles.h"

#include <cstdio>
#include <string>

#include <psapi.h>

namespace voltaro {

// An installation whose host configuration holds these bytes (null: none); consoles that start from now on read it.
inline void Install(const std::wstring& name, const char* configuration)
{
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring root = folder + name + L"\\", path = root + L"conf\\hconfig.xml";
    CreateDirectoryW(root.c_str(), nullptr);
    CreateDirectoryW((root + L"conf").c_str(), nullptr);
    DeleteFileW(path.c_str());
    if (std::FILE* file = configuration ? _wfopen(path.c_str(), L"wb") : nullptr) {
        std::fputs(configuration, file);
        std::fclose(file);
    }
    SetEnvironmentVariableW(L"VOLTARO_HOME", root.c_str());
}

// The same with the port that the agent listens on.
inline void Install(const std::wstring& name, int port)
{
    const std::string number = std::to_string(port);
    Install(name, ("<Hostsettings><Localhost>Yes</Localhost><TCPPort>" + number + "</TCPPort></Hostsettings>").c_str());
}

// A process of its own, started minimised; ended by force with its owner.
class Process {
public:
    explicit Process(std::wstring command)
    {
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESHOWWINDOW;
        start.wShowWindow = SW_SHOWMINIMIZED; // ignored by the console
        PROCESS_INFORMATION made{};
        CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made);
        CloseHandle(made.hThread);
        m_process = UniqueHandle(made.hProcess);
    }
    ~Process()
    {
        TerminateProcess(m_process.Get(), 9);
        WaitForSingleObject(m_process.Get(), 5'000);
    }
    [[nodiscard]] HANDLE Get() const { return m_process.Get(); }

private:
    UniqueHandle m_process;
};

// Of a process. Wine counts them among the paged ones alone.
inline long long PrivateBytes(HANDLE process)
{
    PROCESS_MEMORY_COUNTERS_EX memory{};
    GetProcessMemoryInfo(process, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory), sizeof memory);
    return static_cast<long long>(memory.PrivateUsage ? memory.PrivateUsage : memory.PagefileUsage);
}

} // namespace voltaro
