// Copies parameters from the image (the reply to command 1) into their mirrors. The catalogue has
// their positions in each layout; the two paths of the first read decide which groups they take.
#pragma once

#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"

namespace zol::link {

// A layout is a column of the catalogue, such as &Positions::family_1.
using Layout = std::size_t Positions::*;

// Copies each word of the group into its mirror. A word that the reply does not have leaves its
// mirror unchanged. Base, activation and cut-off words have the same position in every layout.
void take_words(const Reply& image, WordGroup group, Layout layout = &Positions::eobd);

// The same for one parameter.
void take_word(const Reply& image, const Parameter& word, Layout layout = &Positions::eobd);

} // namespace zol::link
