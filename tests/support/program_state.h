// The program as it is before its start.
#pragma once

namespace zol::tests {

// Every variable of the program at its start value, every window and widget as designed, nothing
// posted, every timer off. What a fixture chooses is gone as well: application folder, platform,
// screen and port. So a fixture begins with this, and then connects the handlers again. No program
// may be running. scripts/architecture_rules.py sees to it that no variable is left out.
void reset_program_state();
// The same, but the widgets stay as they are.
void reset_all_but_widgets();

} // namespace zol::tests
