// The lambda panel's settings: kind and direction of the sensor, lambda control, and the two
// limits. Its live read shares the line, so each write holds it off.
#pragma once

namespace zol::calibration {

void connect_lambda_panel();

} // namespace zol::calibration
