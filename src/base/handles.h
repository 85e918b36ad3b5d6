#pragma once

#include "base/unique.h"
#include "base/windows_api.h"

namespace voltaro {

template <class H>
struct GdiTraits {
    using Handle = H;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { DeleteObject(handle); }
};
using UniqueFont = Unique<GdiTraits<HFONT>>;
using UniqueBrush = Unique<GdiTraits<HBRUSH>>;
using UniquePen = Unique<GdiTraits<HPEN>>;
using UniqueBitmap = Unique<GdiTraits<HBITMAP>>;

struct MemoryDcTraits {
    using Handle = HDC;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { DeleteDC(handle); }
};
using UniqueMemoryDc = Unique<MemoryDcTraits>;

struct MenuTraits {
    using Handle = HMENU;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { DestroyMenu(handle); }
};
using UniqueMenu = Unique<MenuTraits>;

struct KernelTraits {
    using Handle = HANDLE;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { CloseHandle(handle); }
};
// An event or a thread.
using UniqueHandle = Unique<KernelTraits>;

struct FileTraits {
    using Handle = HANDLE;
    static Handle Invalid() { return INVALID_HANDLE_VALUE; }
    static void Close(Handle handle) { CloseHandle(handle); }
};
using UniqueFile = Unique<FileTraits>;

struct KeyTraits {
    using Handle = HKEY;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { RegCloseKey(handle); }
};
using UniqueKey = Unique<KeyTraits>;

struct SocketTraits {
    using Handle = SOCKET;
    static Handle Invalid() { return INVALID_SOCKET; }
    static void Close(Handle handle) { closesocket(handle); }
};
using UniqueSocket = Unique<SocketTraits>;

} // namespace voltaro
