// The set-up of the tank gauge: six senders to choose from, their two end voltages, and the four
// thresholds between the five lamps of the car's changeover switch. Each change is written at once.
#pragma once

namespace zol::monitor {

// The sender's voltage at this percentage of its travel, in mV, rounded with ties to even. Reads
// the two entry fields as they stand at that moment, and falls with a sender that runs downward.
// 0 for a voltage that no 16-bit number holds.
int percent_to_mv(double percent);

void connect_tank_level();

} // namespace zol::monitor
