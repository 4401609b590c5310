// The parameter dump, a text file with the unit's parameter image, and the prompt that writes any
// parameter by its number.
#pragma once

#include "link/ecu_frames.h"

#include <string>

namespace zol::maintenance {

// The text of the dump in Latin-1: one line for each word at bytes 6 to 107 of the image, as far as
// the reply holds them. The labels are those of family 0's layout, for every family.
std::string dump_text(const link::Reply& image);

// Reads the image, repeating the request without limit, and replaces "\log\setting.txt" with its
// text. If the file cannot be written, the old one stays and nothing is reported. Does not restart
// polling.
void dump_parameters();

// Asks for a parameter and its value and writes it. A text that is not a number counts as 0. Does
// not restart polling. No control calls it; Ctrl+V calls calibration/parameter_edit.h.
void edit_parameter();

void connect_parameter_dump();

} // namespace zol::maintenance
