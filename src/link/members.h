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
    BatteryWindow, // no window sends it: a whole battery answer does not fit
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

// What sets a member apart from the common procedure.
enum Difference : std::uint8_t {
    kNoDifference = 0,
    kNoOptionCall = 1,           // leaves out the socket option call
    kStartupBox = 2,             // says so when the socket library does not start
    kConnectBox = 4,             // says so when the agent refuses the connection
    kClosedBox = 8,              // says so when the agent closes before the last piece
    kExceptionBoxThenTrue = 16,  // an escaped exception shows a box and the exchange counts as done
    kExceptionBoxThenFalse = 32, // the same box, but the exchange fails
};

// One member. `capacity`: the largest answer frame in bytes; the first receive asks for half of it. `seconds`: how long
// the first data of an answer may take.
struct MemberRow {
    Member member;
    std::size_t capacity;
    int seconds;
    SendKind send;
    std::uint8_t differences;
};

// clang-format off
inline constexpr MemberRow kMembers[] = {
    {Member::DeviceControl,            3'000,  60, SendKind::Heap,  kExceptionBoxThenTrue},
    {Member::SchedulerJobs,           90'000,  60, SendKind::Heap,  kExceptionBoxThenFalse},
    {Member::ActivateLicense,          1'000, 120, SendKind::Heap,  kStartupBox},
    {Member::ActivationBeforeUpdate,   1'000, 120, SendKind::Heap,  kStartupBox},
    {Member::CheckForUpdates,            700, 120, SendKind::Fixed, kNoDifference},
    {Member::ApplyScheme,                700,  60, SendKind::Heap,  kNoDifference},
    {Member::QueryPolicy,            300'000,  60, SendKind::Heap,  kNoDifference},
    {Member::BatteryInfo,              3'000,  20, SendKind::Fixed, kStartupBox},
    {Member::HostSettings,             6'096,  60, SendKind::Fixed, kNoDifference},
    {Member::ConsumptionData,          4'096,  60, SendKind::Fixed, kNoDifference},
    {Member::Policies,                 4'000,  60, SendKind::Fixed, kNoOptionCall},
    {Member::ProxySettings,            4'096,  60, SendKind::Fixed, kNoDifference},
    {Member::PowerSchemes,             4'000,  60, SendKind::Fixed, kNoOptionCall},
    {Member::CurrentSettings,          4'096,  60, SendKind::Fixed, kNoDifference},
    {Member::SnoozeSettings,           4'096,  60, SendKind::Fixed, kNoDifference},
    {Member::Delete,                     700,  60, SendKind::Heap,  kNoDifference},
    {Member::Events,                 200'000,  60, SendKind::Heap,  kNoDifference},
    {Member::ProductInfo,              2'048,  60, SendKind::Fixed, kNoDifference},
    {Member::LicenseInfo,              8'192,  60, SendKind::Fixed, kStartupBox},
    {Member::PowerActions,             3'072,  60, SendKind::Heap,  kNoDifference},
    {Member::PatchDetails,               700,  60, SendKind::Fixed, kNoDifference},
    {Member::MainWindowActions,          700,  60, SendKind::Heap,  kNoDifference},
    {Member::BatteryWindow,              700,  10, SendKind::Heap,  kClosedBox},
    {Member::QueryScheme,              4'096,  60, SendKind::Heap,  kNoDifference},
    {Member::SavingsTotal,             1'224,  60, SendKind::Fixed, kConnectBox},
    {Member::SavePolicy,                 700,  60, SendKind::Heap,  kNoDifference},
    {Member::ApplyHost,                6'096,  60, SendKind::Heap,  kNoDifference},
    {Member::ApplyConsumption,           700,  60, SendKind::Heap,  kNoDifference},
    {Member::CreateScheme,               700,  60, SendKind::Heap,  kNoDifference},
    {Member::SaveScheme,                 700,  60, SendKind::Heap,  kNoDifference},
    {Member::ApplyProxy,                 700,  60, SendKind::Heap,  kNoDifference},
    {Member::ApplySnooze,                700,  60, SendKind::Heap,  kNoDifference},
    {Member::SystemDetails,          284'000,  60, SendKind::Fixed, kNoDifference},
    {Member::StatusCheck,              1'000,  10, SendKind::Fixed, kNoDifference},
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
