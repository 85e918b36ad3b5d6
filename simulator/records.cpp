#include "simulator/records.h"

#include "base/text.h"

#include <algorithm>

namespace voltaro::simulator {
namespace {

// clang-format off
constexpr RecordField kScheme[] = {
    {L"PowerScheme",             Value::Name,   {L"Balanced", L"MaxPowerSaver", L"Minimum", L"Baseline", L"Office_Hours"}},
    {L"CPUSpeed",                Value::Speed,  {L"Adaptive", L"Minimum",       L"Adaptive", L"Maximum", L"Adaptive"}},
    {L"Screensaver",             Value::YesNo,  {L"No",       L"Yes",           L"No",       L"No",      L"Yes"}},
    {L"LockScreentime",          Value::Number, {L"5",        L"1",             L"10",       L"0",       L"2"}},
    {L"Wbrightvalue",            Value::Number, {L"90",       L"60",            L"105",      L"128",     L"105"}},
    {L"Ibrightvalue",            Value::Number, {L"45",       L"15",            L"75",       L"128",     L"30"}},
    {L"Dimtime",                 Value::Number, {L"5",        L"2",             L"15",       L"0",       L"3"}},
    {L"Monitortime",             Value::Number, {L"10",       L"3",             L"30",       L"0",       L"15"}},
    {L"StandBytime",             Value::Number, {L"30",       L"10",            L"60",       L"0",       L"0"}},
    {L"Hibernatetime",           Value::Number, {L"120",      L"30",            L"180",      L"0",       L"0"}},
    {L"HardDiskTimeOut",         Value::Number, {L"20",       L"3",             L"45",       L"0",       L"30"}},
    {L"Logofftime",              Value::Number, {L"0",        L"0",             L"0",        L"0",       L"360"}},
    {L"Shutdowntime",            Value::Number, {L"0",        L"0",             L"0",        L"0",       L"120"}},
    {L"Shutdownflag",            Value::YesNo,  {L"No",       L"No",            L"No",       L"No",      L"Yes"}},
    {L"DownloadsFlag",           Value::YesNo,  {L"Yes",      L"No",            L"Yes",      L"No",      L"Yes"}},
    {L"PPasswordprotected",      Value::YesNo,  {L"Yes",      L"Yes",           L"No",       L"No",      L"Yes"}},
    {L"Appsensorname",           Value::Text,   {L"",         L"",              L"",         L"",        L"Presentations"}},
    {L"RunScriptBeforePowerOff", Value::YesNo,  {L"No",       L"No",            L"No",       L"No",      L"Yes"}},
    {L"IdleCPULoad",             Value::Load,   {L"20",       L"50",            L"20",       L"0",       L"35"}},
    {L"IdleCPULoadFlag",         Value::YesNo,  {L"Yes",      L"No",            L"No",       L"No",      L"Yes"}},
    {L"TrackingPrinterFlag",     Value::YesNo,  {L"No",       L"No",            L"Yes",      L"No",      L"No"}},
};
constexpr RecordField kSnooze[] = {
    {L"SnoozeForIdlePwrAction",                 Value::YesNo,  {L"Yes"}},
    {L"SnoozeForSchedulerPwrAction",            Value::YesNo,  {L"Yes"}},
    {L"SnoozeNotifiTimeoutForIdlePwrAction",    Value::Number, {L"2"}},
    {L"SnoozeNotifiTimeoutForSchedulerPwrAction", Value::Number, {L"15"}},
    {L"SnoozeTimeout",                          Value::Number, {L"30"}},
};
constexpr RecordField kProxy[] = {
    {L"UseProxy",          Value::YesNo, {L"Yes"}},
    {L"ProxyServer",       Value::Text,  {L"proxy.office.example"}},
    {L"ProxyPort",         Value::Text,  {L"8080"}},
    {L"UseAuthentication", Value::YesNo, {L"Yes"}},
    {L"UserName",          Value::Text,  {L"jan.berg"}},
    {L"Password",          Value::Text,  {L""}},
    {L"SavePassword",      Value::YesNo, {L"No"}},
};
constexpr RecordField kHost[] = {
    {L"Localhost",            Value::YesNo, {L"Yes"}},
    {L"TCPPort",              Value::Port,  {L"4916"}},
    {L"UDPPort",              Value::Port,  {L"4917"}},
    {L"MonitoringIP",         Value::Text,  {L"192.168.20.5"}},
    {L"MonitoringTCPPort",    Value::Text,  {L"4920"}},
    {L"RemoteManager1",       Value::Text,  {L"192.168.20.11"}},
    {L"RemoteManager1Enable", Value::YesNo, {L"Yes"}},
    {L"RemoteManager2",       Value::Text,  {L"0.0.0.0"}},
    {L"RemoteManager2Enable", Value::YesNo, {L"No"}},
    {L"MonitoringURL",        Value::Text,  {L"http://monitor.office.example/voltaro?site=3&unit=12"}},
    {L"MonitoringURLEnable",  Value::YesNo, {L"No"}},
    {L"MonitoringIPEnable",   Value::YesNo, {L"Yes"}},
};
constexpr RecordField kConsumption[] = {
    {L"ManualSetFlag",       Value::YesNo,   {L"No",      L"Yes"}},
    {L"MonitorType",         Value::Monitor, {L"LCD",     L"LED"}},
    {L"MonitorSize",         Value::Text,    {L"17.00",   L"22.00"}},
    {L"MonitorONPower",      Value::Watts,   {L"21.23",   L"21.20"}},
    {L"MonitorOFFPower",     Value::Watts,   {L"0.49",    L"0.65"}},
    {L"CPUMaxPower",         Value::Watts,   {L"62.40",   L"65.00"}},
    {L"CPUIdlePower",        Value::Watts,   {L"28.75",   L"30.00"}},
    {L"CPUStandbyPower",     Value::Watts,   {L"2.30",    L"2.50"}},
    {L"CPUOffPower",         Value::Watts,   {L"0.85",    L"1.00"}},
    {L"System_Type",         Value::Text,    {L"Notebook", L"Notebook"}},
    {L"Processor_Type",      Value::Text,    {L"Quad core, 2.40 GHz", L"Quad core, 2.40 GHz"}},
    {L"System_Manufacturer", Value::Text,    {L"Harrowgate Computers", L"Harrowgate Computers"}},
    {L"System_Model",        Value::Text,    {L"Fieldbook 14 G3", L"Fieldbook 14 G3"}},
};
constexpr RecordField kDevice[] = {
    {L"FireWall",             Value::Feature, {L"NO",  L"NA"}},
    {L"UsbStorage",           Value::Feature, {L"YES", L"NA"}},
    {L"CDDVDRom",             Value::Feature, {L"NA",  L"NA"}},
    {L"BlueTooth",            Value::Feature, {L"NO",  L"NA"}},
    {L"WIFI",                 Value::Feature, {L"NO",  L"NA"}},
    {L"WebCam",               Value::Feature, {L"YES", L"NA"}},
    {L"RegistryEdit",         Value::Feature, {L"NO",  L"NA"}},
    {L"BiosSettingsPassword", Value::Text,    {L"NO",  L"NA"}},
    {L"BiosPassWord",         Value::Text,    {L"",    L""}},
    {L"WLAN",                 Value::Feature, {L"NO",  L"NA"}},
};
// Five rules: three of the first policy, two of the second.
constexpr RecordField kRule[] = {
    {L"Application_Name", Value::Name,      {L"SlideShow.exe", L"MeetingRoom.exe", L"WhiteBoard.exe", L"BackupRunner.exe", L"VideoRender.exe"}},
    {L"Rule_Status",      Value::RuleState, {L"Enabled", L"Enabled", L"Disabled", L"Enabled", L"Enabled"}},
    {L"Dim_Monitor",      Value::YesNo,     {L"No",  L"No",  L"Yes", L"Yes", L"Yes"}},
    {L"TO_Monitor",       Value::YesNo,     {L"No",  L"No",  L"Yes", L"Yes", L"Yes"}},
    {L"Lock_Screen",      Value::YesNo,     {L"No",  L"No",  L"No",  L"Yes", L"Yes"}},
    {L"TO_Harddisk",      Value::YesNo,     {L"Yes", L"Yes", L"Yes", L"No",  L"No"}},
    {L"Logoff",           Value::YesNo,     {L"No",  L"No",  L"No",  L"No",  L"No"}},
    {L"Standby",          Value::YesNo,     {L"No",  L"No",  L"No",  L"No",  L"No"}},
    {L"Hibernate",        Value::YesNo,     {L"No",  L"No",  L"No",  L"No",  L"No"}},
    {L"Shutdown",         Value::YesNo,     {L"No",  L"No",  L"No",  L"No",  L"No"}},
    {L"Description",      Value::Text,      {L"Full-screen slides", L"Calls & screen sharing", L"", L"Nightly copy to the file server", L"Rendering < 8 hours"}},
};
constexpr struct { const wchar_t* name; std::size_t firstRule, rules; } kPolicies[] = {
    {L"Presentations",  0, 3},
    {L"Nightly_Backup", 3, 2},
};
// clang-format on

bool OneOf(std::wstring_view text, std::initializer_list<std::wstring_view> words)
{
    return std::any_of(
        words.begin(), words.end(), [text](std::wstring_view word) { return EqualsIgnoreCase(text, word); });
}

bool IsNumber(std::wstring_view text, std::int32_t least, std::int32_t most)
{
    return !text.empty() && text.find_first_not_of(L"0123456789") == std::wstring_view::npos
        && LeadingNumber(text) >= least && LeadingNumber(text) <= most;
}

bool IsWatts(std::wstring_view text)
{
    const std::size_t point = text.find(L'.');
    return IsNumber(text.substr(0, point), 0, 999)
        && (point == std::wstring_view::npos || IsNumber(text.substr(point + 1), 0, 999'999));
}

bool IsTime(std::wstring_view text)
{
    return text.size() == 8 && text[2] == L':' && text[5] == L':' && IsNumber(text.substr(0, 2), 0, 23)
        && IsNumber(text.substr(3, 2), 0, 59) && IsNumber(text.substr(6, 2), 0, 59);
}

// clang-format off
constexpr struct {
    Value kind;
    const wchar_t* expected;
    bool (*fits)(std::wstring_view text);
} kRules[] = {
    {Value::Text,      L"any text",                         [](std::wstring_view) { return true; }},
    {Value::Name,      L"not empty",                        [](std::wstring_view text) { return !text.empty(); }},
    {Value::YesNo,     L"Yes or No",                        [](std::wstring_view text) { return OneOf(text, {L"Yes", L"No"}); }},
    {Value::Number,    L"a whole number",                   [](std::wstring_view text) { return IsNumber(text, 0, 100'000); }},
    {Value::Load,      L"a whole number from 0 to 99",      [](std::wstring_view text) { return IsNumber(text, 0, 99); }},
    {Value::Port,      L"a port from 1 to 65535",           [](std::wstring_view text) { return IsNumber(text, 1, 65535); }},
    {Value::Watts,     L"watts from 0.00 to 999.99",        IsWatts},
    {Value::Feature,   L"YES, NO or NA",                    [](std::wstring_view text) { return OneOf(text, {L"YES", L"NO", L"NA"}); }},
    {Value::Speed,     L"Adaptive, Minimum or Maximum",     [](std::wstring_view text) { return OneOf(text, {L"Adaptive", L"Minimum", L"Maximum"}); }},
    {Value::Monitor,   L"a monitor type",                   [](std::wstring_view text) { return OneOf(text, {L"Inbuilt", L"Branded", L"CRT", L"LCD", L"LED"}); }},
    {Value::RuleState, L"Enabled or Disabled",              [](std::wstring_view text) { return OneOf(text, {L"Enabled", L"Disabled"}); }},
    {Value::PowerOff,  L"a way to power off",               [](std::wstring_view text) { return OneOf(text, {L"Standby", L"Hibernate", L"Shutdown", L"Restart"}); }},
    {Value::Time,      L"hours, minutes and seconds",       IsTime},
};
// clang-format on

} // namespace

const std::span<const RecordField> kSchemeRecord = kScheme;
const std::span<const RecordField> kSnoozeRecord = kSnooze;
const std::span<const RecordField> kProxyRecord = kProxy;
const std::span<const RecordField> kHostRecord = kHost;
const std::span<const RecordField> kConsumptionRecord = kConsumption;
const std::span<const RecordField> kDeviceRecord = kDevice;
const std::span<const RecordField> kRuleRecord = kRule;

Element MakeRecord(std::span<const RecordField> record, std::size_t variant)
{
    Element details{L"details", {}, {}};
    for (const RecordField& field : record)
        details.children.push_back(TextElement(field.name, field.initial[variant]));
    return details;
}

std::vector<Element> InitialPolicies()
{
    std::vector<Element> policies;
    for (const auto& row : kPolicies) {
        Element& details = policies.emplace_back(Element{L"details", {}, {TextElement(L"PolicyName", row.name)}});
        for (std::size_t rule = 0; rule < row.rules; ++rule) {
            Element element = MakeRecord(kRule, row.firstRule + rule);
            element.name = Format(L"AppNo_%d", static_cast<int>(rule + 1));
            details.children.push_back(std::move(element));
        }
    }
    return policies;
}

const Element& RequireElement(const Element& parent, std::size_t position, std::wstring_view name)
{
    const std::wstring wanted(name);
    const int number = static_cast<int>(position + 1);
    if (position >= parent.children.size())
        throw Refusal{Format(L"%ls lacks its element %d, %ls.", parent.name.c_str(), number, wanted.c_str())};
    const Element& element = parent.children[position];
    if (element.name != name)
        throw Refusal{Format(L"Element %d of %ls is %.40ls, expected was %ls.", number, parent.name.c_str(),
            element.name.c_str(), wanted.c_str())};
    return element;
}

void RequireCount(const Element& parent, std::size_t least, std::size_t most)
{
    const std::size_t count = parent.children.size();
    if (count < least || count > most)
        throw Refusal{Format(L"%ls has %d elements, expected were %d to %d.", parent.name.c_str(),
            static_cast<int>(count), static_cast<int>(least), static_cast<int>(most))};
    if (count == 0 && parent.text.view().find_first_not_of(L" \t\n") != std::wstring::npos)
        throw Refusal{Format(L"%ls must not hold text.", parent.name.c_str())};
}

void RequireFields(const Element& parent, std::span<const RecordField> record, std::size_t from)
{
    for (std::size_t i = 0; i < record.size(); ++i) {
        const Element& element = RequireElement(parent, from + i, record[i].name);
        if (!element.children.empty())
            throw Refusal{Format(L"%ls must hold only text.", record[i].name)};
        const auto* rule = std::find_if(
            std::begin(kRules), std::end(kRules), [&](const auto& row) { return row.kind == record[i].kind; });
        if (!rule->fits(element.text))
            throw Refusal{Format(L"%ls must be %ls.", record[i].name, rule->expected)};
    }
}

void RequireRecord(const Element& parent, std::span<const RecordField> record)
{
    RequireFields(parent, record);
    RequireCount(parent, record.size(), record.size());
}

void RequirePolicy(const Element& details)
{
    static constexpr RecordField kName[] = {{L"PolicyName", Value::Name, {}}};
    RequireFields(details, kName);
    for (std::size_t rule = 1; rule < details.children.size(); ++rule)
        RequireRecord(RequireElement(details, rule, Format(L"AppNo_%d", static_cast<int>(rule))), kRule);
    RequireCount(details, 2, 1 + kMaxRules);
}

} // namespace voltaro::simulator
