#include "base/computer_name.h"

#include "base/windows_api.h"

#include <iterator>

namespace voltaro {

std::wstring ComputerName()
{
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = static_cast<DWORD>(std::size(name));
    return GetComputerNameW(name, &size) ? std::wstring(name) : std::wstring();
}

} // namespace voltaro
