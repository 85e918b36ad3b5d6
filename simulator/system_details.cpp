#include "simulator/system_details.h"

#include "base/text.h"

#include <span>

namespace voltaro::simulator {
namespace {

struct Detail {
    const wchar_t *name, *value;
};

// clang-format off
constexpr Detail kProcessor[] = {
    {L"Processor",          L"Harrowgate HX4 Quad Core Processor @ 2.40GHz"},
    {L"Manufacturer",       L"Harrowgate Semiconductors"},
    {L"NumberOfCores",      L"4"},
    {L"LogicalProcessors",  L"8"},
    {L"SystemState",        L"On"},
    {L"CurrentClockSpeed",  L"1600 MHz"},
    {L"MaximumClockSpeed",  L"2400 MHz"},
    {L"CPULoad",            L"7 %"},
    {L"CPUTemperature",     L"46 \u00B0C"},
    {L"L2CacheSize",        L"1024 KB"},
    {L"L3CacheSize",        L"6144 KB"},
    {L"AddressWidth",       L"64 bit"},
    {L"SystemManufacturer", L"Harrowgate Computers"},
    {L"SystemModel",        L"Fieldbook 14 G3"},
    {L"SerialNumber",       L"HX4-0071-55A2"},
};
constexpr Detail kSystem[] = {
    {L"OSName",            L"Microsoft Windows 10 Pro"},
    {L"OSVersion",         L"10.0.19045"},
    {L"OSArchitecture",    L"64-bit"},
    {L"HostName",          L"FIELDBOOK-07"},
    {L"LoggedOnUser",      L"OFFICE\\jan.berg"},
    {L"Domain",            L"office.example"},
    {L"RegisteredUser",    L"Jan Berg & Partners"},
    {L"InstallDate",       L"2024-02-11"},
    {L"LastBootUpTime",    L"2026-11-20 08:02:17"},
    {L"TotalMemory",       L"16,237 MB"},
    {L"FreeMemory",        L"9,804 MB"},
    {L"SystemDirectory",   L"C:\\Windows\\system32"},
    {L"Locale",            L"English"},
    {L"TimeZone",          L"UTC"},
};
constexpr Detail kPower[] = {
    {L"StandbySupported",          L"Yes"},
    {L"StandbyStates",             L"S1 No, S2 No, S3 Yes"},
    {L"HibernateSupported",        L"Yes"},
    {L"HibernateFilePresent",      L"Yes"},
    {L"ProcessorThrottling",       L"Yes"},
    {L"ThermalControl",            L"Yes"},
    {L"DiskSpinDown",              L"Yes"},
    {L"VideoDimming",              L"Yes"},
    {L"PowerButtonPresent",        L"Yes"},
    {L"SleepButtonPresent",        L"No"},
    {L"LidPresent",                L"Yes"},
    {L"WakeOnLANSupported",        L"Yes"},
};
constexpr Detail kPowerLimited[] = {
    {L"StandbySupported",          L"No"},
    {L"HibernateSupported",        L"Not Supported"},
    {L"ProcessorThrottling",       L"No"},
    {L"DiskSpinDown",              L"Yes"},
    {L"VideoDimming",              L"No"},
    {L"PowerButtonPresent",        L"Yes"},
};
// Each group has the same fields; a value a group.
struct GroupDetail {
    const wchar_t* name;
    const wchar_t* values[3];
};
constexpr GroupDetail kAdapters[] = {
    {L"AdapterName",     {L"Gigabit Network Connection", L"Wireless 802.11ac Adapter"}},
    {L"ConnectionName",  {L"Ethernet",                   L"WiFi"}},
    {L"Status",          {L"Connected",                  L"Media disconnected"}},
    {L"MACAddress",      {L"02:1A:4C:00:7F:21",          L"02:1A:4C:00:7F:22"}},
    {L"IPAddress",       {L"192.168.20.47",              L""}},
    {L"SubnetMask",      {L"255.255.255.0",              L""}},
    {L"DefaultGateway",  {L"192.168.20.1",               L""}},
    {L"DNSServers",      {L"192.168.20.2, 192.168.20.3", L""}},
    {L"DHCPEnabled",     {L"Yes",                        L"Yes"}},
    {L"Speed",           {L"1 Gbps",                     L"0 Mbps"}},
};
constexpr GroupDetail kPhysicalDisks[] = {
    {L"Model",           {L"Harrowgate NV-512",  L"Portable Disk P2 1TB"}},
    {L"InterfaceType",   {L"SATA",               L"USB"}},
    {L"MediaType",       {L"Fixed hard disk",    L"External hard disk"}},
    {L"Size",            {L"476.94 GB",          L"931.51 GB"}},
    {L"Partitions",      {L"3",                  L"1"}},
    {L"SerialNumber",    {L"NV512-88D1-0042",    L"P2-117-09C"}},
    {L"Status",          {L"OK",                 L"OK"}},
};
constexpr GroupDetail kLogicalDisks[] = {
    {L"Drive",           {L"C:",                 L"D:",                 L"E:"}},
    {L"VolumeName",      {L"System",             L"Data",               L"Backup \u2013 monthly"}},
    {L"FileSystem",      {L"NTFS",               L"NTFS",               L"NTFS"}},
    {L"Size",            {L"237.55 GB",          L"238.42 GB",          L"931.51 GB"}},
    {L"FreeSpace",       {L"118.02 GB",          L"201.77 GB",          L"64.08 GB"}},
    {L"FreePercentage",  {L"49.68 %",            L"84.63 %",            L"6.88 %"}},
    {L"DriveType",       {L"Local Disk",         L"Local Disk",         L"Local Disk"}},
};
struct Section {
    const wchar_t *name, *group;
    std::span<const GroupDetail> fields;
    // Nine fields and a separator a large group fill the console's tables, whose rows the usual groups of a crowded
    // machine exceed.
    int groups, largeGroups, crowdedGroups;
};
constexpr Section kSections[] = {
    {L"NetworkInfo",      L"Adapter",      kAdapters,      2, 10, 12},
    {L"PhysicalDiskInfo", L"PhysicalDisk", kPhysicalDisks, 2, 10, 15},
    {L"LogicalDiskInfo",  L"LogicalDisk",  kLogicalDisks,  3, 50, 65},
};
// clang-format on
constexpr int kLargeFields = 9;
constexpr std::size_t kCrowdedFields = 25; // of the sections without groups

Element Flat(const wchar_t* name, std::span<const Detail> details)
{
    Element section{name, {}, {}};
    for (const Detail& detail : details)
        section.children.push_back(TextElement(detail.name, detail.value));
    return section;
}

// Values of the full 119 units under names of 46.
Element LargeGroup(const Section& section, int group)
{
    Element element{section.group, {}, {}};
    for (int field = 0; field < kLargeFields; ++field) {
        std::wstring name = Format(L"%ls%03dField%02dPerformance", section.group, group, field);
        name.resize(46, L'x');
        std::wstring value = Format(L"%ls %d, value %d:", section.group, group, field);
        while (value.size() < 119)
            value += static_cast<wchar_t>(value.size() % 8 == 0 ? L' ' : L'0' + static_cast<int>(value.size()) % 10);
        element.children.push_back(TextElement(name, value));
    }
    return element;
}

Element Group(const Section& section, int group)
{
    Element element{section.group, {}, {}};
    for (const GroupDetail& field : section.fields)
        element.children.push_back(TextElement(field.name, field.values[group % section.groups]));
    return element;
}

Element Grouped(const Section& row, Content content)
{
    Element section{row.name, {}, {}};
    const int groups = content == Content::Large ? row.largeGroups
        : content == Content::Crowded            ? row.crowdedGroups
                                                 : row.groups;
    for (int group = 0; group < groups; ++group)
        section.children.push_back(content == Content::Large ? LargeGroup(row, group) : Group(row, group));
    return section;
}

} // namespace

Element SystemDetails(const Scenario& scenario)
{
    Element details{L"details", {}, {}};
    details.children.push_back(Flat(L"CPUInfo", kProcessor));
    details.children.push_back(Flat(L"OSInfo", kSystem));
    details.children.push_back(
        Flat(L"PowerCapabilities", scenario.sleeps ? std::span(kPower) : std::span<const Detail>(kPowerLimited)));
    for (Element& section : details.children) {
        for (std::size_t i = 0; scenario.content == Content::Crowded && section.children.size() < kCrowdedFields; ++i)
            section.children.push_back(Element(section.children[i]));
    }
    for (const Section& row : kSections)
        details.children.push_back(Grouped(row, scenario.content));
    if (scenario.content == Content::Odd)
        details.children.erase(
            details.children.begin() + 3, details.children.begin() + 5); // only the logical disks stay
    return details;
}

} // namespace voltaro::simulator
