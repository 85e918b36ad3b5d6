#pragma once

#include "base/fixed_text.h"
#include "link/element.h"

namespace voltaro {

using HostConfigText = FixedText<10>;

// The texts of a host configuration, chosen by position, never by name: the agent's port and a second one. What is not
// there leaves its text as it was.
void ChooseHostTexts(const Element& root, HostConfigText& port, HostConfigText& second);

} // namespace voltaro
