#pragma once

#include "link/records.h"
#include "power/levels.h"
#include "power/timeouts.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace voltaro {

// The parts of the scheme editor that show a scheme's settings, each a child window of its own.
enum class SchemePage : std::uint8_t { Display, PowerOff, Processor };

// The controls that show a setting.
enum SchemeControl : int {
    kWorkingBrightness = 4101,
    kIdleBrightness,
    kDim,
    kMonitorOff,
    kLock,
    kScreenSaverOff,
    kHardDisk = 4121,
    kSchemeLogOff,
    kSleepChoice,
    kShutdownChoice,
    kStandbyTime,
    kHibernateTime,
    kShutdownTime,
    kResumePassword,
    kScript,
    kDownloads,
    kPrinter,
    kCpuLoadCheck,
    kCpuLoad,
    kProcessorSpeed = 4141,
    kPolicyList,
};

// How a control stands for its setting.
enum class Shown : std::uint8_t {
    Step,   // a slider: the choice at its position
    Choice, // a combo box of numbers by their texts
    Name,   // a combo box of names; nothing is selected for a name that it does not hold
    Check,  // "Yes" or "No"; a radio that stands for "Yes" too
};

// One control of the form and the setting behind it.
struct SchemeField {
    SchemePage page;
    int control;
    Shown shown;
    FieldText PowerSchemeSettings::*slot;
    Choices choices{}; // the whole list, also where the control holds a part of it
};

inline constexpr const wchar_t* kNoPolicy = L"(None)"; // the first entry of the policy list; stored as an empty name

// Which control shows which setting. The scheme's name has none.
// clang-format off
inline constexpr SchemeField kSchemeForm[] = {
    {SchemePage::Display,   kWorkingBrightness, Shown::Step,   &PowerSchemeSettings::workingBrightness,    kBrightnessSteps},
    {SchemePage::Display,   kIdleBrightness,    Shown::Step,   &PowerSchemeSettings::idleBrightness,       kBrightnessSteps},
    {SchemePage::Display,   kDim,               Shown::Choice, &PowerSchemeSettings::dimTime,              kDimChoices},
    {SchemePage::Display,   kMonitorOff,        Shown::Choice, &PowerSchemeSettings::monitorTime,          kMonitorOffChoices},
    {SchemePage::Display,   kLock,              Shown::Choice, &PowerSchemeSettings::lockScreenTime,       kLockChoices},
    {SchemePage::Display,   kScreenSaverOff,    Shown::Check,  &PowerSchemeSettings::screensaver},
    {SchemePage::PowerOff,  kHardDisk,          Shown::Choice, &PowerSchemeSettings::hardDiskTime,         kHardDiskChoices},
    {SchemePage::PowerOff,  kSchemeLogOff,      Shown::Choice, &PowerSchemeSettings::logOffTime,           kLogOffChoices},
    {SchemePage::PowerOff,  kShutdownChoice,    Shown::Check,  &PowerSchemeSettings::shutdownFlag},
    {SchemePage::PowerOff,  kStandbyTime,       Shown::Choice, &PowerSchemeSettings::standbyTime,          kStandbyChoices},
    {SchemePage::PowerOff,  kHibernateTime,     Shown::Choice, &PowerSchemeSettings::hibernateTime,        kHibernateChoices},
    {SchemePage::PowerOff,  kShutdownTime,      Shown::Choice, &PowerSchemeSettings::shutdownTime,         kStandbyChoices},
    {SchemePage::PowerOff,  kResumePassword,    Shown::Check,  &PowerSchemeSettings::passwordOnResume},
    {SchemePage::PowerOff,  kScript,            Shown::Check,  &PowerSchemeSettings::scriptBeforePowerOff},
    {SchemePage::PowerOff,  kDownloads,         Shown::Check,  &PowerSchemeSettings::downloadsFlag},
    {SchemePage::PowerOff,  kPrinter,           Shown::Check,  &PowerSchemeSettings::printerFlag},
    {SchemePage::PowerOff,  kCpuLoadCheck,      Shown::Check,  &PowerSchemeSettings::idleCpuLoadFlag},
    {SchemePage::PowerOff,  kCpuLoad,           Shown::Choice, &PowerSchemeSettings::idleCpuLoad,          kCpuLoads},
    {SchemePage::Processor, kProcessorSpeed,    Shown::Name,   &PowerSchemeSettings::cpuSpeed},
    {SchemePage::Processor, kPolicyList,        Shown::Name,   &PowerSchemeSettings::sensorPolicy},
};
// clang-format on
static_assert(std::size(kSchemeForm) + 1 == std::size(kPowerSchemeFields));

// What the control shows for a stored text: a choice's text, a name, "Yes" or "No".
[[nodiscard]] std::wstring ShownSetting(const SchemeField& field, std::wstring_view stored);

// What a control showed for a stored text, once the linked lists were filled.
struct LoadedSetting {
    std::wstring shown;
    std::wstring stored;
};

// What is stored for what the control shows now. As long as it shows what it was loaded with, the stored text stays as
// it is, be it one that no control can show; only an empty one, and what a control shows as "Disabled", is replaced.
[[nodiscard]] std::wstring StoredSetting(
    const SchemeField& field, std::wstring_view shown, const LoadedSetting& loaded);

// What the controls show before a scheme was read.
[[nodiscard]] PowerSchemeSettings InitialSettings();

} // namespace voltaro
