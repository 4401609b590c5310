// The way back once line and car are good again: what an operator who knows the tool does, and how
// it ends. The rules leave some ways to no return without a new start; that is said, not mended.
#pragma once

#include "tests/soak/desk.h"

#include <string>

namespace zol::soak {

// How it ended, in a few words that runs can be counted by. A way back that the rules promise and
// that fails is a finding of the desk's log.
std::string recover(Desk& desk);

} // namespace zol::soak
