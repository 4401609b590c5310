// The diagnosis panel: it reads the faults that the unit has collected from the car, explains their
// codes and clears them.
#pragma once

#include <string>

namespace zol::diagnostics {

// The text for a stored fault: "NO ERROR" for 0; else "P" and the number, with zeros added up to
// four digits. Empty for 1000 to 2000.
std::string fault_code_text(int fault);

void connect_eobd_panel();

} // namespace zol::diagnostics
