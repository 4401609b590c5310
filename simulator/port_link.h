// The symbolic link under which a tool finds the unit's pseudo-terminal.
//
// A link that cannot be a simulated unit's own, such as one to a real adapter, is never changed.
#pragma once

#include <string>

namespace sim {

// Makes `path` a symbolic link to the pseudo-terminal `target`. Replaces the link of a unit that
// was killed: its pseudo-terminal is gone, or a terminal window has got its number since. Anything
// else stays. Returns an empty text, or a sentence with the reason and what to do.
std::string make_link(const std::string& path, const std::string& target);
// Removes the link if it still points to `target`.
void remove_link(const std::string& path, const std::string& target);

} // namespace sim
