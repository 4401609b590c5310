// The acquisition of the injection time: the window follows the petrol injection time while the
// fitter runs the engine up, keeps the highest, and makes three calibration points of it on saving.
#pragma once

namespace zol::diagnostics {

struct AcquisitionState {
    bool acquiring = false;     // the run flag
    bool was_activated = false; // since it was loaded
};
inline AcquisitionState acquisition_state;

void connect_acquisition_window();

} // namespace zol::diagnostics
