// The gas calibration on the engine panel: gains at low and high load, attenuation, rpm
// multiplier; and the temperature correction of the settings panel.
//
// Each control writes its parameter the moment its value changes.
#pragma once

namespace zol::calibration {

// The scroll handlers of the two gain sliders: the tip shows the gain above 1.001, in thousandths,
// and the main window takes the focus.
void refresh_ktar_tip();
void refresh_power_tip();

void connect_engine_panel();

} // namespace zol::calibration
