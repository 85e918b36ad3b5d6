#pragma once

#include "link/element.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace voltaro::simulator {

// Ways in which the agent misbehaves; FaultInfos tells what each does.
enum class FaultKind {
    None,
    Refuse,
    CloseAtOnce,
    CloseMidFrame,
    ResetMidFrame,
    Silent,
    Late,
    Slow,
    Pieces,
    ByteByByte,
    WrongLength,
    Length,
    NoNul,
    Http,
    InnerNul,
    Text,
    Prefix,
    Garbage,
    NotWellFormed,
    Entities,
    External,
    References,
    Insert,
    Deep,
    Wide,
    Root,
    LongTexts,
    ManyElements,
    Fill,
    FewElements,
    Texts,
    ForeignTexts,
    Status,
};

struct Fault {
    FaultKind kind = FaultKind::None;
    std::wstring argument; // empty: the kind's default
};

// "slow:50" as a fault; nothing for an unknown kind.
[[nodiscard]] std::optional<Fault> ParseFault(std::wstring_view text);
// A kind's name, as ParseFault knows it, and what it does, the meaning of its argument and the default included.
struct FaultInfo {
    const wchar_t *name, *what;
};
// In the order of FaultKind.
[[nodiscard]] std::span<const FaultInfo> FaultInfos();

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
