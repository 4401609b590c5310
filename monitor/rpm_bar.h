// The bar of coloured lamps that shows the engine speed of Label_rpm.
#pragma once

#include "view/widget.h"

namespace zol::monitor {

// Lights the lamps from 0 to `count`, inclusive. `colour` is that of the last lamp: with green, all
// are green; with yellow, those up to 27 are green and the rest yellow; with red, those up to 27
// are green, those up to 37 yellow and the rest red. Any other colour lights none. The other lamps
// keep their colour, and indices without a lamp are skipped.
void colora_led(int count, view::Colour colour);

// Shows the speed in rpm: lights its lamps, none at 0 or below, and gives the others the window's
// background. Each lamp is set once, so only lamps that change are painted again.
void show_rpm(double rpm);

void connect_rpm_bar();

} // namespace zol::monitor
