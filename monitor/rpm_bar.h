// The bar of coloured lamps that shows engine speed, as Label_rpm holds it.
#pragma once

#include "view/widget.h"

namespace zol::monitor {

// Lights the lamps from 0 to `count`, that one included, in three zones: green lamps up to 27 at
// the most, yellow ones to 37, red ones beyond. The colour says which zones are lit: green alone,
// yellow with green, or red with both; any other colour lights none. Lamps that do not exist are
// passed over.
void colora_led(int count, view::Colour colour);

// Lights the lamps of the speed, none at 0 rpm or below, and turns the others off: they take the
// window's ground. Each lamp is set once, so that only those that change are painted anew.
void show_rpm(double rpm);

void connect_rpm_bar();

} // namespace zol::monitor
