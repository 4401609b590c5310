// The gas calibration on the engine panel: gains at low and high load, attenuation and rpm
// multiplier; also the temperature correction on the settings panel. Each control writes its
// parameter as soon as its value changes.
#pragma once

namespace zol::calibration {

// The scroll handlers of the two gain sliders: they set the slider's tip to its value minus 1001
// and give the main window the focus.
void refresh_ktar_tip();
void refresh_power_tip();

void connect_engine_panel();

} // namespace zol::calibration
