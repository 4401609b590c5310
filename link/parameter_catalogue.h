// The one table of the control unit's parameters: what each number means, its unit, its factory
// value, where the image holds it and which mirror it fills. The rows are in
// link/parameter_catalogue.inc.
//
// A handler names a parameter by its identifier, `par::changeover_rpm`. A value is a plain integer
// as on the wire. Nothing here is read from the unit, and no value is checked against its row.
#pragma once

#include "link/parameter_mirrors.h"

#include <cstddef>
#include <optional>

namespace zol::link {

// The numbers under their identifiers.
namespace par {

#define PARAMETER(number, identifier, ...) inline constexpr int identifier = number;
#define CORRECTION_CELLS(first, last)
#include "link/parameter_catalogue.inc"

} // namespace par

// The words of the image that the first read takes together. Which groups it takes depends on its
// path and on the firmware.
enum class WordGroup {
    unread,
    base,       // every family, both paths
    activation, // every family, activation path; the dialog path under its own conditions, if at
                // all
    cut_off,    // every family, activation path; the dialog path with the extended words
    lambda,
    eobd,
    extended, // only in newer firmware
};

// Where each layout of the image has the parameter: the 1-based position of its high byte, or 0.
// The EOBD layout is that of family 0, and of every family that has none of its own.
struct Positions {
    std::size_t eobd, family_1, families_2_to_4;
};

struct Parameter {
    int number;
    const char* identifier;
    const char* meaning;
    const char* unit; // and scale, or the values that it can have; "-" for none
    std::optional<int> factory_value;
    WordGroup group;
    Positions positions;
    double ParameterMirrors::*mirror; // null: the tool keeps no copy
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

// In the order of their numbers, without the correction cells.
inline constexpr auto& parameter_catalogue = catalogue_columns::rows;

// The row of an identifier. A number that has no row does not compile.
consteval const Parameter& parameter(int number) {
    for (const Parameter& row : parameter_catalogue)
        if (row.number == number) return row;
    throw "the catalogue has no such parameter";
}

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
