// What the tank panel shows of the mirrors; setting the tank up is monitor/tank_level's.
#pragma once

namespace zol::link {

// The two end voltages in their fields and at the ends of the millivolt scale.
void show_tank_ends();

// The thresholds on sliders and labels after the unit was read. The second slider stands one below
// its threshold after the first activation and on it after the connection dialog: `second_below`.
void show_tank_thresholds(bool second_below);

// A sender's type: its preset in the list, or, for 99, the box of free values ticked, whose handler
// then writes the type.
void show_tank_type(double type);

} // namespace zol::link
