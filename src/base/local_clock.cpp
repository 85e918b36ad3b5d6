#include "base/local_clock.h"

namespace voltaro {

LocalTime LocalTimeOf(const SYSTEMTIME& time)
{
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

SYSTEMTIME SystemTimeOf(const LocalTime& time)
{
    SYSTEMTIME result{};
    result.wYear = static_cast<WORD>(time.year);
    result.wMonth = static_cast<WORD>(time.month);
    result.wDay = static_cast<WORD>(time.day);
    result.wHour = static_cast<WORD>(time.hour);
    result.wMinute = static_cast<WORD>(time.minute);
    result.wSecond = static_cast<WORD>(time.second);
    return result;
}

LocalTime LocalNow()
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    return LocalTimeOf(now);
}

} // namespace voltaro
