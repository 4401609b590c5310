// The diagnosis panel: the faults that the unit has collected from the car, what their codes mean,
// and the clearing of the store.
#pragma once

#include <string>

namespace zol::diagnostics {

// What the panel shows for a stored fault: "NO ERROR" for 0, else "P" and the number, filled to
// four digits below 1000. Nothing for 1000 to 2000.
std::string fault_code_text(int fault);

void connect_eobd_panel();

} // namespace zol::diagnostics
