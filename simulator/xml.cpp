#include "simulator/xml.h"

#include "base/text.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace voltaro::simulator {
namespace {

constexpr int kDeepest = 16;

bool IsBlank(wchar_t unit)
{
    return unit == L' ' || unit == L'\t' || unit == L'\n' || unit == L'\r';
}

bool IsNameUnit(wchar_t unit, bool first)
{
    const bool letter
        = (unit >= L'a' && unit <= L'z') || (unit >= L'A' && unit <= L'Z') || unit == L'_' || unit >= 0xC0;
    return letter || (!first && ((unit >= L'0' && unit <= L'9') || unit == L'-' || unit == L'.'));
}

// The number of units of the character that begins at `at`, 0 when no document may hold it. Both builds keep UTF-16
// units, so characters beyond the first 65,536 are surrogate pairs.
std::size_t CharacterUnits(std::wstring_view text, std::size_t at)
{
    const auto unit = static_cast<std::uint32_t>(text[at]);
    if (unit >= 0xD800 && unit < 0xDC00) {
        const bool paired = at + 1 < text.size() && (static_cast<std::uint32_t>(text[at + 1]) & 0xFFFFFC00U) == 0xDC00;
        return paired ? 2 : 0;
    }
    const bool allowed = unit >= 0x20 ? unit < 0xD800 || (unit > 0xDFFF && unit < 0xFFFE) : IsBlank(text[at]);
    return allowed ? 1 : 0;
}

class Parser {
public:
    explicit Parser(std::wstring_view text)
        : m_text(text)
    {
    }

    XmlDocument Document()
    {
        XmlDocument document;
        document.declared = Declaration();
        SkipBlanks();
        bool good = ReadElement(document.root, 0);
        document.version = m_version;
        SkipBlanks();
        if (good && m_at != m_text.size())
            good = Wrong(L"something follows the root element");
        if (!good)
            document.error = Format(L"%ls at unit %d", m_error.c_str(), static_cast<int>(m_at));
        return document;
    }

private:
    bool Wrong(const wchar_t* why)
    {
        if (m_error.empty())
            m_error = why;
        return false;
    }

    bool Take(std::wstring_view what)
    {
        if (m_text.substr(m_at, what.size()) != what)
            return false;
        m_at += what.size();
        return true;
    }

    bool SkipBlanks()
    {
        const std::size_t start = m_at;
        while (m_at < m_text.size() && IsBlank(m_text[m_at]))
            ++m_at;
        return m_at > start;
    }

    bool Declaration()
    {
        if (!Take(L"<?xml version=\"1.0\"") && !Take(L"<?xml version='1.0'"))
            return false;
        const std::size_t end = m_text.find(L"?>", m_at);
        if (end == std::wstring_view::npos)
            return false;
        m_at = end + 2;
        return true;
    }

    bool Name(std::wstring& name)
    {
        const std::size_t start = m_at;
        while (m_at < m_text.size() && IsNameUnit(m_text[m_at], m_at == start))
            ++m_at;
        name = m_text.substr(start, m_at - start);
        return m_at > start || Wrong(L"a name is missing");
    }

    bool ReadElement(Element& element, int depth)
    {
        if (depth > kDeepest)
            return Wrong(L"the elements are nested too deeply");
        if (!Take(L"<"))
            return Wrong(L"an element is missing");
        if (!Name(element.name) || !Attributes(depth == 0))
            return false;
        if (Take(L"/>"))
            return true;
        return Take(L">") ? Content(element, depth) : Wrong(L"the tag is not closed");
    }

    bool Attributes(bool allowed)
    {
        while (SkipBlanks() && m_at < m_text.size() && m_text[m_at] != L'>' && m_text[m_at] != L'/') {
            std::wstring name;
            std::wstring value;
            if (!allowed)
                return Wrong(L"only the root has attributes");
            if (!Name(name))
                return false;
            const wchar_t quote = Take(L"=\"") ? L'"' : L'\'';
            if (quote == L'\'' && !Take(L"='"))
                return Wrong(L"an attribute has no value");
            if (!TextUntil(quote, value))
                return false;
            ++m_at;
            if (name != L"version" || !m_version.empty())
                return Wrong(L"only one attribute, version, is known");
            m_version = value;
        }
        return true;
    }

    bool Content(Element& element, int depth)
    {
        std::wstring text;
        for (;;) {
            if (!TextUntil(L'<', text))
                return false;
            if (Take(L"</"))
                break;
            if (!ReadElement(element.children.emplace_back(), depth + 1))
                return false;
        }
        std::wstring name;
        if (!Name(name))
            return false;
        SkipBlanks();
        if (name != element.name || !Take(L">"))
            return Wrong(L"the end tag does not match");
        if (element.children.empty())
            element.text = text;
        else if (!std::all_of(text.begin(), text.end(), IsBlank))
            return Wrong(L"there is text beside elements");
        return true;
    }

    // Appends the text up to the end unit, which stays unread.
    bool TextUntil(wchar_t end, std::wstring& text)
    {
        while (m_at < m_text.size() && m_text[m_at] != end) {
            if (m_text[m_at] == L'&') {
                if (!Reference(text))
                    return false;
                continue;
            }
            const std::size_t units = CharacterUnits(m_text, m_at);
            if (units == 0 || m_text[m_at] == L'<')
                return Wrong(L"there is a character that must not be here");
            if (m_text[m_at] != L'\r')
                text += m_text.substr(m_at, units);
            else if (m_text.substr(m_at, 2) != L"\r\n")
                text += L'\n';
            m_at += units;
        }
        return m_at < m_text.size() || Wrong(L"the document breaks off");
    }

    bool Reference(std::wstring& text)
    {
        static constexpr struct {
            std::wstring_view name;
            wchar_t unit;
        } kEntities[] = {{L"&amp;", L'&'}, {L"&lt;", L'<'}, {L"&gt;", L'>'}, {L"&quot;", L'"'}, {L"&apos;", L'\''}};
        for (const auto& entity : kEntities) {
            if (Take(entity.name)) {
                text += entity.unit;
                return true;
            }
        }
        if (!Take(L"&#"))
            return Wrong(L"the entity is not known");
        const std::optional<std::uint32_t> code = Code(Take(L"x") ? 16 : 10);
        if (!code)
            return Wrong(L"the reference is no character");
        if (*code > 0xFFFF) {
            text += static_cast<wchar_t>(0xD800 + ((*code - 0x10000) >> 10));
            text += static_cast<wchar_t>(0xDC00 + ((*code - 0x10000) & 0x3FF));
        } else {
            text += static_cast<wchar_t>(*code);
        }
        return true;
    }

    // The digits of a numeric reference and its semicolon.
    std::optional<std::uint32_t> Code(std::uint32_t base)
    {
        constexpr std::wstring_view kDigits = L"0123456789abcdef";
        std::uint32_t code = 0;
        const std::size_t start = m_at;
        for (; m_at < m_text.size() && m_text[m_at] != L';'; ++m_at) {
            const wchar_t unit
                = m_text[m_at] >= L'A' && m_text[m_at] <= L'F' ? static_cast<wchar_t>(m_text[m_at] + 32) : m_text[m_at];
            const std::size_t digit = kDigits.substr(0, base).find(unit);
            if (digit == std::wstring_view::npos || code > 0x10FFFF)
                return std::nullopt;
            code = code * base + static_cast<std::uint32_t>(digit);
        }
        const bool any = m_at > start;
        const wchar_t single[] = {static_cast<wchar_t>(code)};
        const bool character = code > 0xFFFF ? code <= 0x10FFFF : CharacterUnits({single, 1}, 0) == 1;
        return Take(L";") && any && character ? std::optional(code) : std::nullopt;
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    std::wstring m_version;
    std::wstring m_error;
};

void Write(const Element& element, std::wstring& text)
{
    text += L'<' + element.name + L'>';
    if (element.children.empty())
        text += EscapedText(element.text);
    for (const Element& child : element.children)
        Write(child, text);
    text += L"</" + element.name + L'>';
}

} // namespace

XmlDocument ParseXml(std::wstring_view text)
{
    return Parser(text).Document();
}

std::wstring EscapedText(std::wstring_view text)
{
    std::wstring escaped;
    escaped.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t units = CharacterUnits(text, at);
        switch (text[at]) {
        case L'&': escaped += L"&amp;"; break;
        case L'<': escaped += L"&lt;"; break;
        case L'>': escaped += L"&gt;"; break;
        case L'\r': escaped += L"&#13;"; break; // a reader would make a line feed of it
        default: escaped += text.substr(at, units);
        }
        at += std::max<std::size_t>(units, 1);
    }
    return escaped;
}

std::wstring ReplyText(const Element& response)
{
    std::wstring text = L"<?xml version=\"1.0\"?><vltp version=\"1.0\">";
    Write(response, text);
    return text + L"</vltp>";
}

} // namespace voltaro::simulator
