#pragma once

#include "link/records.h"
#include "savings/report.h"
#include "savings/savings_figures.h"

namespace voltaro {

// The record, with the default monitor where it names none, as that of a fresh machine.
[[nodiscard]] PowerConsumptionData WithMonitor(PowerConsumptionData record);

// What the figures are computed with.
[[nodiscard]] PowerProfile ProfileOf(const PowerConsumptionData& record);

// The list of the saved profile.
[[nodiscard]] ReportRows ProfileRows(const PowerConsumptionData& record);

// The record to send for what the fields hold: `record` is what was read, and WithMonitor of it filled them. While the
// kind of monitor stays the same its type goes as it was read, and so does all of a monitor without type and size.
// Powers that the user typed get two decimals; texts that were read or stand in the monitor table go as they are. The
// flag says "Yes" when the figures are the user's: after a manual entry, or when anything differs from what was read.
[[nodiscard]] PowerConsumptionData RecordToSend(
    const PowerConsumptionData& record, PowerConsumptionData entered, bool manualEntry);

} // namespace voltaro
