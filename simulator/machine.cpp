#include "simulator/machine.h"

#include "base/text.h"
#include "simulator/jobs.h"
#include "simulator/operations.h"
#include "simulator/records.h"
#include "simulator/uncommon.h"
#include "simulator/xml.h"

namespace voltaro::simulator {
namespace {

constexpr const wchar_t* kKey = L"HX4F-20VT-7K3M-99QA";

// Power source, status, charge and remaining time come first; the whole frame is longer than 700 bytes.
Element Battery(bool present)
{
    if (!present)
        return {L"response", {},
            {TextElement(L"PowerSource", L"On AC"), TextElement(L"BatteryStatus", L"No System battery"),
                TextElement(L"Charge", L""), TextElement(L"RemainingTime", L"")}};
    return {L"response", {},
        {TextElement(L"PowerSource", L"On AC"), TextElement(L"BatteryStatus", L"Charging"),
            TextElement(L"Charge", L"87 %"), TextElement(L"RemainingTime", L"3 Hrs : 25 Mins"),
            TextElement(L"Capacity", L"48.90 Wh"), TextElement(L"Voltage", L"11.40 V"),
            TextElement(L"Chemistry", L"Li-ion"), TextElement(L"Manufacturer", L"Harrowgate Energy Storage"),
            TextElement(L"CycleCount", L"214 of 1000 full cycles")}};
}

// Braces and upper-case hexadecimal digits in groups of 8-4-4-4-12.
bool IsIdentifier(std::wstring_view text)
{
    constexpr std::wstring_view kForm = L"{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}";
    if (text.size() != kForm.size())
        return false;
    for (std::size_t i = 0; i < kForm.size(); ++i) {
        const bool digit = std::wstring_view(L"0123456789ABCDEF").find(text[i]) != std::wstring_view::npos;
        if (kForm[i] == L'X' ? !digit : text[i] != kForm[i])
            return false;
    }
    return true;
}

const Element& RequireEnvelope(const XmlDocument& document)
{
    if (!document.error.empty())
        throw Refusal{L"Not well-formed: " + document.error + L'.'};
    if (!document.declared)
        throw Refusal{L"The document does not begin with its declaration."};
    if (document.root.name != L"vltp" || document.version != L"1.0")
        throw Refusal{L"The root is not vltp of version 1.0."};
    RequireCount(document.root, 1, 1);
    return RequireElement(document.root, 0, L"request");
}

const Operation& RequireOperation(const Element& request, std::wstring& name)
{
    const Element& identifier = RequireElement(request, 0, L"MessageId");
    const Element& operation = RequireElement(request, 1, L"operation");
    name = operation.text;
    if (!IsIdentifier(identifier.text))
        throw Refusal{L"MessageId is not an identifier in braces."};
    const Operation* known = FindOperation(name);
    if (known == nullptr)
        throw Refusal{L"The operation is not known."};
    RequireShape(*known, request);
    return *known;
}

} // namespace

Machine::Machine(const Scenario& scenario, Clock clock)
    : m_state{.scenario = scenario,
        .license = scenario.license,
        .activationKey = scenario.license == License::NotActivated ? L"" : kKey,
        .policies = InitialPolicies(),
        .snooze = MakeRecord(kSnoozeRecord),
        .proxy = MakeRecord(kProxyRecord),
        .host = MakeRecord(kHostRecord),
        .device = MakeRecord(kDeviceRecord, scenario.sleeps ? 0 : 1),
        .consumption = MakeRecord(kConsumptionRecord, 0),
        .manualConsumption = MakeRecord(kConsumptionRecord, 1),
        .autoConsumption = MakeRecord(kConsumptionRecord, 0),
        .jobs = InitialJobs(scenario.jobs),
        .battery = Battery(scenario.battery)}
    , m_clock(std::move(clock))
{
    for (std::size_t scheme = 0; scheme < kInitialSchemes; ++scheme)
        m_state.schemes.push_back(MakeRecord(kSchemeRecord, scheme));
    if (scenario.content == Content::Crowded)
        Crowd(m_state);
    if (scenario.content == Content::Odd)
        MakeOdd(m_state);
    m_state.activeScheme = ChildText(m_state.schemes[kInitialActiveScheme], 0);
    if (scenario.pausedHours > 0)
        m_state.pausedUntil = SecondNumber(m_clock()) + scenario.pausedHours * 3600;
}

Outcome Machine::Answer(std::wstring_view requestText)
{
    const XmlDocument document = ParseXml(requestText);
    try {
        return Answer(RequireEnvelope(document));
    } catch (const Refusal& refusal) {
        return {{}, refusal.message, StatusResponse(L"Failure", refusal.message)};
    }
}

Outcome Machine::Answer(const Element& request)
{
    Outcome outcome;
    try {
        const Operation& operation = RequireOperation(request, outcome.operation);
        if (operation.needsLicense && m_state.license != License::Activated) {
            outcome.complaint = LicenseWord(m_state.license);
            outcome.response = StatusResponse(outcome.complaint);
        } else {
            outcome.response = operation.answer({operation, request, m_state, m_clock()});
        }
    } catch (const Refusal& refusal) {
        outcome.complaint = refusal.message;
        outcome.response = StatusResponse(L"Failure", refusal.message);
    }
    return outcome;
}

} // namespace voltaro::simulator
