#include "base/text.h"
#include "fuzz/targets.h"
#include "link/frame.h"
#include "link/members.h"
#include "link/requests.h"
#include "link/system_details.h"
#include "settings/machine_texts.h"
#include "simulator/frame.h"
#include "simulator/machine.h"
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

void CheckDetails(const Element& root)
{
    SystemDetails details;
    details.Read(&root);
    for (std::size_t section = 0; section < kDetailSections; ++section) {
        for (std::size_t row = 0; row < details.RowCount(static_cast<DetailSection>(section)); ++row)
            (void)details.Row(static_cast<DetailSection>(section), row).value.view();
    }
    (void)LogoOf(SystemName(details));
    (void)DetailsText(details);
}

template <class... Records>
void CheckRecords(const Element& root)
{
    const auto check = []<class Record>(std::optional<Record> read) {
        Require(!read || ReadRecord<Record>(ElementOf(L"details", *read)) == read);
    };
    (check(ReadRecord<Records>(root)), ...);
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

// Damaged answers of the simulated agent, read by every reader.
void RunReplies(Bytes& bytes)
{
    static const std::vector<Element> kAnswers = [] {
        simulator::MachineState state = simulator::Machine().State();
        std::vector<Element> answers = {simulator::ResponseWith(state.policies[0])};
        for (const simulator::Operation& operation : simulator::Operations()) {
            if (operation.shape.kind == simulator::Shape::Kind::Nothing
                && std::wstring_view(operation.name).starts_with(L"Get"))
                answers.push_back(operation.answer({operation, {}, state, {2026, 11, 21, 43200}}));
        }
        answers.push_back(simulator::ResponseWith(simulator::SystemDetails(state.scenario)));
        return answers;
    }();
    const std::size_t answer = bytes.Next() % kAnswers.size();
    Element root{L"vltp", {}, {kAnswers[answer]}};
    Damage(root, bytes, kAnswerNames);

    CheckRecords<PowerSchemeSettings, SnoozeSettings, ProxySettings, HostSettings, PowerConsumptionData,
        DeviceSettings>(root);
    (void)ReadNames(root);
    if (const std::optional<ApplicationSensorPolicy> policy = ReadPolicy(root))
        Require(ReadPolicy(RequestElement(WithPolicy(Operation::SetPolicySettings, *policy), L"")) == policy);
    const BatteryInfo battery = ReadBattery(root);
    Require(ChargePercent(battery) >= 0 && ChargePercent(battery) <= 100);
    for (std::size_t row = 0; row < battery.rows.size(); ++row)
        Require(BatteryLabel(battery, row) != nullptr);
    (void)BatteryStatusLine(battery);
    if (answer + 1 == kAnswers.size()) // its tables are large, and slow to clear
        CheckDetails(root);
}

// What the simulated agent makes of any document, and of one that it wrote itself.
void RunDocument(Bytes& bytes)
{
    if (bytes.Next() % 2 == 0) {
        const simulator::XmlDocument read = simulator::ParseXml(bytes.Text(4000));
        const simulator::XmlDocument again = simulator::ParseXml(simulator::ReplyText(read.root));
        Require(!read.error.empty() || !again.error.empty() || again.root.children[0] == read.root); // one level deeper
        return;
    }
    Element response{L"response", {}, {}};
    Damage(response, bytes, kAnswerNames);
    const std::wstring text = simulator::ReplyText(response);
    const simulator::XmlDocument read = simulator::ParseXml(text);
    Require(!read.error.empty() || simulator::ReplyText(read.root.children[0]) == text);
}

} // namespace voltaro::fuzz
