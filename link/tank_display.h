// Shows the tank parameters from the mirrors. monitor/tank_level.h changes them.
#pragma once

namespace zol::link {

// Shows the voltages of the empty and the full tank in their fields and at the ends of the
// millivolt scale.
void show_tank_ends();

// Shows the thresholds on sliders and labels after the unit was read. `second_below` sets the
// second slider one below its threshold, as the activation path does; the dialog path sets it to
// the threshold.
void show_tank_thresholds(bool second_below);

// Selects the preset of a sender type in the list. 99 ticks the box of free values, whose handler
// writes the type to the unit.
void show_tank_type(double type);

} // namespace zol::link
