#include "ui/binding.h"

#include "support/test_window.h"
#include "ui/combo_box.h"
#include "ui/controls.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

enum Id : int { kEdit = 1, kAddress, kSlider, kList, kNames, kCheck };

constexpr Control kControls[]
    = {{Kind::Edit, kEdit, L"", 0, 0, 90, 20}, {Kind::IpAddress, kAddress, L"", 0, 30, 90, 20},
        {Kind::Trackbar, kSlider, L"", 0, 60, 90, 20}, {Kind::Combo, kList, L"", 0, 90, 90, 90},
        {Kind::Combo, kNames, L"", 0, 120, 90, 90}, {Kind::CheckBox, kCheck, L"", 0, 150, 90, 20}};
constexpr Choice kChoices[] = {{L"5 Mins", 5}, {L"10 Mins", 10}, {L"Never", 0}};

struct Texts {
    FieldText one;
};

TEST(BindingTest, WhatAControlMakesOfAStoredText)
{
    using enum Shown;
    // What is stored, and what the control holds of it; null: nothing.
    const std::tuple<int, Shown, const wchar_t*, const wchar_t*> kRows[] = {{kEdit, Text, L" a & b ", L" a & b "},
        {kAddress, Address, L"192.168.20.11", L"192.168.20.11"}, {kAddress, Address, L"host", L"0.0.0.0"},
        {kSlider, Step, L"5", L"5"}, {kSlider, Step, L"6", L"10"}, {kList, List, L"07", L"10"},
        {kList, List, L"11", L"0"}, {kList, List, L"", L"0"}, {kNames, Name, L"tALKS", L"Talks"},
        {kNames, Name, L"", nullptr}, {kNames, Name, L"Gone", nullptr}, {kNames, OptionalName, L"Talks", L"Talks"},
        {kNames, OptionalName, L"", L""}, {kNames, OptionalName, L"Gone", nullptr}, {kCheck, YesNo, L"yes", L"Yes"},
        {kCheck, YesNo, L"maybe", L"No"}, {kCheck, Feature, L"yes", L"YES"}, {kCheck, Feature, L"NAN", L"NO"},
        {kCheck, Feature, L"na", nullptr}, {kCheck, Feature, L"No", L"NO"}, {kCheck, Status, L"Enabled", L"Enabled"},
        {kCheck, Status, L"enabled", L"Disabled"}, {kCheck, Activity, L"Yes", L"Yes"},
        {kCheck, Activity, L"yes", L"No"}};
    const TestWindow window;
    CreateControls(window.Get(), kControls, nullptr);
    const std::wstring names[] = {L"(None)", L"Talks"};
    FillCombo(window.Get(), kNames, names);
    for (const auto& [id, shown, stored, held] : kRows) {
        const Binding<Texts> table[] = {{id, shown, &Texts::one, kChoices}};
        ShowFields(window.Get(), table, Texts{stored});
        const ShownTexts before = EnteredTexts(window.Get(), table);
        EXPECT_EQ(before[0], held ? std::optional<FieldText>(held) : std::nullopt) << stored;
        EXPECT_EQ(WithEntered(window.Get(), table, Texts{stored}, before).one, stored) << "nobody changed it";
        EXPECT_EQ(WithEntered(window.Get(), table, Texts{stored}, {}).one, held ? held : stored);
        EXPECT_EQ(WithEntered(window.Get(), table, Texts{stored}, {FieldText(L"other")}).one, held ? held : stored);
    }
}

} // namespace
} // namespace voltaro
