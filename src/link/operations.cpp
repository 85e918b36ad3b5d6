#include "link/operations.h"

#include <iterator>

namespace voltaro {
namespace {

constexpr std::size_t kPlainUnits = 1'000;    // an operation with at most one field, every character escaped
constexpr std::size_t kRecordUnits = 12'000;  // one record of a page of fields, every text escaped
constexpr std::size_t kPolicyUnits = 400'000; // the rules of the longest answer, reserved characters written out
constexpr std::size_t kJobsUnits = 44'992;    // 90,000 bytes with the frame's digits: the answer that brings the jobs
                                              // back holds no more, and a longer list would be lost

// clang-format off
constexpr OperationRow kOperations[] = {
    {Operation::GetSystemStatus,                 L"GetSystemstatus",                Member::StatusCheck,            kPlainUnits},
    {Operation::GetSystemDetails,                L"GetSystemDetails",               Member::SystemDetails,          kPlainUnits},
    {Operation::GetBatteryInfo,                  L"GetBatteryInfo",                 Member::BatteryInfo,            kPlainUnits},
    {Operation::GetActivationStatus,             L"GetActivationstatus",            Member::StatusCheck,            kPlainUnits},
    {Operation::GetVoltaroInfo,                  L"GetVoltaroInfo",                 Member::ProductInfo,            kPlainUnits},
    {Operation::GetLicenseInfo,                  L"GetLicenseInfo",                 Member::LicenseInfo,            kPlainUnits},
    {Operation::ActivateLicense,                 L"ActivateLicense",                Member::ActivateLicense,        kPlainUnits, true},
    {Operation::GetPatchDetails,                 L"GetPatchDetails",                Member::PatchDetails,           kPlainUnits},
    {Operation::CheckForUpdates,                 L"CheckForUpdates",                Member::CheckForUpdates,        kPlainUnits},
    {Operation::GetPowerSchemes,                 L"GetPowerSchemes",                Member::PowerSchemes,           kPlainUnits},
    {Operation::GetPolicies,                     L"GetPolicies",                    Member::Policies,               kPlainUnits},
    {Operation::GetCurrentPowerSettings,         L"GetCurrentpowersettings",        Member::CurrentSettings,        kPlainUnits},
    {Operation::QueryPowerScheme,                L"QueryPowerScheme",               Member::QueryScheme,            kPlainUnits},
    {Operation::ApplyPowerScheme,                L"ApplyPowerScheme",               Member::ApplyScheme,            kPlainUnits},
    {Operation::ApplyPowerSettings,              L"ApplyPowerSettings",             Member::SaveScheme,             kRecordUnits},
    {Operation::CreateScheme,                    L"CreateScheme",                   Member::CreateScheme,           kRecordUnits},
    {Operation::DeleteScheme,                    L"DeleteScheme",                   Member::Delete,                 kPlainUnits},
    {Operation::QueryPolicy,                     L"QueryPolicy",                    Member::QueryPolicy,            kPlainUnits},
    {Operation::SetPolicySettings,               L"SetPolicySettings",              Member::SavePolicy,             kPolicyUnits},
    {Operation::CreatePolicy,                    L"CreatePolicy",                   Member::SavePolicy,             kPolicyUnits},
    {Operation::DeletePolicy,                    L"DeletePolicy",                   Member::Delete,                 kPlainUnits},
    {Operation::GetHostSettings,                 L"GetCurrenthostsettings",         Member::HostSettings,           kPlainUnits},
    {Operation::ApplyHostSettings,               L"ApplyHostSettings",              Member::ApplyHost,              kRecordUnits},
    {Operation::GetProxySettings,                L"GetCurrentProxySettings",        Member::ProxySettings,          kPlainUnits},
    {Operation::ApplyProxySettings,              L"ApplyProxySettings",             Member::ApplyProxy,             kRecordUnits, true},
    {Operation::GetSnoozeSettings,               L"GetSnoozeSettings",              Member::SnoozeSettings,         kPlainUnits},
    {Operation::ApplySnoozeSettings,             L"ApplySnoozeSettings",            Member::ApplySnooze,            kRecordUnits},
    {Operation::GetDeviceSettings,               L"GetCurrentDeviceSettings",       Member::DeviceControl,          kPlainUnits},
    {Operation::ApplyDeviceSettings,             L"ApplyDeviceSettings",            Member::DeviceControl,          kRecordUnits, true},
    {Operation::GetCurrentConsumption,           L"GetCurrentPowerConsumptionData", Member::ConsumptionData,        kPlainUnits},
    {Operation::GetManualConsumption,            L"GetManualPowerConsumptionData",  Member::ConsumptionData,        kPlainUnits},
    {Operation::GetAutoConsumption,              L"GetAutoPowerConsumptionData",    Member::ConsumptionData,        kPlainUnits},
    {Operation::ApplyConsumption,                L"ApplyPowerConsumptionData",      Member::ApplyConsumption,       kRecordUnits},
    {Operation::GetSchedulerSettings,            L"GetCurrentSchedulerSettings",    Member::SchedulerJobs,          kPlainUnits},
    {Operation::ApplySchedulerSettings,          L"ApplySchedulerSettings",         Member::SchedulerJobs,          kJobsUnits},
    {Operation::GetEvents,                       L"GetVLTEvents",                   Member::Events,                 kPlainUnits},
    {Operation::GetSavingsTillDate,              L"GetVoltaroSavingsTillDate",      Member::SavingsTotal,           kPlainUnits},
    {Operation::Pause,                           L"Pause",                          Member::MainWindowActions,      250},
    {Operation::Resume,                          L"Resume",                         Member::PowerActions,           kPlainUnits},
    {Operation::PauseStatus,                     L"PauseStatus",                    Member::MainWindowActions,      250},
    {Operation::Standby,                         L"standby",                        Member::PowerActions,           kPlainUnits},
    {Operation::Hibernate,                       L"hibernate",                      Member::PowerActions,           kPlainUnits},
    {Operation::Shutdown,                        L"shutdown",                       Member::PowerActions,           kPlainUnits},
    {Operation::Restart,                         L"Restart",                        Member::PowerActions,           kPlainUnits},
    {Operation::LogOff,                          L"logoff",                         Member::PowerActions,           kPlainUnits},
    {Operation::LockScreen,                      L"LockScreen",                     Member::PowerActions,           kPlainUnits},
    {Operation::GoOnWithAction,                  L"success",                        Member::PowerActions,           kPlainUnits},
    {Operation::DropAction,                      L"failure",                        Member::PowerActions,           kPlainUnits},
};
// clang-format on

consteval bool OperationsStandInOrder()
{
    for (std::size_t i = 0; i < std::size(kOperations); ++i) {
        if (kOperations[i].operation != static_cast<Operation>(i))
            return false;
    }
    return std::size(kOperations) == static_cast<std::size_t>(Operation::Count);
}
static_assert(OperationsStandInOrder());

} // namespace

const OperationRow& RowOf(Operation operation)
{
    return kOperations[static_cast<std::size_t>(operation)];
}

} // namespace voltaro
