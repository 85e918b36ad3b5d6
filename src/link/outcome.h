#pragma once

#include <cstdint>

namespace voltaro {

// What became of an exchange with the agent.
enum class Outcome : std::uint8_t {
    Answered,       // a whole answer came, whatever it says
    NotSent,        // the request could not be made, or this thread is in the middle of the same operation
    CannotStart,    // the socket library
    CannotConnect,  // refused, or not made in time
    CannotComplete, // the sending failed, or the connection broke
    ClosedByAgent,  // before the last piece of the answer
    Damaged,        // the answer's length is wrong or above its member's capacity
    TimedOut,       // no data came in the member's time
    Exception,      // one escaped the exchange
    Ending,         // the program, or the thread, is to end
};

// Whether the outcome means that the agent is gone; then, and only then, the console disconnects.
[[nodiscard]] constexpr bool IsLost(Outcome outcome)
{
    return outcome != Outcome::Answered && outcome != Outcome::NotSent && outcome != Outcome::Ending;
}

} // namespace voltaro
