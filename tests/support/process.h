#pragma once

#include "base/handles.h"

#include <string>

namespace voltaro {

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

} // namespace voltaro
