#include "link/refused_document.h"

#include <algorithm>
#include <string>

namespace voltaro {

const char* RefusedDocument(std::wstring_view text)
{
    if (text.find(L"<!DOCTYPE") != std::wstring_view::npos)
        return "a document with a document type is refused";
    const auto tags = static_cast<std::size_t>(std::count(text.begin(), text.end(), L'<'));
    return tags > kMaxTags ? "a document with too many tags is refused" : nullptr;
}

const char* RefusedDocument(std::string_view bytes)
{
    std::wstring text;
    for (const char byte : bytes) {
        if (byte != '\0')
            text.push_back(static_cast<unsigned char>(byte));
    }
    return RefusedDocument(text);
}

} // namespace voltaro
