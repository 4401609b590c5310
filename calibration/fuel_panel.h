// The settings panel's decisions of a conversion: fuel, pressure sensor, temperature and time of
// the changeover, modular changeover.
#pragma once

namespace zol::calibration {

void connect_fuel_panel();

} // namespace zol::calibration
