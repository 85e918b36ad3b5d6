#include "base/letter_case.h"
#include "base/windows_api.h"

namespace voltaro {

bool IsSameLetter(wchar_t a, wchar_t b)
{
    return a == b || CompareStringOrdinal(&a, 1, &b, 1, TRUE) == CSTR_EQUAL;
}

} // namespace voltaro
