// The lambda signal: its number, and a scrolling bar chart around a centre line. Two panels draw
// on the one chart; the sweep goes on where the other left it.
#pragma once

#include "link/ecu_frames.h"

namespace zol::monitor {

// One bar of `state.lambda_sample` around 400, unless the sensor is silent (20 or less).
void trace_on_engine_panel();

// Takes the sample of a telegram, unless it leaps to more than five times the one before, and draws
// it around the closed-loop value, scaled by Label35.
void trace_on_lambda_panel(const link::Reply& telegram);

// The scale buttons, 0 to 4.
void connect_lambda_trace();

} // namespace zol::monitor
