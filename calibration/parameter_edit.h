// The edit of any parameter of the unit by its number, for those who know what they do.
#pragma once

namespace zol::calibration {

// Asks for number and value and writes them, with no test of either; 4000 is a number of the
// tool's own and is not sent. Leaves the polling to the watchdog.
void edit_parameter_by_number();

} // namespace zol::calibration
