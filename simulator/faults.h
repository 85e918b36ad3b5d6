#pragma once

#include "link/element.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace voltaro::simulator {

// Ways in which the agent misbehaves. What the argument means, and its default, stands beside each.
enum class FaultKind {
    None,
    Refuse,        // for "*": nobody listens; for one operation: the connection is reset once the request is read
    CloseAtOnce,   // the connection is closed without an answer
    CloseMidFrame, // closed after part of the frame; argument: bytes sent, by default half of them
    Silent,        // the connection stays open and nothing comes
    Late,          // nothing for a while, then the whole answer; argument: milliseconds, 2000
    Slow,          // eight pieces; argument: milliseconds between them, 200
    ByteByByte,    // one byte at a time; argument: milliseconds between them, 0
    WrongLength,   // the length lies; argument: bytes added to the true one, 64; negative for too short
    HugeLength,    // the length is 99999999
    NoNul,         // the closing NUL is missing, and the length counts without it
    Garbage,       // well framed units that are no document; argument: how many, 100
    NotWellFormed, // the document breaks off before its last tags
    LongTexts,     // every text grows; argument: its units, 20000
    ManyElements,  // every list of elements grows by copies of its last one; argument: how many in all, 600
    Doctype,       // the document declares entities that unfold into each other, and uses one
    Status,        // the answer is this status instead; argument: the word, "Failure"
};

struct Fault {
    FaultKind kind = FaultKind::None;
    std::wstring argument; // empty: the kind's default
};

// "slow:50" as a fault; nothing for an unknown kind.
[[nodiscard]] std::optional<Fault> ParseFault(std::wstring_view text);
// The names that ParseFault knows, in the order of FaultKind.
[[nodiscard]] std::span<const wchar_t* const> FaultNames();

// How the bytes of an answer leave.
enum class Ending {
    Orderly, // wait for the peer to close, then close
    Close,
    Reset,
    Hang, // keep the connection open until the peer goes
};
struct Delivery {
    std::string bytes;
    std::size_t pieceSize = 0; // 0: all at once
    int delayMs = 0;           // before the first piece
    int pauseMs = 0;           // between pieces
    Ending ending = Ending::Orderly;
};

// The answer with the fault worked into it: into `response`, into its text, or into the frame. A scripted text takes
// the place of `response`.
[[nodiscard]] Delivery Deliver(const Element& response, const std::wstring* scriptedText, const Fault& fault);

} // namespace voltaro::simulator
