// The lambda signal: its number, and a scrolling bar chart around a centre line. Two panels draw
// on the one chart; the sweep goes on where the other left it.
#pragma once

#include "link/ecu_frames.h"

namespace zol::monitor {

// One bar of `state.lambda_sample` around 400, unless the sensor is silent (20 or less).
void trace_on_engine_panel();

// Draws the sample around the closed-loop value, scaled by Label35. The sample is the telegram's,
// unless the one in hand is above five times the last one drawn: then that one is drawn again.
void trace_on_lambda_panel(const link::Reply& telegram);

// The scale buttons, 0 to 4.
void connect_lambda_trace();

} // namespace zol::monitor
