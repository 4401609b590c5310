// Writes any parameter of the unit by its number. For service engineers; nothing is checked.
#pragma once

namespace zol::calibration {

// Asks for number and value and writes them. 4000 is not a parameter of the unit and is not sent.
// Leaves the restart of polling to the watchdog.
void edit_parameter_by_number();

} // namespace zol::calibration
