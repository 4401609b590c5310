// The settings of the lambda panel: kind and direction of the sensor, lambda control, and the two
// limits. Each write stops the panel's live read (Timer3) while it runs, because both use the same
// line.
#pragma once

namespace zol::calibration {

void connect_lambda_panel();

} // namespace zol::calibration
