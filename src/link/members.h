#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace voltaro {

// The transport's members: each operation, or small group of operations, has one. They share one procedure and differ
// by the data of their row alone.
enum class Member : std::uint8_t {
    DeviceControl,
    SchedulerJobs,
    ActivateLicense,        // made for the update window's first request; the activation window sends it
    ActivationBeforeUpdate, // no window sends it
    CheckForUpdates,
    ApplyScheme,
    QueryPolicy,
    BatteryInfo,
    HostSettings,
    ConsumptionData,
    Policies,
    ProxySettings,
    PowerSchemes,
    CurrentSettings,
    SnoozeSettings,
    Delete,
    Events,
    ProductInfo,
    LicenseInfo,
    PowerActions,
    PatchDetails,
    MainWindowActions,
    BatteryWindow, // nor is this one: the battery window asks through BatteryInfo
    QueryScheme,
    SavingsTotal,
    SavePolicy,
    ApplyHost,
    ApplyConsumption,
    CreateScheme,
    SaveScheme,
    ApplyProxy,
    ApplySnooze,
    SystemDetails,
    StatusCheck,
    Count,
};

// How a member makes its send buffer: as long as the request, or a local of fixed size.
enum class SendKind : std::uint8_t { Heap, Fixed };
inline constexpr std::size_t kFixedSendBytes = 1024;

// What sets a member apart from the common procedure. The boxes are shown by the console once the exchange has ended.
enum class Difference : std::uint8_t {
    None,
    NoOptionCall,          // leaves out the socket option call
    StartupBox,            // a box when the socket library does not start
    ConnectBox,            // a box when the connection cannot be made
    ClosedBox,             // a box when the agent closes before the last piece
    ExceptionBoxThenTrue,  // a box after an escaped exception, and the exchange counts as answered
    ExceptionBoxThenFalse, // the same box, and the exchange has failed
};

// One member. `capacity`: the largest answer frame in bytes; the first receive asks for half of it. `seconds`: how long
// the first data of an answer may take.
struct MemberRow {
    Member member;
    std::size_t capacity;
    int seconds;
    SendKind send;
    Difference difference;
};

// clang-format off
inline constexpr MemberRow kMembers[] = {
    {Member::DeviceControl,            3'000,  60, SendKind::Heap,  Difference::ExceptionBoxThenTrue},
    {Member::SchedulerJobs,           90'000,  60, SendKind::Heap,  Difference::ExceptionBoxThenFalse},
    {Member::ActivateLicense,          1'000, 120, SendKind::Heap,  Difference::StartupBox},
    {Member::ActivationBeforeUpdate,   1'000, 120, SendKind::Heap,  Difference::StartupBox},
    {Member::CheckForUpdates,            700, 120, SendKind::Fixed, Difference::None},
    {Member::ApplyScheme,                700,  60, SendKind::Heap,  Difference::None},
    {Member::QueryPolicy,            300'000,  60, SendKind::Heap,  Difference::None},
    {Member::BatteryInfo,              3'000,  20, SendKind::Fixed, Difference::StartupBox},
    {Member::HostSettings,             6'096,  60, SendKind::Fixed, Difference::None},
    {Member::ConsumptionData,          4'096,  60, SendKind::Fixed, Difference::None},
    {Member::Policies,                 4'000,  60, SendKind::Fixed, Difference::NoOptionCall},
    {Member::ProxySettings,            4'096,  60, SendKind::Fixed, Difference::None},
    {Member::PowerSchemes,             4'000,  60, SendKind::Fixed, Difference::NoOptionCall},
    {Member::CurrentSettings,          4'096,  60, SendKind::Fixed, Difference::None},
    {Member::SnoozeSettings,           4'096,  60, SendKind::Fixed, Difference::None},
    {Member::Delete,                     700,  60, SendKind::Heap,  Difference::None},
    {Member::Events,                 200'000,  60, SendKind::Heap,  Difference::None},
    {Member::ProductInfo,              2'048,  60, SendKind::Fixed, Difference::None},
    {Member::LicenseInfo,              8'192,  60, SendKind::Fixed, Difference::StartupBox},
    {Member::PowerActions,             3'072,  60, SendKind::Heap,  Difference::None},
    {Member::PatchDetails,               700,  60, SendKind::Fixed, Difference::None},
    {Member::MainWindowActions,          700,  60, SendKind::Heap,  Difference::None},
    {Member::BatteryWindow,              700,  10, SendKind::Heap,  Difference::ClosedBox},
    {Member::QueryScheme,              4'096,  60, SendKind::Heap,  Difference::None},
    {Member::SavingsTotal,             1'224,  60, SendKind::Fixed, Difference::ConnectBox},
    {Member::SavePolicy,                 700,  60, SendKind::Heap,  Difference::None},
    {Member::ApplyHost,                6'096,  60, SendKind::Heap,  Difference::None},
    {Member::ApplyConsumption,           700,  60, SendKind::Heap,  Difference::None},
    {Member::CreateScheme,               700,  60, SendKind::Heap,  Difference::None},
    {Member::SaveScheme,                 700,  60, SendKind::Heap,  Difference::None},
    {Member::ApplyProxy,                 700,  60, SendKind::Heap,  Difference::None},
    {Member::ApplySnooze,                700,  60, SendKind::Heap,  Difference::None},
    {Member::SystemDetails,          284'000,  60, SendKind::Fixed, Difference::None},
    {Member::StatusCheck,              1'000,  10, SendKind::Fixed, Difference::None},
};
// clang-format on

[[nodiscard]] constexpr const MemberRow& RowOf(Member member)
{
    return kMembers[static_cast<std::size_t>(member)];
}

consteval bool MembersStandInOrder()
{
    for (std::size_t i = 0; i < std::size(kMembers); ++i) {
        if (kMembers[i].member != static_cast<Member>(i))
            return false;
    }
    return std::size(kMembers) == static_cast<std::size_t>(Member::Count);
}
static_assert(MembersStandInOrder());

} // namespace voltaro
