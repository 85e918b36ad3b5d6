#include "base/letter_case.h"

#include <cwctype>
#include <locale.h>

namespace voltaro {

bool IsSameLetter(wchar_t a, wchar_t b)
{
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const auto upper = [](wchar_t unit) { return towupper_l(static_cast<wint_t>(unit), unicode); };
    return a == b || upper(a) == upper(b);
}

} // namespace voltaro
