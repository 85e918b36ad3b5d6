#include "simulator/operations.h"

#include "base/text.h"
#include "simulator/events.h"
#include "simulator/jobs.h"
#include "simulator/system_details.h"

#include <algorithm>
#include <iterator>

namespace voltaro::simulator {
namespace {

constexpr std::size_t kCrowdedLines = 2'400; // of a day's events, as many as fit the answer

struct Pair {
    const wchar_t *name, *text;
};

Element Texts(std::wstring_view name, std::span<const Pair> pairs)
{
    Element element{std::wstring(name), {}, {}};
    for (const Pair& pair : pairs)
        element.children.push_back(TextElement(pair.name, pair.text));
    return element;
}

Element ReadRecord(const Call& call)
{
    return ResponseWith(call.state.*call.operation.record);
}

Element StoreRecord(const Call& call)
{
    call.state.*call.operation.record = call.Details();
    return StatusResponse(L"Success");
}

// A profile entered by hand is also the one that is offered for manual entry from now on.
Element StoreConsumption(const Call& call)
{
    call.state.consumption = call.Details();
    if (EqualsIgnoreCase(ChildText(call.Details(), 0), L"Yes"))
        call.state.manualConsumption = call.Details();
    return StatusResponse(L"Success");
}

Element ReportRunning(const Call&)
{
    return StatusResponse(L"Success", L"Running");
}

Element ReportBattery(const Call& call)
{
    return call.state.live != nullptr ? call.state.live->battery() : call.state.battery;
}

Element ReportDetails(const Call& call)
{
    if (!call.Field().empty() && call.Field() != L"Refresh")
        throw Refusal{L"type must be Refresh."};
    const LiveMachine* live = call.state.live;
    return ResponseWith(live != nullptr ? live->details() : SystemDetails(call.state.scenario));
}

Element ReportAgent(const Call& call)
{
    static constexpr Pair kAgent[] = {
        {L"Version", L"1.06.006.000"},
        {L"Edition", L"Standard Edition"},
        {L"HostName", L"FIELDBOOK-07"},
        {L"ServiceState", L"Running"},
    };
    Element details = Texts(L"details", kAgent);
    if (call.state.live != nullptr)
        details.children[2].text = call.state.live->hostName();
    return ResponseWith(std::move(details));
}

Element ReportPatch(const Call&)
{
    static constexpr Pair kPatch[]
        = {{L"PatchVersion", L"1.06.006.000"}, {L"PatchDate", L"2026-09-14"}, {L"PatchState", L"Installed"}};
    return ResponseWith(Texts(L"details", kPatch));
}

Element ReportSavings(const Call& call)
{
    const std::wstring date = Format(L"%04d-%02d-%02d", call.now.year, call.now.month, call.now.day);
    const Pair savings[] = {
        {L"Date", date.c_str()},
        {L"PowerSaved", L"148.326 kWh"},
        {L"PercentageSaved", L"37.52 %"},
        {L"Co2Saved", L"103828.20 Grams"},
        {L"PowerConsumption", L"246.999 kWh"},
    };
    return ResponseWith(Texts(L"details", savings));
}

Element ReportEvents(const Call& call)
{
    const std::optional<DateTime> day = ParseMonthDayYear(call.Field());
    if (!day)
        throw Refusal{L"fordate must be a day as MMDDYYYY."};
    const std::vector<std::wstring> lines = EventsOf(*day, call.now);
    if (lines.empty())
        throw Refusal{L"That day has not come yet."};
    const std::size_t count = call.state.scenario.content == Content::Crowded ? kCrowdedLines : lines.size();
    Element details{L"details", {}, {}};
    for (std::size_t i = 0; i < count; ++i)
        details.children.push_back(TextElement(L"Event", lines[i % lines.size()]));
    return ResponseWith(std::move(details));
}

Element CheckForUpdates(const Call& call)
{
    static constexpr struct {
        Updates updates;
        Pair answer; // status, message
    } kAnswers[] = {
        {Updates::Latest, {L"Failure", L"You are already using the latest version of Voltaro."}},
        {Updates::Downloaded, {L"Success", L"New updates were downloaded."}},
        {Updates::Offline, {L"Failure", L"Please check your network connection and try again."}},
        {Updates::Failed, {L"Failure", L"Voltaro update failed, please try after some time."}},
    };
    const auto* row = std::find_if(std::begin(kAnswers), std::end(kAnswers),
        [&](const auto& answer) { return answer.updates == call.state.scenario.updates; });
    return StatusResponse(row->answer.name, row->answer.text);
}

Element Pause(const Call& call)
{
    const std::int32_t hours = LeadingNumber(call.Field());
    if (call.Field().size() != 1 || hours < 1 || hours > 5)
        throw Refusal{L"duration must be 1 to 5."};
    call.state.pausedUntil = SecondNumber(call.now) + hours * 3600;
    return StatusResponse(L"Success");
}

Element Resume(const Call& call)
{
    call.state.pausedUntil = 0;
    return StatusResponse(L"Success");
}

// The hours that remain, begun ones counted whole.
Element ReportPause(const Call& call)
{
    const std::int64_t seconds = call.state.pausedUntil - SecondNumber(call.now);
    const std::wstring status = seconds > 0 ? NumberText((seconds + 3599) / 3600) : L"Resumed";
    return ResponseWith({L"details", {}, {TextElement(L"status", status)}});
}

Element ActPower(const Call& call)
{
    const std::wstring_view name = call.operation.name;
    if (call.request.children.size() > 2 && !EqualsIgnoreCase(call.Field(), L"Yes")
        && !EqualsIgnoreCase(call.Field(), L"No"))
        throw Refusal{L"monitoroff must be Yes or No."};
    if (!call.state.scenario.sleeps && (name == L"standby" || name == L"hibernate"))
        return StatusResponse(name == L"standby" ? L"Standby Not Support" : L"Hibernation Not Support");
    if (call.state.scenario.busy && name != L"LockScreen") {
        call.state.pendingAction = name;
        Element response = StatusResponse(L"Failure");
        for (const wchar_t* activity : {L"Copying 214 files to 'E:\\Backup'", L"Printing 'Report & figures'"})
            response.children.push_back(TextElement(L"activity", activity));
        return response;
    }
    call.state.actions.emplace_back(name);
    return StatusResponse(L"Success");
}

// "success" carries out the power action that was held back, "failure" drops it.
Element FollowUp(const Call& call)
{
    if (call.state.pendingAction.empty())
        throw Refusal{L"No power action is waiting."};
    if (call.operation.name == std::wstring_view(L"success"))
        call.state.actions.push_back(call.state.pendingAction);
    call.state.pendingAction.clear();
    return StatusResponse(L"Success");
}

Element ReportActivation(const Call& call)
{
    return StatusResponse(LicenseWord(call.state.license));
}

Element ReportLicense(const Call& call)
{
    const bool active = call.state.license == License::Activated;
    const Pair license[] = {
        {L"LicenseState", LicenseWord(call.state.license)},
        {L"Edition", L"Standard Edition"},
        {L"LicensedTo", active ? L"Jan Berg & Partners" : L""},
        {L"ActivationKey", call.state.activationKey.c_str()},
        {L"ActivatedOn", call.state.license == License::NotActivated ? L"" : L"2025-11-03"},
        {L"ExpiresOn",
            active                                       ? L"2028-11-02"
                : call.state.license == License::Expired ? L"2026-11-02"
                                                         : L""},
    };
    return ResponseWith(Texts(L"details", license));
}

// A key is 16 to 32 letters and digits, dashes aside. One of zeros is refused, one of nines has run out.
Element ActivateLicense(const Call& call)
{
    std::wstring key(call.Field());
    key.erase(std::remove(key.begin(), key.end(), L'-'), key.end());
    constexpr std::wstring_view kUnits = L"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    if (key.size() < 16 || key.size() > 32 || key.find_first_not_of(kUnits) != std::wstring::npos
        || key.find_first_not_of(L'0') == std::wstring::npos)
        throw Refusal{L"The activation key is not valid."};
    const bool expired = key.find_first_not_of(L'9') == std::wstring::npos;
    call.state.license = expired ? License::Expired : License::Activated;
    call.state.activationKey = call.Field();
    return StatusResponse(expired ? LicenseWord(License::Expired) : L"Success");
}

constexpr Shape Field(const wchar_t* name)
{
    return {Shape::Kind::Field, name, nullptr};
}

constexpr Shape Record(const std::span<const RecordField>& record)
{
    return {Shape::Kind::Record, nullptr, &record};
}

// clang-format off
constexpr Shape kNothing{};
constexpr Shape kPolicy{Shape::Kind::Policy, nullptr, nullptr};
constexpr Shape kJobs{Shape::Kind::Jobs, nullptr, nullptr};
constexpr Shape kDetailsType{Shape::Kind::OptionalField, L"type", nullptr};
constexpr bool kFree = false, kLicensed = true;
using State = MachineState;
constexpr Operation kOperations[] = {
    {L"GetSystemstatus",               kFree,     kNothing,                   ReportRunning},
    {L"GetSystemDetails",              kFree,     kDetailsType,               ReportDetails},
    {L"GetBatteryInfo",                kFree,     kNothing,                   ReportBattery},
    {L"GetVoltaroInfo",                kFree,     kNothing,                   ReportAgent},
    {L"GetPatchDetails",               kFree,     kNothing,                   ReportPatch},
    {L"GetVoltaroSavingsTillDate",     kFree,     kNothing,                   ReportSavings},
    {L"GetVLTEvents",                  kFree,     Field(L"fordate"),          ReportEvents},
    {L"CheckForUpdates",               kFree,     kNothing,                   CheckForUpdates},
    {L"GetPowerSchemes",               kFree,     kNothing,                   ListSchemes},
    {L"GetCurrentpowersettings",       kFree,     kNothing,                   ReadActiveScheme},
    {L"QueryPowerScheme",              kFree,     Field(L"scheme"),           ReadScheme},
    {L"ApplyPowerScheme",              kLicensed, Field(L"scheme"),           ActivateScheme},
    {L"ApplyPowerSettings",            kLicensed, Record(kSchemeRecord),      StoreScheme},
    {L"CreateScheme",                  kLicensed, Record(kSchemeRecord),      CreateScheme},
    {L"DeleteScheme",                  kLicensed, Field(L"scheme"),           DeleteScheme},
    {L"GetPolicies",                   kFree,     kNothing,                   ListPolicies},
    {L"QueryPolicy",                   kFree,     Field(L"PolicyName"),       ReadPolicy},
    {L"SetPolicySettings",             kLicensed, kPolicy,                    StorePolicy},
    {L"CreatePolicy",                  kLicensed, kPolicy,                    CreatePolicy},
    {L"DeletePolicy",                  kLicensed, Field(L"policy"),           DeletePolicy},
    {L"GetSnoozeSettings",             kFree,     kNothing,                   ReadRecord,  &State::snooze},
    {L"ApplySnoozeSettings",           kLicensed, Record(kSnoozeRecord),      StoreRecord, &State::snooze},
    {L"GetCurrentProxySettings",       kFree,     kNothing,                   ReadRecord,  &State::proxy},
    {L"ApplyProxySettings",            kLicensed, Record(kProxyRecord),       StoreRecord, &State::proxy},
    {L"GetCurrenthostsettings",        kFree,     kNothing,                   ReadRecord,  &State::host},
    {L"ApplyHostSettings",             kLicensed, Record(kHostRecord),        StoreRecord, &State::host},
    {L"GetCurrentDeviceSettings",      kFree,     kNothing,                   ReadRecord,  &State::device},
    {L"ApplyDeviceSettings",           kLicensed, Record(kDeviceRecord),      StoreRecord, &State::device},
    {L"GetCurrentPowerConsumptionData", kFree,    kNothing,                   ReadRecord,  &State::consumption},
    {L"GetManualPowerConsumptionData", kFree,     kNothing,                   ReadRecord,  &State::manualConsumption},
    {L"GetAutoPowerConsumptionData",   kFree,     kNothing,                   ReadRecord,  &State::autoConsumption},
    {L"ApplyPowerConsumptionData",     kLicensed, Record(kConsumptionRecord), StoreConsumption},
    {L"GetCurrentSchedulerSettings",   kFree,     kNothing,                   ReadRecord,  &State::jobs},
    {L"ApplySchedulerSettings",        kLicensed, kJobs,                      StoreRecord, &State::jobs},
    {L"Pause",                         kLicensed, Field(L"duration"),         Pause},
    {L"Resume",                        kFree,     kNothing,                   Resume},
    {L"PauseStatus",                   kFree,     kNothing,                   ReportPause},
    {L"standby",                       kFree,     kNothing,                   ActPower},
    {L"hibernate",                     kFree,     kNothing,                   ActPower},
    {L"shutdown",                      kFree,     kNothing,                   ActPower},
    {L"Restart",                       kFree,     kNothing,                   ActPower},
    {L"logoff",                        kFree,     Field(L"monitoroff"),       ActPower},
    {L"LockScreen",                    kFree,     Field(L"monitoroff"),       ActPower},
    {L"success",                       kFree,     kNothing,                   FollowUp},
    {L"failure",                       kFree,     kNothing,                   FollowUp},
    {L"GetActivationstatus",           kFree,     kNothing,                   ReportActivation},
    {L"GetLicenseInfo",                kFree,     kNothing,                   ReportLicense},
    {L"ActivateLicense",               kFree,     Field(L"ActivationKey"),    ActivateLicense},
};
// clang-format on

} // namespace

std::span<const Operation> Operations()
{
    return kOperations;
}

const Operation* FindOperation(std::wstring_view name)
{
    const auto* row = std::find_if(std::begin(kOperations), std::end(kOperations),
        [name](const Operation& operation) { return operation.name == name; });
    return row == std::end(kOperations) ? nullptr : row;
}

void RequireShape(const Operation& operation, const Element& request)
{
    const Shape& shape = operation.shape;
    const bool empty = shape.kind == Shape::Kind::Nothing
        || (shape.kind == Shape::Kind::OptionalField && request.children.size() == 2);
    if (empty)
        return RequireCount(request, 2, 2);
    const bool field = shape.kind == Shape::Kind::Field || shape.kind == Shape::Kind::OptionalField;
    const Element& body = RequireElement(request, 2, field ? shape.field : L"details");
    RequireCount(request, 3, 3);
    if (field && !body.children.empty())
        throw Refusal{Format(L"%ls must hold only text.", shape.field)};
    if (shape.kind == Shape::Kind::Record)
        RequireRecord(body, *shape.record);
    else if (shape.kind == Shape::Kind::Policy)
        RequirePolicy(body);
    else if (shape.kind == Shape::Kind::Jobs)
        RequireJobs(body);
}

const wchar_t* LicenseWord(License license)
{
    static constexpr const wchar_t* kWords[] = {L"Activated", L"Not Activated", L"License Expired"};
    return kWords[static_cast<std::size_t>(license)];
}

Element StatusResponse(std::wstring_view status, std::wstring_view message)
{
    Element response{L"response", {}, {TextElement(L"status", status)}};
    if (!message.empty())
        response.children.push_back(TextElement(L"message", message));
    return response;
}

Element ResponseWith(Element element)
{
    Element response{L"response", {}, {}};
    response.children.push_back(std::move(element));
    return response;
}

} // namespace voltaro::simulator
