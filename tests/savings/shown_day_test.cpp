#include "savings/shown_day.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

constexpr LocalTime kNow = {2024, 3, 1, 12, 0, 0};

TEST(ShownDayTest, WhatAnAnswerTurnsOutToBe)
{
    DayReport report;
    EXPECT_EQ(ReadDayAnswer(nullptr, L"", kNow, report), DayAnswer::Damaged);
    const Element stray{L"vltp", {}, {}};
    EXPECT_EQ(ReadDayAnswer(&stray, L"", kNow, report), DayAnswer::Damaged);
    const Element failed{L"vltp", {}, {{L"response", {}, {TextElement(L"status", L"failure")}}}};
    EXPECT_EQ(ReadDayAnswer(&failed, L"Failure", kNow, report), DayAnswer::NoData);
    const Element empty{L"vltp", {}, {{L"response", {}, {}}}};
    EXPECT_EQ(ReadDayAnswer(&empty, L"", kNow, report), DayAnswer::Report);
    EXPECT_EQ(report.durations.active, kDaySeconds);
    // Lines come from every `details`, in order; what stands elsewhere is no event.
    const Element start{L"details", {}, {TextElement(L"a", L"Istime # 2024/02/29 00:00:00")}};
    const Element end{L"details", {}, {TextElement(L"a", L"Ietime # 2024/02/29 00:05:00")}};
    const Element day{L"vltp", {}, {{L"response", {}, {start}}, TextElement(L"a", L"Failure"), end}};
    EXPECT_EQ(ReadDayAnswer(&day, L"", kNow, report), DayAnswer::Report);
    EXPECT_EQ(report.durations.idleWithoutSavings, 300);
}

} // namespace
} // namespace voltaro
