#include "base/com_apartment.h"

#include "base/windows_api.h"

namespace voltaro {

bool EnterComApartment()
{
    // Never left: that is not allowed while a thread's storage is torn down.
    thread_local const bool entered = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    return entered;
}

} // namespace voltaro
