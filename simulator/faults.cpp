#include "simulator/faults.h"

#include "base/text.h"
#include "simulator/damage.h"
#include "simulator/frame.h"
#include "simulator/xml.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace voltaro::simulator {
namespace {

// Any eight units in the place of the length. What they promise more never comes.
void WriteLength(Delivery& delivery, std::wstring length)
{
    length.resize(kHeaderBytes / 2, L' ');
    delivery.bytes.replace(0, kHeaderBytes, BytesOf(length));
    delivery.ending = Ending::Close;
}

// So many bytes, 0 for half of them, and then the end.
void BreakOff(Delivery& delivery, std::size_t bytes, Ending ending)
{
    delivery.bytes.resize(bytes > 0 ? std::min(bytes, delivery.bytes.size()) : delivery.bytes.size() / 2);
    delivery.ending = ending;
}

void SendNothing(Delivery& delivery, Ending ending)
{
    delivery.bytes.clear();
    delivery.ending = ending;
}

// What a fault is told: a text, and the number that it begins with.
struct Argument {
    const std::wstring& word;
    int number;
    [[nodiscard]] std::size_t Count() const { return static_cast<std::size_t>(std::max(number, 0)); }
};

// The stages at which a fault may take hold: the answer's elements, its text, its frame.
struct Row {
    FaultInfo info;
    const wchar_t* argument = L"0"; // unless told
    void (*response)(Element& response, const Argument& argument) = nullptr;
    void (*text)(std::wstring& text, const Argument& argument) = nullptr;
    void (*wire)(Delivery& delivery, const Argument& argument) = nullptr;
};

constexpr std::array kRows = {
    Row{.info = {L"none", L"no fault"}},
    Row{.info = {L"refuse", L"for *: nobody listens; for one operation: reset once the request is read"},
        .wire = [](Delivery& delivery, const Argument&) { SendNothing(delivery, Ending::Reset); }},
    Row{.info = {L"close", L"closed without an answer"},
        .wire = [](Delivery& delivery, const Argument&) { SendNothing(delivery, Ending::Close); }},
    Row{.info = {L"close-mid-frame", L"closed after part of the answer; bytes, by default half of them"},
        .wire = [](Delivery& delivery, const Argument& bytes) { BreakOff(delivery, bytes.Count(), Ending::Close); }},
    Row{.info = {L"reset-mid-frame", L"reset after part of the answer; bytes, by default half of them"},
        .wire = [](Delivery& delivery, const Argument& bytes) { BreakOff(delivery, bytes.Count(), Ending::Reset); }},
    Row{.info = {L"silent", L"the connection stays open and nothing comes"},
        .wire = [](Delivery& delivery, const Argument&) { SendNothing(delivery, Ending::Hang); }},
    Row{.info = {L"late", L"nothing for a while, then the whole answer; milliseconds, 2000"},
        .argument = L"2000",
        .wire = [](Delivery& delivery, const Argument& delay) { delivery.delayMs = delay.number; }},
    Row{.info = {L"slow", L"eight pieces; milliseconds between them, 200"},
        .argument = L"200",
        .wire =
            [](Delivery& delivery, const Argument& pause) {
                delivery.pieceSize = delivery.bytes.size() / 8 + 1;
                delivery.pauseMs = pause.number;
            }},
    Row{.info = {L"pieces", L"pieces of a size that no part of the frame has; bytes, 7"},
        .argument = L"7",
        .wire = [](Delivery& delivery, const Argument& bytes) { delivery.pieceSize = bytes.Count(); }},
    Row{.info = {L"byte-by-byte", L"one byte at a time; milliseconds between them, 0"},
        .wire =
            [](Delivery& delivery, const Argument& pause) {
                delivery.pieceSize = 1;
                delivery.pauseMs = pause.number;
            }},
    Row{.info = {L"wrong-length", L"the length lies; bytes added to the true one, 64, negative for too short"},
        .argument = L"64",
        .wire =
            [](Delivery& delivery, const Argument& added) {
                const auto length = std::clamp<std::int64_t>(std::ssize(delivery.bytes) + added.number, 0, 99'999'999);
                WriteLength(delivery, Format(L"%08lld", static_cast<long long>(length)));
            }},
    Row{.info = {L"length", L"what stands for the length; at most eight units, 99999999"},
        .argument = L"99999999",
        .wire = [](Delivery& delivery, const Argument& length) { WriteLength(delivery, length.word); }},
    Row{.info = {L"no-nul", L"the closing NUL is missing, and the length counts without it"},
        .wire =
            [](Delivery& delivery, const Argument&) {
                delivery.bytes.resize(delivery.bytes.size() - 2);
                WriteLength(delivery, Format(L"%08d", static_cast<int>(delivery.bytes.size())));
                delivery.ending = Ending::Orderly;
            }},
    Row{.info = {L"http", L"the answer of another kind of server"},
        .wire =
            [](Delivery& delivery, const Argument&) {
                delivery = {.bytes = "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\nConnection: close\r\n\r\n",
                    .ending = Ending::Close};
            }},
    Row{.info = {L"inner-nul", L"a NUL in the middle of the document"},
        .text = [](std::wstring& text, const Argument&) { text[text.size() / 2] = L'\0'; }},
    Row{.info = {L"text", L"this text stands for the document, \"empty\" for none"},
        .argument = L"empty",
        .text = [](std::wstring& text, const Argument& other) { text = other.word == L"empty" ? L"" : other.word; }},
    Row{.info = {L"prefix", L"this text stands before the document; a byte order mark"},
        .argument = L"\xFEFF",
        .text = [](std::wstring& text, const Argument& prefix) { text.insert(0, prefix.word); }},
    Row{.info = {L"garbage", L"well framed units that are no document; how many, 100"},
        .argument = L"100",
        .text = [](std::wstring& text, const Argument& units) { text = GarbageUnits(units.Count()); }},
    Row{.info = {L"not-well-formed", L"the document breaks off before its last tags"},
        .text = [](std::wstring& text,
                    const Argument&) { text.resize(text.size() - std::min<std::size_t>(text.size(), 12)); }},
    Row{.info = {L"entities", L"entities that unfold into each other, the last used; levels, 6"},
        .argument = L"6",
        .text = [](std::wstring& text, const Argument& levels) { DeclareEntities(text, std::max(levels.number, 1)); }},
    Row{.info = {L"external", L"a document type and entities from elsewhere; the address, a file's"},
        .argument = L"file:///C:/voltaro.dtd",
        .text = [](std::wstring& text, const Argument& address) { DeclareExternal(text, address.word); }},
    Row{.info = {L"references", L"style sheet, schema and inclusion from elsewhere; the address, a file's"},
        .argument = L"file:///C:/voltaro.xsl",
        .text = [](std::wstring& text, const Argument& address) { ReferTo(text, address.word); }},
    Row{.info = {L"insert", L"text before the first end tag; half of a surrogate pair"},
        .argument = L"\xD83D",
        .text = [](std::wstring& text, const Argument& inserted) { InsertText(text, inserted.word); }},
    Row{.info = {L"deep", L"elements inside each other, before the first end tag; how many, 5000"},
        .argument = L"5000",
        .text = [](std::wstring& text, const Argument& count) { InsertElements(text, count.number, true); }},
    Row{.info = {L"wide", L"empty elements before the first end tag; how many, 100000"},
        .argument = L"100000",
        .text = [](std::wstring& text, const Argument& count) { InsertElements(text, count.number, false); }},
    Row{.info = {L"root", L"the document's element has another name; the name, other"},
        .argument = L"other",
        .text = [](std::wstring& text, const Argument& name) { text = Replaced(text, L"vltp", name.word); }},
    Row{.info = {L"long-texts", L"every text grows; its units, 20000"},
        .argument = L"20000",
        .response = [](Element& response, const Argument& units) { LengthenTexts(response, units.Count()); }},
    Row{.info = {L"many-elements", L"every list grows by copies of its last element; how many in all, 600"},
        .argument = L"600",
        .response = [](Element& response, const Argument& count) { MultiplyElements(response, count.Count()); }},
    Row{.info = {L"fill", L"the last text grows until the frame is full; its bytes, 700"},
        .argument = L"700",
        .response = [](Element& response, const Argument& bytes) { FillFrame(response, bytes.Count()); }},
    Row{.info = {L"few-elements", L"the settings or sections break off; how many are left, 1"},
        .argument = L"1",
        .response = [](Element& response, const Argument& count) { KeepElements(response, count.Count()); }},
    Row{.info = {L"texts", L"every text is this one; a word that nobody knows, Perhaps"},
        .argument = L"Perhaps",
        .response = [](Element& response, const Argument& text) { ReplaceTexts(response, text.word); }},
    Row{.info = {L"foreign-texts", L"every text goes on in other scripts and beyond the first plane"},
        .argument = L" \x00DF\x03A9\x0416\x05D0\x4E3C\xD83D\xDD0B",
        .response = [](Element& response, const Argument& text) { AddToTexts(response, text.word); }},
    Row{.info = {L"status", L"the answer is this status instead; the word, Failure"},
        .argument = L"Failure",
        .text =
            [](std::wstring& text, const Argument& word) {
                text = ReplyText({L"response", {}, {TextElement(L"status", word.word)}});
            }},
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
    const std::wstring word = fault.argument.empty() ? row.argument : fault.argument;
    const Argument argument{word, std::clamp(LeadingNumber(word), -1'000'000, 1'000'000)};
    Element changed = response;
    if (row.response != nullptr)
        row.response(changed, argument);
    std::wstring text = scriptedText != nullptr ? *scriptedText : ReplyText(changed);
    if (row.text != nullptr)
        row.text(text, argument);
    Delivery delivery;
    delivery.bytes = FrameOf(text);
    if (row.wire != nullptr)
        row.wire(delivery, argument);
    return delivery;
}

} // namespace voltaro::simulator
