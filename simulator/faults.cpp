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

// Grows the last text until the whole frame has so many bytes.
void FillFrame(Element& response, std::size_t bytes)
{
    const std::size_t size = FrameOf(ReplyText(response)).size();
    Element* last = &response;
    while (!last->children.empty())
        last = &last->children.back();
    if (size < bytes)
        last->text = std::wstring(last->text) + std::wstring((bytes - size) / 2, L'x');
}

void AddToTexts(Element& element, std::wstring_view text)
{
    if (element.children.empty())
        element.text = std::wstring(element.text) + std::wstring(text);
    for (Element& child : element.children)
        AddToTexts(child, text);
}

void ReplaceTexts(Element& element, std::wstring_view text)
{
    if (element.children.empty())
        element.text = text;
    for (Element& child : element.children)
        ReplaceTexts(child, text);
}

// The list of the answer keeps so many elements: `details` its settings or sections, `response` its texts.
void KeepElements(Element& response, std::size_t count)
{
    Element& list = response.children.size() == 1 ? response.children[0] : response;
    if (list.children.size() > count)
        list.children.erase(list.children.begin() + static_cast<std::ptrdiff_t>(count), list.children.end());
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
    FaultInfo info;
    int argument;
    void (*response)(Element& response, int number);
    void (*text)(std::wstring& text, int number);
    void (*wire)(Delivery& delivery, int number);
};

constexpr std::array kRows = {
    Row{{L"none", L"no fault"}, 0, nullptr, nullptr, nullptr},
    Row{{L"refuse", L"for *: nobody listens; for one operation: reset once the request is read"}, 0, nullptr, nullptr,
        [](Delivery& delivery, int) { SendNothing(delivery, Ending::Reset); }},
    Row{{L"close", L"closed without an answer"}, 0, nullptr, nullptr,
        [](Delivery& delivery, int) { SendNothing(delivery, Ending::Close); }},
    Row{{L"close-mid-frame", L"closed after part of the answer; bytes, by default half of them"}, 0, nullptr, nullptr,
        [](Delivery& delivery, int number) {
            const std::size_t half = delivery.bytes.size() / 2;
            delivery.bytes.resize(
                number > 0 ? std::min(static_cast<std::size_t>(number), delivery.bytes.size()) : half);
            delivery.ending = Ending::Close;
        }},
    Row{{L"silent", L"the connection stays open and nothing comes"}, 0, nullptr, nullptr,
        [](Delivery& delivery, int) { SendNothing(delivery, Ending::Hang); }},
    Row{{L"late", L"nothing for a while, then the whole answer; milliseconds, 2000"}, 2000, nullptr, nullptr,
        [](Delivery& delivery, int number) { delivery.delayMs = number; }},
    Row{{L"slow", L"eight pieces; milliseconds between them, 200"}, 200, nullptr, nullptr,
        [](Delivery& delivery, int number) {
            delivery.pieceSize = delivery.bytes.size() / 8 + 1;
            delivery.pauseMs = number;
        }},
    Row{{L"byte-by-byte", L"one byte at a time; milliseconds between them, 0"}, 0, nullptr, nullptr,
        [](Delivery& delivery, int number) {
            delivery.pieceSize = 1;
            delivery.pauseMs = number;
        }},
    Row{{L"wrong-length", L"the length lies; bytes added to the true one, 64, negative for too short"}, 64, nullptr,
        nullptr,
        [](Delivery& delivery, int number) {
            WriteLength(delivery, std::ssize(delivery.bytes) + number);
            delivery.ending = Ending::Close;
        }},
    Row{{L"huge-length", L"the length is 99999999"}, 0, nullptr, nullptr,
        [](Delivery& delivery, int) {
            WriteLength(delivery, 99'999'999);
            delivery.ending = Ending::Close;
        }},
    Row{{L"no-nul", L"the closing NUL is missing, and the length counts without it"}, 0, nullptr, nullptr,
        [](Delivery& delivery, int) {
            delivery.bytes.resize(delivery.bytes.size() - 2);
            WriteLength(delivery, std::ssize(delivery.bytes));
        }},
    Row{{L"garbage", L"well framed units that are no document; how many, 100"}, 100, nullptr,
        [](std::wstring& text, int number) { text = GarbageUnits(static_cast<std::size_t>(number)); }, nullptr},
    Row{{L"not-well-formed", L"the document breaks off before its last tags"}, 0, nullptr,
        [](std::wstring& text, int) { text.resize(text.size() - std::min<std::size_t>(text.size(), 12)); }, nullptr},
    Row{{L"long-texts", L"every text grows; its units, 20000"}, 20000,
        [](Element& response, int number) { LengthenTexts(response, static_cast<std::size_t>(number)); }, nullptr,
        nullptr},
    Row{{L"many-elements", L"every list grows by copies of its last element; how many in all, 600"}, 600,
        [](Element& response, int number) { MultiplyElements(response, static_cast<std::size_t>(number)); }, nullptr,
        nullptr},
    Row{{L"doctype", L"the document declares entities that unfold into each other, and uses one"}, 0, nullptr,
        [](std::wstring& text, int) { DeclareEntities(text); }, nullptr},
    Row{{L"fill", L"the last text grows until the frame is full; its bytes, 700"}, 700,
        [](Element& response, int number) { FillFrame(response, static_cast<std::size_t>(number)); }, nullptr, nullptr},
    Row{{L"few-elements", L"the settings or sections break off; how many are left, 1"}, 1,
        [](Element& response, int number) { KeepElements(response, static_cast<std::size_t>(number)); }, nullptr,
        nullptr},
    Row{{L"unknown-words", L"every text is a word that nobody knows"}, 0,
        [](Element& response, int) { ReplaceTexts(response, L"Perhaps"); }, nullptr, nullptr},
    Row{{L"foreign-texts", L"every text goes on in other scripts, from right to left, and beyond the first plane"}, 0,
        [](Element& response, int) { AddToTexts(response, L" \x00DF\x03A9\x0416\x05D0\x4E3C\xD83D\xDD0B"); }, nullptr,
        nullptr},
    Row{{L"status", L"the answer is this status instead; the word, Failure"}, 0, nullptr, nullptr,
        nullptr}, // its argument is a word: below
};
static_assert(kRows.size() == static_cast<std::size_t>(FaultKind::Status) + 1);

constexpr auto kInfos = [] {
    std::array<FaultInfo, kRows.size()> infos{};
    std::transform(kRows.begin(), kRows.end(), infos.begin(), [](const Row& row) { return row.info; });
    return infos;
}();

} // namespace

std::span<const FaultInfo> FaultInfos()
{
    return kInfos;
}

std::optional<Fault> ParseFault(std::wstring_view text)
{
    const std::size_t colon = text.find(L':');
    const auto row = std::find_if(kRows.begin(), kRows.end(),
        [kind = text.substr(0, colon)](const Row& known) { return EqualsIgnoreCase(known.info.name, kind); });
    if (row == kRows.end())
        return std::nullopt;
    Fault fault{static_cast<FaultKind>(row - kRows.begin()), {}};
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
