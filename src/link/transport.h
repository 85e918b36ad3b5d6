#pragma once

#include "link/members.h"
#include "link/outcome.h"

#include <string>

namespace voltaro {

// One exchange with the agent on this machine: one request text out, one answer text in, over a connection of its own.
// Waits by the calling thread's own wait (base/waiting.h) until the answer is there or the connection fails, or until
// the connection or the answer's first data took longer than the member's time-out; later data may take as long as it
// likes. `response` gets the answer's text, and stays empty unless it came whole.
[[nodiscard]] Outcome ServiceRequest(Member member, const wchar_t* request, std::wstring& response, int port);

} // namespace voltaro
