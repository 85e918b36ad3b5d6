#pragma once

#include "base/text_rules.h"
#include "link/element.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <span>
#include <string>

namespace voltaro {

// An input, and the title and the beginning of the text that refuse it; both empty for an input that passes.
struct RefusalRow {
    const wchar_t* input;
    const wchar_t* title;
    const wchar_t* text = L"";
};

template <class Check>
void ExpectRefusals(std::span<const RefusalRow> rows, Check check)
{
    for (const RefusalRow& row : rows) {
        const Refusal* refusal = check(row.input);
        EXPECT_STREQ(refusal != nullptr ? refusal->title : L"", row.title) << row.input;
        const std::wstring text = refusal != nullptr ? RefusalText(*refusal, row.input) : std::wstring();
        EXPECT_EQ(text.substr(0, std::wstring_view(row.text).size()), row.text) << row.input;
    }
}

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
