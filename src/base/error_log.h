#pragma once

namespace voltaro {

// Where a call stands in the source: as a default argument, the place of the call that leaves it out.
struct CodePlace {
    const char* file;
    unsigned line;

    static constexpr CodePlace Here(const char* file = __builtin_FILE(), unsigned line = __builtin_LINE())
    {
        return {file, line};
    }
};

// Writes one line about a failed platform call to the debug output and to standard output, in the form
// "module:line  HRCALL Failed: label\n  0xresult = call". Failures are logged, never shown.
void LogFailure(const char* module, unsigned line, const char* label, long result, const char* call);

// A fault that is no failed call (a refused answer, a dropped row), in the same form.
void LogFault(const char* label, const char* what, CodePlace where = CodePlace::Here());

// Logs a call that has just failed with the thread's last error.
void LogLastError(const char* call, CodePlace where);

// The result of a platform call that gives a handle, a pointer or a BOOL; logged where it is none.
template <class Result>
Result Checked(Result result, const char* call, CodePlace where = CodePlace::Here())
{
    if (!result)
        LogLastError(call, where);
    return result;
}

} // namespace voltaro
