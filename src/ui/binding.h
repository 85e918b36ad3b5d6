#pragma once

#include "base/choices.h"
#include "base/field_text.h"
#include "base/windows_api.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace voltaro {

// How a control stands for a text of a record.
enum class Shown : std::uint8_t {
    Text,         // an edit
    Address,      // an IP address control; blank for a text that is no address, "0.0.0.0" when the user blanks it
    Step,         // a slider: the choice at its position
    List,         // a combo box of choices; a number that none has shows as the next longer one
    Name,         // a combo box of names; nothing is selected for one that it does not hold
    OptionalName, // the same, its first entry standing for an empty text
    YesNo,        // a check box, or a radio that stands for "Yes"; anything else shows as clear
    Feature,      // a check box for "YES", grey for "NA"
    Status,       // a check box for "Enabled", spelt exactly so
    Activity,     // a check box for "Yes", spelt exactly so
};

// One row of a window's table: a control and the text of the record that it shows.
template <class Record>
struct Binding {
    int id;
    Shown shown;
    FieldText Record::*slot;
    Choices choices = {}; // of a slider or list: all of them, even where the list holds a part
};

// One control. What it holds is given as the text of its field; nothing where it holds none: a list without a
// selection, a grey feature, an address of less than four numbers.
void ShowField(HWND window, int id, Shown shown, Choices choices, std::wstring_view stored);
[[nodiscard]] std::optional<FieldText> EnteredText(HWND window, int id, Shown shown, Choices choices);

// What the controls of a table hold, in the table's order.
using ShownTexts = std::vector<std::optional<FieldText>>;
template <class Table>
[[nodiscard]] ShownTexts EnteredTexts(HWND window, const Table& table)
{
    ShownTexts texts;
    for (const auto& row : table)
        texts.push_back(EnteredText(window, row.id, row.shown, row.choices));
    return texts;
}

template <class Table, class Record>
void ShowFields(HWND window, const Table& table, const Record& record)
{
    for (const auto& row : table)
        ShowField(window, row.id, row.shown, row.choices, record.*row.slot);
}

// The record with what the user changed. A text goes back as it was read, be it one that its control cannot show, until
// the control holds something else than in `shown`, which was taken when the record was shown. Without it all are
// taken.
template <class Table, class Record>
[[nodiscard]] Record WithEntered(HWND window, const Table& table, Record record, const ShownTexts& shown)
{
    const ShownTexts entered = EnteredTexts(window, table);
    for (std::size_t i = 0; i < entered.size(); ++i) {
        const std::optional<FieldText>& text = entered[i];
        if (text && (shown.empty() || text != shown[i]))
            record.*table[i].slot = *text;
    }
    return record;
}

} // namespace voltaro
