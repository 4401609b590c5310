// The symbolic link under which a tool finds the unit's pseudo-terminal.
//
// A link at that path that no unit can have made, such as one to a real adapter, is never changed.
#pragma once

#include <string>

namespace sim {

// Makes `path` a symbolic link to the pseudo-terminal `target`. A link left behind by a unit that
// was killed is replaced: it leads to a pseudo-terminal that is gone, or whose number a terminal
// window has been given since. Anything else stays as it is. An empty text, or a sentence that says
// why not and what to do.
std::string make_link(const std::string& path, const std::string& target);
// Removes the link if it still leads to `target`.
void remove_link(const std::string& path, const std::string& target);

} // namespace sim
