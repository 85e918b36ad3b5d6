#pragma once

#include "link/replies.h"
#include "link/requests.h"

#include <optional>
#include <string>

namespace voltaro {

// The agent's address; both forms hold "127.0.0.1".
struct AgentAddress {
    FixedText<50> wideHost{L"127.0.0.1"};
    char host[32] = "127.0.0.1";
};
inline AgentAddress agentAddress;

// The answer to one request. While it lives it holds its operation: another thread that sends the same operation waits
// until it is gone, so that no two share the operation's buffers. Move-only.
class Reply {
public:
    Reply(Reply&& other) noexcept;
    Reply& operator=(Reply&&) = delete;
    Reply(const Reply&) = delete;
    ~Reply();

    // True when a whole answer came, whatever it says.
    [[nodiscard]] bool Answered() const { return m_answered; }
    // False when the request could not be made, or its operation not be held: that says nothing about the agent.
    [[nodiscard]] bool Sent() const { return m_sent; }
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
    // Lets the operation go before the reply's own end; Text() is no more to be asked for.
    void LetGo();
    // The answer's own text.
    [[nodiscard]] const FieldText& Text() const;

private:
    friend Reply Exchange(const Request& request);
    friend Reply ExchangePrepared(Operation operation);
    explicit Reply(Operation operation);
    void Send();

    Operation m_operation;
    bool m_held;
    bool m_sent = false;
    bool m_answered = false;
    bool m_parsed = false;
    std::optional<Element> m_root;
};

// Builds the request's document into the operation's buffer, sends it and keeps the answer. A request that cannot be
// built, or an operation entered again by the thread that holds it, counts as not answered.
[[nodiscard]] Reply Exchange(const Request& request);

// Builds a request once for later use; ExchangePrepared sends it as it stands, identifier included.
bool PrepareRequest(const Request& request);
[[nodiscard]] Reply ExchangePrepared(Operation operation);

// True while some thread holds the operation.
[[nodiscard]] bool IsHeld(Operation operation);

} // namespace voltaro
