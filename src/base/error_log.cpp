#include "base/error_log.h"

#include "base/windows_api.h"

#include <cstdio>

namespace voltaro {

void LogFailure(const char* module, unsigned line, const char* label, long result, const char* call)
{
    char text[1024] = {};
    std::snprintf(text, sizeof text, "%s:%u  HRCALL Failed: %s\n  0x%.8lx = %s\n", module, line, label,
        static_cast<unsigned long>(result), call);
    OutputDebugStringA(text);
    std::fputs(text, stdout);
    std::fflush(stdout);
}

void LogLastError(const char* call, CodePlace where)
{
    LogFailure(where.file, where.line, "", static_cast<long>(GetLastError()), call);
}

void LogFault(const char* label, const char* what, CodePlace where)
{
    LogFailure(where.file, where.line, label, E_FAIL, what);
}

} // namespace voltaro
