#pragma once

#include <cstdint>

namespace voltaro {

// Makes one call of a platform function fail, in this thread alone. A function is a place that holds its address: an
// entry of this program's import table, or of a COM object's table of methods.
using FunctionPlace = void**;

// The import table's entry for a function of that name; null when the program does not import it.
[[nodiscard]] FunctionPlace ImportOf(const char* function);

// While it lives, the n-th call through the place (from 1; 0: none) returns `result` and sets the last error in the
// place of the call. One at a time.
class FailingCall {
public:
    FailingCall(FunctionPlace place, int n, std::intptr_t result, std::uint32_t error);
    ~FailingCall();
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;
    [[nodiscard]] static int Calls(); // so far

private:
    FunctionPlace m_place;
};

} // namespace voltaro
