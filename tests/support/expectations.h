#pragma once

#include "link/element.h"

#include <string>

namespace voltaro {

// A tree on one line: "name=text" for a text, "name[child child]" for an element that holds elements.
[[nodiscard]] inline std::wstring Line(const Element& element)
{
    const bool empty = element.name == L"details" || element.name.starts_with(L"RunTask");
    if (element.children.empty() && !empty)
        return element.name + L"=" + std::wstring(element.text);
    std::wstring line = element.name + L"[";
    for (const Element& child : element.children)
        line += (line.back() == L'[' ? L"" : L" ") + Line(child);
    return line + L"]";
}

// The element at that way of child places.
inline Element& At(Element& element, std::initializer_list<std::size_t> way)
{
    Element* here = &element;
    for (const std::size_t place : way)
        here = &here->children[place];
    return *here;
}

} // namespace voltaro
