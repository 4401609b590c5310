// The lambda signal: its value, and a bar chart around a centre line. The engine panel and the
// lambda panel draw on the same chart, and each continues where the other stopped.
#pragma once

#include "link/ecu_frames.h"

namespace zol::monitor {

// Shows `state.lambda_sample` and draws it as one bar around a centre of 400 mV. Draws nothing if
// the sensor is silent (20 mV or less).
void trace_on_engine_panel();

// Takes the sample from the telegram, shows it and draws it around the closed-loop limit, its
// height multiplied by the factor in Label35. If the sample before it was more than five times the
// last one drawn, the last one drawn is used instead of the telegram's. A silent sensor is shown as
// 0 and not drawn.
void trace_on_lambda_panel(const link::Reply& telegram);

// Connects the buttons that change the factor, 0 to 4.
void connect_lambda_trace();

} // namespace zol::monitor
