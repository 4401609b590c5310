// The unit's parameter image as a text file for a fitter or a service engineer, and the prompt that
// writes any parameter by its number.
#pragma once

#include "link/ecu_frames.h"

#include <string>

namespace zol::maintenance {

// The text of the dump: one line of Latin-1 for each word of the image from byte 6 to byte 106 that
// the reply holds. The labels are those of the layout of family 0, for every family.
std::string dump_text(const link::Reply& image);

// Reads the image, as often as it takes, and puts its text into "\log\setting.txt" in place of an
// older one. A log folder that is missing, full or closed leaves everything as it was, with no
// message. Leaves the polling stopped.
void dump_parameters();

// Asks for a parameter and its value, and writes it; what is no number counts as 0. Leaves the
// polling stopped.
void edit_parameter();

void connect_parameter_dump();

} // namespace zol::maintenance
