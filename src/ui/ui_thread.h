#pragma once

namespace voltaro {

// The one thread that owns all windows. Named once, first thing at start-up.
void AdoptUiThread();
[[nodiscard]] bool OnUiThread();

// From then on every wait of the user-interface thread ends at once and fails: the session, or the program, is ending.
void EndWaits();
[[nodiscard]] bool WaitsEnded();
// For tests, which open and close the program's windows several times in one process.
void AllowWaits();

} // namespace voltaro
