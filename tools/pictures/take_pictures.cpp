// TakePictures.exe FOLDER: drives the running console from outside and writes a bitmap of every window and page.

#include "power/scheme_pages.h"
#include "shell/main_commands.h"
#include "shell/main_window.h"
#include "shell/window_table.h"

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace voltaro {
namespace {

enum class Do : std::uint8_t {
    Command, // gives the main window the command `number` and waits for the window titled `text`
    Push,    // presses the button `text` of the window in front; Window follows when it opens one
    Window,  // waits for the window titled `text`, which is in front from now on
    Key,     // presses the key `number` in the control of class `text`
    Earlier, // sets the date to a day that is over: yesterday, or on the first of a month that day a month ago
    Choose,  // chooses the entry `number` of the list of policies
    Picture, // writes FOLDER\text.bmp
    Close,   // closes the window in front and waits until it is gone
    Hidden,  // waits until the window in front is gone
};

struct Step {
    Do what;
    const wchar_t* text = L"";
    int number = 0;
};

constexpr Step kNextPage = {Do::Key, WC_TABCONTROLW, VK_RIGHT};
constexpr Step kFirstRow = {Do::Key, WC_LISTVIEWW, VK_HOME};
constexpr Step kSecondRow = {Do::Key, WC_LISTVIEWW, VK_DOWN};

// clang-format off
constexpr Step kSteps[] = {
    {Do::Window,  kMainTitle},
    {Do::Picture, L"main_window"},

    {Do::Command, L"System Information", kSystemInfo},
    {Do::Picture, L"system_processor"}, kNextPage,
    {Do::Picture, L"system_power"}, kNextPage,
    {Do::Picture, L"system_windows"}, kNextPage,
    {Do::Picture, L"system_network"}, kNextPage,
    {Do::Picture, L"system_disks"},
    {Do::Close},

    {Do::Command, L"Battery Information", kBatteryInfo},
    {Do::Picture, L"battery"},
    {Do::Close},

    {Do::Command, L"Power Scheme Settings", kPowerScheme},
    {Do::Picture, L"scheme_display"}, kNextPage,
    {Do::Picture, L"scheme_poweroff"},
    {Do::Choose,  L"", 1}, {Do::Push, L"Edit"}, {Do::Window, L"Application Sensor Policy Settings"}, kFirstRow,
    {Do::Picture, L"sensor_policy"},
    {Do::Push, L"Modify Rule.."}, {Do::Window, L"Application Control Settings"},
    {Do::Picture, L"sensor_rule"},
    {Do::Close}, {Do::Close}, {Do::Close},

    {Do::Command, L"Job Scheduler", kJobScheduler}, kFirstRow, kSecondRow,
    {Do::Picture, L"job_list"},
    {Do::Push, L"Modify Job.."}, {Do::Window, L"Job Settings"},
    {Do::Picture, L"job_actions"}, kNextPage,
    {Do::Picture, L"job_tasks"},
    {Do::Close}, {Do::Close},

    {Do::Command, L"Power Savings Report", kSavingsReport}, {Do::Earlier},
    {Do::Picture, L"savings_totals"}, kNextPage,
    {Do::Picture, L"savings_estimates"}, kNextPage,
    {Do::Picture, L"savings_graph"},
    {Do::Push, L"&Power Consumption Settings"}, {Do::Window, L"Power Consumption Settings"},
    {Do::Picture, L"consumption"},
    {Do::Close}, {Do::Close},

    {Do::Command, L"System Security Settings", kSecurity},
    {Do::Picture, L"system_security"},
    {Do::Close},

    {Do::Command, L"Communication Ports", kPorts},
    {Do::Picture, L"communication_ports"},
    {Do::Close},

    {Do::Command, L"Proxy Connection Settings", kProxy},
    {Do::Picture, L"proxy"},
    {Do::Close},

    {Do::Command, L"Snooze Settings", kSnooze},
    {Do::Picture, L"snooze"},
    {Do::Close},

    {Do::Command, L"Voltaro Activation Window", kActivate},
    {Do::Picture, L"activation"},
    {Do::Close},

    {Do::Command, L"Voltaro Update", kUpdate},
    {Do::Picture, L"update"},
    {Do::Push, L"OK"}, {Do::Hidden},

    {Do::Command, L"About Voltaro", kAbout},
    {Do::Picture, L"about"},
    {Do::Close},
};
// clang-format on

constexpr DWORD kPatience = 60'000; // ms for one step
constexpr DWORD kSettled = 400;     // ms without a change on the screen

bool WaitUntil(const std::function<bool()>& condition)
{
    for (const ULONGLONG end = GetTickCount64() + kPatience; GetTickCount64() < end; Sleep(50)) {
        if (condition())
            return true;
    }
    return false;
}

std::wstring TextOf(HWND window)
{
    std::array<wchar_t, 200> text{};
    SendMessageTimeoutW(
        window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL, 1000, nullptr);
    return text.data();
}

// The first visible control below a window, its pages' controls included, for which the condition holds.
HWND FindControl(HWND window, const std::function<bool(HWND)>& condition)
{
    struct Search {
        const std::function<bool(HWND)>& condition;
        HWND found = nullptr;
    } search{condition};
    EnumChildWindows(
        window,
        [](HWND control, LPARAM given) -> BOOL {
            auto& searching = *reinterpret_cast<Search*>(given);
            if (IsWindowVisible(control) && searching.condition(control))
                searching.found = control;
            return searching.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND ControlOfClass(HWND window, const wchar_t* name)
{
    return FindControl(window, [name](HWND control) {
        std::array<wchar_t, 100> text{};
        GetClassNameW(control, text.data(), static_cast<int>(text.size()));
        return _wcsicmp(text.data(), name) == 0;
    });
}

bool Notify(HWND control, int code)
{
    const auto w = MAKEWPARAM(GetDlgCtrlID(control), code);
    return control != nullptr && PostMessageW(GetParent(control), WM_COMMAND, w, reinterpret_cast<LPARAM>(control));
}

bool Push(HWND window, const wchar_t* text)
{
    HWND button = nullptr;
    const bool found = WaitUntil([&] {
        button
            = FindControl(window, [text](HWND control) { return IsWindowEnabled(control) && TextOf(control) == text; });
        return button != nullptr;
    });
    return found && Notify(button, BN_CLICKED);
}

// 32 bits a pixel, rows from the top.
struct Pixels {
    int width = 0, height = 0;
    std::vector<std::uint32_t> values;

    friend bool operator==(const Pixels&, const Pixels&) = default;
};

BITMAPINFOHEADER HeaderOf(const Pixels& pixels)
{
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = pixels.width;
    header.biHeight = -pixels.height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    return header;
}

Pixels OnScreen(HWND window)
{
    RECT place{};
    GetWindowRect(window, &place);
    Pixels pixels{place.right - place.left, place.bottom - place.top, {}};
    pixels.values.resize(static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height));
    BITMAPINFO info{};
    info.bmiHeader = HeaderOf(pixels);
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, pixels.width, pixels.height);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, pixels.width, pixels.height, screen, place.left, place.top, SRCCOPY);
    SelectObject(memory, before);
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(pixels.height), pixels.values.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return pixels;
}

bool Write(const Pixels& pixels, const std::wstring& path)
{
    std::FILE* file = _wfopen(path.c_str(), L"wb");
    if (file == nullptr)
        return false;
    const BITMAPINFOHEADER info = HeaderOf(pixels);
    const std::size_t bytes = pixels.values.size() * sizeof(std::uint32_t);
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42; // "BM"
    header.bfOffBits = sizeof header + sizeof info;
    header.bfSize = static_cast<DWORD>(header.bfOffBits + bytes);
    bool written = std::fwrite(&header, sizeof header, 1, file) == 1 && std::fwrite(&info, sizeof info, 1, file) == 1;
    written = written && std::fwrite(pixels.values.data(), bytes, 1, file) == 1;
    return std::fclose(file) == 0 && written;
}

// Waits until the window has stopped changing, in front of all others and clear of the edges.
bool TakePicture(HWND window, const std::wstring& path)
{
    SetWindowPos(window, HWND_TOPMOST, 40, 40, 0, 0, SWP_NOSIZE);
    SetForegroundWindow(window);
    Sleep(kSettled);
    Pixels last = OnScreen(window);
    for (int tries = 0; tries < 20; ++tries) {
        Sleep(kSettled);
        Pixels now = OnScreen(window);
        if (now == last)
            break;
        last = std::move(now);
    }
    return Write(last, path);
}

class Driver {
public:
    explicit Driver(std::wstring folder)
        : m_folder(std::move(folder))
    {
    }

    bool Take(const Step& step)
    {
        switch (step.what) {
        case Do::Command:
            return PostMessageW(m_open.front(), WM_COMMAND, static_cast<WPARAM>(step.number), 0) && WaitFor(step.text);
        case Do::Push: return voltaro::Push(m_open.back(), step.text);
        case Do::Window: return WaitFor(step.text);
        case Do::Key: return Press(ControlOfClass(m_open.back(), step.text), step.number);
        case Do::Earlier: return SetEarlier(ControlOfClass(m_open.back(), DATETIMEPICK_CLASSW));
        case Do::Choose: return Choose(step.number);
        case Do::Picture: return TakePicture(m_open.back(), m_folder + L"\\" + step.text + L".bmp");
        case Do::Close: return PostMessageW(m_open.back(), WM_CLOSE, 0, 0) && WaitHidden();
        case Do::Hidden: return WaitHidden();
        }
        return false;
    }

private:
    bool WaitFor(const wchar_t* title)
    {
        HWND window = nullptr;
        const bool opened = WaitUntil([&] {
            window = FindWindowW(nullptr, title);
            return window != nullptr && IsWindowVisible(window) && IsWindowEnabled(window);
        });
        m_open.push_back(window);
        SetForegroundWindow(window); // keys reach only what has the focus
        Sleep(kSettled);
        // The host line tells when the console has loaded.
        return opened && (m_open.size() > 1 || WaitUntil([&] {
            return TextOf(GetDlgItem(window, kHostLine)).starts_with(L"Hostname");
        }));
    }

    bool WaitHidden()
    {
        const HWND window = m_open.back();
        m_open.pop_back();
        return WaitUntil([&] { return !IsWindowVisible(window) && IsWindowEnabled(m_open.back()); });
    }

    static bool Press(HWND control, int key)
    {
        const bool pressed = control != nullptr && PostMessageW(control, WM_KEYDOWN, static_cast<WPARAM>(key), 0)
            && PostMessageW(control, WM_KEYUP, static_cast<WPARAM>(key), 0);
        Sleep(kSettled);
        return pressed;
    }

    // Each part of a date turns by itself, so the first day of a month has no day before it.
    static bool SetEarlier(HWND picker)
    {
        constexpr LPARAM kOnDay = MAKELPARAM(8, 8);
        SYSTEMTIME today{};
        GetLocalTime(&today);
        return picker != nullptr && PostMessageW(picker, WM_LBUTTONDOWN, MK_LBUTTON, kOnDay)
            && PostMessageW(picker, WM_LBUTTONUP, 0, kOnDay) && (today.wDay > 1 || Press(picker, VK_RIGHT))
            && Press(picker, VK_DOWN);
    }

    bool Choose(int entry)
    {
        const HWND list = FindControl(m_open.back(), [](HWND control) { return GetDlgCtrlID(control) == kPolicyList; });
        SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        return Notify(list, CBN_SELCHANGE);
    }

    std::wstring m_folder;
    std::vector<HWND> m_open; // the main window first, the one in front last
};

} // namespace
} // namespace voltaro

int wmain(int count, wchar_t** arguments)
{
    if (count != 2) {
        std::fputs("TakePictures FOLDER\n", stderr);
        return 2;
    }
    voltaro::Driver driver(arguments[1]);
    for (const voltaro::Step& step : voltaro::kSteps) {
        if (driver.Take(step))
            continue;
        std::fprintf(stderr, "In vain: step %d, \"%ls\"\n", static_cast<int>(&step - voltaro::kSteps) + 1, step.text);
        return 1;
    }
    std::fputs("All pictures taken\n", stdout);
    return 0;
}
