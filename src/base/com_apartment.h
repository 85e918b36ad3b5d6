#pragma once

namespace voltaro {

// Enters COM's single-threaded apartment at the first call on a thread, for the thread's life, so that COM's libraries
// stay loaded for the calls that follow. False where COM refuses it.
bool EnterComApartment();

} // namespace voltaro
