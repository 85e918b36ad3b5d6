#include "power/scheme_reading.h"

#include "console/agent_lost.h"
#include "console/state.h"

namespace voltaro {
namespace {

unsigned readsSeen = 0; // reads of the current settings when the last one was asked for

} // namespace

bool ReadInOrder(std::span<const Reader> readers)
{
    AnnounceCurrentRead();
    for (const Reader read : readers) {
        if (!read()) {
            OnAgentLost();
            return false;
        }
    }
    return true;
}

void AnnounceCurrentRead()
{
    readsSeen = state.currentSchemeReads;
}

bool CurrentWasRead()
{
    return readsSeen != state.currentSchemeReads;
}

} // namespace voltaro
