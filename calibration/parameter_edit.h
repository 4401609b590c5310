// Writes any parameter of the unit by its number, for service engineers. Number and value are not
// checked, except that they must fit into a frame (link/ecu_frames.h).
#pragma once

namespace zol::calibration {

// Asks for number and value and writes them. A text that is not a number counts as 0. 4000 is not a
// parameter of the unit and is not sent. Does not restart polling.
void edit_parameter_by_number();

} // namespace zol::calibration
