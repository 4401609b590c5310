// What an experienced operator does once line and car are good again. Some states need a new start
// of the program by its rules; these count as results, not as findings.
#pragma once

#include "tests/soak/session.h"

#include <string>

namespace zol::soak {

// The result in a few words. A recovery that fails although the rules promise it is a finding.
std::string recover(Session& session);

} // namespace zol::soak
