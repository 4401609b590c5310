// Where the parameters stand in the image, the reply to command 1. The layout depends on the
// firmware family; positions count from 1 and name the high byte of a word.
#pragma once

#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"

#include <span>

namespace zol::link {

struct ImageWord {
    std::size_t position;
    double ParameterMirrors::*mirror;
};

// Words of every family, on both roads of the first read.
std::span<const ImageWord> base_words();
// Words of every family that only the road of activation reads: it takes them at once, the road of
// the connection dialog not at all or behind a condition of its own.
std::span<const ImageWord> activation_words();
// Changeover speed and gas cut-off: base words that the dialog's road reads with the extended ones.
std::span<const ImageWord> cut_off_words();
constexpr std::size_t injector_latency_position = 54;

// Lambda settings: where a family keeps them.
std::span<const ImageWord> lambda_words_family_1();
std::span<const ImageWord> lambda_words_families_2_to_4();
constexpr std::size_t lambda_kind_position = 150; // the same for both
std::span<const ImageWord> eobd_words();

// Words that only newer firmware has.
std::span<const ImageWord> extended_words_family_1();
std::span<const ImageWord> extended_words_families_2_to_4();

// Takes each word that the reply holds into its mirror; the others keep what they have.
void take_words(const Reply& image, std::span<const ImageWord> words);

} // namespace zol::link
