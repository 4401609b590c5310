// Takes parameters out of the image, the reply to command 1, into their mirrors. Where a layout of
// the image has them is in the catalogue; which groups of words are taken is up to the two paths of
// the first read.
#pragma once

#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"

namespace zol::link {

// A layout is a column of the catalogue, such as &Positions::family_1.
using Layout = std::size_t Positions::*;

// Takes each word of the group that the reply holds into its mirror; the others keep what they
// have. Base words, those of activation and of the cut-off have the same position in every layout.
void take_words(const Reply& image, WordGroup group, Layout layout = &Positions::eobd);

// The same for one parameter.
void take_word(const Reply& image, const Parameter& word, Layout layout = &Positions::eobd);

} // namespace zol::link
