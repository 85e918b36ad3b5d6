#pragma once

#include "base/field_text.h"
#include "link/members.h"

namespace voltaro {

// One exchange with the agent: one request text out, one answer text in, over a connection of its own. Blocks its
// caller until the answer is there or the connection fails, or until the connection or the answer's first data took
// longer than the member's time-out; later data may take as long as it likes. On the user-interface thread painting and
// sent messages are served meanwhile. `host` is an 8-bit dotted address. True when a whole answer was received into
// `response`.
[[nodiscard]] bool ServiceRequest(
    Member member, const wchar_t* request, FieldText& response, const char* host, int port);

} // namespace voltaro
