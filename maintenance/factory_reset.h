// The factory reset: sends the unit's reset command and then writes the default calibration, one
// parameter at a time. It takes 22 seconds if the first reply is accepted, and 3 seconds more if a
// telegram of the polling arrives before that reply. Without a reply it repeats the command without
// limit.
#pragma once

namespace zol::maintenance {

// Runs the whole reset, from the question to the final box. Does not restart polling.
void reset_control_unit();

// Sends only the unit's reset command; reads no reply and writes no defaults. Does not restart
// polling. No control calls it.
void send_reset_only();

void connect_factory_reset();

} // namespace zol::maintenance
