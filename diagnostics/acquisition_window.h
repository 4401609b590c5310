// The acquisition of the injection time: the window follows the petrol injection time while the
// fitter runs the engine up, keeps the highest, and makes three calibration points of it on saving.
#pragma once

namespace zol::diagnostics {

void connect_acquisition_window();

} // namespace zol::diagnostics
