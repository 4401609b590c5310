// The factory reset: the unit's own reset command, and the tool's default calibration on top of it,
// one parameter at a time. It takes 22 seconds with a unit whose first answer is taken, 3 more when
// a telegram of the polling stands before it, and goes on asking a unit that does not answer.
#pragma once

namespace zol::maintenance {

// The whole sequence, from the question to the final box. Leaves the polling stopped.
void reset_control_unit();

// The unit's own reset alone, with nothing read and no defaults written. Leaves the polling
// stopped.
void send_reset_only();

void connect_factory_reset();

} // namespace zol::maintenance
