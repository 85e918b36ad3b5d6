#include "simulator/faults.h"

#include "base/text.h"
#include "simulator/frame.h"
#include "simulator/xml.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace voltaro::simulator {
namespace {

void LengthenTexts(Element& element, std::size_t units)
{
    if (element.children.empty())
        element.text = std::wstring(element.text).append(units, L'x').substr(0, units);
    for (Element& child : element.children)
        LengthenTexts(child, units);
}

void MultiplyElements(Element& element, std::size_t count)
{
    if (element.children.empty())
        return;
    const Element last = element.children.back(); // as it was, or nested lists would multiply each other
    for (Element& child : element.children)
        MultiplyElements(child, count);
    while (element.children.size() < count)
        element.children.push_back(last);
}

std::wstring GarbageUnits(std::size_t units)
{
    std::wstring text;
    std::uint32_t state = 2463534242;
    while (text.size() < units) {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        text += static_cast<wchar_t>(1 + state % 0xFFFF);
    }
    return text;
}

// Six entities, each ten times the one before it, used in the first text: a million units once unfolded.
void DeclareEntities(std::wstring& text)
{
    std::wstring declarations = L"<!DOCTYPE vltp [<!ENTITY e0 \"volts and\">";
    for (int level = 1; level < 6; ++level) {
        declarations += Format(L"<!ENTITY e%d \"", level);
        for (int i = 0; i < 10; ++i)
            declarations += Format(L"&e%d;", level - 1);
        declarations += L"\">";
    }
    text.insert(std::min(text.find(L"</"), text.size()), L"&e5;");
    const std::size_t declarationEnd = text.find(L"?>");
    text.insert(declarationEnd == std::wstring::npos ? 0 : declarationEnd + 2, declarations + L"]>");
}

void WriteLength(Delivery& delivery, std::int64_t length)
{
    const std::string digits
        = BytesOf(Format(L"%08lld", static_cast<long long>(std::clamp<std::int64_t>(length, 0, 99'999'999))));
    delivery.bytes.replace(0, kHeaderBytes, digits);
}

void SendNothing(Delivery& delivery, Ending ending)
{
    delivery.bytes.clear();
    delivery.ending = ending;
}

// The stages at which a fault may take hold; its number is the argument or the default.
struct Row {
    const wchar_t* name;
    int argument;
    void (*response)(Element& response, int number);
    void (*text)(std::wstring& text, int number);
    void (*wire)(Delivery& delivery, int number);
};

constexpr std::array kRows = {
    Row{L"none", 0, nullptr, nullptr, nullptr},
    Row{L"refuse", 0, nullptr, nullptr, [](Delivery& delivery, int) { SendNothing(delivery, Ending::Reset); }},
    Row{L"close", 0, nullptr, nullptr, [](Delivery& delivery, int) { SendNothing(delivery, Ending::Close); }},
    Row{L"close-mid-frame", 0, nullptr, nullptr,
        [](Delivery& delivery, int number) {
            const std::size_t half = delivery.bytes.size() / 2;
            delivery.bytes.resize(
                number > 0 ? std::min(static_cast<std::size_t>(number), delivery.bytes.size()) : half);
            delivery.ending = Ending::Close;
        }},
    Row{L"silent", 0, nullptr, nullptr, [](Delivery& delivery, int) { SendNothing(delivery, Ending::Hang); }},
    Row{L"late", 2000, nullptr, nullptr, [](Delivery& delivery, int number) { delivery.delayMs = number; }},
    Row{L"slow", 200, nullptr, nullptr,
        [](Delivery& delivery, int number) {
            delivery.pieceSize = delivery.bytes.size() / 8 + 1;
            delivery.pauseMs = number;
        }},
    Row{L"byte-by-byte", 0, nullptr, nullptr,
        [](Delivery& delivery, int number) {
            delivery.pieceSize = 1;
            delivery.pauseMs = number;
        }},
    Row{L"wrong-length", 64, nullptr, nullptr,
        [](Delivery& delivery, int number) {
            WriteLength(delivery, std::ssize(delivery.bytes) + number);
            delivery.ending = Ending::Close;
        }},
    Row{L"huge-length", 0, nullptr, nullptr,
        [](Delivery& delivery, int) {
            WriteLength(delivery, 99'999'999);
            delivery.ending = Ending::Close;
        }},
    Row{L"no-nul", 0, nullptr, nullptr,
        [](Delivery& delivery, int) {
            delivery.bytes.resize(delivery.bytes.size() - 2);
            WriteLength(delivery, std::ssize(delivery.bytes));
        }},
    Row{L"garbage", 100, nullptr,
        [](std::wstring& text, int number) { text = GarbageUnits(static_cast<std::size_t>(number)); }, nullptr},
    Row{L"not-well-formed", 0, nullptr,
        [](std::wstring& text, int) { text.resize(text.size() - std::min<std::size_t>(text.size(), 12)); }, nullptr},
    Row{L"long-texts", 20000,
        [](Element& response, int number) { LengthenTexts(response, static_cast<std::size_t>(number)); }, nullptr,
        nullptr},
    Row{L"many-elements", 600,
        [](Element& response, int number) { MultiplyElements(response, static_cast<std::size_t>(number)); }, nullptr,
        nullptr},
    Row{L"doctype", 0, nullptr, [](std::wstring& text, int) { DeclareEntities(text); }, nullptr},
    Row{L"status", 0, nullptr, nullptr, nullptr}, // its argument is a word: below
};
static_assert(kRows.size() == static_cast<std::size_t>(FaultKind::Status) + 1);

constexpr auto kNames = [] {
    std::array<const wchar_t*, kRows.size()> names{};
    std::transform(kRows.begin(), kRows.end(), names.begin(), [](const Row& row) { return row.name; });
    return names;
}();

} // namespace

std::span<const wchar_t* const> FaultNames()
{
    return kNames;
}

std::optional<Fault> ParseFault(std::wstring_view text)
{
    const std::size_t colon = text.find(L':');
    const auto name = std::find_if(kNames.begin(), kNames.end(),
        [kind = text.substr(0, colon)](const wchar_t* known) { return EqualsIgnoreCase(known, kind); });
    if (name == kNames.end())
        return std::nullopt;
    Fault fault{static_cast<FaultKind>(name - kNames.begin()), {}};
    if (colon != std::wstring_view::npos)
        fault.argument = text.substr(colon + 1);
    return fault;
}

Delivery Deliver(const Element& response, const std::wstring* scriptedText, const Fault& fault)
{
    const Row& row = kRows[static_cast<std::size_t>(fault.kind)];
    const int given = fault.argument.empty() ? row.argument : LeadingNumber(fault.argument);
    const int number = std::clamp(given, fault.kind == FaultKind::WrongLength ? -1'000'000 : 0, 1'000'000);
    std::wstring text;
    if (fault.kind == FaultKind::Status) {
        const std::wstring word = fault.argument.empty() ? L"Failure" : fault.argument;
        text = ReplyText({L"response", {}, {TextElement(L"status", word)}});
    } else if (scriptedText != nullptr) {
        text = *scriptedText;
    } else {
        Element changed = response;
        if (row.response != nullptr)
            row.response(changed, number);
        text = ReplyText(changed);
    }
    if (row.text != nullptr)
        row.text(text, number);
    Delivery delivery;
    delivery.bytes = FrameOf(text);
    if (row.wire != nullptr)
        row.wire(delivery, number);
    return delivery;
}

} // namespace voltaro::simulator
