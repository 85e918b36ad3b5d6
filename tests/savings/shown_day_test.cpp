#include "savings/shown_day.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

constexpr LocalTime kNow = {2024, 3, 1, 12, 0, 0};

Element Answer(const wchar_t* container, const wchar_t* text)
{
    return {L"vltp", {}, {{L"response", {}, {{container, {}, {TextElement(L"a", text)}}}}}};
}

TEST(ShownDayTest, WhatAnAnswerTurnsOutToBe)
{
    DayReport report;
    EXPECT_EQ(ReadDayAnswer(nullptr, L"", kNow, report), DayAnswer::Damaged);
    const Element stray{L"vltp", {}, {}};
    EXPECT_EQ(ReadDayAnswer(&stray, L"", kNow, report), DayAnswer::Damaged);
    const Element failed{L"vltp", {}, {{L"response", {}, {TextElement(L"status", L"failure")}}}};
    EXPECT_EQ(ReadDayAnswer(&failed, L"Failure", kNow, report), DayAnswer::NoData);
    const Element day = Answer(L"details", L"QUptme # 2024/02/29 06:00:00");
    EXPECT_EQ(ReadDayAnswer(&day, L"", kNow, report), DayAnswer::Report);
    EXPECT_EQ(report.durations.off, 6 * 3600);
    EXPECT_EQ(report.durations.active, 18 * 3600);
    const Element empty{L"vltp", {}, {{L"response", {}, {}}}};
    EXPECT_EQ(ReadDayAnswer(&empty, L"", kNow, report), DayAnswer::Report);
    EXPECT_EQ(report.durations.active, kDaySeconds);
}

// Any number of `details`, at any depth, and what does not stand right inside one is no event.
TEST(ShownDayTest, LinesComeFromEveryDetailsInOrder)
{
    Element first = Answer(L"details", L"Istime # 2024/02/29 00:00:00");
    first.children.push_back(TextElement(L"a", L"Failure"));
    first.children.push_back({L"details", {}, {TextElement(L"a", L"Ietime # 2024/02/29 00:05:00")}});
    DayReport report;
    EXPECT_EQ(ReadDayAnswer(&first, L"", kNow, report), DayAnswer::Report);
    EXPECT_EQ(report.durations.idleWithoutSavings, 300);
    EXPECT_EQ(report.histogram.counts[0], 1);
}

} // namespace
} // namespace voltaro
