// The acquisition window: it shows the petrol injection time while the fitter revs the engine,
// keeps the maximum, and on saving computes the three injection-time points of the calibration.
// While it is open the main window is disabled and polling is off.
#pragma once

namespace zol::diagnostics {

struct AcquisitionState {
    bool acquiring = false;     // the timer reads the injection time
    bool was_activated = false; // since the window was loaded
};
inline AcquisitionState acquisition_state;

void connect_acquisition_window();

} // namespace zol::diagnostics
