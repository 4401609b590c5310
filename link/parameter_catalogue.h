// The parameter catalogue: the only table of the control unit's parameters. It holds each
// parameter's number, meaning, unit, factory value, positions in the image, and mirror. The rows
// are in link/parameter_catalogue.inc.
//
// Code names a parameter by its identifier, such as `par::changeover_rpm`. Values are integers as
// on the wire. The catalogue does not change at run time, and values are not checked against it.
#pragma once

#include "link/parameter_mirrors.h"

#include <cstddef>
#include <optional>

namespace zol::link {

// The parameter numbers.
namespace par {

#define PARAMETER(number, identifier, ...) inline constexpr int identifier = number;
#define CORRECTION_CELLS(first, last)
#include "link/parameter_catalogue.inc"

} // namespace par

// Groups of words that the first read takes together. Its path and the firmware decide which groups
// it takes.
enum class WordGroup {
    unread,     // none: the first read does not take them
    base,       // every family, both paths
    activation, // every family, activation path; the dialog path reads these only under its own
                // conditions, if at all
    cut_off,    // every family, activation path; the dialog path with the extended words
    lambda,     // families 1 to 4
    eobd,       // every family but 1; the activation path not in family 3 either
    extended,   // only in newer firmware
};

// The 1-based position of the parameter's high byte in each layout of the image; 0 if the layout
// does not have it. Family 0 and every family without its own layout use the EOBD layout.
struct Positions {
    std::size_t eobd, family_1, families_2_to_4;
};

struct Parameter {
    int number;
    const char* identifier;
    const char* meaning;
    const char* unit; // and scale, or the possible values; "-" for none
    std::optional<int> factory_value;
    WordGroup group;
    Positions positions;
    double ParameterMirrors::*mirror; // null: no mirror
};

namespace catalogue_columns {

using enum WordGroup;
using P = ParameterMirrors;
inline constexpr auto none = std::nullopt;

inline constexpr Parameter rows[] = {
#define PARAMETER(number, identifier, meaning, unit, factory, group, eobd, one, two_to_four,       \
                  mirror)                                                                          \
    {number, #identifier, meaning, unit, factory, group, {eobd, one, two_to_four}, mirror},
#define CORRECTION_CELLS(first, last)
#include "link/parameter_catalogue.inc"
};

} // namespace catalogue_columns

// All rows in the order of their numbers. The correction cells have no rows.
inline constexpr auto& parameter_catalogue = catalogue_columns::rows;

// The row of a parameter. A number without a row does not compile.
consteval const Parameter& parameter(int number) {
    for (const Parameter& row : parameter_catalogue)
        if (row.number == number) return row;
    throw "the catalogue has no such parameter";
}

// Correction cells with consecutive numbers: parameters whose effect is not known. Only the factory
// reset writes them, all with the same value.
struct CellRun {
    int first, last;
};

inline constexpr CellRun correction_cell_runs[] = {
#define PARAMETER(...)
#define CORRECTION_CELLS(first, last) {first, last},
#include "link/parameter_catalogue.inc"
};

inline constexpr int correction_cell_factory_value = 100;

} // namespace zol::link
