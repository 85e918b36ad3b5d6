#include "savings/day_texts.h"

#include "base/text.h"

#include <iterator>

namespace voltaro {
namespace {

constexpr const wchar_t* kMonths[] = {L"January", L"February", L"March", L"April", L"May", L"June", L"July", L"August",
    L"September", L"October", L"November", L"December"};

} // namespace

std::wstring RequestDate(const LocalTime& day)
{
    return Format(L"%02d%02d%04d", day.month, day.day, day.year);
}

std::wstring HeadingDate(const LocalTime& day)
{
    const bool isMonth = day.month >= 1 && day.month <= static_cast<int>(std::size(kMonths));
    return Format(L"%ls %02d, %4d", isMonth ? kMonths[day.month - 1] : L"", day.day, day.year);
}

std::wstring PickerDate(const LocalTime& day)
{
    return Format(L"%d/%02d/%04d", day.day, day.month, day.year);
}

} // namespace voltaro
