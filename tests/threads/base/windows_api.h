#pragma once

// The platform's names that the link and the simulated agent's server use, over POSIX, in the place of the real header.
#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/select.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

// clang-format off
using DWORD = std::uint32_t;
using ULONGLONG = std::uint64_t;
using COLORREF = std::uint32_t;
using SOCKET = int; using BOOL = int;
using HANDLE = struct Event*;
using HWND = void*; using HFONT = void*; using HBRUSH = void*; using HPEN = void*; using HBITMAP = void*; using HMENU = void*; using HDC = void*; using HKEY = void*;
struct MONITORINFO { }; struct WSADATA { };
struct WSANETWORKEVENTS { int iErrorCode[1]; };
struct SYSTEMTIME { int wYear, wMonth, wDay, wHour, wMinute, wSecond, wMilliseconds; };
enum : int { INVALID_SOCKET = -1, SD_BOTH = SHUT_RDWR, TRUE = 1, FALSE = 0, E_FAIL = -1, FD_CONNECT_BIT = 0, FD_READ = POLLIN, FD_CLOSE = POLLHUP, FD_CONNECT = POLLOUT };
enum : int { WSAENETDOWN = ENETDOWN, WSAENETRESET = ENETRESET, WSAECONNABORTED = ECONNABORTED, WSAETIMEDOUT = ETIMEDOUT, WSAEWOULDBLOCK = EAGAIN };
enum : DWORD { WAIT_OBJECT_0 = 0, WAIT_TIMEOUT = 258, INFINITE = UINT32_MAX };
inline const HANDLE INVALID_HANDLE_VALUE = nullptr;

struct Event { // a flag, or a socket's readiness
    std::mutex mutex;
    std::condition_variable changed;
    bool set = false;
    pollfd socket{INVALID_SOCKET, 0, 0};
};
inline HANDLE CreateEventW(void*, BOOL, BOOL set, void*) { return new Event{{}, {}, set != 0}; }
inline void CloseHandle(HANDLE event) { delete event; }
inline void SetEvent(HANDLE event)
{
    const std::lock_guard lock(event->mutex);
    event->set = true;
    event->changed.notify_one();
}
inline DWORD WaitForSingleObject(HANDLE event, DWORD milliseconds)
{
    const int limit = static_cast<int>(std::min<DWORD>(milliseconds, 1 << 30));
    if (pollfd ready = event->socket; ready.fd != INVALID_SOCKET)
        return poll(&ready, 1, limit) > 0 ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
    std::unique_lock lock(event->mutex);
    const bool signalled = event->changed.wait_for(lock, std::chrono::milliseconds(limit), [&] { return event->set; });
    event->set = false; // auto-reset
    return signalled ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}
inline int ioctlsocket(SOCKET socket, long command, unsigned long* value) { return ioctl(socket, static_cast<unsigned long>(command), value); }
inline int WSAEventSelect(SOCKET socket, HANDLE event, int events)
{
    unsigned long nonBlocking = 1;
    if (event)
        event->socket = {socket, static_cast<short>(events), 0};
    return ioctlsocket(socket, FIONBIO, &nonBlocking);
}
inline int WSAEnumNetworkEvents(SOCKET socket, HANDLE, WSANETWORKEVENTS* events)
{
    socklen_t size = sizeof(int);
    return getsockopt(socket, SOL_SOCKET, SO_ERROR, events->iErrorCode, &size);
}
inline int WSAGetLastError() { return errno == EINPROGRESS ? WSAEWOULDBLOCK : errno; }
inline void WSASetLastError(int error) { errno = error; }
inline int MAKEWORD(int low, int high) { return low | high << 8; }
inline int WSAStartup(int, WSADATA*) { return 0; }
inline void WSACleanup() { }
inline void closesocket(SOCKET socket) { close(socket); }
inline int getsockname(SOCKET socket, sockaddr* address, int* size) { return getsockname(socket, address, reinterpret_cast<socklen_t*>(size)); }
inline int select(int, fd_set* read, fd_set* write, std::nullptr_t, timeval* wait) { return select(FD_SETSIZE, read, write, static_cast<fd_set*>(nullptr), wait); }
inline void Sleep(DWORD milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }
inline ULONGLONG GetTickCount64() { return static_cast<ULONGLONG>(std::chrono::steady_clock::now().time_since_epoch() / std::chrono::milliseconds(1)); }
inline DWORD GetCurrentThreadId() { return static_cast<DWORD>(gettid()); }
inline DWORD GetLastError() { return static_cast<DWORD>(errno); }
inline void OutputDebugStringA(const char*) { }
inline void GetLocalTime(SYSTEMTIME*) { }
inline void DeleteDC(void*) { }
inline void DestroyMenu(void*) { }
inline void RegCloseKey(void*) { }
// clang-format on
