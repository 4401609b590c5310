// The settings panel without the tank gauge: fuel, pressure sensor, temperature and time of the
// changeover, and modular changeover.
#pragma once

namespace zol::calibration {

void connect_fuel_panel();

} // namespace zol::calibration
