// The set-up of the tank gauge: six sender presets, the voltages of the empty and the full tank,
// and the four thresholds between the five lamps of the car's changeover switch. Each change is
// written to the unit at once.
#pragma once

namespace zol::monitor {

// The sender's voltage at this percentage of its range, in mV, rounded with ties to even. Uses the
// present text of the two entry fields. 0 if the result is outside the 16-bit range.
int percent_to_mv(double percent);

void connect_tank_level();

} // namespace zol::monitor
