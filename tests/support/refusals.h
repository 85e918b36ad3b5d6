#pragma once

#include "base/text_rules.h"

#include <gtest/gtest.h>

#include <span>
#include <string>

namespace voltaro {

// One row of a table of inputs to outcomes: the title and the beginning of the text shown, both empty for an input that
// passes.
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

} // namespace voltaro
