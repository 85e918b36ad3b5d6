#include "base/installation.h"

#include "base/ansi.h"
#include "base/handles.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace voltaro {
namespace {

constexpr const wchar_t* kMachineKey = L"SOFTWARE\\Kestrelfen\\VOLTARO";
constexpr const wchar_t* kDefaultUserKey = L".DEFAULT\\SOFTWARE\\Kestrelfen\\VOLTARO";
constexpr const char* kVariable = "VOLTARO_HOME";
constexpr std::size_t kVariableLimit = 99; // characters
constexpr std::size_t kValueBytes = 255;   // of the registry's UTF-16 text; a longer value is cut
constexpr std::size_t kValueLimit = 255;   // 8-bit characters

void Store(InstallDirectory& directory, const std::string& text, std::size_t limit)
{
    directory.fill('\0');
    std::copy_n(text.begin(), std::min(text.size(), limit), directory.begin());
}

bool FromEnvironment(InstallDirectory& directory)
{
    // An environment block holds at most 32,767 characters.
    std::string value(32'767, '\0');
    value.resize(GetEnvironmentVariableA(kVariable, value.data(), static_cast<DWORD>(value.size())));
    Store(directory, value, kVariableLimit);
    return !value.empty();
}

// All rights are asked for: for a user without write rights the key does not exist, and the environment comes first.
UniqueKey OpenKey(HKEY hive, const wchar_t* path, REGSAM view = 0)
{
    UniqueKey key;
    RegOpenKeyExW(hive, path, 0, KEY_ALL_ACCESS | view, key.Put());
    return key;
}

bool FromKey(const UniqueKey& key, InstallDirectory& directory)
{
    std::array<wchar_t, 1024> value{};
    for (int attempt = 0; attempt < 2; ++attempt) {
        DWORD bytes = (value.size() - 1) * sizeof(wchar_t);
        if (RegQueryValueExW(key.Get(), L"InstallPath", nullptr, nullptr, reinterpret_cast<BYTE*>(value.data()), &bytes)
            == ERROR_SUCCESS)
            break;
        value.fill(L'\0');
    }
    if (value[0] == L'\0')
        return false;
    Store(directory, Narrowed(Truncated(value.data(), kValueBytes / sizeof(wchar_t))), kValueLimit);
    return true;
}

} // namespace

bool ReadInstallPath(InstallDirectory& directory)
{
    // A 32-bit installer of the agent writes the other view.
    for (const REGSAM view : {REGSAM{KEY_WOW64_64KEY}, REGSAM{KEY_WOW64_32KEY}})
        if (const UniqueKey machine = OpenKey(HKEY_LOCAL_MACHINE, kMachineKey, view))
            return FromKey(machine, directory) || FromEnvironment(directory);
    if (FromEnvironment(directory))
        return true;
    const UniqueKey user = OpenKey(HKEY_USERS, kDefaultUserKey);
    return user && FromKey(user, directory);
}

} // namespace voltaro
