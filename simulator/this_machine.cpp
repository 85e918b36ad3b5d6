#include "simulator/this_machine.h"

#include "base/handles.h"
#include "base/text.h"

#include <winioctl.h>

#include <algorithm>
#include <iphlpapi.h>
#include <powrprof.h>
#include <vector>

namespace voltaro::simulator {
namespace {

constexpr double kGigabyte = 1024.0 * 1024.0 * 1024.0;
constexpr const wchar_t* kProcessorKey = L"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";
constexpr const wchar_t* kFirmwareKey = L"HARDWARE\\DESCRIPTION\\System\\BIOS";
constexpr const wchar_t* kSystemKey = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";

const wchar_t* YesNo(bool yes)
{
    return yes ? L"Yes" : L"No";
}

void Add(Element& list, std::wstring_view name, std::wstring_view text)
{
    if (!text.empty())
        list.children.push_back(TextElement(name, text));
}

std::wstring Registry(const wchar_t* key, const wchar_t* value)
{
    wchar_t text[256] = {};
    DWORD bytes = sizeof text;
    const LSTATUS read = RegGetValueW(HKEY_LOCAL_MACHINE, key, value, RRF_RT_REG_SZ, nullptr, text, &bytes);
    return read == ERROR_SUCCESS ? text : L"";
}

std::wstring Gigabytes(std::uint64_t bytes)
{
    return Format(L"%.2f GB", static_cast<double>(bytes) / kGigabyte);
}

std::wstring ComputerName(COMPUTER_NAME_FORMAT form)
{
    wchar_t name[256] = {};
    DWORD size = std::size(name);
    return GetComputerNameExW(form, name, &size) != FALSE ? name : L"";
}

std::wstring HostName()
{
    return ComputerName(ComputerNamePhysicalNetBIOS);
}

const wchar_t* BatteryStatus(const SYSTEM_POWER_STATUS& status)
{
    static constexpr struct {
        BYTE flag;
        const wchar_t* text;
    } kTexts[] = {{BATTERY_FLAG_CHARGING, L"Charging"}, {BATTERY_FLAG_CRITICAL, L"Critical"},
        {BATTERY_FLAG_LOW, L"Low"}, {BATTERY_FLAG_HIGH, L"High"}};
    if (status.BatteryFlag == BATTERY_FLAG_UNKNOWN)
        return L"Unknown status";
    for (const auto& row : kTexts) {
        if ((status.BatteryFlag & row.flag) != 0)
            return row.text;
    }
    return L"Medium";
}

void AddCapacity(Element& response)
{
    SYSTEM_BATTERY_STATE state{};
    if (CallNtPowerInformation(SystemBatteryState, nullptr, 0, &state, sizeof state) != 0 || state.MaxCapacity == 0)
        return;
    Add(response, L"Capacity", Format(L"%.2f Wh", state.MaxCapacity / 1000.0));
    Add(response, L"RemainingCapacity", Format(L"%.2f Wh", state.RemainingCapacity / 1000.0));
    Add(response, L"Rate", Format(L"%.2f W", static_cast<std::int32_t>(state.Rate) / 1000.0));
}

// The first four by position: power source, status, charge and remaining time.
Element Battery()
{
    SYSTEM_POWER_STATUS status{};
    const bool known = GetSystemPowerStatus(&status) != FALSE;
    const bool present = known && (status.BatteryFlag == BATTERY_FLAG_UNKNOWN || (status.BatteryFlag & 128) == 0);
    const auto minutes = static_cast<int>(status.BatteryLifeTime / 60);
    const bool timed = present && status.BatteryLifeTime != BATTERY_LIFE_UNKNOWN;
    Element response{L"response", {},
        {TextElement(L"PowerSource", known && status.ACLineStatus == 0 ? L"On Battery" : L"On AC"),
            TextElement(L"BatteryStatus", present ? BatteryStatus(status) : L"No System battery"),
            TextElement(L"Charge",
                present && status.BatteryLifePercent <= 100 ? Format(L"%d %%", status.BatteryLifePercent) : L""),
            TextElement(
                L"RemainingTime", timed ? Format(L"%d Hrs : %d Mins", minutes / 60, minutes % 60) : std::wstring())}};
    if (present)
        AddCapacity(response);
    return response;
}

// The number of physical cores; 0 when it is not known.
int Cores()
{
    DWORD bytes = 0;
    GetLogicalProcessorInformation(nullptr, &bytes);
    std::vector<SYSTEM_LOGICAL_PROCESSOR_INFORMATION> rows(bytes / sizeof(SYSTEM_LOGICAL_PROCESSOR_INFORMATION) + 1);
    bytes = static_cast<DWORD>(rows.size() * sizeof rows[0]);
    if (GetLogicalProcessorInformation(rows.data(), &bytes) == FALSE)
        return 0;
    rows.resize(bytes / sizeof rows[0]);
    return static_cast<int>(std::count_if(
        rows.begin(), rows.end(), [](const auto& row) { return row.Relationship == RelationProcessorCore; }));
}

// The console takes the fifth field for the machine's state.
Element Processor()
{
    SYSTEM_INFO system{};
    GetNativeSystemInfo(&system);
    DWORD megahertz = 0, size = sizeof megahertz;
    RegGetValueW(HKEY_LOCAL_MACHINE, kProcessorKey, L"~MHz", RRF_RT_REG_DWORD, nullptr, &megahertz, &size);
    Element section{L"CPUInfo", {},
        {TextElement(L"Processor", Registry(kProcessorKey, L"ProcessorNameString")),
            TextElement(L"Manufacturer", Registry(kProcessorKey, L"VendorIdentifier")),
            TextElement(L"NumberOfCores", NumberText(Cores())),
            TextElement(L"LogicalProcessors", NumberText(system.dwNumberOfProcessors)),
            TextElement(L"SystemState", L"On")}};
    Add(section, L"MaximumClockSpeed", megahertz > 0 ? NumberText(megahertz) + L" MHz" : L"");
    const bool wide
        = system.wProcessorArchitecture == PROCESSOR_ARCHITECTURE_AMD64 || system.wProcessorArchitecture == 12;
    Add(section, L"AddressWidth", wide ? L"64 bit" : L"32 bit"); // 12: ARM64
    Add(section, L"SystemManufacturer", Registry(kFirmwareKey, L"SystemManufacturer"));
    Add(section, L"SystemModel", Registry(kFirmwareKey, L"SystemProductName"));
    return section;
}

// The registry names the system without its maker, by which the console chooses the logo.
Element OperatingSystem()
{
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof memory;
    GlobalMemoryStatusEx(&memory);
    wchar_t user[257] = {}, directory[MAX_PATH] = {}, locale[LOCALE_NAME_MAX_LENGTH] = {};
    DWORD size = std::size(user);
    GetUserNameW(user, &size);
    GetSystemDirectoryW(directory, MAX_PATH);
    GetUserDefaultLocaleName(locale, LOCALE_NAME_MAX_LENGTH);
    TIME_ZONE_INFORMATION zone{};
    GetTimeZoneInformation(&zone);
    const std::wstring product = Registry(kSystemKey, L"ProductName");
    const auto upMinutes = static_cast<long long>(GetTickCount64() / 60'000);
    Element section{L"OSInfo", {}, {}};
    Add(section, L"OSName", ContainsIgnoreCase(product, L"Microsoft") ? product : L"Microsoft " + product);
    Add(section, L"Build", Registry(kSystemKey, L"CurrentBuildNumber"));
    Add(section, L"HostName", HostName());
    Add(section, L"Domain", ComputerName(ComputerNameDnsDomain));
    Add(section, L"LoggedOnUser", user);
    Add(section, L"RegisteredUser", Registry(kSystemKey, L"RegisteredOwner"));
    Add(section, L"UpTime", Format(L"%lld Hrs : %lld Mins", upMinutes / 60, upMinutes % 60));
    Add(section, L"TotalMemory", Gigabytes(memory.ullTotalPhys));
    Add(section, L"FreeMemory", Gigabytes(memory.ullAvailPhys));
    Add(section, L"SystemDirectory", directory);
    Add(section, L"Locale", locale);
    Add(section, L"TimeZone", zone.StandardName);
    return section;
}

Element Capabilities()
{
    SYSTEM_POWER_CAPABILITIES power{};
    Element section{L"PowerCapabilities", {}, {}};
    if (GetPwrCapabilities(&power) == FALSE)
        return section;
    const bool sleeps = power.SystemS1 != FALSE || power.SystemS2 != FALSE || power.SystemS3 != FALSE;
    Add(section, L"StandbySupported", YesNo(sleeps));
    Add(section, L"StandbyStates",
        Format(L"S1 %ls, S2 %ls, S3 %ls", YesNo(power.SystemS1), YesNo(power.SystemS2), YesNo(power.SystemS3)));
    Add(section, L"HibernateSupported", YesNo(power.SystemS4));
    Add(section, L"HibernateFilePresent", YesNo(power.HiberFilePresent));
    Add(section, L"ProcessorThrottling", YesNo(power.ProcessorThrottle));
    Add(section, L"ThermalControl", YesNo(power.ThermalControl));
    Add(section, L"DiskSpinDown", YesNo(power.DiskSpinDown));
    Add(section, L"VideoDimming", YesNo(power.VideoDimPresent));
    Add(section, L"PowerButtonPresent", YesNo(power.PowerButtonPresent));
    Add(section, L"SleepButtonPresent", YesNo(power.SleepButtonPresent));
    Add(section, L"LidPresent", YesNo(power.LidPresent));
    return section;
}

// The addresses of a list, separated by commas.
template <class Node>
std::wstring Addresses(const Node* node)
{
    std::wstring text;
    for (; node != nullptr; node = node->Next) {
        wchar_t address[INET6_ADDRSTRLEN + 32] = {};
        DWORD size = std::size(address);
        if (WSAAddressToStringW(
                node->Address.lpSockaddr, static_cast<DWORD>(node->Address.iSockaddrLength), nullptr, address, &size)
            == 0)
            text += (text.empty() ? L"" : L", ") + std::wstring(address);
    }
    return text;
}

Element Adapter(const IP_ADAPTER_ADDRESSES& adapter)
{
    std::wstring hardware;
    for (ULONG i = 0; i < adapter.PhysicalAddressLength; ++i)
        hardware += Format(i == 0 ? L"%02x" : L":%02x", adapter.PhysicalAddress[i]);
    Element group{L"Adapter", {}, {}};
    Add(group, L"AdapterName", adapter.Description);
    Add(group, L"ConnectionName", adapter.FriendlyName);
    Add(group, L"Status", adapter.OperStatus == IfOperStatusUp ? L"Connected" : L"Media disconnected");
    Add(group, L"MACAddress", hardware);
    Add(group, L"IPAddress", Addresses(adapter.FirstUnicastAddress));
    Add(group, L"DefaultGateway", Addresses(adapter.FirstGatewayAddress));
    Add(group, L"DNSServers", Addresses(adapter.FirstDnsServerAddress));
    Add(group, L"DHCPEnabled", YesNo((adapter.Flags & IP_ADAPTER_DHCP_ENABLED) != 0));
    if (adapter.TransmitLinkSpeed != ~0ULL)
        Add(group, L"Speed", Format(L"%.0f Mbps", static_cast<double>(adapter.TransmitLinkSpeed) / 1e6));
    return group;
}

Element Network()
{
    Element section{L"NetworkInfo", {}, {}};
    constexpr ULONG kFlags = GAA_FLAG_INCLUDE_GATEWAYS | GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST;
    ULONG bytes = 64 * 1024;
    std::vector<IP_ADAPTER_ADDRESSES> buffer(bytes / sizeof(IP_ADAPTER_ADDRESSES));
    if (GetAdaptersAddresses(AF_UNSPEC, kFlags, nullptr, buffer.data(), &bytes) != NO_ERROR)
        return section;
    for (const IP_ADAPTER_ADDRESSES* adapter = buffer.data(); adapter != nullptr; adapter = adapter->Next) {
        if (adapter->IfType != IF_TYPE_SOFTWARE_LOOPBACK)
            section.children.push_back(Adapter(*adapter));
    }
    return section;
}

// A text of a disk's descriptor, 8-bit at an offset.
std::wstring DescriptorText(const std::vector<char>& descriptor, DWORD offset)
{
    std::wstring text;
    for (std::size_t at = offset; offset > 0 && at < descriptor.size() && descriptor[at] != '\0'; ++at)
        text += static_cast<unsigned char>(descriptor[at]);
    return text.substr(0, text.find_last_not_of(L' ') + 1);
}

// Disks that may be asked without administrator rights: opened without any access.
Element PhysicalDisks()
{
    Element section{L"PhysicalDiskInfo", {}, {}};
    for (int number = 0; number < 16; ++number) {
        const UniqueFile disk(CreateFileW(Format(L"\\\\.\\PhysicalDrive%d", number).c_str(), 0,
            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
        STORAGE_PROPERTY_QUERY query{};
        query.PropertyId = StorageDeviceProperty;
        std::vector<char> bytes(1024);
        DWORD count = 0;
        if (!disk
            || DeviceIoControl(disk.Get(), IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof query, bytes.data(),
                   static_cast<DWORD>(bytes.size()), &count, nullptr)
                == FALSE)
            continue;
        const auto& descriptor = *reinterpret_cast<const STORAGE_DEVICE_DESCRIPTOR*>(bytes.data());
        DISK_GEOMETRY_EX geometry{};
        DeviceIoControl(
            disk.Get(), IOCTL_DISK_GET_DRIVE_GEOMETRY_EX, nullptr, 0, &geometry, sizeof geometry, &count, nullptr);
        Element& group = section.children.emplace_back(Element{L"PhysicalDisk", {}, {}});
        Add(group, L"Model", DescriptorText(bytes, descriptor.ProductIdOffset));
        Add(group, L"MediaType", descriptor.RemovableMedia != FALSE ? L"Removable media" : L"Fixed hard disk");
        Add(group, L"Size", Gigabytes(static_cast<std::uint64_t>(geometry.DiskSize.QuadPart)));
        Add(group, L"SerialNumber", DescriptorText(bytes, descriptor.SerialNumberOffset));
    }
    return section;
}

Element LogicalDisk(const std::wstring& root)
{
    static constexpr const wchar_t* kTypes[]
        = {L"Unknown", L"No volume", L"Removable Disk", L"Local Disk", L"Network Drive", L"Compact Disc", L"RAM Disk"};
    wchar_t volume[MAX_PATH + 1] = {}, system[MAX_PATH + 1] = {};
    ULARGE_INTEGER free{}, total{};
    const UINT type = GetDriveTypeW(root.c_str());
    Element group{L"LogicalDisk", {}, {}};
    Add(group, L"Drive", root.substr(0, 2));
    if (GetVolumeInformationW(
            root.c_str(), volume, std::size(volume), nullptr, nullptr, nullptr, system, std::size(system))
        != FALSE) {
        Add(group, L"VolumeName", volume);
        Add(group, L"FileSystem", system);
    }
    if (GetDiskFreeSpaceExW(root.c_str(), nullptr, &total, &free) != FALSE && total.QuadPart > 0) {
        Add(group, L"Size", Gigabytes(total.QuadPart));
        Add(group, L"FreeSpace", Gigabytes(free.QuadPart));
        Add(group, L"FreePercentage",
            Format(L"%.2f %%", 100.0 * static_cast<double>(free.QuadPart) / static_cast<double>(total.QuadPart)));
    }
    Add(group, L"DriveType", kTypes[type < std::size(kTypes) ? type : 0]);
    return group;
}

Element LogicalDisks()
{
    Element section{L"LogicalDiskInfo", {}, {}};
    wchar_t roots[27 * 4] = {};
    GetLogicalDriveStringsW(std::size(roots) - 1, roots);
    for (const wchar_t* root = roots; *root != L'\0'; root += std::wstring_view(root).size() + 1)
        section.children.push_back(LogicalDisk(root));
    return section;
}

Element Details()
{
    return {
        L"details", {}, {Processor(), OperatingSystem(), Capabilities(), Network(), PhysicalDisks(), LogicalDisks()}};
}

} // namespace

const LiveMachine& ThisMachine()
{
    static constexpr LiveMachine kThisMachine{Battery, Details, HostName};
    return kThisMachine;
}

} // namespace voltaro::simulator
