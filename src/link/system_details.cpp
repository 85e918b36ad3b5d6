#include "link/system_details.h"

#include <algorithm>

namespace voltaro {
namespace {

// One section: its element, the element of one group (null: each child is one field), its slots.
struct SectionRow {
    const wchar_t* element;
    const wchar_t* group;
    std::size_t slots;
};

constexpr SectionRow kSections[kDetailSections] = {
    {L"CPUInfo", nullptr, 20},
    {L"OSInfo", nullptr, 20},
    {L"PowerCapabilities", nullptr, 20},
    {L"NetworkInfo", L"Adapter", 100},
    {L"PhysicalDiskInfo", L"PhysicalDisk", 100},
    {L"LogicalDiskInfo", L"LogicalDisk", 500},
};

constexpr std::size_t kStateRow = 4;

// Writes rows into a section's slots and drops what no slot is left for.
class RowWriter {
public:
    explicit RowWriter(std::vector<NamedValue>& slots)
        : m_slots(slots)
    {
    }
    void Add(std::wstring_view name, std::wstring_view value)
    {
        if (m_next < m_slots.size())
            m_slots[m_next++] = {name, value};
    }
    void AddAll(const std::vector<Element>& fields)
    {
        for (const Element& field : fields)
            Add(field.name, field.text);
    }
    [[nodiscard]] std::size_t Count() const { return m_next; }

private:
    std::vector<NamedValue>& m_slots;
    std::size_t m_next = 0;
};

// As many groups as the section has children; group d is the d-th child of the group's name, so a child of another name
// leaves its group empty, with the separator alone.
void WriteGroups(RowWriter& rows, const Element& section, std::wstring_view groupName)
{
    auto next = section.children.begin();
    for (std::size_t group = 0; group < section.children.size(); ++group) {
        next
            = std::find_if(next, section.children.end(), [&](const Element& child) { return child.name == groupName; });
        if (next != section.children.end())
            rows.AddAll((next++)->children);
        rows.Add(L" ", L" ");
    }
}

} // namespace

SystemDetails::SystemDetails()
{
    for (std::size_t i = 0; i < kDetailSections; ++i)
        m_sections[i].slots.resize(kSections[i].slots);
}

void SystemDetails::Read(const Element* root)
{
    for (Section& section : m_sections) // nothing was ever written beyond the counts
        std::fill_n(section.slots.begin(), section.count, NamedValue{});
    m_stateText.Clear();
    if (!root)
        return;
    for (std::size_t i = 0; i < kDetailSections; ++i) {
        RowWriter rows(m_sections[i].slots);
        if (const Element* section = FirstElement(*root, kSections[i].element)) {
            if (kSections[i].group)
                WriteGroups(rows, *section, kSections[i].group);
            else
                rows.AddAll(section->children);
        }
        m_sections[i].count = rows.Count();
    }
    m_stateText = Row(DetailSection::Processor, kStateRow).value.view();
}

} // namespace voltaro
