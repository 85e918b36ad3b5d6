#pragma once

#include "base/field_text.h"

#include <string>
#include <string_view>
#include <vector>

namespace voltaro {

// One XML element as plain data: a text element (no children) or an element that holds elements. Requests are built
// as such trees and turned into the document by one routine.
struct Element {
    std::wstring name;
    FieldText text;
    std::vector<Element> children;

    friend bool operator==(const Element&, const Element&) = default;
};

// An element that holds only text.
[[nodiscard]] inline Element TextElement(std::wstring_view name, std::wstring_view text)
{
    return {std::wstring(name), text, {}};
}

// The first child of that name, or null.
[[nodiscard]] inline const Element* FindChild(const Element& parent, std::wstring_view name)
{
    for (const Element& child : parent.children) {
        if (child.name == name)
            return &child;
    }
    return nullptr;
}

// The element's text, or, of an element that holds elements, all their texts.
[[nodiscard]] inline std::wstring WholeText(const Element& element)
{
    std::wstring text(element.text);
    for (const Element& child : element.children)
        text += WholeText(child);
    return text;
}

// The text of the child at a position, empty where there is none: replies are read by position.
[[nodiscard]] inline std::wstring_view ChildText(const Element& parent, std::size_t position)
{
    return position < parent.children.size() ? std::wstring_view(parent.children[position].text) : std::wstring_view();
}

} // namespace voltaro
