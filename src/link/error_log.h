#pragma once

#include <cstdint>
#include <source_location>

namespace voltaro {

// Writes one line about a failed platform call to the debug output and to standard output, in the form
// "module:line  HRCALL Failed: label\n  0xresult = call". Failures are logged, never shown.
void LogFailure(const char* module, unsigned line, const char* label, long result, const char* call);

// The check for a COM call: true when it succeeded, else a log line. `label` may be empty.
bool Succeeded(
    long result, const char* label, const char* call, std::source_location where = std::source_location::current());

// A fault that is no failed call (a refused answer, a dropped row), in the same form.
void LogFault(const char* label, const char* what, std::source_location where = std::source_location::current());

} // namespace voltaro
