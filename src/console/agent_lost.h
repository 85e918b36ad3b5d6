#pragma once

namespace voltaro {

// Called by every reader that finds the agent gone: the console becomes disconnected, the main window shows it, and the
// user is told once. While already disconnected, or from a second thread at the same time, it does nothing. Only
// reinitialising leads back.
void OnAgentLost();

} // namespace voltaro
