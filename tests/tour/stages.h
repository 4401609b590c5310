// What the tour walks through, in the order of a fitter's first day with the tool.
#pragma once

#include "tests/tour/hands.h"
#include "tests/tour/unit_process.h"

namespace zol::tour {

void run_stages(Hands& hands, UnitProcess& unit);

// A silent unit at the start, the failed test, the good one, and the polling back by the watchdog.
void connect_by_dialog(Hands& hands, UnitProcess& unit);
// Live values while the engine idles, revs and runs on gas.
void watch_the_engine(Hands& hands, UnitProcess& unit);
// Every panel, every language, the two boxes of the menus.
void look_around(Hands& hands);
void look_at_languages(Hands& hands);

} // namespace zol::tour
