#include "base/system_procedure.h"

namespace voltaro {

FARPROC SystemProcedureAddress(const wchar_t* library, const char* name)
{
    const HMODULE loaded = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return loaded != nullptr ? GetProcAddress(loaded, name) : nullptr;
}

} // namespace voltaro
