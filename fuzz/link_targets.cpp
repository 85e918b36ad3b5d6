#include "fuzz/targets.h"
#include "link/frame.h"
#include "link/host_config_text.h"
#include "link/refused_document.h"
#include "link/requests.h"
#include "settings/machine_texts.h"
#include "simulator/frame.h"
#include "simulator/operations.h"
#include "simulator/system_details.h"
#include "simulator/xml.h"

#include <algorithm>

namespace voltaro::fuzz {
namespace {

using State = FrameAssembler::State;

// Takes a frame in pieces of any size up to what is asked for; the rest at once when the bytes are used up.
State TakeAll(FrameAssembler& assembler, std::span<const std::byte> frame, std::size_t capacity, Bytes& bytes)
{
    State state = State::NeedMore;
    while (state == State::NeedMore && !frame.empty()) {
        Require(assembler.Wanted() > 0 && assembler.Wanted() <= capacity);
        const std::size_t piece
            = std::min({frame.size(), assembler.Wanted(), bytes.AtEnd() ? frame.size() : 1 + bytes.Next()});
        state = assembler.Take(frame.first(piece));
        frame = frame.subspan(piece);
    }
    return state;
}

constexpr const wchar_t* kAnswerNames[] = {L"response", L"details", L"CPUInfo", L"OSInfo", L"PowerCapabilities",
    L"NetworkInfo", L"Adapter", L"PhysicalDiskInfo", L"LogicalDisk", L"AppNo_", L"PolicyName", L"status"};

template <class Record>
void CheckRecord(const Element& root)
{
    if (const std::optional<Record> read = ReadRecord<Record>(root))
        Require(ReadRecord<Record>(ElementOf(L"details", *read)) == read);
}

void CheckNames(const Element& root)
{
    Require(ReadNames(root).size() <= kMaxNames);
    HostConfigText port, second;
    ChooseHostTexts(root, port, second);
    Require(port.empty() || !ChildrenOfEvery(root, L"Hostsettings").empty());
}

void CheckPolicy(const Element& root)
{
    if (const std::optional<ApplicationSensorPolicy> policy = ReadPolicy(root))
        Require(ReadPolicy(RequestElement(WithPolicy(Operation::SetPolicySettings, *policy), L"")) == policy);
}

void CheckBattery(const Element& root)
{
    const BatteryInfo battery = ReadBattery(root);
    Require(ChargePercent(battery) >= 0 && ChargePercent(battery) <= 100 && BatteryLabel(battery, 0) != nullptr);
    (void)BatteryStatusLine(battery);
}

// And then no answer: the rows stay and are empty.
void CheckDetails(const Element& root)
{
    static SystemDetails details; // large, and slow to make
    details.Read(&root);
    (void)LogoOf(SystemName(details));
    (void)DetailsText(details);
    details.Read(nullptr);
    for (std::size_t section = 0; section < kDetailSections; ++section) {
        for (std::size_t row = 0; row < details.RowCount(static_cast<DetailSection>(section)); ++row)
            Require(details.Row(static_cast<DetailSection>(section), row).name.empty());
    }
}

// One of these reads an input: what the others read costs more than it finds.
constexpr void (*kReaders[])(const Element& root) = {CheckRecord<PowerSchemeSettings>, CheckRecord<SnoozeSettings>,
    CheckRecord<ProxySettings>, CheckRecord<HostSettings>, CheckRecord<PowerConsumptionData>,
    CheckRecord<DeviceSettings>, CheckNames, CheckPolicy, CheckBattery, CheckDetails, CheckDetails};

// The answer with its lists cut: positions and names are what readers go by, and a long list is slow to copy.
Element Shortened(Element element, std::size_t most)
{
    element.children.resize(std::min(element.children.size(), most));
    for (Element& child : element.children)
        child = Shortened(std::move(child), most);
    return element;
}

} // namespace

// A frame written and read back in pieces; any bytes as an answer of any member.
void RunFrame(Bytes& bytes)
{
    const std::size_t capacity = kMembers[bytes.Next() % std::size(kMembers)].capacity;
    const std::wstring text = bytes.Text().substr(0, (capacity - kFrameOverheadBytes) / kBytesPerUnit);
    const WipedBytes frame = EncodeFrame(text, capacity);
    FrameAssembler good(capacity);
    Require(TakeAll(good, frame, capacity, bytes) == State::Complete);
    Require(good.Text() == text.substr(0, text.find(L'\0')));
    Require(simulator::FrameOf(text) == std::string(reinterpret_cast<const char*>(frame.data()), frame.size()));

    const bool digits = bytes.Next() % 2 == 0;
    std::wstring units = digits ? NumberText(bytes.Number() % 2000) : L"";
    units.resize(digits ? kLengthDigits : 0, L' ');
    const std::string hostile = simulator::BytesOf(units + bytes.Text());
    FrameAssembler assembler(capacity);
    if (TakeAll(assembler, std::as_bytes(std::span(hostile)), capacity, bytes) == State::Complete)
        Require(assembler.Text().view().size() * kBytesPerUnit <= hostile.size());
}

// Damaged answers of the simulated agent, each read by one reader.
void RunReplies(Bytes& bytes)
{
    static const std::vector<Element> kAnswers = [] {
        simulator::MachineState state = simulator::Machine().State();
        std::vector<Element> answers = {Shortened(simulator::ResponseWith(state.policies[0]), 7),
            Shortened(simulator::ResponseWith(simulator::SystemDetails(state.scenario)), 7)};
        for (const simulator::Operation& operation : simulator::Operations()) {
            if (operation.shape.kind == simulator::Shape::Kind::Nothing
                && std::wstring_view(operation.name).starts_with(L"Get"))
                answers.push_back(Shortened(operation.answer({operation, {}, state, {2026, 11, 21, 43200}}), 7));
        }
        return answers;
    }();
    const auto reader = kReaders[bytes.Next() % std::size(kReaders)];
    Element root{L"vltp", {}, {kAnswers[bytes.Next() % kAnswers.size()]}};
    Damage(root, bytes, kAnswerNames);
    reader(root);
}

// Any document, in units and as bytes; what the simulated agent has read, it writes so that it reads the same.
void RunDocument(Bytes& bytes)
{
    const std::wstring text = bytes.Text(4000);
    Require(!RefusedDocument(text) || RefusedDocument(simulator::BytesOf(text)));
    const simulator::XmlDocument read = simulator::ParseXml(text);
    const simulator::XmlDocument again = simulator::ParseXml(simulator::ReplyText(read.root));
    Require(!read.error.empty() || !again.error.empty() || again.root.children[0] == read.root); // one level deeper
}

} // namespace voltaro::fuzz
