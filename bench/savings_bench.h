#pragma once

namespace voltaro::bench {

// Reading and walking a day of the most lines an answer may have, and repainting the graph. Makes the program's
// windows.
void MeasureEvents();
void MeasureGraph();

} // namespace voltaro::bench
