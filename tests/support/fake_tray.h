#pragma once

#include "base/windows_api.h"

#include <string>
#include <vector>

namespace voltaro {

// One call to the notification area, as the shell receives it.
struct TrayCall {
    ULONG_PTR what; // NIM_ADD, NIM_MODIFY, NIM_DELETE
    DWORD window;
    UINT id;
    UINT callback;
    std::wstring tooltip;
    std::string icon; // its pixels
};

// Stands in the place of the shell's notification area while it lives and receives every program's calls. Under Wine
// alone: the form of the calls is the platform's own affair.
class FakeTray {
public:
    FakeTray();
    ~FakeTray();
    FakeTray(const FakeTray&) = delete;
    FakeTray& operator=(const FakeTray&) = delete;

    // From then on the shell takes no new icon, or takes them again.
    void RefuseIcons(bool refuse) { m_refuses = refuse; }
    [[nodiscard]] const std::vector<TrayCall>& Calls() const { return m_calls; }
    void ForgetCalls() { std::vector<TrayCall>().swap(m_calls); }
    [[nodiscard]] const TrayCall& Last() const { return m_calls.back(); }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);

    std::vector<TrayCall> m_calls;
    HWND m_window;
    bool m_refuses = false;
};

} // namespace voltaro
