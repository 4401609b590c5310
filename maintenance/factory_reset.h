// The factory reset: the unit's own reset command, and the tool's default calibration on top of it,
// one parameter at a time. It takes about 22 seconds with a unit that answers, and goes on asking
// one that does not.
#pragma once

namespace zol::maintenance {

// The whole sequence, from the question to the final box. Leaves the polling stopped.
void reset_control_unit();

// The unit's own reset alone, with nothing read and no defaults written. Leaves the polling
// stopped.
void send_reset_only();

void connect_factory_reset();

} // namespace zol::maintenance
