#pragma once

#include "link/operations.h"
#include "link/outcome.h"
#include "link/replies.h"
#include "link/requests.h"

#include <optional>
#include <string>

namespace voltaro {

// The agent is on this machine, always.
inline constexpr const wchar_t* kAgentHost = L"127.0.0.1";

// The answer to one request. While it lives it holds its operation: another thread that sends the same operation waits
// until it is gone, so that no two share the operation's buffers. Move-only.
class Reply {
public:
    Reply(Reply&& other) noexcept;
    Reply& operator=(Reply&&) = delete;
    Reply(const Reply&) = delete;
    ~Reply();

    // What became of the exchange; Answered and Lost are asked of it, and are both false when nothing was sent.
    [[nodiscard]] Outcome Result() const { return m_outcome; }
    [[nodiscard]] bool Answered() const;
    [[nodiscard]] bool Lost() const { return !Answered() && IsLost(m_outcome); }
    [[nodiscard]] Operation Asked() const { return m_operation; }
    // The answer as a tree, parsed at the first call; null when it is not well-formed or did not come.
    [[nodiscard]] const Element* Root();
    // The first child's text of the first `response`; empty when there is none.
    [[nodiscard]] std::wstring Status();
    // The record of the first `details`; nothing when the answer has none.
    template <class Record>
    [[nodiscard]] std::optional<Record> Read()
    {
        return Root() ? ReadRecord<Record>(*Root()) : std::nullopt;
    }
    // Releases the operation before the reply's own end; Text() is no more to be asked for.
    void Release();
    // The answer's own text.
    [[nodiscard]] const std::wstring& Text() const;

private:
    friend Reply Exchange(const Request& request);
    friend Reply ExchangePrepared(Operation operation);
    explicit Reply(Operation operation);
    void Send();

    Operation m_operation;
    Outcome m_outcome;
    bool m_held;
    bool m_parsed = false;
    std::optional<Element> m_root;
};

// Builds the request's document into the operation's buffer, sends it and keeps the answer. A request that cannot be
// built, and an operation entered again by the thread that holds it, are NotSent.
[[nodiscard]] Reply Exchange(const Request& request);

// Builds a request once for later use; ExchangePrepared sends it as it stands, identifier included.
bool PrepareRequest(const Request& request);
[[nodiscard]] Reply ExchangePrepared(Operation operation);

// True while some thread holds the operation.
[[nodiscard]] bool IsHeld(Operation operation);

} // namespace voltaro
