#pragma once

#include "base/handles.h"
#include "simulator/faults.h"
#include "simulator/machine.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace voltaro::simulator {

// One request as it came over the wire.
struct ReceivedRequest {
    std::wstring operation; // empty when the text could not be read
    std::wstring header;    // the eight length digits
    std::wstring text;      // the document, without the digits and the NUL
};

// The agent on a socket of 127.0.0.1: a thread that accepts and as many workers as there are connections, so that a
// hung connection holds up nobody. Start and Stop belong to the owner's thread; every other member may be called from
// any thread.
class AgentServer {
public:
    // Gets one line without a line end for everything that happens; called from several threads but never from two
    // at once; must not call the server.
    using LogSink = std::function<void(std::wstring_view line)>;

    explicit AgentServer(const Scenario& scenario = DefaultScenario(), LogSink log = {});
    AgentServer(const AgentServer&) = delete;
    AgentServer& operator=(const AgentServer&) = delete;
    ~AgentServer();

    // Listens on the port, or on a free one for 0. False when the port is taken. May be started again after Stop.
    [[nodiscard]] bool Start(int port = 0);
    // The port listened on; the last one after Stop.
    [[nodiscard]] int Port() const { return m_port; }
    // Ends all connections, hung ones too, and returns when their threads are gone (tens of milliseconds).
    void Stop();

    // The operation misbehaves until its fault is cleared. "*" is every operation without a fault of its own;
    // FaultKind::None clears.
    void SetFault(std::wstring_view operation, Fault fault);
    void ClearFaults();

    // From now on the operation is answered with this text, whatever it is, and the machine does not see the request.
    void ScriptReply(std::wstring_view operation, std::wstring_view text);
    void ClearScripts();

    // The requests received so far, oldest first.
    [[nodiscard]] std::vector<ReceivedRequest> Requests() const;
    // Whether a request for that operation is among them, for any with "*".
    [[nodiscard]] bool HasReceived(std::wstring_view operation) const;
    void ClearRequests();
    // The operations of those requests, in order; forgets the requests.
    [[nodiscard]] std::vector<std::wstring> TakeOperations();
    // The text of the last request for that operation, empty when there was none.
    [[nodiscard]] std::wstring LastRequest(std::wstring_view operation) const;

    // Calls `use(machine)` while no request is being answered, and returns what it returns.
    template <class Use>
    auto WithMachine(Use use)
    {
        const std::lock_guard lock(m_mutex);
        return use(m_machine);
    }

private:
    [[nodiscard]] bool RefusesAll() const;
    void AwaitListener(std::unique_lock<std::mutex>& lock);
    [[nodiscard]] SOCKET FollowRefusal();
    void AcceptLoop();
    void HandToWorker(UniqueSocket socket);
    void Work();
    void Serve(SOCKET socket);
    [[nodiscard]] bool Receive(SOCKET socket, std::size_t count, std::string& bytes);
    [[nodiscard]] Delivery AnswerFrame(const std::string& bytes, std::size_t length);
    void Send(SOCKET socket, const Delivery& delivery);
    void AwaitClose(SOCKET socket, int milliseconds);
    [[nodiscard]] bool Wait(int milliseconds) const;
    void Log(std::wstring_view operation, std::wstring_view what, const Fault& fault);

    mutable std::mutex m_mutex; // guards everything but the atomics
    Machine m_machine;
    LogSink m_log;
    std::map<std::wstring, Fault, std::less<>> m_faults;
    std::map<std::wstring, std::wstring, std::less<>> m_scripts;
    std::vector<ReceivedRequest> m_requests;
    UniqueSocket m_listener;
    std::condition_variable m_followed; // the listener is as the faults want it
    std::deque<UniqueSocket> m_waiting; // connections that no worker has taken yet
    std::condition_variable m_work;     // one has come
    std::vector<std::thread> m_workers;
    std::size_t m_idle = 0; // workers without a connection
    std::atomic<int> m_port = 0;
    std::atomic<bool> m_stopping = true;
    std::thread m_accepting; // Start's and Stop's own
    bool m_winsock = false;
};

} // namespace voltaro::simulator
