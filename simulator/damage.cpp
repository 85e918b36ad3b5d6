#include "simulator/damage.h"

#include "base/text.h"
#include "simulator/frame.h"
#include "simulator/xml.h"

#include <algorithm>
#include <cstdint>

namespace voltaro::simulator {
namespace {

// After the XML declaration.
void InsertAtStart(std::wstring& text, std::wstring_view what)
{
    const std::size_t declarationEnd = text.find(L"?>");
    text.insert(declarationEnd == std::wstring::npos ? 0 : declarationEnd + 2, what);
}

} // namespace

void LengthenTexts(Element& element, std::size_t units)
{
    if (element.children.empty())
        element.text = std::wstring(element.text).append(units, L'x').substr(0, units);
    for (Element& child : element.children)
        LengthenTexts(child, units);
}

void MultiplyElements(Element& element, std::size_t count)
{
    if (element.children.empty())
        return;
    const Element last = element.children.back(); // as it was, or nested lists would multiply each other
    for (Element& child : element.children)
        MultiplyElements(child, count);
    while (element.children.size() < count)
        element.children.push_back(last);
}

void FillFrame(Element& response, std::size_t bytes)
{
    const std::size_t size = FrameOf(ReplyText(response)).size();
    Element* last = &response;
    while (!last->children.empty())
        last = &last->children.back();
    if (size < bytes)
        last->text = std::wstring(last->text) + std::wstring((bytes - size) / 2, L'x');
}

void AddToTexts(Element& element, std::wstring_view text)
{
    if (element.children.empty())
        element.text = std::wstring(element.text) + std::wstring(text);
    for (Element& child : element.children)
        AddToTexts(child, text);
}

void ReplaceTexts(Element& element, std::wstring_view text)
{
    if (element.children.empty())
        element.text = text;
    for (Element& child : element.children)
        ReplaceTexts(child, text);
}

void KeepElements(Element& response, std::size_t count)
{
    Element& list = response.children.size() == 1 ? response.children[0] : response;
    if (list.children.size() > count)
        list.children.erase(list.children.begin() + static_cast<std::ptrdiff_t>(count), list.children.end());
}

std::wstring GarbageUnits(std::size_t units)
{
    std::wstring text;
    std::uint32_t state = 2463534242;
    while (text.size() < units) {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        text += static_cast<wchar_t>(1 + state % 0xFFFF);
    }
    return text;
}

void DeclareEntities(std::wstring& text, int levels)
{
    std::wstring declarations = L"<!DOCTYPE vltp [<!ENTITY e0 \"volts and\">";
    for (int level = 1; level < levels; ++level) {
        declarations += Format(L"<!ENTITY e%d \"", level);
        for (int i = 0; i < 10; ++i)
            declarations += Format(L"&e%d;", level - 1);
        declarations += L"\">";
    }
    InsertText(text, Format(L"&e%d;", levels - 1));
    InsertAtStart(text, declarations + L"]>");
}

void ReferTo(std::wstring& text, const std::wstring& address)
{
    InsertText(text,
        L"<i:include xmlns:i=\"http://www.w3.org/2001/XInclude\" href=\"" + address
            + L"\"/><s xmlns:x=\"http://www.w3.org/2001/XMLSchema-instance\" x:noNamespaceSchemaLocation=\"" + address
            + L"\"/>");
    InsertAtStart(text, L"<?xml-stylesheet type=\"text/xsl\" href=\"" + address + L"\"?>");
}

void DeclareExternal(std::wstring& text, const std::wstring& address)
{
    const std::wstring system = L" SYSTEM \"" + address + L"\"";
    InsertText(text, L"&x;");
    InsertAtStart(text, L"<!DOCTYPE vltp" + system + L" [<!ENTITY x" + system + L"><!ENTITY % p" + system + L"> %p;]>");
}

void InsertText(std::wstring& text, std::wstring_view inserted)
{
    text.insert(std::min(text.find(L"</"), text.size()), inserted);
}

void InsertElements(std::wstring& text, int count, bool nested)
{
    std::wstring elements;
    for (int i = 0; i < count; ++i)
        elements += nested ? L"<a>" : L"<a/>";
    for (int i = 0; nested && i < count; ++i)
        elements += L"</a>";
    InsertText(text, elements);
}

} // namespace voltaro::simulator
