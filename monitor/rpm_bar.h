// The bar of coloured lamps that shows the engine speed of Label_rpm.
#pragma once

#include "view/widget.h"

namespace zol::monitor {

// Lights the lamps from 0 to `count`, inclusive: green up to lamp 27, yellow up to 37, red beyond.
// The colour chooses the zones: green lights green only, yellow lights green and yellow, red lights
// all three; any other colour lights none. Indices without a lamp are skipped.
void colora_led(int count, view::Colour colour);

// Shows the speed in rpm: lights its lamps, none at 0 or below, and gives the others the window's
// background. Each lamp is set once, so only lamps that change are painted again.
void show_rpm(double rpm);

void connect_rpm_bar();

} // namespace zol::monitor
