#include "ui/refusals.h"

#include "base/text_rules.h"
#include "ui/boxes.h"
#include "ui/controls.h"

namespace voltaro {

bool RefuseInput(HWND window, int edit, const Refusal* refusal, std::wstring_view input)
{
    if (refusal == nullptr)
        return false;
    ShowMessage(GetAncestor(window, GA_ROOT), {refusal->title, refusal->text}, RefusalText(*refusal, input));
    SetText(window, edit, {});
    FocusOn(window, edit);
    return true;
}

void CheckTyping(HWND window, int edit, std::size_t limit, TypingCheck check)
{
    const std::wstring text = TextOf(window, edit);
    if (text.size() > limit)
        SetText(window, edit, Truncated(text, limit)); // comes here again
    else
        RefuseInput(window, edit, check(text), text);
}

} // namespace voltaro
