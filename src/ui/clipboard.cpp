#include "ui/clipboard.h"

#include "base/error_log.h"
#include "base/handles.h"

#include <cstring>

namespace voltaro {
namespace {

// The open, emptied clipboard. Other programs hold it for moments only, so a few tries are made.
class OpenedClipboard {
public:
    explicit OpenedClipboard(HWND owner)
    {
        constexpr int kTries = 5;
        constexpr DWORD kPause = 10; // milliseconds
        for (int i = 0; i < kTries && !m_open; ++i) {
            m_open = OpenClipboard(owner) != FALSE;
            if (!m_open)
                Sleep(kPause);
        }
        m_ready = Checked(m_open, "OpenClipboard") && Checked(EmptyClipboard(), "EmptyClipboard");
    }
    ~OpenedClipboard()
    {
        if (m_open)
            CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    explicit operator bool() const { return m_ready; }

private:
    bool m_open = false;
    bool m_ready = false;
};

} // namespace

bool CopyToClipboard(HWND owner, std::wstring_view text)
{
    const std::size_t bytes = text.size() * sizeof(wchar_t);
    const HGLOBAL memory = Checked(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes + sizeof(wchar_t)), "GlobalAlloc");
    if (memory == nullptr)
        return false;
    if (void* units = Checked(GlobalLock(memory), "GlobalLock")) {
        std::memcpy(units, text.data(), bytes);
        GlobalUnlock(memory);
        const OpenedClipboard clipboard(owner);
        if (clipboard && Checked(SetClipboardData(CF_UNICODETEXT, memory), "SetClipboardData") != nullptr)
            return true; // the memory is the clipboard's now
    }
    GlobalFree(memory);
    return false;
}

bool CopyToClipboard(HWND owner, HBITMAP bitmap)
{
    UniqueBitmap copy(static_cast<HBITMAP>(Checked(CopyImage(bitmap, IMAGE_BITMAP, 0, 0, 0), "CopyImage")));
    const OpenedClipboard clipboard(owner);
    if (!copy || !clipboard || Checked(SetClipboardData(CF_BITMAP, copy.Get()), "SetClipboardData") == nullptr)
        return false;
    copy.Release(); // the clipboard's now
    return true;
}

} // namespace voltaro
