#pragma once

#include "link/replies.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace voltaro {

enum class DetailSection : std::uint8_t {
    Processor,
    OperatingSystem,
    PowerCapabilities,
    Network,
    PhysicalDisks,
    LogicalDisks
};
inline constexpr std::size_t kDetailSections = 6;

// The machine as the agent describes it: pairs of the element's name and its text, six sections. In the grouped
// sections (adapters, disks) a row of single blanks follows each group.
class SystemDetails {
public:
    SystemDetails();

    // Reads a whole answer; null stands for an answer that is not well-formed. All slots are cleared first; the row
    // count of a section changes only when the section is reached, so after a failed read the old counts stand over
    // empty rows: the lists keep their length, and the user's place in them, until the next read.
    void Read(const Element* root);

    [[nodiscard]] std::size_t RowCount(DetailSection section) const { return At(section).count; }
    // Rows beyond the section's slots were dropped; `row` is below RowCount.
    [[nodiscard]] const NamedValue& Row(DetailSection section, std::size_t row) const { return At(section).slots[row]; }
    // The fifth value of the processor section: the machine's state, "On" when it is up.
    [[nodiscard]] std::wstring_view StateText() const { return m_stateText; }

private:
    struct Section {
        std::vector<NamedValue> slots; // as many as the section may have rows
        std::size_t count = 0;
    };
    [[nodiscard]] const Section& At(DetailSection section) const
    {
        return m_sections[static_cast<std::size_t>(section)];
    }

    std::array<Section, kDetailSections> m_sections;
    FixedText<257> m_stateText;
};

} // namespace voltaro
