#pragma once

#include "savings/event_walk.h"
#include "savings/monitor_table.h"

#include <cstdint>
#include <string_view>

namespace voltaro {

// The machine's power consumption in watts, as the figures are computed with it.
struct PowerProfile {
    MonitorKind kind = MonitorKind::Lcd;
    float monitorOn = 0;
    float monitorOff = 0;
    float cpuMax = 0;
    float cpuIdle = 0;
    float cpuStandby = 0;
    float cpuOff = 0;
};

// The texts of a profile, from the record or from the window's fields.
struct ProfileTexts {
    std::wstring_view monitorType;
    std::wstring_view monitorOn;
    std::wstring_view monitorOff;
    std::wstring_view cpuMax;
    std::wstring_view cpuIdle;
    std::wstring_view cpuStandby;
    std::wstring_view cpuOff;
};

// The profile of those texts. A text that is no number is 0 watts; a monitor without type and size draws nothing.
[[nodiscard]] PowerProfile ReadProfile(const ProfileTexts& texts);

// Carbon dioxide that a kilowatt hour stands for.
inline constexpr int kGramsPerKilowattHour = 700;

// What the day comes to in energy: kWh, per cent of the would-have-been energy, grams of carbon dioxide.
struct SavingsFigures {
    std::int64_t wouldHaveBeenOn = 0; // seconds powered on without the agent
    std::int64_t savedFor = 0;        // seconds spent in states that the agent brought about
    double wouldHaveBeen = 0;
    double nowIs = 0;
    double saved = 0; // may be negative
    double percentage = 0;
    double carbonDioxide = 0;
};

// The day's figures. The agent's own figures, where they are not 0, take the place of the computed ones.
[[nodiscard]] SavingsFigures ComputeSavings(const DayReport& day, const PowerProfile& profile);

// The energy of idle seconds with the monitor on, in kWh.
[[nodiscard]] double IdleEnergy(std::int64_t seconds, const PowerProfile& profile);

} // namespace voltaro
