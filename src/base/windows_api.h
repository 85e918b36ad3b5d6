#pragma once

// The one place where the platform's headers come in, with the version and the options that all files share.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <winsock2.h>
#include <ws2tcpip.h>

#include <windows.h>

#include <windowsx.h>

#include <commctrl.h>
#include <commdlg.h>
#include <ole2.h>
#include <shellapi.h>
