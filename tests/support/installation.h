#pragma once

#include "base/windows_api.h"

#include <cstdio>
#include <string>

namespace voltaro {

// An installation, in a folder of that name for temporary files, whose host configuration names that port; every
// console that starts from now on reads it.
inline void Install(const std::wstring& name, int port)
{
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring root = folder + name + L"\\";
    CreateDirectoryW(root.c_str(), nullptr);
    CreateDirectoryW((root + L"conf").c_str(), nullptr);
    std::FILE* file = _wfopen((root + L"conf\\hconfig.xml").c_str(), L"wb");
    std::fprintf(file, "<Hostsettings><Localhost>Yes</Localhost><TCPPort>%d</TCPPort></Hostsettings>", port);
    std::fclose(file);
    SetEnvironmentVariableW(L"VOLTARO_HOME", root.c_str());
}

} // namespace voltaro
