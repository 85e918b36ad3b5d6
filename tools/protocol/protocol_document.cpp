// protocol_document [--check] FILE: brings docs/protocol.md up to date with the tables of the console and of the
// simulated agent, or only tells whether it is. What the tables do not hold, the last column, is kept as it stands.
#include "link/requests.h"
#include "simulator/jobs.h"
#include "simulator/machine.h"
#include "simulator/operations.h"
#include "simulator/xml.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>

namespace voltaro::simulator {
namespace {

using Lines = std::vector<std::string>;

// One table of the document: its heading, and of each row what the code knows, the first cells.
struct Table {
    std::string heading;
    Lines rows;
};

std::string Plain(std::wstring_view text)
{
    std::string plain;
    for (const wchar_t unit : text)
        plain += unit < 128 ? static_cast<char>(unit) : '?';
    return plain;
}

std::string Code(std::wstring_view text)
{
    return "`" + Plain(text) + "`";
}

// Adds to a list that is separated by commas, each entry once.
void Add(std::string& list, const std::string& entry)
{
    if (list.find(entry) == std::string::npos)
        list += (list.empty() ? "" : ", ") + entry;
}

const OperationRow& RowAt(std::size_t i)
{
    return RowOf(static_cast<voltaro::Operation>(i));
}
constexpr std::size_t kOperationCount = static_cast<std::size_t>(voltaro::Operation::Count);

const char* DifferenceOf(const MemberRow& row)
{
    // In the order of Difference.
    static constexpr const char* kWords[] = {"", "no option call", "start-up box", "connect box", "closed box",
        "exception box, then true", "exception box, then false"};
    return kWords[static_cast<std::size_t>(row.difference)];
}

Table Members()
{
    Table table{"## Members", {}};
    for (const MemberRow& row : kMembers) {
        std::string served;
        for (std::size_t i = 0; i < kOperationCount; ++i) {
            if (RowAt(i).member == row.member)
                Add(served, Code(RowAt(i).name));
        }
        table.rows.push_back("| " + std::to_string(table.rows.size() + 1) + " | " + std::to_string(row.capacity) + " | "
            + std::to_string(row.seconds) + " | " + (row.send == SendKind::Heap ? "heap" : "fixed") + " | "
            + DifferenceOf(row) + " | " + served + " |");
    }
    return table;
}

std::string FieldsText(const Shape& shape)
{
    static const std::map<const std::span<const RecordField>*, const char*> kNames
        = {{&kSchemeRecord, "PowerSchemeSettings"}, {&kSnoozeRecord, "SnoozeSettings"},
            {&kProxyRecord, "ProxySettings"}, {&kHostRecord, "HostSettings"},
            {&kConsumptionRecord, "PowerConsumptionData"}, {&kDeviceRecord, "DeviceSettings"}};
    switch (shape.kind) {
    case Shape::Kind::Field: return Code(shape.field);
    case Shape::Kind::OptionalField: return Code(shape.field) + ", optional";
    case Shape::Kind::Record: return std::string("`details`: ") + kNames.at(shape.record);
    case Shape::Kind::Policy: return "`details`: ApplicationSensorPolicy";
    case Shape::Kind::Jobs: return "`details`: job list";
    case Shape::Kind::Nothing: break;
    }
    return "none";
}

Table OperationTable()
{
    Table table{"## Operations", {}};
    for (const Operation& operation : Operations()) {
        std::string members;
        for (std::size_t i = 0; i < kOperationCount; ++i) {
            if (RowAt(i).name == std::wstring_view(operation.name))
                Add(members, std::to_string(static_cast<std::size_t>(RowAt(i).member) + 1));
        }
        table.rows.push_back("| " + Code(operation.name) + " | " + FieldsText(operation.shape) + " | "
            + (operation.needsLicense ? "yes" : "no") + " | " + members + " |");
    }
    return table;
}

template <class Record>
Table RecordTable(const char* name)
{
    Table table{std::string("### ") + name, {}};
    for (const auto& field : FieldsOf<Record>::kTable)
        table.rows.push_back("| " + Code(field.element) + " |");
    return table;
}

// One element a line; of a long list of elements the first few.
void Print(const Element& element, const std::string& indent, std::string& text)
{
    constexpr std::size_t kShown = 6;
    const std::string name = Plain(element.name);
    if (element.children.empty()) {
        text += indent + "<" + name + ">" + Plain(EscapedText(element.text)) + "</" + name + ">\n";
        return;
    }
    text += indent + "<" + name + ">\n";
    for (std::size_t i = 0; i < std::min(kShown, element.children.size()); ++i)
        Print(element.children[i], indent + "  ", text);
    if (element.children.size() > kShown)
        text += indent + "  <!-- " + std::to_string(element.children.size() - kShown) + " more -->\n";
    text += indent + "</" + name + ">\n";
}

Element ExampleOf(const Operation& operation)
{
    static const std::map<std::wstring_view, const wchar_t*> kTexts = {{L"scheme", L"Minimum"},
        {L"PolicyName", L"Presentations"}, {L"policy", L"Nightly_Backup"}, {L"fordate", L"11202026"},
        {L"duration", L"2"}, {L"type", L"Refresh"}, {L"monitoroff", L"No"}, {L"ActivationKey", L"HX4F-20VT-7K3M-99QA"}};
    Element request{L"request", {}, {TextElement(L"MessageId", L"{0123ABCD-4567-89EF-0123-456789ABCDEF}")}};
    request.children.push_back(TextElement(L"operation", operation.name));
    const Shape& shape = operation.shape;
    if (shape.field)
        request.children.push_back(TextElement(shape.field, kTexts.at(shape.field)));
    else if (shape.kind == Shape::Kind::Record)
        request.children.push_back(MakeRecord(*shape.record));
    else if (shape.kind == Shape::Kind::Policy)
        request.children.push_back(InitialPolicies()[1]);
    else if (shape.kind == Shape::Kind::Jobs)
        request.children.push_back(InitialJobs(1));
    if (std::wstring_view(operation.name).starts_with(L"Create"))
        request.children[2].children[0].text = L"Evenings"; // what is created must not be there yet
    return request;
}

std::string Exchanges()
{
    std::string text;
    for (const Operation& operation : Operations()) {
        const std::wstring_view name = operation.name;
        const bool pending = name == L"success" || name == L"failure";
        Machine machine(*FindScenario(pending ? L"busy" : L"battery"), [] { return DateTime{2026, 11, 21, 43200}; });
        if (pending)
            static_cast<void>(machine.Answer(ExampleOf(*FindOperation(L"standby"))));
        const Element request = ExampleOf(operation);
        text += "\n### " + Code(name) + "\n\n```xml\n";
        Print(request, "", text);
        Print(machine.Answer(request).response, "", text);
        text += "```\n";
    }
    return text;
}

// The row as the code has it, with the last cell of the old row that begins with the same one.
std::string Merged(const std::string& row, const Lines& old)
{
    const std::string first = row.substr(0, row.find(" |", 2) + 2);
    const auto before = std::find_if(old.begin(), old.end(), [&](const auto& line) { return line.starts_with(first); });
    const auto cells = [](const std::string& line) { return std::count(line.begin(), line.end(), '|'); };
    if (before == old.end() || cells(*before) == cells(row))
        return row;
    return row + before->substr(before->rfind('|', before->size() - 2) + 1);
}

// The document with its tables and exchanges as the code has them.
std::string Updated(std::istream& document)
{
    const Table tables[] = {Members(), OperationTable(), RecordTable<PowerSchemeSettings>("PowerSchemeSettings"),
        RecordTable<ApplicationRule>("ApplicationRule"), RecordTable<SnoozeSettings>("SnoozeSettings"),
        RecordTable<ProxySettings>("ProxySettings"), RecordTable<HostSettings>("HostSettings"),
        RecordTable<PowerConsumptionData>("PowerConsumptionData"), RecordTable<DeviceSettings>("DeviceSettings")};
    std::string text;
    const Table* table = nullptr;
    Lines old; // the rows of the table so far, its two head lines among them
    for (std::string line; std::getline(document, line);) {
        const bool row = table && line.starts_with('|');
        if (row)
            old.push_back(line);
        if (row && old.size() > 2)
            continue;
        if (!old.empty() && !row) {
            for (const std::string& made : table->rows)
                text += Merged(made, old) + "\n";
            old.clear();
            table = nullptr;
        }
        text += line + "\n";
        if (line == "## Example exchanges")
            return text + Exchanges();
        const auto* found = std::find_if(
            std::begin(tables), std::end(tables), [&](const Table& each) { return each.heading == line; });
        table = found == std::end(tables) ? table : found;
    }
    return text;
}

} // namespace
} // namespace voltaro::simulator

int main(int count, char** arguments)
{
    const bool check = count == 3 && std::string_view(arguments[1]) == "--check";
    if (count != 2 && !check) {
        std::fputs("protocol_document [--check] FILE\n", stderr);
        return 2;
    }
    const char* path = arguments[count - 1];
    std::stringstream document;
    document << std::ifstream(path, std::ios::binary).rdbuf();
    const std::string updated = voltaro::simulator::Updated(document);
    if (check && updated != document.str()) {
        std::fputs("docs/protocol.md is not what the code says: run protocol_document docs/protocol.md\n", stderr);
        return 1;
    }
    if (!check)
        std::ofstream(path, std::ios::binary) << updated;
    return 0;
}
